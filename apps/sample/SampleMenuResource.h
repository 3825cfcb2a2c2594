#pragma once
// The sample's menus as a menu resource, for the add-command dialog. Its
// items carry fixed ids that the main frame binds as aliases of the sample's
// own commands, whose numbers move whenever a command is added; a favourite
// stored with an alias id keeps running the same command.

#include <wx/defs.h>

class wxFrame;

constexpr unsigned int kSampleMenuResource = 7100;

struct SampleMenuAlias {
  int resourceId;  // the item's id in the menu resource
  int command;     // the sample command it runs
};

// The alias table, `count` rows.
SampleMenuAlias const * SampleMenuAliases(size_t & count);

// Binds every alias on `frame`: a menu event or an update request for the
// alias id goes on as one for its command.
void BindSampleMenuAliases(wxFrame & frame);

// Gives `frame` a tool bar of three of those commands (by their alias ids,
// whose strings the sample's resource module holds).
void AddSampleToolBar(wxFrame & frame);
