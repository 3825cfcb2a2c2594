#include "AskCommands.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <vector>

#include "SampleCommands.h"
#include "dialogs/SelectNewClassDialog.h"
#include "dialogs/VxInputDialog.h"
#include "lists/SelectItemDialog.h"
#include "platform/WinUser.h"
#include "utl/KarvinFilterValidator.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

std::vector<wxString> const & Runs() {
  static std::vector<wxString> const runs = [] {
    std::vector<wxString> all;
    for (int run = 1; run <= 40; ++run) all.push_back(wxString::Format("Calibration run %d", run));
    return all;
  }();
  return runs;
}

std::vector<wxString> const & Models() {
  static std::vector<wxString> const models{"Linear", "Quadratic", "Cubic", "Exponential"};
  return models;
}

wxString Cancelled() { return Tr("Cancelled."); }

wxString Rows(std::vector<int> const & rows) {
  wxString text;
  for (int row : rows) text += (text.empty() ? "" : ", ") + Runs()[static_cast<size_t>(row)];
  return text.empty() ? Tr("no run") : text;
}

}  // namespace

void AppendAskCommands(wxMenu & menu, wxFrame & frame) {
  auto * ask = new wxMenu;
  ask->Append(kAskNumberCommand, Tr("Menu command", "&Number of repeats..."));
  ask->Append(kAskNameAndModelCommand, Tr("Menu command", "Name and &model..."));
  ask->Append(kAskModelCommand, Tr("Menu command", "&Fit model..."));
  ask->Append(kAskFilterCommand, Tr("Menu command", "Fi&lter..."));
  ask->AppendSeparator();
  ask->Append(kAskOneRunCommand, Tr("Menu command", "&One run..."));
  ask->Append(kAskSeveralRunsCommand, Tr("Menu command", "&Several runs..."));
  ask->Append(kAskRunsAndFormatCommand, Tr("Menu command", "Runs and export &format..."));
  ask->AppendSeparator();
  ask->Append(kAskClassCommand, Tr("Menu command", "New &class..."));
  ask->Append(kAskPhaseCommand, Tr("Menu command", "&Phase..."));
  menu.AppendSeparator();
  menu.AppendSubMenu(ask, Tr("Menu command", "&Ask"));

  auto on = [&frame](int command, auto action) {
    frame.Bind(
        wxEVT_MENU, [&frame, action](wxCommandEvent &) { frame.SetStatusText(action(&frame)); },
        command);
  };
  on(kAskNumberCommand, [](wxFrame * f) {
    wxString value = "3";
    VxInputDialog dialog(f, L"Repeats", L"How often should each run be measured?",
                         L"Between 1 and 20 repeats.", value, 2);
    dialog.SetNumberOnly(1, 20);
    return dialog.DoModal() == IDOK ? Tr("Repeats: ") + value : Cancelled();
  });
  on(kAskNameAndModelCommand, [](wxFrame * f) {
    wxString value = "Fit 1";
    VxInputDialog dialog(f, L"New fit", L"Name of the fit:", L"", value, 40, nullptr, &Models());
    if (dialog.DoModal() != IDOK) return Cancelled();
    return value + " (" + Models()[static_cast<size_t>(std::max(0, dialog.GetComboCurSel()))] + ")";
  });
  on(kAskModelCommand, [](wxFrame * f) {
    VxInputDialog dialog(L"Fit model", L"Model of the calibration curve:", L"", Models(), 0, f);
    if (dialog.DoModal() != IDOK || dialog.GetComboCurSel() < 0) return Cancelled();
    return Tr("Model: ") + Models()[static_cast<size_t>(dialog.GetComboCurSel())];
  });
  on(kAskFilterCommand, [](wxFrame * f) {
    wxString value = "> 10 & < 20";
    KarvinFilterValidator validator;
    VxInputDialog dialog(f, L"Filter", L"Show the values that match:", L"For example: > 10 & < 20",
                         value, 0, &validator);
    return dialog.DoModal() == IDOK ? Tr("Filter: ") + value : Cancelled();
  });
  on(kAskOneRunCommand, [](wxFrame * f) {
    int selected = 0;
    if (VxSingleSelectItemDialog(L"Runs", L"Which run is the reference?", L"", Runs(), &selected,
                                 false, f) != IDOK)
      return Cancelled();
    return Tr("Reference: ") + Runs()[static_cast<size_t>(selected)];
  });
  on(kAskSeveralRunsCommand, [](wxFrame * f) {
    std::vector<int> selected{0, 2};
    if (VxMultiSelectItemDialog(L"Runs", L"Tick the runs to fit:", L"Run", Runs(), &selected, true,
                                f) != IDOK)
      return Cancelled();
    return Tr("Runs: ") + Rows(selected);
  });
  on(kAskRunsAndFormatCommand, [](wxFrame * f) {
    std::vector<int> selected{1};
    std::vector<wxString> const formats{Tr("Text"), Tr("HTML"), Tr("Spreadsheet")};
    int format = 1;
    if (VxOptionMultiSelectItemDialog(L"Export", L"Runs to export:", L"Run", Runs(), &selected,
                                      formats, &format, false, false, f) != IDOK)
      return Cancelled();
    return Rows(selected) + " (" + formats[static_cast<size_t>(format - 1)] + ")";
  });
  on(kAskClassCommand, [](wxFrame * f) {
    SelectNewClassDialog dialog({"1", "2", "Reference"}, false, f);
    return dialog.DoModal() == IDOK ? Tr("Class: ") + dialog.GetSelected() : Cancelled();
  });
  on(kAskPhaseCommand, [](wxFrame * f) {
    SelectNewClassDialog dialog({"Heating", "Holding", "Cooling"}, true, f);
    return dialog.DoModal() == IDOK ? Tr("Phase: ") + dialog.GetSelected() : Cancelled();
  });
}
