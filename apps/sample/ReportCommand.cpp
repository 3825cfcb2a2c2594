#include "ReportCommand.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "html/VxHtmlView.h"
#include "utl/Translation.h"

namespace {

wchar_t const kReportStyle[] =
    L"body { font-family: sans-serif; margin: 12px }\n"
    L"h1 { font-size: 18px; color: #204a87 }\n"
    L"table { border-collapse: collapse }\n"
    L"td, th { border: 1px solid #babdb6; padding: 2px 8px }\n"
    L"th { background: #eeeeec }\n"
    L"td.value { text-align: right }";

wchar_t const kReportPage[] =
    L"<h1>Runs of the sample</h1>"
    L"<table><tr><th>Run</th><th>Sample</th><th>Result</th></tr>"
    L"<tr><td>1</td><td>Blank</td><td class=value>0.12</td></tr>"
    L"<tr><td>2</td><td>Standard A</td><td class=value>4.87</td></tr>"
    L"<tr><td>3</td><td>Standard B</td><td class=value>9.65</td></tr></table>"
    L"<p><a id=run href='app:RunCalculation'>Run the calculation again</a> &middot; "
    L"<a id=format href='app:DateFormat'>Choose the date format</a></p>";

constexpr int kReportWindowId = wxID_HIGHEST + 900;

}  // namespace

wxFrame * OpenReportWindow(wxWindow & owner) {
  auto * report = new wxFrame(&owner, kReportWindowId, vx3::Tr("Window title", "Report"),
                              wxDefaultPosition, wxSize(560, 380));
  auto * view = new VxHtmlView(report, wxID_ANY);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(view, 1, wxEXPAND);
  report->SetSizer(sizer);
  view->SetCmdMap(
      {{L"RunCalculation", kRunCalculationCommand}, {L"DateFormat", kDateFormatCommand}}, &owner);
  view->SetHTML(kReportPage, kReportStyle);
  report->Show();
  return report;
}

VxHtmlView * ReportView(wxFrame & report) {
  for (wxWindow * child : report.GetChildren())
    if (auto * view = dynamic_cast<VxHtmlView *>(child)) return view;
  return nullptr;
}

void AddReportCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kReportCommand, vx3::Tr("Menu command", "&Report"));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OpenReportWindow(frame); }, kReportCommand);
}
