// The check combo with real windows: the list stays open while the user
// checks rows by click and by Space, refuses what it must, and the face
// (shown and read) follows the checks.
#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <vector>

#include "PointerInput.h"
#include "harness/GuiTestUtilities.h"
#include "lists/CheckComboBox.h"
#include "platform/SysColor.h"

namespace {

constexpr int kComboId = 4711;

class CheckComboBoxTest : public testing::Test {
protected:
  void SetUp() override {
    setenv("LC_ALL", "C", 1);  // "," between checked items
    frame = new wxFrame(nullptr, wxID_ANY, "Instruments", wxPoint(40, 40), wxSize(400, 300));
    combo = new CheckComboBox(frame, kComboId, wxPoint(10, 10), wxSize(220, -1));
    for (char const * name : {"Balance", "Centrifuge", "Photometer", "Titrator", "Viscometer"})
      combo->Append(name);
    frame->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent & event) {
      if (event.GetId() == kComboId) notified.push_back(event.GetInt());
    });
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    if (combo->IsPopupShown()) combo->Dismiss();
    frame->Destroy();
    gui_test::Flush();
    unsetenv("LC_ALL");
  }

  // Opens the list with a real click on the closed combo.
  bool OpenByClick() {
    FakeClick(*combo);
    return gui_test::WaitUntil(
        [&] { return combo->IsPopupShown() && IsClickable(*combo->GetListBox()); });
  }
  wxVListBoxComboPopup & List() const {
    return *static_cast<wxVListBoxComboPopup *>(combo->GetListBox());
  }
  wxPoint RowMiddle(int row) const {
    int const rowHeight = List().GetLineHeight(row);
    return wxPoint(40, rowHeight * row + rowHeight / 2);
  }

  wxFrame * frame = nullptr;
  CheckComboBox * combo = nullptr;
  std::vector<int> notified;
};

TEST_F(CheckComboBoxTest, ClicksToggleRowsAndTheListStaysOpen) {
  ASSERT_TRUE(OpenByClick());
  FakeClickAt(*combo->GetListBox(), RowMiddle(1));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetCheck(1); }));
  FakeClickAt(*combo->GetListBox(), RowMiddle(3));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetCheck(3); }));
  gui_test::Flush();
  EXPECT_TRUE(combo->IsPopupShown()) << "a click must not close the list";
  EXPECT_EQ(combo->GetValue(), "Centrifuge, Titrator");
  EXPECT_EQ(combo->GetSelection(), wxNOT_FOUND) << "a checked row is no selection";
  EXPECT_EQ(combo->GetLastSelected(), 3);
  EXPECT_EQ(notified, (std::vector<int>{1, 3}));

  FakeClickAt(*combo->GetListBox(), RowMiddle(1));  // and off again
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->GetCheck(1); }));
  EXPECT_EQ(combo->GetValue(), "Titrator");

  FakeKey(XK_Escape);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return !combo->IsPopupShown(); }));
  EXPECT_EQ(combo->GetValue(), "Titrator") << "closing keeps the checks";
}

TEST_F(CheckComboBoxTest, SpaceTogglesTheHighlightedRowAndEnterCloses) {
  ASSERT_TRUE(OpenByClick());
  FakeMoveTo(ScreenPoint(*combo->GetListBox(), RowMiddle(2)));  // highlights the row
  ASSERT_TRUE(
      gui_test::WaitUntil([&] { return static_cast<wxVListBox &>(List()).GetSelection() == 2; }));
  FakeKey(XK_space);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetCheck(2); }));
  FakeKey(XK_space);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !combo->GetCheck(2); }));
  EXPECT_TRUE(combo->IsPopupShown());
  EXPECT_EQ(combo->GetLastSelected(), -1) << "only a click sets the last selected row";
  FakeKey(XK_Return);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return !combo->IsPopupShown(); }));
  EXPECT_EQ(combo->GetSelection(), wxNOT_FOUND);
}

TEST_F(CheckComboBoxTest, TogglingRefusesWhatTheRowsForbid) {
  struct Case {
    char const * what;
    std::vector<int> checkedBefore;
    bool allClear;
    int row;
    std::vector<int> checkedAfter;
    bool notifies;
  };
  // Row 0 is disabled, row 4 has no box.
  Case const cases[] = {
      {"a plain row is checked", {}, true, 2, {2}, true},
      {"a disabled row refuses silently", {}, true, 0, {}, false},
      {"the last check stays when clearing all is off", {2}, false, 2, {2}, false},
      {"one of two checks may go when clearing all is off", {1, 2}, false, 2, {1}, true},
      {"the last check may go by default", {2}, true, 2, {}, true},
      {"a row without box is not checked but told", {}, true, 4, {}, true},
  };
  for (auto const & c : cases) {
    SCOPED_TRACE(c.what);
    combo->EnableAll();
    combo->SelectAll(false);
    combo->SetDisabled(0, true);
    combo->SetItemsWithoutCheckbox({4});
    combo->EnableAllClear(c.allClear);
    for (int row : c.checkedBefore) combo->SetCheck(row, true);
    notified.clear();
    combo->ToggleItem(c.row, true);
    std::vector<int> checked;
    for (int row = 0; row < 5; ++row)
      if (combo->GetCheck(row)) checked.push_back(row);
    EXPECT_EQ(checked, c.checkedAfter);
    EXPECT_EQ(notified.empty(), !c.notifies);
  }
}

TEST_F(CheckComboBoxTest, FaceShowsChecksOrTheStringsForNoneAndAll) {
  EXPECT_EQ(combo->GetValue(), "") << "no checks and no string: an empty face";
  combo->SetNoSelectionString("(none)");
  EXPECT_EQ(combo->GetValue(), "(none)");
  std::vector<wxString> picked{"Viscometer", "Balance", "Unknown"};
  combo->SetSelItems(picked);
  EXPECT_EQ(combo->GetValue(), "Balance, Viscometer") << "item order, not the caller's";
  std::vector<wxString> read{"stale"};
  combo->GetSelItems(read);
  EXPECT_EQ(read, (std::vector<wxString>{"Balance", "Viscometer"}));
  combo->SelectAll(true);
  EXPECT_EQ(combo->GetValue(), "Balance, Centrifuge, Photometer, Titrator, Viscometer");
  combo->SetAllSelectedString("All instruments");
  EXPECT_EQ(combo->GetValue(), "All instruments");
  combo->SelectAll(false);
  combo->SetItemsWithoutCheckbox({0});  // a row without box is never checked...
  combo->SelectAll(true);
  EXPECT_EQ(combo->GetNumCheckedItems(), 4);
  EXPECT_EQ(combo->SetCheck(0, true), 0);  // ...SetCheck leaves it alone...
  EXPECT_FALSE(combo->GetCheck(0));
  EXPECT_EQ(combo->GetValue(), "Centrifuge, Photometer, Titrator, Viscometer")
      << "...so not all items are selected";

  setenv("LC_ALL", "C.UTF-8", 1);
  combo->SetCheck(1, false);  // a change recomputes the face with the user's separator
  EXPECT_EQ(combo->GetValue(), "Photometer, Titrator, Viscometer");

  combo->ResetContent();
  EXPECT_EQ(combo->GetCount(), 0U);
  EXPECT_EQ(combo->GetNumCheckedItems(), 0);
  EXPECT_EQ(combo->GetLastSelected(), -1);
  EXPECT_EQ(combo->GetValue(), "(none)");
}

// Paints one row or the face into a bitmap of `size`.
wxImage Paint(CheckComboBox & combo, int item, int flags, wxSize size) {
  wxBitmap bitmap(size);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxRED_BRUSH);  // anything not painted shows red
  dc.Clear();
  if (item < 0)
    combo.DrawFace(dc, wxRect(size));
  else
    combo.OnDrawItem(dc, wxRect(size), item, flags);
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

bool Is(wxImage const & image, int x, int y, wxColour const & colour) {
  return image.GetRed(x, y) == colour.Red() && image.GetGreen(x, y) == colour.Green() &&
         image.GetBlue(x, y) == colour.Blue();
}

TEST_F(CheckComboBoxTest, RowsPaintTheBoxAndTickAndTheFaceCentresTheAllString) {
  int const rowHeight = List().GetLineHeight(0);
  wxSize const size(200, rowHeight);
  wxColour const ink = GetSysColour(COLOR_WINDOWTEXT);
  wxColour const gray = GetSysColour(COLOR_GRAYTEXT);
  combo->SetCheck(1, true);
  combo->SetDisabled(3, true);
  combo->SetCheck(3, true);
  wxImage const checked = Paint(*combo, 1, 0, size);
  wxImage const unchecked = Paint(*combo, 2, 0, size);
  wxImage const disabled = Paint(*combo, 3, 0, size);
  int const x0 = 2 + 3, y0 = 1;  // the tick's origin inside the square at (2, 1)
  int const firstRow[] = {5, 6, 7, 6, 5, 4, 3};
  for (int column = 0; column < 7; ++column) {
    for (int row = 0; row < 3; ++row) {
      int const x = x0 + column, y = y0 + firstRow[column] + row;
      EXPECT_TRUE(Is(checked, x, y, ink)) << "tick pixel " << x << "," << y;
      EXPECT_FALSE(Is(unchecked, x, y, ink)) << "no tick in an empty box at " << x << "," << y;
      EXPECT_TRUE(Is(disabled, x, y, gray)) << "a disabled row's tick is gray";
    }
  }
  EXPECT_TRUE(Is(checked, 2, 1, ink)) << "the square's corner";
  EXPECT_TRUE(Is(checked, 2, rowHeight - 2, ink)) << "the square is the row's height less two";
  EXPECT_TRUE(Is(disabled, 2, 1, gray));
  for (int x = 0; x < size.x; x += 7)
    for (int y = 0; y < size.y; ++y) ASSERT_FALSE(Is(checked, x, y, *wxRED)) << x << "," << y;

  // The all-selected string stands centred: as much room left as right.
  combo->SelectAll(true);
  combo->SetAllSelectedString("All");
  wxImage const face = Paint(*combo, -1, 0, size);
  wxColour const window = GetSysColour(COLOR_WINDOW);
  int left = size.x, right = -1;
  for (int x = 0; x < size.x; ++x)
    for (int y = 0; y < size.y; ++y)
      if (!Is(face, x, y, window)) {
        left = std::min(left, x);
        right = std::max(right, x);
      }
  ASSERT_LE(left, right) << "the face shows text";
  EXPECT_NEAR(left, size.x - 1 - right, 3);
}

}  // namespace
