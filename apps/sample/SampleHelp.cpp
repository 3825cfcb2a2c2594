#include "SampleHelp.h"

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "HelpPane.h"
#include "SampleCommands.h"
#include "help/ContextHelpBinding.h"
#include "help/HelpTopicViewer.h"
#include "html/VxHtmlHelp.h"
#include "html/WindowContextHelpId.h"
#include "utl/Paths.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

PopupHelpDialog::PopupHelpDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Pop-up help"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE) {
  // The title bar's "?" where the window manager offers one.
  SetExtraStyle(GetExtraStyle() | wxDIALOG_EX_CONTEXTHELP);
  auto * grid = new wxFlexGridSizer(2, 8, 8);
  auto const add = [this, grid](char const * label, wxWindow * field, Popup popup) {
    grid->Add(new wxStaticText(this, wxID_ANY, vx3::Tr(label)), 0, wxALIGN_CENTER_VERTICAL);
    grid->Add(field, 1, wxEXPAND);
    VxSetWindowContextHelpId(field, popup);
  };
  add("Run name:", new wxTextCtrl(this, kRunNameField, "Run 12"), kRunNamePopup);
  add("Instrument:", new wxTextCtrl(this, kInstrumentField, "GC-2"), kInstrumentPopup);
  add("Calibration points:", new wxSpinCtrl(this, kPointsField, "5"), kPointsPopup);
  auto * text = new wxStaticText(this, wxID_ANY, vx3::Tr("Press F1 on a field for its help."));
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(text, 0, wxALL, 10);
  sizer->Add(grid, 1, wxEXPAND | wxLEFT | wxRIGHT, 10);
  sizer->Add(CreateButtonSizer(wxOK), 0, wxEXPAND | wxALL, 10);
  SetSizerAndFit(sizer);
  VxBindContextHelp(*this, L"popups.txt");
}

void AddHelpCommands(wxMenu & menu, wxFrame & frame) {
  std::string const file = VxGetExecutableDirectory() + "/" + vx3::WideToUtf8(kSampleHelpFile);
  VxHtmlHelp::Instance()->SetHelpFile(vx3::Utf8ToWide(file).c_str());
  // The help topics' "app:" links, as the help pane has them.
  SetHelpWindowCommands({{"RunCalculation", kRunCalculationCommand}});
  menu.Append(kHelpContentsCommand, vx3::Tr("Menu command", "&Contents"));
  menu.Append(kHelpIndexCommand, vx3::Tr("Menu command", "&Index"));
  menu.Append(kHelpSearchCommand, vx3::Tr("Menu command", "&Search"));
  menu.Append(kHelpOnRunsCommand, vx3::Tr("Menu command", "Help on &runs"));
  menu.Append(kPopupHelpDialogCommand, vx3::Tr("Menu command", "&Pop-up help..."));
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { VxHtmlHelp::Instance()->DisplayDefaultTopic(); },
      kHelpContentsCommand);
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { VxHtmlHelp::Instance()->DisplayIndex(); },
      kHelpIndexCommand);
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { VxHtmlHelp::Instance()->Search(); }, kHelpSearchCommand);
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { VxHtmlHelp::Instance()->DisplayTopic(kRunsHelpTopic); },
      kHelpOnRunsCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        auto * dialog = new PopupHelpDialog(&frame);
        dialog->Bind(
            wxEVT_BUTTON, [dialog](wxCommandEvent &) { dialog->Destroy(); }, wxID_OK);
        dialog->Show();
      },
      kPopupHelpDialogCommand);
}
