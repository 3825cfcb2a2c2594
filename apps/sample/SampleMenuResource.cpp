#include "SampleMenuResource.h"

#include <iterator>

#include <wx/artprov.h>
#include <wx/frame.h>
#include <wx/toolbar.h>

#include "SampleCommands.h"
#include "utl/Translation.h"

namespace {

// One row for each item of menus/7100.xrc.
SampleMenuAlias const kAliases[] = {
    {7110, kOpenCommand},           {7111, kSaveAsCommand},     {7112, kDefaultFolderCommand},
    {7120, kRunCalculationCommand}, {7121, kDateFormatCommand}, {7122, kReportCommand},
    {7123, kRunsByProjectCommand},  {7124, kNotesCommand},      {7130, kReleaseNotesCommand},
};

}  // namespace

SampleMenuAlias const * SampleMenuAliases(size_t & count) {
  count = std::size(kAliases);
  return kAliases;
}

void BindSampleMenuAliases(wxFrame & frame) {
  for (SampleMenuAlias const & alias : kAliases) {
    int const command = alias.command;
    frame.Bind(
        wxEVT_MENU,
        [&frame, command](wxCommandEvent & event) {
          wxCommandEvent forwarded(wxEVT_MENU, command);
          forwarded.SetEventObject(event.GetEventObject());
          frame.GetEventHandler()->ProcessEvent(forwarded);
        },
        alias.resourceId);
    // A command favourite asks whether its command is enabled: a command
    // without an update handler of its own is.
    frame.Bind(
        wxEVT_UPDATE_UI,
        [&frame, command](wxUpdateUIEvent & event) {
          wxUpdateUIEvent update(command);
          update.SetEventObject(&frame);
          bool const handled = frame.GetEventHandler()->ProcessEvent(update);
          event.Enable(!handled || !update.GetSetEnabled() || update.GetEnabled());
        },
        alias.resourceId);
  }
}

void AddSampleToolBar(wxFrame & frame) {
  if (frame.GetToolBar() != nullptr) return;
  wxToolBar * const bar = frame.CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT);
  wxSize const size(16, 16);
  bar->AddTool(7110, vx3::Tr("Tool", "Open"),
               wxArtProvider::GetBitmap(wxART_FILE_OPEN, wxART_TOOLBAR, size));
  bar->AddTool(7120, vx3::Tr("Tool", "Calculate"),
               wxArtProvider::GetBitmap(wxART_EXECUTABLE_FILE, wxART_TOOLBAR, size));
  bar->AddTool(7122, vx3::Tr("Tool", "Report"),
               wxArtProvider::GetBitmap(wxART_REPORT_VIEW, wxART_TOOLBAR, size));
  bar->Realize();
}
