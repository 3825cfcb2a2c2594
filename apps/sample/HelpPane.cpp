#include "HelpPane.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "help/CHHCtrl.h"
#include "utl/Translation.h"

CHHCtrl * OpenHelpPane(wxFrame & frame) {
  auto * pane =
      new wxFrame(&frame, wxID_ANY, vx3::Tr("Sample help"), wxDefaultPosition, wxSize(560, 420),
                  wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT, kHelpPaneName);
  auto * control = new CHHCtrl;
  control->Create(pane, wxRect(wxPoint(), pane->GetClientSize()), wxID_ANY, kSampleHelpFile);
  control->SetCmdMap({{"RunCalculation", kRunCalculationCommand}}, &frame);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(control, 1, wxEXPAND);
  pane->SetSizer(sizer);
  pane->Show();
  control->NavigateChm(1U);
  return control;
}

void AddHelpPaneCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kHelpPaneCommand, vx3::Tr("Menu command", "Help &pane"));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OpenHelpPane(frame); }, kHelpPaneCommand);
}
