// The tabbed sheet on real windows with XTest input: pages come to life at
// their first activation, in order; Apply follows the pages' changes and
// applies each page once, the helper once; a refusing or failing page keeps
// the sheet open with its changes.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/menu.h>
#include <wx/notebook.h>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "html/HelpEngine.h"
#include "html/VxHtmlHelp.h"
#include "platform/CException.h"
#include "platform/InternalErrorReport.h"
#include "platform/WinUser.h"
#include "properties/BasePropertyPageHelper.h"
#include "properties/SheetTestPages.h"
#include "properties/VxPropertySheet.h"
#include "properties/VxSubHandlerPropertyPage.h"
#include "properties/VxSubPropertyPage.h"
#include "work/XTestInput.h"

using namespace sheet_test;

namespace {

std::vector<std::string> gReported;
void Capture(std::string const & text) { gReported.push_back(text); }

class CountingHelper : public BasePropertyPageHelper {
public:
  bool Update() override {
    ++updates;
    return BasePropertyPageHelper::Update();
  }
  int updates = 0;
};

wxNotebook * BookOf(wxWindow & sheet) {
  for (wxWindow * child : sheet.GetChildren())
    if (auto * book = wxDynamicCast(child, wxNotebook)) return book;
  return nullptr;
}

// A real click on the tab of page `index`.
void ClickTab(wxNotebook & book, int index) {
  ASSERT_TRUE(gui_test::WaitUntil([&] { return IsClickable(book); }));
  for (int x = 2; x < book.GetClientSize().x; x += 4) {
    for (int y = 4; y < 40; y += 6) {
      if (book.HitTest(wxPoint(x, y)) != index) continue;
      Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
      wxPoint const screen = book.ClientToScreen(wxPoint(x + 4, y));
      XTestFakeMotionEvent(display, -1, screen.x, screen.y, CurrentTime);
      XTestFakeButtonEvent(display, 1, True, CurrentTime);
      XTestFakeButtonEvent(display, 1, False, CurrentTime);
      XSync(display, False);
      return;
    }
  }
  ADD_FAILURE() << "no tab " << index;
}

// Types `key` into the edit of `page`, which must be shown.
void TypeInto(TestPage & page, KeySym key) {
  wxWindow * edit = page.GetDlgItem(EditOf(page.GetTemplateID()));
  ASSERT_NE(edit, nullptr);
  ASSERT_TRUE(WaitUntilActive(*edit));
  edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntilFocused(*edit));
  auto * text = static_cast<wxTextCtrl *>(edit);
  wxString const before = text->GetValue();
  FakeKey(key);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return text->GetValue() != before; }));
  EXPECT_TRUE(page.IsChanged());
}

bool ApplyEnabled(wxWindow & sheet) { return sheet.FindWindow(ID_APPLY_NOW)->IsEnabled(); }

class SheetTest : public ::testing::Test {
protected:
  void SetUp() override { mFormer = SetInternalErrorReporter(&Capture); }
  void TearDown() override {
    SetInternalErrorReporter(mFormer);
    gReported.clear();
  }
  std::vector<std::string> log;

private:
  InternalErrorReporter mFormer = nullptr;
};

TEST_F(SheetTest, PagesComeToLifeAtFirstActivationInOrder) {
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log);
  TestPage limits(kLimits, log);
  TestPage notes(kNotes, log);
  for (TestPage * page : {&general, &limits, &notes}) sheet.AddPage(page);

  std::vector<std::string> atStart;
  std::vector<wxString> tabs;
  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(sheet));
    atStart = log;
    wxNotebook * book = BookOf(dialog);
    ASSERT_NE(book, nullptr);
    for (size_t i = 0; i < book->GetPageCount(); ++i) tabs.push_back(book->GetPageText(i));
    EXPECT_EQ(limits.GetDlgItem(EditOf(kLimits)), nullptr) << "not opened yet";
    ClickTab(*book, 1);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return sheet.GetActiveIndex() == 1; }));
    gui_test::Snapshot(dialog, "property-sheet");
    ClickTab(*book, 0);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return sheet.GetActiveIndex() == 0; }));
    notes.SetPageTitle(L"Remarks");  // while it runs
    EXPECT_EQ(book->GetPageText(2), "Remarks");
    gui_test::Click(dialog, IDOK);
  }));
  EXPECT_EQ(sheet.DoModal(), IDOK);

  EXPECT_EQ(tabs, (std::vector<wxString>{"General", "Limits", "Notes"})) << "template titles";
  EXPECT_EQ(atStart, (std::vector<std::string>{"init 4400", "set 4400"}));
  // Opened pages apply (without a helper through OnOK); the never opened
  // and unchanged one does not.
  EXPECT_EQ(log, (std::vector<std::string>{"init 4400", "set 4400", "kill 4400", "init 4410",
                                           "set 4410", "kill 4410", "set 4400", "kill 4400",
                                           "apply 4400", "ok 4400", "apply 4410", "ok 4410"}));
  EXPECT_EQ(general.GetSafeHwnd(), nullptr) << "the controls go at the end of the run";

  // The next run builds the pages anew.
  log.clear();
  script.Act(Checked([&](wxDialog & dialog) { gui_test::Click(dialog, IDCANCEL); }));
  EXPECT_EQ(sheet.DoModal(), IDCANCEL);
  EXPECT_EQ(log.front(), "init 4400");
}

TEST_F(SheetTest, ApplyFollowsChangesAndTheHelperUpdatesOnce) {
  CountingHelper helper;
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log, &helper);
  TestPage limits(kLimits, log, &helper);
  TestPage notes(kNotes, log, &helper);
  for (TestPage * page : {&general, &limits, &notes}) sheet.AddPage(page);

  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(sheet));
    EXPECT_FALSE(ApplyEnabled(dialog));
    TypeInto(general, XK_a);
    EXPECT_TRUE(ApplyEnabled(dialog));
    ASSERT_TRUE(sheet.SetActivePage(1));
    TypeInto(limits, XK_b);
    notes.Changed();  // changed without ever being opened
    EXPECT_EQ(helper.Connected(), 3);

    FakeClick(*dialog.FindWindow(ID_APPLY_NOW));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return !ApplyEnabled(dialog); }));
    EXPECT_EQ(helper.updates, 1) << "once, by the last changed page";
    EXPECT_FALSE(sheet.IsChanged());
    EXPECT_EQ(general.text, "a");
    EXPECT_EQ(limits.text, "b");
    gui_test::Click(dialog, IDCANCEL);
  }));
  EXPECT_EQ(sheet.DoModal(), IDCANCEL);
  EXPECT_NE(std::find(log.begin(), log.end(), "apply 4420"), log.end());
}

TEST_F(SheetTest, ARefusingOrFailingPageKeepsTheSheetOpenWithItsChanges) {
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log);
  TestPage limits(kLimits, log);
  sheet.AddPage(&general);
  sheet.AddPage(&limits);

  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(sheet));
    ASSERT_TRUE(sheet.SetActivePage(1));
    TypeInto(limits, XK_c);

    limits.apply = TestPage::Apply::Refuse;
    gui_test::Click(dialog, IDOK);
    EXPECT_TRUE(dialog.IsShown());
    EXPECT_TRUE(limits.IsChanged());
    EXPECT_TRUE(ApplyEnabled(dialog));

    limits.apply = TestPage::Apply::Throw;
    gui_test::Click(dialog, ID_APPLY_NOW);
    EXPECT_EQ(gReported, (std::vector<std::string>{"The limit is wrong."}));
    EXPECT_TRUE(limits.IsChanged());
    EXPECT_TRUE(dialog.IsShown());

    limits.refuseKill = true;  // a page may keep itself active
    gui_test::Click(dialog, IDOK);
    EXPECT_TRUE(dialog.IsShown());
    limits.refuseKill = false;

    limits.apply = TestPage::Apply::Accept;
    gui_test::Click(dialog, IDOK);
  }));
  EXPECT_EQ(sheet.DoModal(), IDOK);
  EXPECT_FALSE(limits.IsChanged());
  EXPECT_EQ(limits.text, "c");
}

TEST_F(SheetTest, PagesOutOfRangeAndPagesThatGoFirst) {
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log);
  sheet.AddPage(&general);
  {
    TestPage limits(kLimits, log);
    sheet.AddPage(&limits);
    EXPECT_EQ(sheet.GetPageCount(), 2);
  }  // a page that goes first leaves the sheet
  EXPECT_EQ(sheet.GetPageCount(), 1);
  EXPECT_EQ(sheet.GetPage(0), &general);
  for (int index : {-1, 1}) {
    try {
      sheet.GetPage(index);
      ADD_FAILURE() << index << " was taken";
    } catch (CException * e) {
      e->Delete();
    }
  }
}

}  // namespace

namespace {

TEST_F(SheetTest, AnInnerPageFillsItsFrameAndCountsAsTheOuterPage) {
  VxPropertySheet sheet(L"Run settings");
  VxSubHandlerPropertyPage outer(kOuter + 1, kOuter);
  VxSubPropertyPage first(kGeneral);
  VxSubPropertyPage second(kLimits);
  outer.SetSubPage(&first);
  sheet.AddPage(&outer);

  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(sheet));
    wxWindow * frame = outer.GetDlgItem(static_cast<int>(kOuter + 1));
    ASSERT_NE(first.GetSafeHwnd(), nullptr);
    EXPECT_EQ(first.GetSafeHwnd()->GetRect(), frame->GetRect());
    EXPECT_TRUE(first.GetSafeHwnd()->IsShown());

    // The frame grows with the window, the inner page with the frame.
    dialog.SetSize(dialog.GetSize() + wxSize(80, 60));
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      return frame->GetRect() == first.GetSafeHwnd()->GetRect() && frame->GetSize().x > 300;
    }));

    first.Changed();
    EXPECT_TRUE(outer.IsChanged());
    EXPECT_TRUE(ApplyEnabled(dialog));
    first.Unchanged();
    EXPECT_FALSE(outer.IsChanged());

    outer.SetSubPage(&second);
    EXPECT_EQ(first.GetSafeHwnd(), nullptr) << "the page shown before goes";
    ASSERT_NE(second.GetSafeHwnd(), nullptr);
    EXPECT_EQ(second.GetSafeHwnd()->GetRect(), frame->GetRect());
    second.OnOK();  // Enter in an inner page ends the sheet
  }));
  EXPECT_EQ(sheet.DoModal(), IDOK);
  EXPECT_EQ(second.GetSafeHwnd(), nullptr);
}

}  // namespace

namespace {

struct AvailableEngine : HelpEngine {
  explicit AvailableEngine(std::vector<HelpRequest> & requests) : requests(requests) {}
  bool IsAvailable() const override { return true; }
  bool Execute(HelpRequest const & request) override {
    requests.push_back(request);
    return true;
  }
  std::vector<HelpRequest> & requests;
};

TEST_F(SheetTest, HelpAndF1ShowTheActivePagesTopic) {
  std::vector<HelpRequest> requests;
  VxHtmlHelp::Instance()->SetHelpFile(L"/usr/share/doc/sample/Sample.chm");
  VxSetHelpEngine(std::make_unique<AvailableEngine>(requests));
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log);
  TestPage limits(kLimits, log);
  limits.SetHelpTopicID(77);
  sheet.AddPage(&general);
  sheet.AddPage(&limits);

  std::vector<bool> enabled;
  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    dialog.UpdateWindowUI(wxUPDATE_UI_RECURSE);
    enabled.push_back(dialog.FindWindow(IDHELP)->IsEnabled());
    ASSERT_TRUE(sheet.SetActivePage(1));
    dialog.UpdateWindowUI(wxUPDATE_UI_RECURSE);
    enabled.push_back(dialog.FindWindow(IDHELP)->IsEnabled());
    gui_test::Click(dialog, IDHELP);
    gui_test::PressKey(dialog, WXK_F1);
    gui_test::Click(dialog, IDCANCEL);
  }));
  sheet.DoModal();
  VxSetHelpEngine(nullptr);
  EXPECT_EQ(enabled, (std::vector<bool>{false, true})) << "only a page with a topic";
  ASSERT_EQ(requests.size(), 2u);
  for (HelpRequest const & request : requests) EXPECT_EQ(std::get<int>(request.value), 77);
}

}  // namespace

namespace {

TEST_F(SheetTest, APagesPopupMenuOffersOnlyWhatThePageHandles) {
  VxPropertySheet sheet(L"Run settings");
  TestPage general(kGeneral, log);
  sheet.AddPage(&general);
  general.RegisterCommand(100);
  general.RegisterCommand(103);
  general.Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & event) { event.Enable(true); }, 102);

  wxMenu menu;
  menu.Append(100, "Copy");
  menu.Append(101, "Paste");
  menu.Append(102, "Select all");
  menu.AppendSeparator();
  auto * more = new wxMenu;
  more->Append(103, "Export");
  more->Append(104, "Print");
  menu.AppendSubMenu(more, "More");

  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(sheet));
    // The menu is dismissed as soon as it is up.
    general.GetSafeHwnd()->Bind(wxEVT_MENU_OPEN, [](wxMenuEvent & event) {
      event.Skip();
      if (event.GetMenu() != nullptr && event.GetMenu()->GetParent() == nullptr)
        wxTheApp->CallAfter([] { FakeKey(XK_Escape); });
    });
    general.PopupMenu(menu);
    gui_test::Click(dialog, IDCANCEL);
  }));
  sheet.DoModal();
  EXPECT_TRUE(menu.IsEnabled(100));
  EXPECT_FALSE(menu.IsEnabled(101)) << "no handler";
  EXPECT_TRUE(menu.IsEnabled(102)) << "its update handler enables it";
  EXPECT_TRUE(more->IsEnabled(103));
  EXPECT_FALSE(more->IsEnabled(104));
}

}  // namespace
