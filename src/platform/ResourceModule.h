#pragma once
// Resource modules: sets of dialog templates, strings, bitmaps and text
// resources known by number, embedded at build time (see
// cmake/TalvoResources.cmake for the folder layout).
//
// The library registers its own module when it is loaded; an application
// registers its module the same way (its generated module registers itself
// when the executable starts). A lookup searches, as the original's resource
// chain did: the current resource module (AfxSetResourceHandle,
// SetResourceInstance), then the application's module, then the library's
// and other modules in the order they were registered.

#include <string>

#include <wx/bitmap.h>
#include <wx/string.h>

#include "platform/ResourceModuleData.h"

class wxDialog;
class wxPanel;
class wxXmlResourceHandler;
class wxWindow;

class ResourceModule;
// A module handle, standing where an HINSTANCE stood; null is no module.
using HINSTANCE = ResourceModule const *;

enum class ResourceModuleRole { Application, Library };

// Adds `data` (which must outlive the registration) to the chain. A second
// application module replaces the first as the application's.
HINSTANCE RegisterResourceModule(ResourceModuleData const & data, ResourceModuleRole role);
// Takes a module out of the chain (a plug-in being unloaded); the current
// handle falls back to the application's module if it was this one.
void UnregisterResourceModule(HINSTANCE module);

// The registered module of that name, or null.
HINSTANCE FindResourceModule(char const * name);
HINSTANCE GetApplicationResourceModule();
// The name a module was generated with ("TALVOutlwin" for the library).
char const * GetResourceModuleName(HINSTANCE module);

// The current resource module: the one installed with AfxSetResourceHandle,
// else the application's module (null if there is none).
HINSTANCE AfxGetResourceHandle();
// Installs `module` as the current one; null returns to the default.
void AfxSetResourceHandle(HINSTANCE module);

// --- Lookups through the chain -------------------------------------------

// The English message id of string `id`, or {nullptr, nullptr}.
ResourceMessage FindResourceMessage(unsigned id);
// String `id` translated for display; empty when no module has it.
wxString LoadResourceString(unsigned id);
// The bytes of resource `id` of `type`; empty when no module has it.
std::string LoadResourceBytes(unsigned id, unsigned type);
// Bitmap `id` (a PNG); an invalid bitmap when absent or undecodable.
wxBitmap LoadResourceBitmap(unsigned id);
// Creates `dialog` from template `templateId`: the XRC wxDialog object named
// "<templateId>", whose controls named by number get those numbers as ids.
// Titles and labels are translated. `extraStyle` is added to the template's
// window style. A dialog whose window exists already (it ran before and its
// controls were destroyed) gets the template's title, size and controls
// anew. False when no module has the template or it cannot be built.
bool LoadDialogTemplate(wxDialog & dialog, wxWindow * parent, unsigned templateId,
                        long extraStyle = 0);
// Creates `panel` as a child of `parent` from template `templateId`, where
// the XRC object named "<templateId>" is a wxPanel: a pane laid out like a
// dialog (a form view). Labels are translated. False when no module has the
// template or it cannot be built.
bool LoadPanelTemplate(wxPanel & panel, wxWindow * parent, unsigned templateId);

// Fills `page`, a panel whose window exists, with the controls of template
// `templateId` (translated, named by number as in a dialog); the template's
// title and size are left to the caller (ReadDialogTemplateFrame). False
// when no module has the template or it cannot be built.
bool LoadPageTemplate(wxPanel & page, unsigned templateId);
// The translated title (empty without one) and the size (wxDefaultSize
// without one) of template `templateId`, without building it. False when no
// module has the template.
bool ReadDialogTemplateFrame(unsigned templateId, wxString & title, wxSize & size);
// Lets the templates of every module (present and later) build a window
// class of a higher layer: `make` gives a new handler for each module's
// templates. Called once a process per class, as a window class is
// registered.
void AddDialogTemplateHandler(wxXmlResourceHandler * (*make)());

// --- In one module only ----------------------------------------------------

ResourceMessage FindResourceMessage(HINSTANCE module, unsigned id);
std::string LoadResourceBytes(HINSTANCE module, unsigned id, unsigned type);
