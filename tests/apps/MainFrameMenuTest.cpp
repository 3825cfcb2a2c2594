// Every command of the sample's real main frame, fired from its menu bar:
// each opens what its item names (a file chooser for Open, a message box of
// the item's kind for the Messages items, ...). A command bound twice, or an
// id that two menus share, opens the wrong thing and fails here; an item
// without a row in the table fails too, so new commands get checked.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <set>
#include <typeinfo>
#include <vector>

#include <wx/app.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/statusbr.h>

#include "BatchCommand.h"
#include "CalibrationListDialog.h"
#include "EditsDialog.h"
#include "FavouritesPane.h"
#include "InstrumentsDialog.h"
#include "MainFrame.h"
#include "NotesDialog.h"
#include "ProjectTreeWindow.h"
#include "PropertyEditorsDialog.h"
#include "PropertyListDialog.h"
#include "ReleaseNotesDialog.h"
#include "SampleCommands.h"
#include "SampleHelp.h"
#include "SeriesDialog.h"
#include "ServiceDialog.h"
#include "TimeGridDialog.h"
#include "controls/VxSendMail.h"
#include "controls/VxSplashWindow.h"
#include "datetime/SpecifyDateFormat.h"
#include "dialogs/CSelectFolderDialog.h"
#include "dialogs/CustomMessageBoxDlg.h"
#include "dialogs/DetailsDialog.h"
#include "dialogs/DontShowAgainMessageBox.h"
#include "dialogs/FolderCollectionDialog.h"
#include "dialogs/InfoDialog.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/ProgressDialog.h"
#include "dialogs/ScrollMessageBox.h"
#include "dialogs/SelectNewClassDialog.h"
#include "dialogs/VxInputDialog.h"
#include "dialogs/YesNoCancelAll.h"
#include "favourites/AddCommandToFavouritesDlg.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "html/HelpEngine.h"
#include "lists/FilterListCtrlPopupBar.h"
#include "lists/SelectItemDialog.h"
#include "platform/MessageBoxType.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "platform/commctrl/CListCtrl.h"
#include "printing/PrintDialog.h"
#include "properties/VxModelessPropertySheet.h"
#include "properties/VxPropertySheet.h"
#include "utl/Utf.h"
#include "work/Progress.h"

namespace {

// What a command opens.
enum class Opens {
  kFileChooserToOpen,
  kFileChooserToSave,
  kFolderDialog,
  kFolderCollection,
  kCalculation,
  kBatchQuestion,
  kDateFormat,
  kTimeGrid,
  kRunPicker,          // the filter popup over the sample's runs
  kInstruments,        // the instruments dialog
  kReportWindow,       // the report window opens over the frame
  kCalibrationList,    // the sample's report list
  kSeries,             // the sample's tree list
  kMessageBox,         // a CustomMessageBoxDlg of `boxType` (buttons and icon)
  kFrameworkBox,       // the framework's message box of `boxType`, answered No
  kDetails,            // a details dialog
  kInfo,               // an information dialog
  kScrollBox,          // a message box whose text scrolls
  kNothing,            // says so in the status bar
  kAboutBox,           // the application's about command
  kCloseRequest,       // the frame is asked to close
  kProjectTree,        // the runs by project window
  kEdits,              // the edits dialog
  kNotes,              // the notes pad
  kSheet,              // a property sheet
  kWizard,             // a property sheet as a wizard
  kProperties,         // the modeless Properties window
  kReleaseNotes,       // the release notes
  kInput,              // an input dialog
  kSelectItem,         // the item selection
  kSelectClass,        // the class or phase choice
  kPropertyEditors,    // the property editors
  kService,            // the service dialog
  kPropertyList,       // the run settings in a property list
  kAuditTrailWindow,   // the audit trail's window opens over the frame
  kFavouritesPane,     // the favourites pane window
  kAddCommand,         // the pane with the add-command dialog over it
  kSplash,             // the splash window over the frame
  kHelp,               // a request to the help engine
  kPopupHelpDialog,    // the dialog with pop-up help
  kHelpPane,           // the sample's help pane over the frame
  kTourWindow,         // the tour of the library
  kPrintPage,          // the print page's window over the frame
  kPrintDialog,        // the print dialog (answered: cancelled)
  kBackgroundRun,      // the waiting dialog, cancelled
  kBackgroundFailure,  // the waiting dialog, then the failure told
  kNoMailProgram,      // the channel says there is no mail program
  kCrash,              // ends the process: SampleCrashTest fires it in a child
};

struct Expected {
  Opens opens;
  unsigned int boxType = 0;
};

// Keyed by menu and item label, mnemonics and accelerators left out.
std::map<wxString, Expected> const kExpected = {
    {"File/Open...", {Opens::kFileChooserToOpen}},
    {"File/Save As...", {Opens::kFileChooserToSave}},
    {"File/Default Folder...", {Opens::kFolderDialog}},
    {"File/Search Folders...", {Opens::kFolderCollection}},
    {"File/Open picture...", {Opens::kFileChooserToOpen}},
    {"File/Print Page...", {Opens::kPrintPage}},
    {"File/Print...", {Opens::kPrintDialog}},
    {"File/Print window...", {Opens::kPrintDialog}},
    {"File/Exit", {Opens::kCloseRequest}},
    {"Tools/Run calculation", {Opens::kCalculation}},
    {"Tools/Archive runs...", {Opens::kBatchQuestion}},
    {"Tools/Date format...", {Opens::kDateFormat}},
    {"Tools/Time grid...", {Opens::kTimeGrid}},
    {"Tools/Pick a run...", {Opens::kRunPicker}},
    {"Tools/Instruments...", {Opens::kInstruments}},
    {"Tools/Calibration list...", {Opens::kCalibrationList}},
    {"Tools/Service...", {Opens::kService}},
    {"Tools/Series...", {Opens::kSeries}},
    {"Tools/Copy runs", {Opens::kNothing}},
    {"Tools/Report", {Opens::kReportWindow}},
    {"Tools/Runs by project...", {Opens::kProjectTree}},
    {"Tools/Tree view", {Opens::kNothing}},
    {"Tools/Open favourites", {Opens::kDetails}},
    {"Tools/Favourites pane", {Opens::kFavouritesPane}},
    {"Tools/Edits...", {Opens::kEdits}},
    {"Favourites/Add Command...", {Opens::kAddCommand}},
    {"Tools/Notes", {Opens::kNotes}},
    {"Tools/Property editors...", {Opens::kPropertyEditors}},
    {"Tools/Run settings...", {Opens::kSheet}},
    {"Tools/New run...", {Opens::kWizard}},
    {"View/Properties", {Opens::kProperties}},
    {"Tools/Property list...", {Opens::kPropertyList}},
    {"Tools/Save window as picture (BMP, PNG or JPEG)...", {Opens::kFileChooserToSave}},
    {"Tools/Run in background", {Opens::kBackgroundRun}},
    {"Tools/Failing background run", {Opens::kBackgroundFailure}},
    {"Tools/Background result", {Opens::kNothing}},
    {"Messages/Information (OK)", {Opens::kMessageBox, MB_OK | MB_ICONINFORMATION}},
    {"Messages/Warning (OK, Cancel)", {Opens::kMessageBox, MB_OKCANCEL | MB_ICONWARNING}},
    {"Messages/Question (Yes, No)", {Opens::kMessageBox, MB_YESNO | MB_ICONQUESTION}},
    {"Messages/Relabelled buttons (Yes, No, Cancel)",
     {Opens::kMessageBox, MB_YESNOCANCEL | MB_ICONQUESTION}},
    {"Messages/With a help topic", {Opens::kMessageBox, MB_OK | MB_ICONINFORMATION}},
    {"Messages/With a check box", {Opens::kMessageBox, MB_YESNO}},
    {"Messages/Don't-show-again message", {Opens::kMessageBox, MB_OKCANCEL | MB_ICONINFORMATION}},
    {"Messages/Forget the stored answers", {Opens::kNothing}},
    {"Messages/Failure in a dialog handler", {Opens::kMessageBox, MB_OKCANCEL | MB_ICONHAND}},
    {"Messages/Details open", {Opens::kDetails}},
    {"Messages/Details closed", {Opens::kDetails}},
    {"Messages/Details, don't show again", {Opens::kDetails}},
    {"Messages/Information, plain text (Yes, No)", {Opens::kInfo}},
    {"Messages/Information, HTML", {Opens::kInfo}},
    {"Messages/Information, rich text", {Opens::kInfo}},
    {"Messages/Scroll box", {Opens::kScrollBox}},
    {"Messages/Mute details dialogs", {Opens::kNothing}},
    {"Messages/Ask/Number of repeats...", {Opens::kInput}},
    {"Messages/Ask/Name and model...", {Opens::kInput}},
    {"Messages/Ask/Fit model...", {Opens::kInput}},
    {"Messages/Ask/Filter...", {Opens::kInput}},
    {"Messages/Ask/One run...", {Opens::kSelectItem}},
    {"Messages/Ask/Several runs...", {Opens::kSelectItem}},
    {"Messages/Ask/Runs and export format...", {Opens::kSelectItem}},
    {"Messages/Ask/New class...", {Opens::kSelectClass}},
    {"Messages/Ask/Phase...", {Opens::kSelectClass}},
    {"Audit Trail/Settings...", {Opens::kSheet}},
    {"Audit Trail/View", {Opens::kAuditTrailWindow}},
    {"Audit Trail/Clear...", {Opens::kFrameworkBox, MB_YESNO | MB_ICONEXCLAMATION}},
    {"Audit Trail/Save As...", {Opens::kFileChooserToSave}},
    {"Audit Trail/Edit User Information...", {Opens::kInput}},
    {"Help/Tour of the library", {Opens::kTourWindow}},
    {"Help/Release notes", {Opens::kReleaseNotes}},
    {"Help/Splash window", {Opens::kSplash}},
    {"Help/Help pane", {Opens::kHelpPane}},
    // No mail program in the walk: the box says so.
    {"Help/Send feedback...", {Opens::kNoMailProgram}},
    {"Help/Crash now/Null write", {Opens::kCrash}},
    {"Help/Crash now/Abort", {Opens::kCrash}},
    {"Help/Crash now/Worker exception", {Opens::kCrash}},
    {"Help/About...", {Opens::kAboutBox}},
    {"Help/Contents", {Opens::kHelp}},
    {"Help/Index", {Opens::kHelp}},
    {"Help/Search", {Opens::kHelp}},
    {"Help/Help on runs", {Opens::kHelp}},
    {"Help/Pop-up help...", {Opens::kPopupHelpDialog}},
};

// Counts the help requests instead of showing help windows.
class CountingHelpEngine : public HelpEngine {
public:
  explicit CountingHelpEngine(int & requests) : m_requests(requests) {}
  bool IsAvailable() const override { return true; }
  bool Execute(HelpRequest const &) override { return ++m_requests > 0; }

private:
  int & m_requests;
};

// What kind of dialog a command showed.
struct Seen {
  Opens opens = Opens::kNothing;
  unsigned int boxType = 0;
  long style = 0;  // the framework box's wx style
  wxString className;
};

Seen Look(wxDialog & dialog) {
  Seen seen;
  seen.className = typeid(dialog).name();
  if (dynamic_cast<CSelectFolderDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kFolderDialog;
  } else if (dynamic_cast<FolderCollectionDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kFolderCollection;
  } else if (dynamic_cast<VxInputDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kInput;
  } else if (dynamic_cast<SelectItemDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kSelectItem;
  } else if (dynamic_cast<SelectNewClassDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kSelectClass;
  } else if (dynamic_cast<CalibrationListDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kCalibrationList;
  } else if (dynamic_cast<SeriesDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kSeries;
  } else if (dynamic_cast<PropertyEditorsDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kPropertyEditors;
  } else if (dynamic_cast<ServiceDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kService;
  } else if (dynamic_cast<PropertyListDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kPropertyList;
  } else if (dynamic_cast<InstrumentsDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kInstruments;
  } else if (dynamic_cast<EditsDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kEdits;
  } else if (auto * sheet = dynamic_cast<VxPropertySheet *>(&dialog)) {
    seen.opens = sheet->IsWizard() ? Opens::kWizard : Opens::kSheet;
  } else if (dynamic_cast<NotesDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kNotes;
  } else if (dynamic_cast<ReleaseNotesDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kReleaseNotes;
  } else if (dynamic_cast<YesNoCancelAll *>(&dialog) != nullptr) {
    seen.opens = Opens::kBatchQuestion;
  } else if (dynamic_cast<SpecifyDateFormat *>(&dialog) != nullptr) {
    seen.opens = Opens::kDateFormat;
  } else if (dynamic_cast<TimeGridDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kTimeGrid;
  } else if (dynamic_cast<DetailsDialogClass *>(&dialog) != nullptr) {
    seen.opens = Opens::kDetails;
  } else if (dynamic_cast<InfoDialog *>(&dialog) != nullptr) {
    seen.opens = Opens::kInfo;
  } else if (dynamic_cast<ScrollMessageBox *>(&dialog) != nullptr) {
    seen.opens = Opens::kScrollBox;
  } else if (auto const * box = dynamic_cast<CustomMessageBoxDlg *>(&dialog)) {
    seen.opens = Opens::kMessageBox;
    seen.boxType = box->GetType() & (MB_TYPEMASK | MB_ICONMASK);
  } else if (auto const * box = dynamic_cast<wxMessageDialog *>(&dialog)) {
    seen.opens = Opens::kFrameworkBox;
    seen.style = box->GetMessageDialogStyle();
  }
  return seen;
}

struct Item {
  wxString path;
  int id;
};

void Collect(wxMenu const & menu, wxString const & prefix, std::vector<Item> & items) {
  for (wxMenuItem const * item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    wxString const path = prefix + "/" + item->GetItemLabelText();
    if (item->IsSubMenu())
      Collect(*item->GetSubMenu(), path, items);
    else
      items.push_back({path, item->GetId()});
  }
}

class MainFrameMenuTest : public testing::Test {
protected:
  void SetUp() override {
    InstallStandardUserComm();
    // The don't-show-again box asks only while no answer is stored.
    AppProfile::WriteProfileString(vx3::WideToUtf8(GetDontShowAgainRegistrySection()).c_str(),
                                   nullptr, nullptr);
    mFormerHelp = VxSetHelpEngine(std::make_unique<CountingHelpEngine>(helpRequests));
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    mFormerFiles = SetFileChooserFunction([this](FileChooserRequest const & request) {
      fileRequests.push_back(request);
      return FileChooserAnswer{};  // cancelled
    });
    mFormerPrint = SetPrintDialogFunction([this](PRINTDLGW &) { return ++printDialogs, IDCANCEL; });
    // The about command is the application's (VxApp binds it there).
    wxTheApp->Bind(wxEVT_MENU, &MainFrameMenuTest::OnAbout, this, MainFrame::kAboutCommand);
    frame->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent & event) {
      ++closeRequests;
      event.Veto();
    });
  }
  void TearDown() override {
    wxTheApp->Unbind(wxEVT_MENU, &MainFrameMenuTest::OnAbout, this, MainFrame::kAboutCommand);
    SetFileChooserFunction(mFormerFiles);
    SetPrintDialogFunction(mFormerPrint);
    VxSetHelpEngine(std::move(mFormerHelp));
    // The walk switched the details dialogs off; the tests after it show them.
    MuteDetailsDialog::Instance().Mute(false);
    MuteDetailsDialog::Instance().disconnect_all_slots();
    frame->Destroy();
    gui_test::Flush();
  }

  void OnAbout(wxCommandEvent &) { ++aboutCommands; }

  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  MainFrame * frame = nullptr;
  std::vector<FileChooserRequest> fileRequests;
  int aboutCommands = 0;
  int closeRequests = 0;
  int pickerRows = -1;
  int printDialogs = 0;
  int helpRequests = 0;

private:
  FileChooserFunction mFormerFiles;
  PrintDialogFunction mFormerPrint;
  std::unique_ptr<HelpEngine> mFormerHelp;
};

TEST_F(MainFrameMenuTest, EveryCommandOpensWhatItsItemNames) {
  std::vector<Item> items;
  wxMenuBar const & bar = *frame->GetMenuBar();
  for (size_t index = 0; index < bar.GetMenuCount(); ++index)
    Collect(*bar.GetMenu(index), wxMenuItem::GetLabelText(bar.GetMenuLabel(index)), items);
  ASSERT_EQ(items.size(), kExpected.size());
  std::set<int> ids;
  for (Item const & item : items)
    EXPECT_TRUE(ids.insert(item.id).second) << item.path << " shares its id " << item.id;

  for (Item const & item : items) {
    SCOPED_TRACE(item.path.utf8_string());
    auto const found = kExpected.find(item.path);
    if (found == kExpected.end()) {
      ADD_FAILURE() << "no expectation for this command";
      continue;
    }
    Expected const & expected = found->second;
    if (expected.opens == Opens::kCrash) continue;
    fileRequests.clear();
    aboutCommands = closeRequests = printDialogs = helpRequests = 0;
    bool calculated = false;
    frame->SetCalculationPlan({3, [&calculated](Progress & progress, int) {
                                 calculated = Progress::GetActiveProgress() == &progress;
                                 return progress.Set(1);
                               }});
    frame->SetStatusText("");

    // What the command opened, seen while it was up (the dialogs live on
    // the handler's stack), then cancelled; a dialog nobody expected fails
    // the test in the script.
    std::vector<Seen> seen;
    ModalDialogScript script;
    // The kinds that show a modal dialog, one a line.
    // clang-format off
    static std::set<Opens> const dialogKinds{
        Opens::kFolderDialog,
        Opens::kFolderCollection,
        Opens::kBatchQuestion,
        Opens::kMessageBox,
        Opens::kFrameworkBox,
        Opens::kDateFormat,
        Opens::kTimeGrid,
        Opens::kInstruments,
        Opens::kCalibrationList,
        Opens::kSeries,
        Opens::kDetails,
        Opens::kInfo,
        Opens::kScrollBox,
        Opens::kEdits,
        Opens::kNotes,
        Opens::kReleaseNotes,
        Opens::kInput,
        Opens::kSelectItem,
        Opens::kSelectClass,
        Opens::kPropertyEditors,
        Opens::kSheet,
        Opens::kWizard,
        Opens::kService,
        Opens::kPropertyList,
    };
    // clang-format on
    bool const opensDialog = dialogKinds.count(expected.opens) != 0;
    if (opensDialog) {
      script.Act([&seen](wxDialog & d) {
        seen.push_back(Look(d));
        // The library's dialogs answer Windows ids; the framework's questions
        // here all leave things as they are on No.
        ModalDialogScript::End(d, seen.back().opens == Opens::kFrameworkBox ? wxID_NO : IDCANCEL);
      });
    }
    if (expected.opens == Opens::kBatchQuestion) script.Answer(wxID_OK);  // the account
    if (expected.opens == Opens::kBackgroundRun) {
      script.Act([&seen](wxDialog & d) {
        seen.push_back(Look(d));
        gui_test::Click(d, ProgressDialog::kCancelButton);  // the work ends the dialog
      });
    }
    if (expected.opens == Opens::kBackgroundFailure) {
      script.Act([&seen](wxDialog & d) { seen.push_back(Look(d)); });  // the work ends it
      script.Answer(wxID_OK);                                          // the failure's box
    }
    if (expected.opens == Opens::kNoMailProgram) script.Answer(wxID_OK);
    // The mail program is looked for on PATH.
    std::string const formerPath = std::getenv("PATH");
    if (item.id == kSendFeedbackCommand) {
      ::setenv("PATH", "/nonexistent", 1);
      VxSendMail::ForgetMailProgram();
    }

    // The run picker runs its own loop: it is seen there, then closed.
    pickerRows = -1;
    if (expected.opens == Opens::kRunPicker) {
      frame->CallAfter([this] {
        FilterListCtrlPopupBar * bar = nullptr;
        gui_test::WaitUntil(
            [&bar] { return (bar = FilterListCtrlPopupBar::GetOpen()) != nullptr; });
        if (bar == nullptr) return;
        pickerRows = bar->GetList().GetItemCount();
        bar->Cancel();
      });
    }

    wxCommandEvent command(wxEVT_MENU, item.id);
    command.SetEventObject(frame);
    frame->ProcessWindowEvent(command);
    ::setenv("PATH", formerPath.c_str(), 1);
    VxSendMail::ForgetMailProgram();

    if (opensDialog) {
      ASSERT_EQ(seen.size(), 1u);
    }
    switch (expected.opens) {
      case Opens::kFileChooserToOpen:
      case Opens::kFileChooserToSave:
        ASSERT_EQ(fileRequests.size(), 1u);
        EXPECT_EQ(fileRequests[0].open, expected.opens == Opens::kFileChooserToOpen);
        break;
      case Opens::kFolderDialog:
      case Opens::kFolderCollection:
      case Opens::kBatchQuestion:
      case Opens::kCalibrationList:
      case Opens::kSeries:
      case Opens::kDateFormat:
      case Opens::kMessageBox:
      case Opens::kTimeGrid:
      case Opens::kInstruments:
      case Opens::kDetails:
      case Opens::kInfo:
      case Opens::kScrollBox:
      case Opens::kEdits:
      case Opens::kNotes:
      case Opens::kReleaseNotes:
      case Opens::kInput:
      case Opens::kSelectItem:
      case Opens::kSelectClass:
      case Opens::kPropertyEditors:
      case Opens::kSheet:
      case Opens::kWizard:
      case Opens::kService:
      case Opens::kPropertyList:
        EXPECT_EQ(seen[0].opens, expected.opens) << seen[0].className;
        EXPECT_EQ(seen[0].boxType, expected.boxType);
        break;
      case Opens::kFrameworkBox: {
        long const shown = wxYES_NO | wxOK | wxCANCEL | wxHELP | wxICON_MASK;
        EXPECT_EQ(seen[0].opens, expected.opens) << seen[0].className;
        EXPECT_EQ(seen[0].style & shown, MapMessageBoxType(expected.boxType).style & shown);
        EXPECT_EQ(script.Shown()[0].result, wxID_NO);
        break;
      }
      case Opens::kProperties:
        ASSERT_TRUE(VxModelessPropertySheet::Exists());
        EXPECT_TRUE(VxModelessPropertySheet::Instance()->IsShown());
        EXPECT_GT(VxModelessPropertySheet::Instance()->GetPageCount(), 0);
        VxModelessPropertySheet::Release();
        break;
      case Opens::kCalculation:
        EXPECT_TRUE(calculated);
        EXPECT_TRUE(Status().StartsWith("Calculation finished: 3 runs.  Time: ")) << Status();
        EXPECT_TRUE(Status().EndsWith(" ms")) << Status();
        break;
      case Opens::kRunPicker:
        EXPECT_EQ(pickerRows, 1000000);
        EXPECT_EQ(Status(), "No run picked.");
        break;
      case Opens::kAuditTrailWindow:
      case Opens::kTourWindow:
      case Opens::kReportWindow: {
        std::map<Opens, int> const windowIds{{Opens::kReportWindow, wxID_HIGHEST + 900},
                                             {Opens::kAuditTrailWindow, wxID_HIGHEST + 910},
                                             {Opens::kTourWindow, wxID_HIGHEST + 920}};
        wxWindow * report = nullptr;
        for (wxWindow * child : frame->GetChildren())
          if (child->IsTopLevel() && child->GetId() == windowIds.at(expected.opens)) report = child;
        ASSERT_NE(report, nullptr);
        report->Destroy();
        break;
      }
      case Opens::kSplash: {
        wxWindow * splash = nullptr;
        for (wxWindow * child : frame->GetChildren())
          if (child->IsTopLevel() && child->GetName() == VxSplashWindow::kWindowClass)
            splash = child;
        ASSERT_NE(splash, nullptr);
        EXPECT_TRUE(splash->IsShown());
        splash->Destroy();  // and the splash with it
        break;
      }
      case Opens::kHelp: EXPECT_EQ(helpRequests, 1); break;
      case Opens::kPopupHelpDialog: {
        wxWindow * dialog = nullptr;
        for (wxWindow * window : wxTopLevelWindows)
          if (dynamic_cast<PopupHelpDialog *>(window) != nullptr && window->IsShown())
            dialog = window;
        ASSERT_NE(dialog, nullptr);
        dialog->Destroy();
        break;
      }
      case Opens::kBackgroundRun:
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_TRUE(Status().StartsWith("Background run cancelled after ")) << Status();
        break;
      case Opens::kBackgroundFailure:
        ASSERT_EQ(script.Shown().size(), 2u);
        EXPECT_EQ(script.Shown()[1].message, "The reference run R-017 is missing.");
        EXPECT_EQ(Status(), "Background run failed.");
        break;
      case Opens::kNoMailProgram:
        ASSERT_EQ(script.Shown().size(), 1u);
        EXPECT_EQ(script.Shown()[0].message, LoadResourceString(61840));
        break;
      case Opens::kCrash: break;  // never fired here
      case Opens::kNothing: EXPECT_FALSE(Status().empty()); break;
      case Opens::kAboutBox: EXPECT_EQ(aboutCommands, 1); break;
      case Opens::kPrintDialog: EXPECT_EQ(printDialogs, 1); break;
      case Opens::kCloseRequest: EXPECT_EQ(closeRequests, 1); break;
      case Opens::kPrintPage: {
        wxWindow * const window = frame->FindWindowByName("SamplePrintPage", frame);
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(window->IsShown());
        window->Destroy();
        break;
      }
      case Opens::kHelpPane:
      case Opens::kFavouritesPane: {
        wxWindow * const pane = frame->FindWindowByName(
            expected.opens == Opens::kHelpPane ? "SampleHelpPane" : "SampleFavourites", frame);
        ASSERT_NE(pane, nullptr);
        EXPECT_TRUE(pane->IsShown());
        pane->Destroy();
        break;
      }
      case Opens::kAddCommand: {
        auto * const pane =
            dynamic_cast<wxFrame *>(frame->FindWindowByName("SampleFavourites", frame));
        ASSERT_NE(pane, nullptr);
        AddCommandToFavouritesDlg * dialog = nullptr;
        for (wxWindow * window : wxTopLevelWindows)
          if (auto * const found = dynamic_cast<AddCommandToFavouritesDlg *>(window))
            dialog = found;
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->GetTree(), FavouritesPaneTree(*pane));
        // The sample's three menus, then its tool bar.
        EXPECT_EQ(dialog->GetMenusList().GetCount(), 4u);
        dialog->Destroy();
        pane->Destroy();
        break;
      }
      case Opens::kProjectTree: {
        auto const windows = frame->GetChildren();
        auto const opened = std::find_if(windows.begin(), windows.end(), [](wxWindow * w) {
          return dynamic_cast<ProjectTreeWindow *>(w) != nullptr && w->IsShown();
        });
        ASSERT_NE(opened, windows.end());
        (*opened)->Destroy();
        break;
      }
    }
    // Nothing else opened: no chooser where none belongs, no second dialog.
    if (expected.opens != Opens::kFileChooserToOpen &&
        expected.opens != Opens::kFileChooserToSave) {
      EXPECT_TRUE(fileRequests.empty());
    }
    if (expected.opens != Opens::kAboutBox) {
      EXPECT_EQ(aboutCommands, 0);
    }
    if (expected.opens != Opens::kCloseRequest) {
      EXPECT_EQ(closeRequests, 0);
    }
  }
}

}  // namespace
