// The wizard: Back, Next and Finish side by side as the flags say, steps
// by real clicks, Finish ends the run.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/button.h>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "properties/SheetTestPages.h"
#include "properties/VxPropertySheet.h"
#include "work/XTestInput.h"

using namespace sheet_test;

namespace {

// Each page sets the buttons its place asks for.
class WizardPage : public TestPage {
public:
  using TestPage::TestPage;
  bool OnSetActive() override {
    VxPropertySheet * sheet = GetSheet();
    int const index = sheet->GetPageIndex(this);
    unsigned long flags = index == 0 ? PSWIZB_NEXT : PSWIZB_BACK | PSWIZB_NEXT;
    if (index + 1 == sheet->GetPageCount()) flags = PSWIZB_BACK | PSWIZB_FINISH;
    sheet->SetWizardButtons(flags);
    SetWizardCaption(wxString::Format("Step %d", index + 1).wc_str());
    return TestPage::OnSetActive();
  }
};

wxButton & ButtonOf(wxWindow & sheet, int id) {
  return *wxStaticCast(sheet.FindWindow(id), wxButton);
}

// Clicks `button` for real once GTK has given it the place wx laid it out
// at: buttons move as Finish comes and goes.
void ClickWhenPlaced(wxButton & button) {
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    GtkAllocation place;
    gtk_widget_get_allocation(button.GetHandle(), &place);
    return IsClickable(button) && place.x == button.GetPosition().x && place.width > 1;
  }));
  FakeClick(button);
}

TEST(Wizard, ButtonsStandSideBySideAsTheFlagsSay) {
  std::vector<std::string> log;
  VxPropertySheet wizard(L"New run");
  wizard.SetWizardMode();
  WizardPage first(kGeneral, log);
  wizard.AddPage(&first);

  struct Row {
    unsigned long flags;
    bool back, next, finishShown, finishEnabled;
  };
  Row const rows[] = {
      {PSWIZB_NEXT, false, true, false, false},
      {PSWIZB_BACK | PSWIZB_NEXT, true, true, false, false},
      {PSWIZB_BACK | PSWIZB_FINISH, true, false, true, true},
      {PSWIZB_BACK | PSWIZB_DISABLEDFINISH, true, false, true, false},
  };
  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(wizard));
    for (Row const & row : rows) {
      SCOPED_TRACE(row.flags);
      wizard.SetWizardButtons(row.flags);
      gui_test::Flush();
      wxButton & back = ButtonOf(dialog, ID_WIZBACK);
      wxButton & next = ButtonOf(dialog, ID_WIZNEXT);
      wxButton & finish = ButtonOf(dialog, ID_WIZFINISH);
      EXPECT_EQ(back.IsEnabled(), row.back);
      EXPECT_EQ(next.IsEnabled(), row.next);
      EXPECT_EQ(finish.IsShown(), row.finishShown);
      EXPECT_EQ(finish.IsEnabled(), row.finishEnabled);
      EXPECT_EQ(next.GetPosition().x, back.GetRect().GetRight() + 1 + 6);
      EXPECT_EQ(next.GetPosition().y, back.GetPosition().y);
      wxButton & after = ButtonOf(dialog, IDCANCEL);
      wxButton & neighbour = row.finishShown ? finish : next;
      EXPECT_EQ(after.GetPosition().x, neighbour.GetRect().GetRight() + 1 + 6);
      EXPECT_LT(ButtonOf(dialog, IDHELP).GetRect().GetRight(), dialog.GetClientSize().x)
          << "every button inside the window";
    }
    gui_test::Click(dialog, IDCANCEL);
  }));
  EXPECT_EQ(wizard.DoModal(), IDCANCEL);
}

TEST(Wizard, StepsThroughItsPagesToFinish) {
  std::vector<std::string> log;
  VxPropertySheet wizard(L"New run");
  wizard.SetWizardMode();
  WizardPage first(kGeneral, log);
  WizardPage second(kLimits, log);
  WizardPage third(kNotes, log);
  for (WizardPage * page : {&first, &second, &third}) wizard.AddPage(page);

  std::vector<wxString> titles;
  ModalDialogScript script;
  script.Act(Checked([&](wxDialog & dialog) {
    ASSERT_TRUE(gui_test::WaitUntilPlaced(wizard));
    wxButton & next = ButtonOf(dialog, ID_WIZNEXT);
    for (int step = 1; step <= 2; ++step) {
      ClickWhenPlaced(next);
      ASSERT_TRUE(gui_test::WaitUntil([&] { return wizard.GetActiveIndex() == step; }));
      titles.push_back(dialog.GetTitle());
    }
    EXPECT_FALSE(next.IsEnabled());
    ClickWhenPlaced(ButtonOf(dialog, ID_WIZBACK));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return wizard.GetActiveIndex() == 1; }));
    ASSERT_TRUE(wizard.SetActivePage(2));
    gui_test::Snapshot(dialog, "wizard-last-page");
    ClickWhenPlaced(ButtonOf(dialog, ID_WIZFINISH));
  }));
  EXPECT_EQ(wizard.DoModal(), ID_WIZFINISH);
  EXPECT_EQ(titles, (std::vector<wxString>{"Step 2", "Step 3"}));
  EXPECT_EQ(log.back(), "kill 4420") << "Finish reads the last page";
}

}  // namespace
