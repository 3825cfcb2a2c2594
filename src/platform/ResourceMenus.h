#pragma once
// Menus and accelerator tables known by number, from the resource chain
// (platform/ResourceModule.h): menus/<id>.xrc and accelerators/<id>.txt.

#include <memory>
#include <string>
#include <vector>

#include "platform/AcceleratorText.h"

class wxMenu;
class wxMenuBar;

// Menu resource `id` as a bar: its wxMenuBar object, or a bar holding its
// wxMenu object. Labels and titles are translated; items of the standard
// commands carry their stand-in ids (platform/MenuCommandIds.h). Null when
// no module has the menu, it cannot be built or an item's command cannot
// stand in a menu.
std::unique_ptr<wxMenuBar> LoadResourceMenuBar(unsigned id);

// The menu a context menu shows: the bar's first menu, or the wxMenu
// object itself.
std::unique_ptr<wxMenu> LoadResourcePopupMenu(unsigned id);

// Accelerator table `id`. False when no module has it or a line cannot be
// read (`error` says which; the lines before it are kept).
bool LoadResourceAccelerators(unsigned id, std::vector<AcceleratorLine> & lines,
                              std::string * error = nullptr);
