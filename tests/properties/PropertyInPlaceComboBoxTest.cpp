// The list editor of a property row with real pointer and keys: the drop
// list's height, what confirms (an outside press, a release inside, a drag,
// Return) and what only hides it (Tab, Escape, which reach no dialog), the
// end of the entries, stepping and the double click that cycles.
#include <gtest/gtest.h>

#include <X11/keysym.h>

#include "EditorHost.h"
#include "harness/GuiTestUtilities.h"
#include "platform/commctrl/ListInput.h"
#include "platform/commctrl/VirtualKeys.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceComboBoxButton.h"
#include "properties/PropertyInPlaceComboBoxEdit.h"
#include "properties/PropertyInPlaceComboBoxListBox.h"
#include "work/XTestInput.h"

namespace {

class PropertyInPlaceComboBoxTest : public testing::Test {
protected:
  void SetUp() override {
    host = new EditorHost;
    ASSERT_TRUE(gui_test::ShowAndWait(*host));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*host));
    host->Raise();
    combo = PropertyInPlaceComboBox::CreateInPlaceControl(host->owner, RECT{100, 20, 300, 40});
    gui_test::Flush();
  }
  void TearDown() override {
    host->Destroy();
    gui_test::Flush();
  }

  void Fill(int count) {
    for (int i = 0; i < count; ++i)
      combo->AddString(wxString::Format("Entry %d", i).wc_str(), 100 + i);
    combo->SetCurSel(0, false);
    combo->ResetListBoxHeight();
  }

  // Opens the list as a user does, with the button, and waits for it.
  void Drop() {
    ASSERT_TRUE(gui_test::WaitUntil([&] { return IsReady(*combo->GetButton()); }));
    FakeClick(*combo->GetButton());
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      return combo->IsDropped() && gtk_widget_get_mapped(combo->GetList()->GetHandle()) != 0 &&
             combo->GetList()->HoldsPointer();
    }));
    gui_test::Flush();
  }

  wxPoint RowCentre(int row) const {
    int const h = combo->GetList()->GetItemHeight();
    return wxPoint(30, 1 + row * h + h / 2);
  }

  EditorHost * host = nullptr;
  PropertyInPlaceComboBox * combo = nullptr;
};

TEST_F(PropertyInPlaceComboBoxTest, SetCurSelRefusesWhatLiesOutsideTheEntries) {
  Fill(3);
  struct Case {
    int index;
    bool notify;
    int result, chosen, changes;
  } const cases[] = {
      {3, true, -1, 0, 0},  // at the end
      {9, true, -1, 0, 0}, {-1, true, -1, 0, 0}, {2, false, 2, 2, 0}, {1, true, 1, 1, 1},
  };
  for (Case const & c : cases) {
    combo->SetCurSel(0, false);
    host->owner->messages.clear();
    EXPECT_EQ(combo->SetCurSel(c.index, c.notify), c.result) << c.index;
    EXPECT_EQ(combo->GetCurSel(), c.chosen) << c.index;
    EXPECT_EQ(combo->GetEdit()->GetText(), combo->GetString(c.chosen)) << c.index;
    EXPECT_EQ(host->owner->DataChanges(), c.changes) << c.index;
  }
}

TEST_F(PropertyInPlaceComboBoxTest, DropListIsEightRowsAtMostOrAHundredPixelsWhenEmpty) {
  struct Case {
    int count, rows;
  } const cases[] = {{20, 8}, {3, 3}, {0, 0}};
  for (Case const & c : cases) {
    combo->ResetContent();
    Fill(c.count);
    Drop();
    int const h = combo->GetList()->GetItemHeight();
    wxRect const shown = combo->GetList()->GetScreenRect();
    EXPECT_EQ(shown.height, c.rows == 0 ? 100 : c.rows * h + 2) << c.count;
    EXPECT_EQ(shown.width, combo->GetSize().x);
    EXPECT_EQ(shown.y, combo->GetScreenRect().GetBottom() + 1) << "right below the frame";
    gui_test::Snapshot(*host, "property-combo-dropped");
    FakeKey(XK_Escape);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
  }
}

TEST_F(PropertyInPlaceComboBoxTest, TabAndEscapeOnlyHideAndReachNoDialog) {
  Fill(5);
  for (KeySym key : {XK_Escape, XK_Tab}) {
    Drop();
    FakeKey(XK_Down);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetList()->GetSelection() == 1; }));
    FakeKey(key);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
    gui_test::Flush();
    EXPECT_FALSE(combo->GetList()->HoldsPointer());
    EXPECT_EQ(combo->GetCurSel(), 0) << XKeysymToString(key);
    EXPECT_EQ(host->owner->DataChanges(), 0);
    EXPECT_TRUE(host->buttons.empty());
    EXPECT_TRUE(host->IsShown());
  }
  Drop();
  EXPECT_EQ(combo->GetList()->GetSelection(), 0) << "the highlight starts at the choice again";
  FakeKey(XK_Down);
  FakeKey(XK_Down);
  FakeKey(XK_Return);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
  EXPECT_EQ(combo->GetCurSel(), 2);
  EXPECT_EQ(combo->GetEdit()->GetText(), "Entry 2");
  EXPECT_EQ(host->owner->DataChanges(), 1);
  EXPECT_TRUE(host->buttons.empty()) << "Return pressed the default button";
}

TEST_F(PropertyInPlaceComboBoxTest, AnOutsidePressConfirmsTheHighlightedEntry) {
  Fill(5);
  gui_test::Snapshot(*host, "property-combo-closed");
  Drop();
  FakeKey(XK_Down);
  FakeKey(XK_Down);
  FakeKey(XK_Down);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetList()->GetSelection() == 3; }));
  list_input::ClickAt(*host->owner, wxPoint(20, 180));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
  EXPECT_EQ(combo->GetCurSel(), 3) << "confirmed, not cancelled";
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

TEST_F(PropertyInPlaceComboBoxTest, AReleaseInsideChoosesAndADragFollowsThePointer) {
  Fill(20);
  Drop();
  list_input::ClickAt(*combo->GetList(), RowCentre(4));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
  EXPECT_EQ(combo->GetCurSel(), 4);
  EXPECT_EQ(host->owner->DataChanges(), 1);

  Drop();
  list_input::MoveTo(*combo->GetList(), RowCentre(1));
  list_input::Press(1, true);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetList()->GetSelection() == 1; }));
  for (int row : {2, 5, 6}) {
    list_input::MoveTo(*combo->GetList(), RowCentre(row));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetList()->GetSelection() == row; }))
        << row;
  }
  EXPECT_TRUE(combo->IsDropped()) << "a drag does not choose yet";
  list_input::Press(1, false);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->IsDropped(); }));
  EXPECT_EQ(combo->GetCurSel(), 6);
  EXPECT_EQ(host->owner->DataChanges(), 2);
}

TEST_F(PropertyInPlaceComboBoxTest, StepsStopAtTheEndsAndADoubleClickCycles) {
  Fill(3);
  struct Case {
    unsigned message;
    std::uintptr_t key;
    int chosen;
    int changes;
  } const cases[] = {
      {kInPlaceListStep, VK_UP, 0, 0},  // already at the top
      {kInPlaceListStep, VK_DOWN, 1, 1}, {kInPlaceListStep, VK_RIGHT, 2, 2},
      {kInPlaceListStep, VK_DOWN, 2, 2},  // no next entry
      {kInPlaceDoubleClick, 1, 0, 3},     // wraps
      {kInPlaceDoubleClick, 1, 1, 4},    {kInPlaceListStep, VK_UP, 0, 5},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(SendWindowMessage(combo, c.message, c.key, 0), 1);
    EXPECT_EQ(combo->GetCurSel(), c.chosen);
    EXPECT_EQ(host->owner->DataChanges(), c.changes);
  }
  combo->ResetContent();
  combo->AddString(L"Only", 0);
  combo->SetCurSel(0, false);
  SendWindowMessage(combo, kInPlaceDoubleClick, 1, 0);
  EXPECT_EQ(combo->GetCurSel(), 0) << "one entry does not cycle";
  EXPECT_EQ(host->owner->DataChanges(), 5);
}

}  // namespace
