// The audit-trail view on a recording browser: which page it shows in which
// state, that it never writes into a page still loading, where links go,
// its menu and keys; and the settings' dialogs around a trail.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdio>

#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include "audit/AuditTrailPage.h"
#include "audit/AuditTrailSettingsUI.h"
#include "audit/AuditTrailView.h"
#include "controls/VxMenu.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/VxInputDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/MenuCommandIds.h"
#include "platform/WinReg.h"
#include "platform/WinUser.h"
#include "properties/VxPropertySheet.h"
#include "settings/LaunchURL.h"
#include "settings/RegistrySection.h"
#include "utl/AuditTrail.h"
#include "utl/InMemorySection.h"
#include "utl/TestFiles.h"

namespace {

// Records what the view asks of its browser; the test ends loads.
class RecordingBrowser : public HtmlBrowser {
public:
  RecordingBrowser(wxWindow * parent, HtmlBrowserEvents * events)
      : window(new wxPanel(parent)), events(events) {}
  wxWebView * GetWebView() const override { return nullptr; }
  wxWindow * GetWindow() const override { return window; }
  void Disconnect() override { events = nullptr; }
  void LoadURL(wxString const & url) override { urls.push_back(url); }
  void SetPage(wxString const & html) override { pages.push_back(html.utf8_string()); }
  bool RunScript(wxString const & script, wxString * result) override {
    scripts.push_back(script);
    if (result != nullptr) *result = "240";
    return true;
  }
  wxString GetCurrentURL() const override { return "about:blank"; }
  wxString GetCurrentTitle() const override { return ""; }
  void Copy() override { ++copies; }
  void Print() override {}
  void SelectAll() override {}
  long Find(wxString const &, bool) override { return 0; }
  void GoBack() override {}
  void GoForward() override {}
  bool CanGoBack() const override { return false; }
  bool CanGoForward() const override { return false; }
  void Reload() override {}
  void Stop() override {}
  bool IsBusy() const override { return false; }
  bool SaveAsMhtml(std::string const &, std::string &) override { return false; }

  void Loaded() { events->OnBrowserLoaded(); }

  wxPanel * window;
  HtmlBrowserEvents * events;
  std::vector<wxString> urls;
  std::vector<std::string> pages;
  std::vector<wxString> scripts;
  int copies = 0;
};

// The standard output of a shell command.
std::string Output(std::string const & command) {
  std::string output;
  FILE * pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return "(not run)";
  char buffer[4096];
  for (size_t read = 0; (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
    output.append(buffer, read);
  ::pclose(pipe);
  return output;
}

InMemorySection * Level(int level) {
  auto * section = new InMemorySection;
  section->WriteInt("LogEvents", level);
  return section;
}

class AuditTrailViewTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Audit");
    view = new AuditTrailView(frame, wxID_ANY, [this](wxWindow * parent, HtmlBrowserEvents * e) {
      browser = new RecordingBrowser(parent, e);
      return browser;
    });
    browser->Loaded();  // about:blank, which every browser starts with
    browser->Loaded();  // the default page, given while about:blank loaded
    folder = Temp("view-" + std::to_string(++serial));
    ::mkdir(folder.c_str(), 0755);
  }
  void TearDown() override {
    trail.reset();
    frame->Destroy();
    gui_test::Flush();
  }
  // A trail in the test's folder at `level`, in a session, with one event.
  void MakeTrail(int level) {
    trail =
        std::make_unique<AuditTrail>((folder + "/trail.xml").c_str(), Level(level), Temp("keys"));
    trail->SetUserName("ann");
    trail->BeginSessionAndVerifySignature();
    trail->AddEvent("Sample A measured.", "", 0);
  }
  std::string const & LastPage() const { return browser->pages.back(); }
  static inline int serial = 0;
  wxFrame * frame = nullptr;
  AuditTrailView * view = nullptr;
  RecordingBrowser * browser = nullptr;
  std::string folder;
  std::unique_ptr<AuditTrail> trail;
};

TEST_F(AuditTrailViewTest, EachStateShowsItsPage) {
  EXPECT_EQ(view->GetShownResource(), AuditTrailView::kNoTrailPage);
  EXPECT_NE(LastPage().find("No audit trail"), std::string::npos);

  MakeTrail(0);
  view->SetAuditTrail(trail.get());
  EXPECT_EQ(view->GetShownResource(), AuditTrailView::kLoggingOffPage) << "logging off";
  browser->Loaded();

  trail->mSettings.mLogLevel = 1;
  trail->AddEvent("Sample A measured.", "", 0);
  view->SetAuditTrail(trail.get());
  EXPECT_EQ(view->GetShown(), AuditTrailView::Shown::TrailPage);
  EXPECT_NE(LastPage().find("Sample A measured."), std::string::npos) << "saved, then shown";
  struct stat info {};
  EXPECT_EQ(::stat((folder + "/audit_trail.xsl").c_str(), &info), 0) << "stylesheet beside it";
  browser->Loaded();

  // Logging turned off in a running view: the end of the session brings
  // the off page.
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 0, false);
  browser->Loaded();
  EXPECT_EQ(view->GetShownResource(), AuditTrailView::kLoggingOffPage);

  // The trail deleted: the default page.
  browser->Loaded();
  trail.reset();
  EXPECT_EQ(view->GetAuditTrail(), nullptr);
  EXPECT_EQ(view->GetShownResource(), AuditTrailView::kNoTrailPage);
}

TEST_F(AuditTrailViewTest, UpdatesWaitForTheLoadingPageOneAtATime) {
  MakeTrail(1);
  view->SetAuditTrail(trail.get());
  size_t const pages = browser->pages.size();
  // Still loading: begin-session signals queue a single update.
  trail->EndSessionAndSave();
  trail->BeginSessionAndVerifySignature();
  trail->BeginSessionAndVerifySignature();
  EXPECT_EQ(browser->pages.size(), pages) << "nothing written into a loading page";
  EXPECT_TRUE(view->IsUpdatePending());
  browser->Loaded();
  EXPECT_EQ(browser->pages.size(), pages + 1);
  EXPECT_FALSE(view->IsUpdatePending());
  // An added event alone does not reload.
  browser->Loaded();
  trail->AddEvent("Sample B measured.", "", 0);
  EXPECT_EQ(browser->pages.size(), pages + 1);
  // F5 saves, then shows the page again, where it was scrolled to.
  EXPECT_TRUE(static_cast<HtmlBrowserEvents *>(browser->events)->OnBrowserKey(0, WXK_F5));
  EXPECT_FALSE(trail->IsModified());
  EXPECT_NE(LastPage().find("Sample B measured."), std::string::npos);
  browser->Loaded();
  EXPECT_EQ(browser->scripts.back(), "window.scrollTo(0, 240);");
}

// The browser drops a load superseded before it starts, without a word:
// the view gives it one page at a time, so that each load's end is the
// end of the page the view asked for.
TEST_F(AuditTrailViewTest, PagesGivenWhileTheBrowserLoadsWaitAndOnlyTheLastIsGiven) {
  frame->DestroyChildren();
  browser = nullptr;
  view = new AuditTrailView(frame, wxID_ANY, [this](wxWindow * parent, HtmlBrowserEvents * e) {
    browser = new RecordingBrowser(parent, e);
    return browser;
  });
  EXPECT_TRUE(browser->pages.empty()) << "the default page waits for about:blank";
  EXPECT_TRUE(view->IsBusy());
  browser->Loaded();
  ASSERT_EQ(browser->pages.size(), 1u);
  EXPECT_NE(LastPage().find("No audit trail"), std::string::npos);
  EXPECT_TRUE(view->IsBusy()) << "until the default page itself has loaded";

  MakeTrail(0);
  view->SetAuditTrail(trail.get());  // an update, waiting for the load
  view->SetDefaultResourceID(AuditTrailView::kLoggingOffPage, true);
  view->SetDefaultResourceID(AuditTrailView::kNoTrailPage, true);
  EXPECT_EQ(browser->pages.size(), 1u);
  browser->Loaded();
  ASSERT_EQ(browser->pages.size(), 2u) << "the last page given, alone";
  EXPECT_NE(LastPage().find("No audit trail"), std::string::npos);
  browser->Loaded();
  ASSERT_EQ(browser->pages.size(), 3u) << "then the waiting update";
  EXPECT_EQ(view->GetShownResource(), AuditTrailView::kLoggingOffPage);
  browser->Loaded();
  EXPECT_FALSE(view->IsBusy());
  EXPECT_EQ(browser->pages.size(), 3u);
}

TEST_F(AuditTrailViewTest, LinksGoToCommandsOrOutsideButNeverLoadInTheView) {
  MakeTrail(1);
  view->SetAuditTrail(trail.get());
  browser->Loaded();
  std::vector<int> commands;
  frame->Bind(wxEVT_MENU, [&](wxCommandEvent & e) { commands.push_back(e.GetId()); });
  view->SetCmdMap({{"Foo", 4101}, {"foo", 4102}}, frame);
  std::vector<std::string> launched;
  VxUrlLauncher const former = VxSetUrlLauncher([&](std::string const & url) {
    launched.push_back(url);
    return true;
  });
  struct Case {
    char const * url;
    bool vetoed;
    int command;
    char const * launched;
  };
  Case const cases[] = {
      {"APP:Foo", true, 4101, ""},
      {"app:foo", true, 4102, ""},
      {"app:Unknown", true, 0, ""},
      {"about:blank", false, 0, ""},
      {"about:blank#top", false, 0, ""},
      {"https://example.org/a", true, 0, "https://example.org/a"},
      {"mailto:qa@example.org", true, 0, "mailto:qa@example.org"},
      {"file:///etc/passwd", true, 0, ""},
      {"data:text/html,x", true, 0, ""},
  };
  for (Case const & c : cases) {
    commands.clear();
    launched.clear();
    trail->AddEvent("Unsaved.", "", 0);
    EXPECT_EQ(browser->events->OnBrowserNavigating(c.url), c.vetoed) << c.url;
    gui_test::Flush();
    EXPECT_EQ(commands, c.command != 0 ? std::vector<int>{c.command} : std::vector<int>{}) << c.url;
    EXPECT_EQ(launched,
              *c.launched != 0 ? std::vector<std::string>{c.launched} : std::vector<std::string>{})
        << c.url;
    EXPECT_FALSE(trail->IsModified()) << c.url << ": saved before going anywhere";
  }
  VxSetUrlLauncher(former);
}

TEST_F(AuditTrailViewTest,
       TheContextMenuGraysPrintAndSaveWithoutATrailAndOpensAtTheKeyboardCorner) {
  auto enabled = [&](unsigned int command) {
    std::unique_ptr<wxMenu> menu = view->MakeContextMenu();
    return menu->IsEnabled(MenuItemIdFromCommand(command));
  };
  EXPECT_FALSE(enabled(AuditTrailView::kFilePrint));
  EXPECT_FALSE(enabled(AuditTrailView::kFileSaveAs));
  EXPECT_TRUE(enabled(AuditTrailView::kEditCopy));
  MakeTrail(1);
  view->SetAuditTrail(trail.get());
  EXPECT_TRUE(enabled(AuditTrailView::kFilePrint));
  EXPECT_TRUE(enabled(AuditTrailView::kFileSaveAs));

  wxPoint shownAt;
  unsigned int shownFlags = 0;
  VxMenu::SetTrackPopupMenuFunction(
      [&](wxMenu *, unsigned int flags, int x, int y, wxWindow *, wxRect const *) {
        shownAt = wxPoint(x, y);
        shownFlags = flags;
        return 1;
      });
  view->ShowContextMenu(true, wxPoint(400, 400));
  EXPECT_EQ(shownAt, view->ClientToScreen(wxPoint(5, 5)));
  EXPECT_EQ(shownFlags, 2u);
  view->ShowContextMenu(false, wxPoint(123, 45));
  EXPECT_EQ(shownAt, wxPoint(123, 45));
  VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
}

TEST_F(AuditTrailViewTest, SaveAndClearAreEnabledOnlyForATrailWithEvents) {
  auto enabled = [&](unsigned int command) {
    wxUpdateUIEvent event(MenuItemIdFromCommand(command));
    event.Enable(true);
    view->ProcessWindowEvent(event);
    return event.GetEnabled();
  };
  EXPECT_FALSE(enabled(AuditTrailView::kFileSaveAs));
  trail = std::make_unique<AuditTrail>((folder + "/empty.xml").c_str(), Level(1), Temp("keys"));
  Spit(folder + "/empty.xml", "exists");  // a file is no event
  view->SetAuditTrail(trail.get());
  EXPECT_FALSE(enabled(AuditTrailView::kFileSaveAs));
  EXPECT_FALSE(enabled(AuditTrailView::kAuditTrailClear));
  trail = nullptr;
  MakeTrail(1);
  view->SetAuditTrail(trail.get());
  EXPECT_TRUE(enabled(AuditTrailView::kFileSaveAs));
  EXPECT_TRUE(enabled(AuditTrailView::kAuditTrailClear));
  trail->mSettings.mLocked = true;
  EXPECT_FALSE(enabled(AuditTrailView::kAuditTrailClear));

  int mapped = -1;
  unsigned int value = 99;
  EXPECT_EQ(view->GetDHtmlCommandMapping(AuditTrailView::kEditCopy, mapped, value), 15u);
  EXPECT_EQ(mapped, 0);
  EXPECT_EQ(view->GetDHtmlCommandMapping(AuditTrailView::kFilePrint, mapped, value),
            static_cast<unsigned int>(-1));
  EXPECT_EQ(view->ExecHandler(AuditTrailView::kEditCopy), 1);
  EXPECT_EQ(view->ExecHandler(AuditTrailView::kEditFind), 0);
  EXPECT_EQ(browser->copies, 1);
}

TEST_F(AuditTrailViewTest, ABrokenTrailFileNamesItsProblemAndTheUsersLayoutIsNotOverwrittenByIt) {
  std::string const path = folder + "/broken.xml";
  Spit(path, "<!DOCTYPE AuditTrail [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><AuditTrail>&x;");
  trail = std::make_unique<AuditTrail>(path.c_str(), Level(1), Temp("keys"));
  view->SetAuditTrail(trail.get());
  EXPECT_EQ(view->GetShown(), AuditTrailView::Shown::Problem);
  EXPECT_EQ(LastPage().find("root:"), std::string::npos) << "nothing of the entity was read";
  EXPECT_NE(LastPage().find("cannot be shown"), std::string::npos);
}

// The dialogs of the settings around a trail.
class AuditTrailDialogsTest : public AuditTrailViewTest {};

TEST_F(AuditTrailDialogsTest, ClearingAsksAndALockedTrailRefuses) {
  MakeTrail(1);
  trail->mSettings.mLocked = true;
  {
    ModalDialogScript script;
    script.Answer(wxID_OK);
    AuditTrailSettingsUI::ClearAuditTrail(trail.get());
    ASSERT_EQ(script.Shown().size(), 1u);
    EXPECT_EQ(script.Shown()[0].message, "The Audit Trail is locked and cannot be cleared.");
  }
  trail->mSettings.mLocked = false;
  size_t const events = trail->GetEvents().size();
  {
    ModalDialogScript script;
    script.Answer(wxID_NO);
    AuditTrailSettingsUI::ClearAuditTrail(trail.get());
    EXPECT_EQ(trail->GetEvents().size(), events) << "No keeps the trail";
  }
  {
    ModalDialogScript script;
    script.Answer(wxID_YES);
    AuditTrailSettingsUI::ClearAuditTrail(trail.get());
    ASSERT_EQ(trail->GetEvents().size(), 1u);
    EXPECT_EQ(trail->GetEvents()[0].type, "cleared");
  }
  AuditTrailSettingsUI::ClearAuditTrail(nullptr);  // nothing asked
}

TEST_F(AuditTrailDialogsTest, SavingACopyWritesItsStylesheetBesideIt) {
  {
    MakeTrail(0);
    ModalDialogScript script;
    script.Answer(wxID_OK);
    AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(trail.get());
    ASSERT_EQ(script.Shown().size(), 1u);
    EXPECT_EQ(script.Shown()[0].message, "Nothing to save. The audit trail is empty.");
  }
  MakeTrail(1);
  std::string const copy = folder + "/copy/Saved.xml";
  ::mkdir((folder + "/copy").c_str(), 0755);
  wxString proposed;
  FileChooserFunction const former = SetFileChooserFunction([&](FileChooserRequest const & r) {
    proposed = r.fileName;
    FileChooserAnswer answer;
    answer.accepted = true;
    answer.paths = {wxString::FromUTF8(copy)};
    return answer;
  });
  ModalDialogScript script;
  script.Answer(wxID_OK);
  AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(trail.get());
  SetFileChooserFunction(former);
  EXPECT_EQ(proposed, "VxApp Test Audit Trail");
  EXPECT_NE(Slurp(copy).find("Sample A measured."), std::string::npos);
  EXPECT_EQ(Slurp(folder + "/copy/audit_trail.xsl"), AuditTrail::GetStylesheet());
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_NE(script.Shown()[0].message.Find(".XSL file"), wxNOT_FOUND);

  // The copy stands on its own for the common tools: valid XML, and the
  // stylesheet beside it renders a row per event.
  EXPECT_EQ(Output("xmllint --noout '" + copy + "' 2>&1"), "");
  std::string const html =
      Output("cd '" + folder + "/copy' && xsltproc --nonet audit_trail.xsl Saved.xml");
  size_t rows = 0;
  for (size_t at = html.find("<td class=\"time\">"); at != std::string::npos;
       at = html.find("<td class=\"time\">", at + 1))
    ++rows;
  EXPECT_EQ(rows, trail->GetEvents().size()) << html;
}

TEST_F(AuditTrailDialogsTest, EditingUserInformationStoresItAndCancellingMayStopThePrompt) {
  MakeTrail(1);
  trail->mSettings.mPromptForExtendedUserInfo = true;
  bool changed = true;
  {
    ModalDialogScript script;
    script.Act([](wxDialog & d) {
      auto * edit = dynamic_cast<wxTextCtrl *>(d.FindWindow(VxInputDialog::kEdit));
      ASSERT_NE(edit, nullptr);
      edit->ChangeValue("QA reviewer");
      gui_test::Click(d, IDOK);
    });
    EXPECT_EQ(AuditTrailSettingsUI::EditExtendedUserInfo(&trail->mSettings, changed, frame),
              "QA reviewer");
    EXPECT_FALSE(changed);
    EXPECT_EQ(AuditTrailSettingsUI::GetExtendedUserInfo(), "QA reviewer");
  }
  {
    // Cancelled with a parent: no question.
    ModalDialogScript script;
    script.Answer(wxID_CANCEL);
    EXPECT_EQ(AuditTrailSettingsUI::EditExtendedUserInfo(&trail->mSettings, changed, frame), "");
    EXPECT_EQ(script.Shown().size(), 1u);
    EXPECT_TRUE(trail->mSettings.mPromptForExtendedUserInfo);
  }
  {
    // Without a parent: asked whether to stop prompting.
    ModalDialogScript script;
    script.Answer(wxID_CANCEL).Answer(wxID_YES);
    EXPECT_EQ(AuditTrailSettingsUI::EditExtendedUserInfo(&trail->mSettings, changed, nullptr), "");
    EXPECT_TRUE(changed);
    EXPECT_FALSE(trail->mSettings.mPromptForExtendedUserInfo);
    bool saved = true;
    trail->mSettings.GetSection()->ReadBool("PromptForExtendedUserInfo", saved);
    EXPECT_FALSE(saved);
  }
}

// The page in a sheet: what it shows and lets change, and what OK applies.
class AuditTrailPageTest : public AuditTrailViewTest {
protected:
  struct Shown {
    bool logging = false;
    bool loggingEnabled = false;
    bool prompt = false;
    bool promptEnabled = false;
    bool promptVisible = false;
    bool clearEnabled = false;
  };
  static wxCheckBox * Box(wxWindow * page, int id) {
    return dynamic_cast<wxCheckBox *>(page->FindWindow(id));
  }
  // Runs the sheet with `page`, reads the page, then `act` (may tick) and OK.
  Shown Run(AuditTrailPage & page, std::function<void(wxWindow &)> const & act = {}) {
    Shown shown;
    VxPropertySheet sheet(L"Audit", frame);
    sheet.AddPage(&page);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      wxWindow * window = page.GetSafeHwnd();
      ASSERT_NE(window, nullptr);
      shown.logging = Box(window, AuditTrailPage::kLogEvents)->GetValue();
      shown.loggingEnabled = Box(window, AuditTrailPage::kLogEvents)->IsEnabled();
      shown.prompt = Box(window, AuditTrailPage::kPrompt)->GetValue();
      shown.promptEnabled = Box(window, AuditTrailPage::kPrompt)->IsEnabled();
      shown.promptVisible = window->FindWindow(AuditTrailPage::kPromptText)->IsShown();
      shown.clearEnabled = window->FindWindow(AuditTrailPage::kClear)->IsEnabled();
      if (act) act(*window);
      gui_test::Click(d, IDOK);
    });
    sheet.DoModal();
    return shown;
  }
  static void Tick(wxWindow & page, int id) {
    wxCheckBox * box = Box(&page, id);
    box->SetValue(!box->GetValue());
    wxCommandEvent click(wxEVT_CHECKBOX, id);
    click.SetEventObject(box);
    click.SetInt(box->GetValue() ? 1 : 0);
    box->GetEventHandler()->ProcessEvent(click);
  }
};

TEST_F(AuditTrailPageTest, TickingLoggingOnAppliesItToTheTrail) {
  MakeTrail(0);
  AuditTrailPage page(trail.get(), false);
  Shown const shown = Run(page, [](wxWindow & window) {
    Tick(window, AuditTrailPage::kLogEvents);
    Tick(window, AuditTrailPage::kPrompt);
  });
  EXPECT_FALSE(shown.logging);
  EXPECT_TRUE(shown.loggingEnabled);
  EXPECT_TRUE(shown.clearEnabled);
  EXPECT_TRUE(page.IsDirty());
  EXPECT_EQ(trail->mSettings.mLogLevel, 1);
  EXPECT_TRUE(trail->mSettings.mPromptForExtendedUserInfo);
  EXPECT_EQ(trail->GetEvents().back().text, "Audit Trail turned on.");

  // Nothing changed: nothing applied.
  AuditTrailPage untouched(trail.get(), true);
  Shown const again = Run(untouched);
  EXPECT_TRUE(again.logging);
  EXPECT_FALSE(again.promptVisible) << "extended information hidden";
  EXPECT_FALSE(untouched.IsDirty());
}

TEST_F(AuditTrailPageTest, ALockedPageOrTrailShowsButDoesNotChange) {
  MakeTrail(1);
  for (bool const lockTrail : {false, true}) {
    trail->mSettings.mLocked = lockTrail;
    AuditTrailPage page(trail.get(), false);
    page.LockPage(!lockTrail);
    Shown const shown = Run(page);
    EXPECT_TRUE(shown.logging);
    EXPECT_FALSE(shown.loggingEnabled);
    EXPECT_FALSE(shown.promptEnabled);
    EXPECT_TRUE(shown.clearEnabled) << "clearing says itself why it refuses";
  }
}

TEST_F(AuditTrailPageTest, WithoutATrailThePageShowsTheAdministratorsPolicy) {
  std::string const path = AuditTrailSettingsUI::GetRegistryKeyPath();
  std::wstring const key(path.begin(), path.end());
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
  {
    RegistrySection machine(HKEY_LOCAL_MACHINE, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                            KEY_ALL_ACCESS, true);
    machine.WriteInt("LogEvents", 2);
    machine.WriteBool("PromptForExtendedUserInfo", true);
  }
  AuditTrailPage page;
  Shown const shown = Run(page);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
  EXPECT_TRUE(shown.logging);
  EXPECT_TRUE(shown.prompt);
  EXPECT_FALSE(shown.loggingEnabled);
  EXPECT_FALSE(shown.promptEnabled);
  EXPECT_FALSE(shown.clearEnabled);
  EXPECT_FALSE(page.IsDirty());
}

}  // namespace
