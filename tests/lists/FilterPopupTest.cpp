// The filter popup with real windows and input: typing filters once the
// pause has passed (the timer's handler is called, nothing waits for it),
// Enter and a click choose, Escape cancels and writes nothing, Tab moves
// between combo and list, the edges resize it, and the hint shows in the
// focused empty field.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/combobox.h>
#include <wx/frame.h>

#include <functional>
#include <string>
#include <vector>

#include "PointerInput.h"
#include "controls/WindowSnapshot.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "lists/EntryPlaceholder.h"
#include "lists/FilterListCtrlPopupBar.h"
#include "lists/FilterListItems.h"
#include "lists/TrackFilterListCtrlPopup.h"
#include "platform/SysColor.h"
#include "platform/commctrl/CListCtrl.h"
#include "utl/Translation.h"

namespace {

class Runs : public FilterListItems {
public:
  uint64_t GetCount() const override { return 300; }
  std::string GetText(uint64_t index) const override {
    return (index % 3 == 0 ? "Blank " : "Run ") + std::to_string(index);
  }
};

class FilterPopupTest : public testing::Test {
protected:
  void SetUp() override {
    AppProfile::WriteProfileString("PopupFilterListCtrl", nullptr, nullptr);
    frame = new wxFrame(nullptr, wxID_ANY, "Runs", wxPoint(40, 40), wxSize(500, 400));
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Opens the popup and runs `script` on it once it can be clicked; the
  // popup is cancelled should the script leave it open.
  uint64_t Run(std::function<void(FilterListCtrlPopupBar &)> const & script,
               uint64_t selected = ~0ULL) {
    frame->CallAfter([script] {
      FilterListCtrlPopupBar * bar = nullptr;
      bool const open = gui_test::WaitUntil([&] {
        bar = FilterListCtrlPopupBar::GetOpen();
        return bar != nullptr && IsClickable(bar->GetCombo()) && bar->GetCombo().HasFocus();
      });
      EXPECT_TRUE(open) << "the popup came up with the focus in its combo";
      if (!open) {
        if (bar != nullptr) bar->Cancel();
        return;
      }
      script(*bar);
      if (FilterListCtrlPopupBar::GetOpen() == bar) bar->Cancel();
    });
    return TrackFilterListCtrlPopup(frame, wxPoint(80, 80), runs, selected);
  }

  static wxString Title(CListCtrl & list) {
    wchar_t text[100] = {};
    LVCOLUMNW column;
    column.mask = LVCF_TEXT;
    column.pszText = text;
    column.cchTextMax = 100;
    list.GetColumn(0, &column);
    return text;
  }

  wxFrame * frame = nullptr;
  Runs runs;
};

TEST_F(FilterPopupTest, TypingFiltersAfterThePauseAndEnterChoosesAndRemembers) {
  uint64_t const chosen = Run([](FilterListCtrlPopupBar & bar) {
    EXPECT_EQ(Title(bar.GetList()), "300 of 300 items visible");
    FakeType("run 29");
    ASSERT_TRUE(gui_test::WaitUntil([&] { return bar.GetCombo().GetValue() == "run 29"; }));
    EXPECT_TRUE(bar.IsFilterPending()) << "typing waits for a pause";
    EXPECT_EQ(bar.GetVisibleItems().size(), 300U);
    bar.OnFilterTimer();  // the pause has passed
    EXPECT_EQ(bar.GetVisibleItems(),
              (std::vector<uint64_t>{29, 229, 290, 292, 293, 295, 296, 298, 299}));
    EXPECT_EQ(Title(bar.GetList()), "9 of 300 items visible");
    EXPECT_EQ(bar.GetList().GetNextItem(-1, LVNI_SELECTED), 0) << "the first row is selected";
    FakeKey(XK_Down);  // keys reach the combo, not the list...
    FakeKey(XK_Tab);   // ...until Tab moves there
    ASSERT_TRUE(gui_test::WaitUntilFocused(bar.GetList()));
    FakeKey(XK_Down);
    ASSERT_TRUE(
        gui_test::WaitUntil([&] { return bar.GetList().GetNextItem(-1, LVNI_SELECTED) == 1; }));
    FakeKey(XK_Return);
    EXPECT_TRUE(gui_test::WaitUntil([] { return FilterListCtrlPopupBar::GetOpen() == nullptr; }));
  });
  EXPECT_EQ(chosen, 229U);
  EXPECT_EQ(AppProfile::GetProfileInt("PopupFilterListCtrl", "NumFilters", -1), 1);
  EXPECT_EQ(AppProfile::GetProfileString("PopupFilterListCtrl", "Filter0", ""), "run 29");
}

TEST_F(FilterPopupTest, AClickOnARowChoosesAndTheInitialSelectionShowsFirst) {
  uint64_t const chosen = Run(
      [](FilterListCtrlPopupBar & bar) {
        CListCtrl & list = bar.GetList();
        int const row = list.GetNextItem(-1, LVNI_SELECTED);
        ASSERT_GE(row, 0);
        EXPECT_EQ(bar.GetVisibleItems()[static_cast<size_t>(row)], 150U);
        EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), row);
        bar.ApplyFilter("blank");  // 150 is a blank and still selected
        ASSERT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 50);
        bar.ApplyFilter("run");  // now it is filtered like any other item
        EXPECT_EQ(list.GetItemCount(), 200);
        EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);
        list.EnsureVisible(0, false);
        RECT rect{};
        ASSERT_TRUE(list.GetItemRect(2, &rect, LVIR_BOUNDS));
        ASSERT_TRUE(gui_test::WaitUntil([&] { return IsClickable(list); }));
        FakeClickAt(list, wxPoint(rect.left + 20, (rect.top + rect.bottom) / 2));
        EXPECT_TRUE(
            gui_test::WaitUntil([] { return FilterListCtrlPopupBar::GetOpen() == nullptr; }));
      },
      150);
  EXPECT_EQ(chosen, 4U) << "the third run: 1, 2, 4";
}

TEST_F(FilterPopupTest, EscapeClosesWithoutAChoiceAndWritesNothing) {
  uint64_t const chosen = Run([](FilterListCtrlPopupBar & bar) {
    FakeType("xyz");
    ASSERT_TRUE(gui_test::WaitUntil([&] { return bar.GetCombo().GetValue() == "xyz"; }));
    bar.OnFilterTimer();
    EXPECT_EQ(Title(bar.GetList()), "0 of 300 items visible");
    FakeKey(XK_Return);  // no row: nothing is chosen and the popup stays
    gui_test::Flush();
    EXPECT_EQ(FilterListCtrlPopupBar::GetOpen(), &bar);
    FakeKey(XK_Escape);
    EXPECT_TRUE(gui_test::WaitUntil([] { return FilterListCtrlPopupBar::GetOpen() == nullptr; }));
  });
  EXPECT_EQ(chosen, ~0ULL);
  EXPECT_EQ(AppProfile::GetProfileInt("PopupFilterListCtrl", "NumFilters", -1), -1);
  EXPECT_EQ(AppProfile::GetProfileInt("PopupFilterListCtrl", "Width", -1), -1);
}

TEST_F(FilterPopupTest, EdgesResizeDownToTheMinimumAndTheSizeIsKeptOnAChoice) {
  AppProfile::WriteProfileInt("PopupFilterListCtrl", "Width", 300);
  AppProfile::WriteProfileInt("PopupFilterListCtrl", "Height", 400);
  wxSize grown, shrunk;
  Run([&](FilterListCtrlPopupBar & bar) {
    ASSERT_EQ(bar.GetSize(), wxSize(300, 400));
    wxPoint const corner = ScreenPoint(bar, wxPoint(298, 398));
    FakeMoveTo(corner);
    FakeButton(true);
    FakeMoveTo(corner + wxPoint(60, 40));
    FakeButton(false);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return bar.GetSize() == wxSize(360, 440); }))
        << bar.GetSize().x << " x " << bar.GetSize().y;
    grown = bar.GetSize();
    EXPECT_GT(bar.GetList().GetSize().y, 300) << "the list follows the popup";
    wxPoint const left = ScreenPoint(bar, wxPoint(1, 200));
    FakeMoveTo(left);
    FakeButton(true);
    FakeMoveTo(left + wxPoint(300, 0));
    FakeButton(false);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return bar.GetSize().x == 250; })) << bar.GetSize().x;
    shrunk = bar.GetSize();
    bar.ChooseRow(0);
  });
  EXPECT_EQ(grown, wxSize(360, 440));
  EXPECT_EQ(shrunk, wxSize(250, 440));
  EXPECT_EQ(AppProfile::GetProfileInt("PopupFilterListCtrl", "Width", -1), 250);
  EXPECT_EQ(AppProfile::GetProfileInt("PopupFilterListCtrl", "Height", -1), 440);
}

// After a drag the popup holds the pointer as before: a click on a row
// reaches the list, one outside closes the popup.
TEST_F(FilterPopupTest, AfterAnEdgeDragClicksGoWhereTheyWentBefore) {
  struct Case {
    char const * what;
    bool onARow;
    uint64_t chosen;
  };
  for (Case const & c : {Case{"a row", true, 1}, Case{"outside", false, ~0ULL}}) {
    SCOPED_TRACE(c.what);
    bool const onARow = c.onARow;
    uint64_t const chosen = Run([onARow](FilterListCtrlPopupBar & bar) {
      wxSize const before = bar.GetSize();
      wxPoint const bottom = ScreenPoint(bar, wxPoint(before.x / 2, before.y - 1));
      FakeMoveTo(bottom);
      FakeButton(true);
      FakeMoveTo(bottom + wxPoint(0, 30));
      FakeButton(false);
      ASSERT_TRUE(gui_test::WaitUntil([&] { return bar.GetSize().y == before.y + 30; }));
      if (onARow) {
        RECT rect{};
        ASSERT_TRUE(bar.GetList().GetItemRect(1, &rect, LVIR_BOUNDS));
        FakeClickAt(bar.GetList(), wxPoint(rect.left + 20, (rect.top + rect.bottom) / 2));
      } else {
        FakeMoveTo(bar.GetScreenRect().GetTopRight() + wxPoint(40, 0));
        FakeButton(true);
        FakeButton(false);
      }
      EXPECT_TRUE(gui_test::WaitUntil([] { return FilterListCtrlPopupBar::GetOpen() == nullptr; }));
    });
    EXPECT_EQ(chosen, c.chosen);
  }
}

// Pixels of `image` in the hint's colour where `reference` has another
// colour: the hint's ink, whatever else the field shows (frame, caret).
int HintInk(wxImage const & image, wxImage const & reference) {
  if (!image.IsOk() || !reference.IsOk() || image.GetSize() != reference.GetSize()) return -1;
  wxColour const hint = GetSysColour(COLOR_GRAYTEXT);
  auto const near = [&hint](wxImage const & in, int x, int y) {
    return std::abs(in.GetRed(x, y) - hint.Red()) < 24 &&
           std::abs(in.GetGreen(x, y) - hint.Green()) < 24 &&
           std::abs(in.GetBlue(x, y) - hint.Blue()) < 24;
  };
  int ink = 0;
  for (int y = 0; y < image.GetHeight(); ++y)
    for (int x = 0; x < image.GetWidth(); ++x)
      if (near(image, x, y) && !near(reference, x, y)) ++ink;
  return ink;
}

// The combo as shown once its field has drawn itself anew.
wxImage Redrawn(wxComboBox & combo) {
  GtkWidget * const entry = gtk_bin_get_child(GTK_BIN(combo.GetHandle()));
  int draws = 0;
  auto const count = +[](GtkWidget *, cairo_t *, gpointer counter) {
    ++*static_cast<int *>(counter);
    return FALSE;
  };
  gulong const handler = g_signal_connect_after(entry, "draw", G_CALLBACK(count), &draws);
  gtk_widget_queue_draw(entry);
  gui_test::WaitUntil([&draws] { return draws > 0; });
  g_signal_handler_disconnect(entry, handler);
  gui_test::Flush();
  return CaptureWindowImage(combo);
}

// The hint against the same field with the hint switched off, while GTK
// itself says the field has the focus (when its own placeholder would hide),
// and gone once the field has text. In the popup as the user sees it, and in
// a frame's combo, where GTK reports the focus the popup does not get from a
// test's display without a window manager.
void ExpectHintWhileEmpty(wxComboBox & combo, char const * snapshot) {
  GtkWidget * const entry = gtk_bin_get_child(GTK_BIN(combo.GetHandle()));
  ShowPlaceholderWhileEmpty(combo, vx3::Tr("Type filter here"));
  wxImage const withHint = Redrawn(combo);
  gui_test::Snapshot(*combo.GetParent(), snapshot);
  ShowPlaceholderWhileEmpty(combo, wxString());  // the hint switched off
  wxImage const plain = Redrawn(combo);
  EXPECT_GT(HintInk(withHint, plain), 60) << "the hint is painted in the empty field";
  EXPECT_TRUE(gtk_widget_is_focus(entry)) << "the field has the focus";

  ShowPlaceholderWhileEmpty(combo, vx3::Tr("Type filter here"));
  combo.ChangeValue("7");
  wxImage const typed = Redrawn(combo);
  EXPECT_LT(HintInk(typed, plain), 5) << "text hides the hint";
}

TEST_F(FilterPopupTest, TheHintShowsInTheFocusedEmptyFieldUntilItHasText) {
  Run([](FilterListCtrlPopupBar & bar) {
    ASSERT_TRUE(bar.GetCombo().HasFocus());
    ExpectHintWhileEmpty(bar.GetCombo(), "filter-popup-hint.png");
  });

  auto * const combo =
      new wxComboBox(frame, wxID_ANY, wxString(), wxPoint(10, 10), wxSize(240, -1));
  combo->SetFocus();
  GtkWidget * const entry = gtk_bin_get_child(GTK_BIN(combo->GetHandle()));
  ASSERT_TRUE(gui_test::WaitUntil([entry] { return gtk_widget_has_focus(entry) != FALSE; }))
      << "GTK gives the frame's field the focus";
  ExpectHintWhileEmpty(*combo, "frame-combo-hint.png");
}

}  // namespace
