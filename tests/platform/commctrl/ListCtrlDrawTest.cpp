// What the list asks its owner while painting (the custom-draw stages, only
// for the rows on the page), what it paints with the answers, owner-drawn
// headings, and label editing with its two notifications.
#include <gtest/gtest.h>

#include <wx/dcmemory.h>

#include "ListRecorder.h"
#include "harness/GuiTestUtilities.h"
#include "platform/SysColor.h"
// Last: Xlib's macros (None, Bool) clash with names in the headers above.
#include "ListInput.h"

namespace {

using Seen = std::vector<std::string>;

// Answers custom draw as told and writes down each stage.
struct DrawOwner {
  explicit DrawOwner(ListFixture & f) {
    f.panel->Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) {
      if (event.GetCode() != NM_CUSTOMDRAW) {
        event.Skip();
        return;
      }
      auto * draw = event.GetNotification<NMLVCUSTOMDRAW>();
      DWORD const stage = draw->nmcd.dwDrawStage;
      int const item = static_cast<int>(draw->nmcd.dwItemSpec);
      if (stage == CDDS_PREPAINT) {
        stages.push_back("pre");
        event.SetResult(prepaint);
      } else if (stage == CDDS_POSTPAINT) {
        stages.push_back("post");
      } else if (stage == CDDS_ITEMPREPAINT) {
        stages.push_back("item " + std::to_string(item));
        if (item == colouredRow) draw->clrTextBk = RGB(255, 0, 0);
        event.SetResult(item == skippedRow   ? CDRF_SKIPDEFAULT
                        : item == subItemRow ? CDRF_NOTIFYSUBITEMDRAW | CDRF_NOTIFYPOSTPAINT
                                             : CDRF_DODEFAULT);
      } else if (stage == (CDDS_ITEMPREPAINT | CDDS_SUBITEM)) {
        stages.push_back("sub " + std::to_string(item) + "." + std::to_string(draw->iSubItem));
        if (draw->iSubItem == 1) draw->clrTextBk = RGB(0, 0, 255);
      } else if (stage == CDDS_ITEMPOSTPAINT) {
        stages.push_back("itempost " + std::to_string(item));
      }
    });
  }
  std::vector<std::string> stages;
  LRESULT prepaint = CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
  int colouredRow = -1;
  int skippedRow = -1;
  int subItemRow = -1;
};

// The list painted into a bitmap, as a paint event would paint it.
wxImage PaintedImage(CListCtrl & list) {
  wxSize const size = list.GetClientSize();
  wxBitmap bitmap(size, 24);
  wxMemoryDC dc(bitmap);
  list.PaintRows(dc, wxRect(size));
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

COLORREF PixelAt(wxImage const & image, int x, int y) {
  return RGB(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

TEST(ListCtrlCustomDraw, StagesComeAsAskedAndOnlyForTheRowsOnThePage) {
  ListFixture f(LVS_REPORT, wxSize(400, 200));
  f.Fill(100000 / 100, 2);
  DrawOwner owner(f);
  owner.subItemRow = 1;
  owner.stages.clear();
  wxImage const image = PaintedImage(*f.list);
  ASSERT_TRUE(image.IsOk());
  int const page = f.list->GetCountPerPage();
  std::vector<std::string> expected{"pre", "item 0", "item 1", "sub 1.0", "sub 1.1", "itempost 1"};
  // The last row may be partly shown: it is painted too.
  for (int row = 2; row <= page; ++row) expected.push_back("item " + std::to_string(row));
  expected.push_back("post");
  EXPECT_EQ(owner.stages, expected);

  // Without item stages asked for, none come.
  owner.prepaint = CDRF_DODEFAULT;
  owner.stages.clear();
  PaintedImage(*f.list);
  EXPECT_EQ(owner.stages, Seen{"pre"});
}

TEST(ListCtrlCustomDraw, AnswersChangeWhatIsPainted) {
  ListFixture f(LVS_REPORT, wxSize(400, 200));
  f.Fill(5, 2);
  DrawOwner owner(f);
  owner.colouredRow = 1;
  owner.skippedRow = 2;
  owner.subItemRow = 3;
  // Row 2 gets a text to show whether it was painted.
  f.list->SetItemText(2, 0, "MMMMMMMMMM");
  wxImage const image = PaintedImage(*f.list);
  auto const middleOf = [&](int row, int column) {
    RECT cell{};
    f.list->GetSubItemRect(row, column, LVIR_BOUNDS, &cell);
    if (column == 0) f.list->GetItemRect(row, &cell, LVIR_LABEL);
    return wxPoint(cell.right - 3, (cell.top + cell.bottom) / 2);  // beside the text
  };
  wxPoint const red = middleOf(1, 0);
  EXPECT_EQ(PixelAt(image, red.x, red.y), RGB(255, 0, 0));
  wxPoint const blue = middleOf(3, 1);
  EXPECT_EQ(PixelAt(image, blue.x, blue.y), RGB(0, 0, 255));
  // The skipped row shows only the list's background, no text.
  COLORREF const background = f.list->GetBkColor();
  RECT skipped{};
  f.list->GetItemRect(2, &skipped, LVIR_LABEL);
  for (int x = skipped.left; x < skipped.left + 60; ++x)
    ASSERT_EQ(PixelAt(image, x, (skipped.top + skipped.bottom) / 2), background) << x;
}

class OwnerDrawnHeader : public CHeaderCtrl {
public:
  using CHeaderCtrl::CHeaderCtrl;
  using CHeaderCtrl::PaintHeader;
  void DrawItem(wxDC &, int index, RECT const & rect, UINT state) override {
    drawn.push_back(std::to_string(index) + "@" + std::to_string(rect.left) +
                    (state == ODS_SELECTED ? " pressed" : ""));
  }
  std::vector<std::string> drawn;
};

TEST(HeaderOwnerDraw, OnlyOwnerDrawnItemsAreHandedOverInDisplayOrder) {
  ListFixture f;
  auto * header = new OwnerDrawnHeader(f.panel, wxID_ANY, wxPoint(0, 0), wxSize(300, 24));
  std::wstring text = L"Heading";
  for (int i = 0; i < 3; ++i) {
    HDITEMW item;
    item.mask = HDI_WIDTH | HDI_FORMAT | HDI_TEXT;
    item.cxy = 50 + 10 * i;
    item.fmt = HDF_STRING | (i != 1 ? HDF_OWNERDRAW : 0);
    item.pszText = text.data();
    header->InsertItem(i, &item);
  }
  int const order[] = {2, 0, 1};
  ASSERT_TRUE(header->SetOrderArray(3, order));
  int const notPermutation[] = {0, 0, 1};
  EXPECT_FALSE(header->SetOrderArray(3, notPermutation));
  wxBitmap bitmap(300, 24, 24);
  wxMemoryDC dc(bitmap);
  header->PaintHeader(dc);
  EXPECT_EQ(header->drawn, Seen({"2@0", "0@70"}));
  RECT rect{};
  ASSERT_TRUE(header->GetItemRect(1, &rect));
  EXPECT_EQ(rect.left, 120);
  EXPECT_EQ(header->OrderToIndex(0), 2);

  // While the button is down on an item it is drawn pressed.
  ASSERT_TRUE(gui_test::ShowAndWait(*f.frame));
  ASSERT_TRUE(gui_test::WaitUntilPlaced(*f.frame));
  f.list->Hide();
  list_input::MoveTo(*header, wxPoint(20, 12));
  list_input::Press(1, true);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return header->GetPressedItem() == 2; }));
  header->drawn.clear();
  header->PaintHeader(dc);
  EXPECT_EQ(header->drawn, Seen({"2@0 pressed", "0@70"}));
  list_input::Press(1, false);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return header->GetPressedItem() == -1; }));
}

TEST(ListCtrlLabelEdit, BeginMayRefuseEndKeepsTheTextOnlyWhenTheOwnerSaysSo) {
  ListFixture f;
  f.Fill(3, 1);
  ASSERT_TRUE(gui_test::ShowAndWait(*f.frame));
  ASSERT_TRUE(gui_test::WaitUntilPlaced(*f.frame));
  bool refuse = true;
  f.panel->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() == LVN_BEGINLABELEDITW)
      event.SetResult(refuse ? 1 : 0);
    else
      event.Skip();
  });
  EXPECT_EQ(f.list->EditLabel(1), nullptr);
  refuse = false;

  struct Case {
    char const * name;
    KeySym key;
    bool keep;
    char const * seen;
    char const * text;
  };
  Case const cases[] = {
      {"Enter, kept", XK_Return, true, "ENDEDIT changed", "changed"},
      {"Enter, refused", XK_Return, false, "ENDEDIT changed", "r1c0"},
      {"Escape", XK_Escape, true, "ENDEDIT null", "r1c0"},
  };
  for (Case const & c : cases) {
    f.list->SetItemText(1, 0, "r1c0");
    f.keepEdit = c.keep;
    f.seen.clear();
    wxTextCtrl * edit = f.list->EditLabel(1);
    ASSERT_NE(edit, nullptr) << c.name;
    EXPECT_EQ(edit->GetValue(), "r1c0") << c.name;
    edit->SetValue("changed");
    ASSERT_TRUE(gui_test::WaitUntilFocused(*edit)) << c.name;
    list_input::Key(c.key);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetEditControl() == nullptr; })) << c.name;
    EXPECT_EQ(f.seen, Seen{c.seen}) << c.name;
    EXPECT_EQ(f.list->GetItemText(1, 0), c.text) << c.name;
  }
  // Deleting the row under the edit cancels it.
  f.seen.clear();
  ASSERT_NE(f.list->EditLabel(2), nullptr);
  f.list->DeleteItem(2);
  EXPECT_EQ(f.list->GetEditControl(), nullptr);
  EXPECT_EQ(f.seen, (Seen{"ENDEDIT null", "DELETE 2"}));
}

TEST(ListCtrlColours, SystemColoursAtStartAndTheEmptyListPaintsItsBackground) {
  ListFixture f(LVS_REPORT, wxSize(300, 150));
  EXPECT_EQ(f.list->GetBkColor(), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(f.list->GetTextColor(), GetSysColor(COLOR_WINDOWTEXT));
  f.list->SetBkColor(RGB(10, 20, 30));
  DrawOwner owner(f);
  wxImage const image = PaintedImage(*f.list);
  EXPECT_EQ(PixelAt(image, 50, f.list->GetClientSize().y - 5), RGB(10, 20, 30));
  // The empty list still runs the post-paint stage, where an owner puts
  // its "no items" text.
  EXPECT_EQ(owner.stages, Seen({"pre", "post"}));
}

}  // namespace
