// The Properties window: pages follow the handler, a shared page lives on
// untouched, the helper's updates refresh it, keys and closing hide it
// without ending it, and it goes before wx deletes its windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "harness/GuiTestUtilities.h"
#include "properties/BasePropertyPageHelper.h"
#include "properties/SheetTestPages.h"
#include "properties/VxModelessPropertySheet.h"
#include "properties/VxPropertiesHandler.h"
#include "work/XTestInput.h"

using namespace sheet_test;

namespace {

class TestHandler : public VxPropertiesHandler {
public:
  explicit TestHandler(std::vector<VxPropertyPage *> pages) : mPages(std::move(pages)) {}
  void AddPropertyPages(VxModelessPropertySheet & sheet) override {
    ++asked;
    for (VxPropertyPage * page : mPages) sheet.AddRefCountedPage(page);
  }
  VxPropertyPage * ChooseActivePage(VxPropertyPage * previous) override {
    bool const mine = std::find(mPages.begin(), mPages.end(), previous) != mPages.end();
    return mine ? previous : mPages.front();
  }
  BasePropertyPageHelper * GetPropertyPageHelper() override { return &helper; }

  BasePropertyPageHelper helper;
  int asked = 0;

private:
  std::vector<VxPropertyPage *> mPages;
};

int Count(std::vector<std::string> const & log, std::string const & entry) {
  return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

class ModelessTest : public ::testing::Test {
protected:
  void TearDown() override { VxModelessPropertySheet::Release(); }
};

TEST_F(ModelessTest, ASharedPageLivesOnAcrossHandlers) {
  std::vector<std::string> log;
  TestPage general(kGeneral, log);
  TestPage limits(kLimits, log);
  TestPage notes(kNotes, log);
  TestHandler runs({&general, &limits});
  TestHandler methods({&limits, &notes});
  VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
  sheet->Create();
  ASSERT_TRUE(gui_test::WaitUntilPlaced(*sheet));

  sheet->ChangePropertiesHandler(&runs);
  ASSERT_TRUE(sheet->SetActivePage(&limits));
  wxWindow * limitsWindow = limits.GetSafeHwnd();
  limits.text = "kept";

  sheet->ChangePropertiesHandler(&methods);
  EXPECT_EQ(sheet->GetPageCount(), 2);
  EXPECT_EQ(sheet->GetPage(0), &limits);
  EXPECT_EQ(sheet->GetActivePage(), &limits) << "the page shown before stays shown";
  EXPECT_EQ(limits.GetSafeHwnd(), limitsWindow) << "not rebuilt";
  gui_test::Snapshot(*sheet, "properties-window");
  EXPECT_EQ(Count(log, "init 4410"), 1);
  EXPECT_EQ(general.GetSafeHwnd(), nullptr);
  EXPECT_EQ(general.GetSheet(), nullptr);
  EXPECT_EQ(limits.CountRefs(), 1u);

  // The helper's update asks the handler again, with no page lost.
  int const asked = methods.asked;
  methods.helper.Update();
  EXPECT_EQ(methods.asked, asked + 1);
  EXPECT_EQ(sheet->GetPageCount(), 2);
  EXPECT_EQ(limits.GetSafeHwnd(), limitsWindow);

  sheet->ChangePropertiesHandler(nullptr);
  EXPECT_EQ(sheet->GetPageCount(), 0);
  EXPECT_EQ(limits.CountRefs(), 0u);
}

// Fails where it is asked for the page to show.
class FailingHandler : public TestHandler {
public:
  using TestHandler::TestHandler;
  VxPropertyPage * ChooseActivePage(VxPropertyPage *) override {
    throw Exception(ExceptionMessage::translate("The selection is gone."));
  }
};

TEST_F(ModelessTest, AFailingHandlerLeavesTheWindowUsable) {
  std::vector<std::string> log;
  TestPage general(kGeneral, log);
  TestPage limits(kLimits, log);
  TestHandler runs({&general});
  FailingHandler failing({&limits});
  VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
  sheet->Create();
  sheet->ChangePropertiesHandler(&runs);
  EXPECT_THROW(sheet->ChangePropertiesHandler(&failing), Exception);
  EXPECT_FALSE(sheet->IsFrozen()) << "redraw is back on";
  sheet->ChangePropertiesHandler(&runs);
  ASSERT_EQ(sheet->GetPageCount(), 1);
  EXPECT_EQ(sheet->GetActivePage(), &general);
  EXPECT_NE(general.GetDlgItem(EditOf(kGeneral)), nullptr);
}

TEST_F(ModelessTest, KeysAndClosingHideItAndHandThePagesBack) {
  std::vector<std::string> log;
  TestPage general(kGeneral, log);
  TestHandler runs({&general});
  VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
  sheet->Create();
  sheet->ChangePropertiesHandler(&runs);
  ASSERT_TRUE(gui_test::WaitUntilPlaced(*sheet));
  wxWindow * edit = general.GetDlgItem(EditOf(kGeneral));
  ASSERT_NE(edit, nullptr);
  ASSERT_TRUE(WaitUntilActive(*edit));
  edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntilFocused(*edit));

  FakeKey(XK_Tab);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !edit->HasFocus(); }));
  EXPECT_TRUE(sheet->IsShown());

  FakeKey(XK_Escape);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !sheet->IsShown(); }));
  EXPECT_EQ(VxModelessPropertySheet::Instance(), sheet) << "hidden, not ended";
  EXPECT_EQ(sheet->GetPropertiesHandler(), nullptr);
  EXPECT_EQ(general.CountRefs(), 0u);
  EXPECT_EQ(general.GetSheet(), nullptr);

  // Shown again, it takes a handler as before.
  sheet->Create();
  sheet->ChangePropertiesHandler(&runs);
  EXPECT_EQ(sheet->GetActivePage(), &general);
  sheet->Close();
  EXPECT_FALSE(sheet->IsShown());
  EXPECT_EQ(general.GetSheet(), nullptr);
}

TEST_F(ModelessTest, ItGoesBeforeItsPagesWhoeverEndsIt) {
  std::vector<std::string> log;
  TestPage general(kGeneral, log);
  TestHandler runs({&general});
  VxModelessPropertySheet::Instance()->Create();
  VxModelessPropertySheet::Instance()->ChangePropertiesHandler(&runs);

  // The shutdown module's way: the pages are handed back first.
  VxModelessPropertySheet::Release();
  EXPECT_FALSE(VxModelessPropertySheet::Exists());
  EXPECT_EQ(general.GetSheet(), nullptr);
  EXPECT_EQ(general.GetSafeHwnd(), nullptr);

  // wx's way (its windows deleted): Instance makes a new one afterwards.
  VxModelessPropertySheet::Instance()->Create();
  VxModelessPropertySheet::Instance()->ChangePropertiesHandler(&runs);
  VxModelessPropertySheet::Instance()->Destroy();
  EXPECT_TRUE(gui_test::WaitUntil([] { return !VxModelessPropertySheet::Exists(); }));
  EXPECT_FALSE(VxModelessPropertySheet::Exists());
  EXPECT_EQ(general.GetSheet(), nullptr);
  EXPECT_NE(VxModelessPropertySheet::Instance(), nullptr);
}

}  // namespace
