#pragma once
// The sample's property sheets (Tools menu): "Run settings", a tabbed sheet
// whose pages come from the sample's dialog templates (a page with help, a
// page that refuses to apply limits the wrong way round), and "New run", a
// wizard over the same pages. What was applied goes to the status bar.

class wxFrame;
class wxMenu;

// Appends both commands to `menu`; `frame` handles them.
void AddRunSettingsCommands(wxMenu & menu, wxFrame & frame);
