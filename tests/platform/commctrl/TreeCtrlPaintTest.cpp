// What the tree paints: the custom-draw stages for the rows on screen only,
// the owner's colours and skips, selection and insert mark, in pixels.

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include "../../harness/GuiTestUtilities.h"
#include "TreeCtrlTestSupport.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"

namespace {

class TreePaint : public TreeFixture {
protected:
  // The tree's pixels as it paints itself now.
  wxImage Paint() {
    wxSize const size = tree->GetClientSize();
    wxBitmap bitmap(size);
    wxMemoryDC dc(bitmap);
    tree->PaintTo(dc, wxRect(size));
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  }
  static int CountColour(wxImage const & image, wxRect const & area, wxColour const & colour) {
    int count = 0;
    for (int y = std::max(0, area.GetTop()); y <= std::min(image.GetHeight() - 1, area.GetBottom());
         ++y)
      for (int x = std::max(0, area.GetLeft());
           x <= std::min(image.GetWidth() - 1, area.GetRight()); ++x)
        if (image.GetRed(x, y) == colour.Red() && image.GetGreen(x, y) == colour.Green() &&
            image.GetBlue(x, y) == colour.Blue())
          ++count;
    return count;
  }
  wxRect Row(HTREEITEM item, bool textOnly) {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, textOnly ? 1 : 0));
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
  }
};

TEST_F(TreePaint, OnlyTheRowsOnScreenAreAskedAboutInOrderOfTheStages) {
  HTREEITEM const group = tree->InsertItem("group");
  for (int i = 0; i < 20000; ++i) tree->InsertItem(wxString::Format("row %d", i), group);
  tree->Expand(group, TVE_EXPAND);
  std::vector<DWORD> stages;
  std::vector<HTREEITEM> items;
  customDraw = [&](NMTVCUSTOMDRAW & draw) -> LRESULT {
    stages.push_back(draw.nmcd.dwDrawStage);
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
      items.push_back(HandleFromItemSpec(draw.nmcd.dwItemSpec));
      EXPECT_EQ(draw.iLevel, 1);  // every row on screen is a child of "group"
      return CDRF_NOTIFYPOSTPAINT;
    }
    return CDRF_DODEFAULT;
  };
  tree->SelectSetFirstVisible(
      tree->GetNextSiblingItem(tree->GetChildItem(group)));  // "row 1" on top
  Paint();
  int const page = static_cast<int>(tree->GetVisibleCount());
  ASSERT_GE(items.size(), static_cast<size_t>(page));
  EXPECT_LE(items.size(), static_cast<size_t>(page + 1));  // a part row at the bottom
  EXPECT_EQ(tree->GetItemText(items.front()), "row 1");
  EXPECT_EQ(tree->GetItemText(items.back()),
            wxString::Format("row %d", static_cast<int>(items.size())));
  ASSERT_GE(stages.size(), 4u);
  EXPECT_EQ(stages.front(), CDDS_PREPAINT);
  EXPECT_EQ(stages[1], CDDS_ITEMPREPAINT);
  EXPECT_EQ(stages[2], CDDS_ITEMPOSTPAINT);
  EXPECT_EQ(stages.back(), CDDS_POSTPAINT);
}

TEST_F(TreePaint, TheOwnersColoursAndSkipsShowAndSelectionAndInsertMarkAreDrawn) {
  HTREEITEM const coloured = tree->InsertItem("coloured text here");
  HTREEITEM const skipped = tree->InsertItem("skipped text here");
  HTREEITEM const plain = tree->InsertItem("plain text here");
  wxColour const blue(0, 0, 255);
  customDraw = [&](NMTVCUSTOMDRAW & draw) -> LRESULT {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    HTREEITEM const item = HandleFromItemSpec(draw.nmcd.dwItemSpec);
    if (item == coloured) {
      draw.clrText = RGB(255, 255, 255);
      draw.clrTextBk = RGB(0, 0, 255);
    }
    return item == skipped ? CDRF_SKIPDEFAULT : CDRF_DODEFAULT;
  };
  wxColour const window = GetSysColour(COLOR_WINDOW);
  wxImage image = Paint();
  wxRect const label = Row(coloured, true);
  EXPECT_GT(CountColour(image, label, blue), label.GetWidth() * label.GetHeight() / 2);
  wxRect const skippedRow = Row(skipped, false);
  EXPECT_EQ(CountColour(image, skippedRow, window), skippedRow.GetWidth() * skippedRow.GetHeight());
  wxRect const plainRow = Row(plain, false);
  EXPECT_LT(CountColour(image, plainRow, window),
            plainRow.GetWidth() * plainRow.GetHeight());  // its text

  // A drop-highlighted row takes the highlight colour; an insert mark draws
  // a line in the row, which goes when the item does.
  customDraw = nullptr;
  wxColour const highlight = GetSysColour(COLOR_HIGHLIGHT);
  tree->SelectDropTarget(plain);
  image = Paint();
  EXPECT_GT(CountColour(image, Row(plain, true), highlight), 0);
  tree->SelectDropTarget({});
  tree->SetInsertMarkColor(RGB(255, 0, 0));
  tree->SetInsertMark(coloured, 1);
  image = Paint();
  wxRect const markRow = Row(coloured, false);
  EXPECT_GT(CountColour(image, markRow, wxColour(255, 0, 0)), markRow.GetWidth() / 2);
  tree->DeleteItem(coloured);
  EXPECT_FALSE(tree->GetInsertMark());
  EXPECT_EQ(CountColour(Paint(), wxRect(tree->GetClientSize()), wxColour(255, 0, 0)), 0);
}

TEST_F(TreePaint, AShownTreeLooksRight) {
  tree->ModifyStyle(0, TVS_CHECKBOXES | TVS_SHOWSELALWAYS);
  HTREEITEM const runs = tree->InsertItem("Runs");
  for (auto const * text : {"Calibration", "Batch 17", "Batch 18"}) tree->InsertItem(text, runs);
  HTREEITEM const project = tree->InsertItem("Project B");
  tree->InsertItem("Run 1", project);
  tree->SetItemState(runs, TVIS_BOLD, TVIS_BOLD);
  tree->Expand(runs, TVE_EXPAND);
  tree->SelectItem(tree->GetChildItem(runs));
  tree->SetInsertMark(project, 0);
  frame->Show();
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  gui_test::Snapshot(*frame, "tree-view");
  wxImage const image = Paint();
  // The selected label is in the highlight or the inactive colour.
  wxRect const selected = Row(tree->GetChildItem(runs), true);
  EXPECT_GT(CountColour(image, selected, GetSysColour(COLOR_HIGHLIGHT)) +
                CountColour(image, selected, GetSysColour(COLOR_BTNFACE)),
            0);
}

// Labels drawn without measuring look exactly like dc.DrawText's, in every
// mode the tree's owner may leave the device context in.
TEST(UnmeasuredText, LooksLikeDrawText) {
  struct Case {
    char const * text;
    wxColour fore;
    int backgroundMode;
    wxRasterOperationMode function;
  };
  Case const cases[] = {
      {"Run 17 of the batch", *wxBLACK, wxBRUSHSTYLE_TRANSPARENT, wxCOPY},
      {"Run 17 of the batch", wxColour(200, 0, 0), wxBRUSHSTYLE_TRANSPARENT, wxCOPY},
      {"two\nlines", wxColour(0, 0, 200), wxBRUSHSTYLE_TRANSPARENT, wxCOPY},
      {"on a solid back", *wxBLACK, wxBRUSHSTYLE_SOLID, wxCOPY},
      {"", *wxBLACK, wxBRUSHSTYLE_TRANSPARENT, wxCOPY},
  };
  for (Case const & c : cases) {
    auto draw = [&c](bool unmeasured) {
      wxBitmap bitmap(160, 48);
      {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        dc.SetFont(wxFont(wxFontInfo(10).FaceName("Serif").Italic()));
        dc.SetTextForeground(c.fore);
        dc.SetTextBackground(wxColour(0, 200, 0));
        dc.SetBackgroundMode(c.backgroundMode);
        dc.SetLogicalFunction(c.function);
        if (unmeasured)
          DrawTextUnmeasured(dc, c.text, 7, 5);
        else
          dc.DrawText(c.text, 7, 5);
      }
      wxImage const image = bitmap.ConvertToImage();
      return std::vector<unsigned char>(image.GetData(),
                                        image.GetData() + image.GetWidth() * image.GetHeight() * 3);
    };
    std::vector<unsigned char> const expected = draw(false);
    EXPECT_EQ(draw(true), expected) << c.text;
    if (c.text[0] != '\0')
      EXPECT_NE(std::count(expected.begin(), expected.end(), 255), long(expected.size()))
          << "something was drawn: " << c.text;
  }
}

}  // namespace
