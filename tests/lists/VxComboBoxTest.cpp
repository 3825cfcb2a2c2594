// The family's combo with real windows: 64-bit data and selection by it,
// completion while the user types, and a drop-down that asks for two rows
// even for one item.
#include <gtest/gtest.h>
#include <wx/frame.h>

#include "PointerInput.h"
#include "harness/GuiTestUtilities.h"
#include "lists/VxComboBox.h"
#include "lists/VxComboPopup.h"

namespace {

class VxComboBoxTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Runs", wxPoint(40, 40), wxSize(400, 300));
    popup = new VxComboPopup;
    combo = new VxComboBox;
    combo->Create(frame, 12, wxPoint(10, 10), wxSize(220, -1), 0, popup);
    frame->Bind(wxEVT_COMBOBOX,
                [this](wxCommandEvent & event) { changes.push_back(event.GetInt()); });
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    if (combo->IsPopupShown()) combo->Dismiss();
    frame->Destroy();
    gui_test::Flush();
  }

  wxFrame * frame = nullptr;
  VxComboBox * combo = nullptr;
  VxComboPopup * popup = nullptr;
  std::vector<int> changes;
};

TEST_F(VxComboBoxTest, SelectsByDataExactlyOrNearest) {
  uint64_t const big = 0x123456789ABCULL;
  EXPECT_EQ(combo->AddStringEx("ten", 10), 0);
  EXPECT_EQ(combo->AddStringEx("twenty", 20), 1);
  EXPECT_EQ(combo->AddStringEx("big", big), 2);
  EXPECT_EQ(combo->GetItemData64(2), big) << "all 64 bits are kept";
  EXPECT_EQ(combo->GetCurItemData(), VxComboBox::kNoData);

  EXPECT_EQ(combo->SetCurSelEx(20), 1);
  EXPECT_EQ(combo->GetCurItemData(), 20U);
  EXPECT_EQ(combo->SetCurSelEx(11), -1);
  EXPECT_EQ(combo->GetSelection(), wxNOT_FOUND) << "no item with the data clears the selection";

  uint64_t data = 14;
  EXPECT_EQ(combo->SetCurSelEx2(data), 0);
  EXPECT_EQ(data, 10U) << "the nearest item's data is written back";
  EXPECT_EQ(combo->GetValue(), "ten");
  data = big;
  EXPECT_EQ(combo->SetCurSelEx2(data), 2);
  EXPECT_EQ(data, big);

  combo->Clear();
  data = 5;
  EXPECT_EQ(combo->SetCurSelEx2(data), -1);
  EXPECT_EQ(data, 5U);
}

TEST_F(VxComboBoxTest, TypingCompletesFromTheFirstMatchingItem) {
  for (char const * name : {"Run 7", "Run 12", "Rinse", "Blank"}) combo->Append(name);
  combo->EnableAutoCompletion(true);
  combo->SetFocus();
  ASSERT_TRUE(
      gui_test::WaitUntil([&] { return combo->HasFocus() || wxWindow::FindFocus() != nullptr; }));
  FakeType("r");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetValue() == "Run 7"; }))
      << combo->GetValue();
  long from = 0, to = 0;
  combo->GetSelection(&from, &to);
  EXPECT_EQ(from, 1) << "what was completed stands selected";
  EXPECT_EQ(to, 5);
  EXPECT_EQ(changes, (std::vector<int>{0}));
  FakeType("i");  // replaces the completed part: "Ri"
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetValue() == "Rinse"; }))
      << combo->GetValue();
  FakeType("x");  // "Rix" matches nothing and stays as typed
  ASSERT_TRUE(gui_test::WaitUntil([&] { return combo->GetValue() == "Rix"; })) << combo->GetValue();
  gui_test::Flush();
  combo->GetSelection(&from, &to);
  EXPECT_EQ(from, 3);
  EXPECT_EQ(to, 3);
  EXPECT_EQ(changes, (std::vector<int>{0, 2}));
}

TEST_F(VxComboBoxTest, DropDownOfOneItemAsksForTwoRowsAndFitsTheWidestItem) {
  combo->Append("A rather long name of an instrument in the laboratory");
  combo->Popup();
  int const wanted = 4 * popup->GetRowHeight();  // two rows and two rows' margin
  // The popup window is laid out once GTK has mapped it.
  gui_test::WaitUntil([&] { return popup->GetControl()->GetSize().y >= wanted - 4; }, 2000);
  wxSize const shown = popup->GetControl()->GetSize();
  EXPECT_GE(shown.y, wanted - 4);
  EXPECT_LE(shown.y, wanted);
  EXPECT_GT(shown.x, combo->GetTextExtent(combo->GetString(0)).x) << "wider than the item";
}

}  // namespace
