#include "SampleTour.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "html/HtmlPageText.h"
#include "html/VxHtmlView.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr int kTourWindowId = wxID_HIGHEST + 920;

wchar_t const kTourStyle[] =
    L"body { font-family: sans-serif; margin: 12px 16px; font-size: 14px }\n"
    L"h1 { font-size: 20px; color: #204a87; margin-bottom: 4px }\n"
    L"h2 { font-size: 15px; margin: 14px 0 2px 0 }\n"
    L"p.intro { color: #555753 }\n"
    L"ul { margin: 2px 0; padding-left: 20px }\n"
    L"a { color: #204a87 }";

}  // namespace

std::vector<wxString> TourSubsystems() {
  return {Tr("Tour", "Application frame"),
          Tr("Tour", "Settings and system access"),
          Tr("Tour", "Message dialogs"),
          Tr("Tour", "Long-running work"),
          Tr("Tour", "Pictures and printing"),
          Tr("Tour", "Dates and times"),
          Tr("Tour", "Lists and trees"),
          Tr("Tour", "Property editing"),
          Tr("Tour", "Favourites"),
          Tr("Tour", "Audit trail"),
          Tr("Tour", "Services and system monitors"),
          Tr("Tour", "HTML and help"),
          Tr("Tour", "Drawing and small controls")};
}

std::vector<TourStop> TourStops() {
  // Built at each call: the labels are translated when shown.
  // clang-format off
  return {
      {1, "About", Tr("Tour", "The about box"), wxID_ABOUT, true},
      {1, "FailingHandler", Tr("Tour", "A failure inside a dialog's handler"), kFailingHandlerCommand, true},
      {1, "CrashNullWrite", Tr("Tour", "A crash: a dump, then the report (ends the application)"), kCrashNullWriteCommand, false},
      {2, "DefaultFolder", Tr("Tour", "The default folder, kept in the settings"), kDefaultFolderCommand, true},
      {2, "AuditTrailUserInfo", Tr("Tour", "User information kept in the registry"), kAuditTrailUserInfoCommand, true},
      {3, "MessageOk", Tr("Tour", "A message box"), kOkBoxCommand, true},
      {3, "MessageYesNo", Tr("Tour", "A question"), kYesNoBoxCommand, true},
      {3, "MessageCheckBox", Tr("Tour", "A message with a check box"), kCheckBoxCommand, true},
      {3, "DontShowAgain", Tr("Tour", "A message that need not come again"), kDontShowAgainCommand, true},
      {3, "DetailsOpen", Tr("Tour", "Details of a message"), kDetailsOpenCommand, true},
      {3, "InfoHtml", Tr("Tour", "Information as a page"), kInfoHtmlCommand, true},
      {3, "ScrollBox", Tr("Tour", "A long message that scrolls"), kScrollBoxCommand, true},
      {3, "ArchiveRuns", Tr("Tour", "Yes, no, cancel, to all"), kArchiveRunsCommand, true},
      {3, "AskNumber", Tr("Tour", "Asking for a number"), kAskNumberCommand, true},
      {3, "AskSeveralRuns", Tr("Tour", "Choosing several items"), kAskSeveralRunsCommand, true},
      {3, "AskClass", Tr("Tour", "Choosing a class"), kAskClassCommand, true},
      {3, "Open", Tr("Tour", "Choosing a file"), kOpenCommand, true},
      {3, "SearchFolders", Tr("Tour", "A collection of folders"), kSearchFoldersCommand, true},
      {4, "RunCalculation", Tr("Tour", "Progress that can be stopped"), kRunCalculationCommand, true},
      {4, "RunInBackground", Tr("Tour", "Work on a thread behind a waiting dialog"), kRunInBackgroundCommand, true},
      {4, "BackgroundResult", Tr("Tour", "A result posted from a low-priority thread"), kBackgroundResultCommand, true},
      {5, "Splash", Tr("Tour", "A picture shaped by its colours (the splash)"), kSplashCommand, true},
      {5, "OpenPicture", Tr("Tour", "Opening a picture"), kOpenPictureCommand, true},
      {5, "SaveWindowPicture", Tr("Tour", "A window saved as BMP, PNG or JPEG"), kSaveWindowPictureCommand, true},
      {5, "PrintPage", Tr("Tour", "The print page with its preview"), kPrintPageCommand, true},
      {5, "Print", Tr("Tour", "Printing the run list"), kPrintCommand, true},
      {6, "DateFormat", Tr("Tour", "The date format"), kDateFormatCommand, true},
      {6, "TimeGrid", Tr("Tour", "Date and time controls"), kTimeGridCommand, true},
      {7, "CalibrationList", Tr("Tour", "The report list"), kCalibrationListCommand, true},
      {7, "PickRun", Tr("Tour", "The filter popup over a million rows"), kPickRunCommand, true},
      {7, "RunsByProject", Tr("Tour", "The tree"), kRunsByProjectCommand, true},
      {7, "Series", Tr("Tour", "The tree list"), kSeriesCommand, true},
      {7, "Instruments", Tr("Tour", "The check combo box"), kInstrumentsCommand, true},
      {8, "PropertyEditors", Tr("Tour", "In-place editors"), kPropertyEditorsCommand, true},
      {8, "PropertyList", Tr("Tour", "The property list"), kPropertyListCommand, true},
      {8, "RunSettings", Tr("Tour", "A property sheet"), kRunSettingsCommand, true},
      {8, "NewRun", Tr("Tour", "A wizard"), kNewRunWizardCommand, true},
      {8, "Properties", Tr("Tour", "The Properties window"), kPropertiesCommand, true},
      {9, "OpenFavourites", Tr("Tour", "Favourite items"), kOpenFavouritesCommand, true},
      {9, "FavouritesPane", Tr("Tour", "The favourites pane"), kFavouritesPaneCommand, true},
      {9, "AddCommand", Tr("Tour", "Adding a command to the favourites"), kAddCommandToFavouritesCommand, true},
      {10, "AuditTrailSettings", Tr("Tour", "Audit trail settings"), kAuditTrailSettingsCommand, true},
      {10, "AuditTrailView", Tr("Tour", "The audit trail"), kAuditTrailViewCommand, true},
      {11, "Service", Tr("Tour", "A service and its control"), kServiceCommand, true},
      {12, "Report", Tr("Tour", "A generated page whose links run commands"), kReportCommand, true},
      {12, "HelpPane", Tr("Tour", "A help file shown inside a window"), kHelpPaneCommand, true},
      {12, "HelpContents", Tr("Tour", "The help window"), kHelpContentsCommand, true},
      {12, "HelpOnRuns", Tr("Tour", "A help topic by number"), kHelpOnRunsCommand, true},
      {12, "PopupHelp", Tr("Tour", "Pop-up help on F1"), kPopupHelpDialogCommand, true},
      {13, "Edits", Tr("Tour", "Edits"), kEditsCommand, true},
      {13, "Notes", Tr("Tour", "A rich text pad"), kNotesCommand, true},
      {13, "ReleaseNotes", Tr("Tour", "Rich text from a resource"), kReleaseNotesCommand, true},
      {13, "SendFeedback", Tr("Tour", "Mail through the desktop's mail program"), kSendFeedbackCommand, false},
  };
  // clang-format on
}

wxString BuildTourPage() {
  wxString page =
      "<h1>" + EscapeHtmlText(Tr("Tour", "A tour of the library")) + "</h1><p class=intro>" +
      EscapeHtmlText(Tr("Tour",
                        "Each link opens what the library offers for the subsystem above "
                        "it, in this application.")) +
      "</p>";
  std::vector<wxString> const subsystems = TourSubsystems();
  for (size_t index = 0; index < subsystems.size(); ++index) {
    page += wxString::Format("<h2 id=s%zu>%zu. %s</h2><ul>", index + 1, index + 1,
                             EscapeHtmlText(subsystems[index]));
    for (TourStop const & stop : TourStops()) {
      if (stop.subsystem != static_cast<int>(index + 1)) continue;
      page += wxString::Format("<li><a id='%s' href='app:%s'>%s</a></li>", stop.link, stop.link,
                               EscapeHtmlText(stop.label));
    }
    page += "</ul>";
  }
  return page;
}

wxFrame * OpenTourWindow(wxFrame & owner) {
  auto * tour = new wxFrame(&owner, kTourWindowId, Tr("Window title", "Tour of the library"),
                            wxDefaultPosition, wxSize(520, 600));
  auto * view = new VxHtmlView(tour, wxID_ANY);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(view, 1, wxEXPAND);
  tour->SetSizer(sizer);
  VxHtmlView::CommandMap commands;
  for (TourStop const & stop : TourStops())
    commands[wxString::FromUTF8(stop.link)] = static_cast<unsigned int>(stop.command);
  view->SetCmdMap(commands, &owner);
  view->SetHTML(BuildTourPage().wc_str(), kTourStyle);
  tour->Show();
  return tour;
}

VxHtmlView * TourView(wxFrame & tour) {
  for (wxWindow * child : tour.GetChildren())
    if (auto * view = dynamic_cast<VxHtmlView *>(child)) return view;
  return nullptr;
}

void AddTourCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kTourCommand, Tr("Menu command", "&Tour of the library"));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OpenTourWindow(frame); }, kTourCommand);
}
