// The family's tree with real windows: walks, check propagation, the
// selection modes, search, the text form, item colours and fonts through
// copies and deletes, stale handles, deleting with the question, and drags
// with real pointer and keys (XTest).
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/image.h>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "lists/ItemFontCache.h"
#include "lists/VxTreeCtrl.h"
#include "platform/SysColor.h"
#include "utl/Exception.h"
#include "work/XTestInput.h"

namespace {

class Tree : public VxTreeCtrl {
public:
  using VxTreeCtrl::OnKeyDown;
  using VxTreeCtrl::OnLButtonDown;
  using VxTreeCtrl::OnPaint;
  using VxTreeCtrl::OnRButtonDown;
  using VxTreeCtrl::VxTreeCtrl;
  int selectionChanges = 0;
  std::vector<std::pair<HTREEITEM, HTREEITEM>> copied;
  std::vector<DWORD_PTR> dataDeleted;
  void OnSelectionChanged() override { ++selectionChanges; }
  void OnItemCopied(HTREEITEM source, HTREEITEM copy) override {
    copied.emplace_back(source, copy);
  }
  void DeleteItemData(HTREEITEM item) override { dataDeleted.push_back(GetItemData(item)); }
};

class VxTreeTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "tree", wxPoint(60, 60), wxSize(360, 420));
    tree =
        new Tree(frame, wxID_ANY, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_CHECKBOXES);
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Builds from the text form ("\t" a level) and returns the items in order.
  std::vector<HTREEITEM> Build(std::string const & text) {
    std::istringstream in(text);
    tree->Serialize(in);
    std::vector<HTREEITEM> items;
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at)) items.push_back(at);
    return items;
  }
  std::string Images() const {
    std::string out;
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at))
      out += char('0' + tree->GetCheckImage(at));
    return out;
  }
  std::string Selected() const {
    std::string out;
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at))
      out += tree->GetItemState(at, TVIS_SELECTED) != 0 ? '1' : '0';
    return out;
  }
  POINT Label(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  void ShowAll() {
    tree->ExpandAll(TVE_EXPAND);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    tree->SetSize(frame->GetClientSize());
    gui_test::Flush();
  }

  wxFrame * frame = nullptr;
  Tree * tree = nullptr;
};

TEST_F(VxTreeTest, WalksFollowTheDisplayOrder) {
  auto const n = Build("a\n\tb\n\t\tc\n\td\ne\n\tf\n");  // a b c d e f
  struct Case {
    int item, next, prev, last, level, children;
  };
  Case const cases[] = {{0, 1, -1, 3, 0, 2}, {1, 2, 0, 2, 1, 1}, {2, 3, 1, 2, 2, 0},
                        {3, 4, 2, 3, 1, 0},  {4, 5, 3, 5, 0, 1}, {5, -1, 4, 5, 1, 0}};
  auto at = [&n](int i) { return i < 0 ? TVI_NULL : n[size_t(i)]; };
  for (Case const & c : cases) {
    EXPECT_EQ(tree->GetNextItem(at(c.item)), at(c.next)) << c.item;
    EXPECT_EQ(tree->GetPrevItem(at(c.item)), at(c.prev)) << c.item;
    EXPECT_EQ(tree->GetLastItem(at(c.item)), at(c.last)) << c.item;
    EXPECT_EQ(tree->GetIndentLevel(at(c.item)), c.level) << c.item;
    EXPECT_EQ(tree->GetNumChildren(at(c.item)), c.children) << c.item;
  }
  EXPECT_EQ(tree->GetLastItem(TVI_NULL), n[5]);
  EXPECT_EQ(tree->GetNumChildren(TVI_NULL), 6);
}

TEST_F(VxTreeTest, ChecksPropagateToEveryAncestor) {
  // root > group > (x y z); root > other
  struct Step {
    int item;
    VxTreeCtrl::CheckType type;
    char const * images;  // root group x y z other
  };
  Step const steps[] = {
      {0, VxTreeCtrl::Uncheck, "111111"},
      {2, VxTreeCtrl::Check, "332111"},
      {3, VxTreeCtrl::Check, "332211"},
      {4, VxTreeCtrl::Check, "342221"},        // all of group: 4; root has an unchecked child
      {4, VxTreeCtrl::ToggleCheck, "332211"},  // one unchecked again: 3
      {5, VxTreeCtrl::Check, "332212"},
      {1, VxTreeCtrl::DisableCheck, "352212"},
      {2, VxTreeCtrl::Uncheck, "351212"},  // a disabled group keeps 5, the walk goes on
      {0, VxTreeCtrl::Uncheck, "151111"},  // the disabled group keeps 5 downwards too
      {2, VxTreeCtrl::RemoveCheck, "150111"},
  };
  auto const n = Build("root\n\tgroup\n\t\tx\n\t\ty\n\t\tz\n\tother\n");
  for (Step const & s : steps) {
    EXPECT_EQ(tree->SetCheck(n[size_t(s.item)], s.type), 1);
    EXPECT_EQ(Images(), s.images) << s.item << " " << s.type;
  }
  EXPECT_EQ(tree->SetCheck(TVI_NULL, VxTreeCtrl::Check), 0);
  EXPECT_FALSE(tree->GetCheck(TVI_NULL));
}

// A large branch asks for one refresh, not one per item; every change after
// a paint must still bring the next paint.
TEST_F(VxTreeTest, EveryCheckChangeAfterAPaintPaintsAgain) {
  auto const n = Build("a\n\tb\n\tc\nd\n");
  ShowAll();
  int paints = 0;
  tree->Bind(wxEVT_PAINT, [&paints](wxPaintEvent & event) {
    ++paints;
    event.Skip();
  });
  for (HTREEITEM item : {n[0], n[3], n[0]}) {
    int const before = paints;
    tree->SetCheck(item, VxTreeCtrl::ToggleCheck);
    EXPECT_TRUE(gui_test::WaitUntil([&] { return paints > before; }))
        << "no paint after the change of " << tree->GetItemText(item);
  }
}

TEST_F(VxTreeTest, CheckedWalksSkipPartialForwardButNotBackward) {
  auto const n = Build("a\n\tb\n\tc\nd\n");
  tree->SetCheck(n[0], VxTreeCtrl::Uncheck);
  tree->SetCheck(n[3], VxTreeCtrl::Check);
  tree->SetCheck(n[1], VxTreeCtrl::Check);  // a becomes 3
  EXPECT_EQ(Images(), "3212");
  EXPECT_EQ(tree->GetFirstCheckedItem(), n[1]);
  EXPECT_EQ(tree->GetNextCheckedItem(n[1]), n[3]);
  EXPECT_EQ(tree->GetPrevCheckedItem(n[3]), n[1]);
  EXPECT_EQ(tree->GetPrevCheckedItem(n[1]), n[0]) << "the backward walk accepts image 3";
  EXPECT_TRUE(tree->AllChildrenChecked(n[3], false)) << "no children";
  EXPECT_FALSE(tree->AllChildrenChecked(n[0], true));
}

TEST_F(VxTreeTest, DeepChainsNeedNoStack) {
  HTREEITEM parent = TVI_ROOT;
  HTREEITEM first{};
  for (int level = 0; level < 100000; ++level) {
    parent = tree->InsertItem("x", parent);
    if (level == 0) first = parent;
  }
  EXPECT_EQ(tree->GetLastItem(TVI_NULL), parent);
  EXPECT_EQ(tree->GetIndentLevel(parent), 99999);
  tree->SetCheck(first, VxTreeCtrl::Check);
  EXPECT_EQ(tree->GetCheckImage(parent), 2u);
  tree->SetCheck(parent, VxTreeCtrl::Uncheck);
  EXPECT_EQ(tree->GetCheckImage(first), 1u);
  tree->ExpandBranch(first, TVE_EXPAND);
  EXPECT_NE(tree->GetItemState(tree->GetParentItem(parent), TVIS_EXPANDED), 0u);
  std::ostringstream out;
  tree->Serialize(out);
  EXPECT_EQ(out.str().size(), size_t(99999) * 100000 / 2 + 100000 * 3);
  tree->DeleteItem(first);
  EXPECT_EQ(tree->GetCount(), 0u);
}

TEST_F(VxTreeTest, SingleSelectionEnumeratesOnlyTheFirst) {
  auto const n = Build("a\nb\nc\n");
  for (HTREEITEM item : n) tree->SetItemState(item, TVIS_SELECTED, TVIS_SELECTED);
  EXPECT_EQ(tree->GetSelectedItemCount(), 3);
  EXPECT_EQ(tree->GetFirstSelectedItem(), n[0]);
  EXPECT_EQ(tree->GetNextSelectedItem(n[0]), TVI_NULL);
  tree->ClearSelection();
  EXPECT_EQ(Selected(), "111") << "inert in single mode";
  EXPECT_EQ(tree->SelectItems(n[0], n[2]), 0);
  tree->EnableMultiSelect(true);
  EXPECT_EQ(tree->GetNextSelectedItem(n[0]), n[1]);
  EXPECT_EQ(tree->GetPrevSelectedItem(n[2]), n[1]);
  tree->ClearSelection();
  EXPECT_EQ(Selected(), "000");
}

TEST_F(VxTreeTest, SelectItemsTakesTheVisibleRangeInEitherOrder) {
  tree->EnableMultiSelect(true);
  auto const n = Build("a\n\tb\nc\n\td\ne\nf\n");
  tree->Expand(n[2], TVE_EXPAND);  // b hidden, d visible
  struct Case {
    int first, last;
    char const * selected;
  };
  Case const cases[] = {{2, 4, "001110"}, {4, 2, "001110"}, {0, 5, "101111"}, {5, 5, "100001"}};
  // The walk to the range never clears the first root item: a kept quirk.
  for (Case const & c : cases) {
    EXPECT_EQ(tree->SelectItems(n[size_t(c.first)], n[size_t(c.last)]), 1);
    EXPECT_EQ(Selected(), c.selected) << c.first << "-" << c.last;
    EXPECT_EQ(tree->GetSelectedItem(), n[size_t(c.last)]);
  }
}

TEST_F(VxTreeTest, ClicksSelectByModeAndModifiers) {
  auto const n = Build("g1\n\ta\n\tb\ng2\n\tc\n\td\n");
  ShowAll();
  tree->EnableMultiSelect(true);
  struct Click {
    int item;
    UINT flags;
    char const * selected;  // g1 a b g2 c d
  };
  Click const multi[] = {{1, 0, "010000"},          {4, MK_CONTROL, "010010"},
                         {1, MK_CONTROL, "000010"}, {2, MK_SHIFT, "011000"},
                         {5, MK_SHIFT, "011111"},   {0, 0, "100000"}};
  // The Ctrl click left the caret on a: the Shift range starts there.
  for (Click const & c : multi) {
    tree->OnLButtonDown(c.flags, Label(n[size_t(c.item)]));
    EXPECT_EQ(Selected(), c.selected) << c.item << " flags " << c.flags;
  }
  EXPECT_GE(tree->selectionChanges, 6);

  tree->SetSelectionState(VxTreeCtrl::LeafPerParentSelection);
  tree->ClearSelection();
  // The platform's caret move clears the item it leaves; a parent never stays.
  Click const leaves[] = {{1, 0, "010000"}, {4, 0, "000010"}, {2, 0, "001000"}, {3, 0, "000000"}};
  for (Click const & c : leaves) {
    tree->OnLButtonDown(c.flags, Label(n[size_t(c.item)]));
    EXPECT_EQ(Selected(), c.selected) << "leaf per parent, item " << c.item;
  }
}

TEST_F(VxTreeTest, RightClickSelectsAnUnselectedItemAndTellsTheParent) {
  auto const n = Build("a\nb\nc\n");
  ShowAll();
  tree->EnableMultiSelect(true);
  tree->SelectItems(n[0], n[1]);
  int told = 0;
  frame->Bind(wxEVT_RIGHT_DOWN, [&told](wxMouseEvent &) { ++told; });
  tree->OnRButtonDown(0, Label(n[1]));
  EXPECT_EQ(Selected(), "110") << "a selected item keeps the selection";
  tree->OnRButtonDown(0, Label(n[2]));
  EXPECT_EQ(Selected(), "001");
  EXPECT_EQ(told, 2);
}

TEST_F(VxTreeTest, FindFoldsCaseKeepsPositionsAndWraps) {
  auto const n = Build("Straße\n\tstrasse_1\n\tMASSE\nRun 12\nrun_12x\nÄrger 12\n");
  struct Case {
    wchar_t const * text;
    bool matchCase, down, whole;
    int start, found;
  };
  Case const cases[] = {
      {L"MASSE", false, true, false, 0, 2},   {L"masse", true, true, false, 0, -1},
      {L"STRASSE", false, true, false, 2, 1}, {L"ße", false, true, false, 1, 0},
      {L"12", false, true, true, 4, 5},       {L"12", false, false, true, 4, 3},
      {L"12", false, true, true, 3, 3},       {L"run", false, true, true, 4, 3},
      {L"ärger", false, false, false, 0, 5},  {L"nothing", false, true, false, 2, -1},
      {L"", false, true, false, 0, -1},
  };
  for (Case const & c : cases) {
    HTREEITEM const found =
        tree->FindItem(c.text, c.matchCase, c.down, c.whole, n[size_t(c.start)]);
    HTREEITEM const expected = c.found < 0 ? TVI_NULL : n[size_t(c.found)];
    EXPECT_EQ(found, expected) << wxString(c.text) << " from " << c.start;
  }
}

TEST_F(VxTreeTest, TextFormRoundTripsAndRefusesDamageWhole) {
  std::string const text = "Projekt\r\n\tRun 1\r\n\t\tPeak\r\n\tRun 2\r\nZweites\r\n";
  Build(text);
  std::ostringstream out;
  tree->Serialize(out);
  EXPECT_EQ(out.str(), text);
  std::istringstream bad(std::string("more\n\t\xFF\n", 8));
  EXPECT_THROW(tree->Serialize(bad), Exception);
  EXPECT_EQ(tree->GetCount(), 5u) << "nothing added";
}

TEST_F(VxTreeTest, ColoursAndFontsFollowCopiesAndGoWithTheItem) {
  auto const n = Build("src\n\tchild\ndst\n");
  LOGFONTW font{};
  wcscpy(font.lfFaceName, L"Serif");
  tree->SetItemColor(n[0], RGB(200, 0, 0));
  tree->SetItemFont(n[1], font);
  tree->SetItemColor(n[1], RGB(0, 0, 200));
  tree->SetItemBold(n[1], 1);
  tree->SetItemData(n[1], 77);
  tree->SetCheck(n[1], VxTreeCtrl::Check);
  LOGFONTW got{};
  EXPECT_EQ(tree->GetItemFont(n[1], &got), 1) << "the colour kept the font";
  EXPECT_EQ(tree->GetItemFont(n[0], &got), 0);
  EXPECT_EQ(tree->GetItemColor(n[2]), VxTreeCtrl::kDefaultColor);

  HTREEITEM const copy = tree->CopyBranch(n[0], n[2]);
  HTREEITEM const childCopy = tree->GetChildItem(copy);
  ASSERT_TRUE(childCopy);
  EXPECT_EQ(tree->GetItemColor(copy), RGB(200, 0, 0));
  EXPECT_EQ(tree->GetItemColor(childCopy), RGB(0, 0, 200));
  EXPECT_EQ(tree->GetItemFont(childCopy, &got), 1);
  EXPECT_EQ(std::wstring(got.lfFaceName), L"Serif");
  EXPECT_EQ(tree->GetItemBold(childCopy), 1);
  EXPECT_EQ(tree->GetItemData(childCopy), 77u);
  EXPECT_EQ(tree->GetCheckImage(childCopy), 2u);
  EXPECT_EQ(tree->copied.size(), 2u);

  // A copy into its own branch copies what was there before.
  HTREEITEM const inside = tree->CopyBranch(n[0], n[1]);
  EXPECT_EQ(tree->GetNumChildren(inside), 1);
  EXPECT_EQ(tree->GetNumChildren(tree->GetChildItem(inside)), 0);

  tree->DeleteItem(n[0]);
  EXPECT_FALSE(tree->HasDisplayInfo(n[0]));
  EXPECT_FALSE(tree->HasDisplayInfo(n[1]));
  // Stale handles act as null everywhere.
  EXPECT_EQ(tree->GetItemColor(n[1]), VxTreeCtrl::kDefaultColor);
  EXPECT_EQ(tree->SetCheck(n[1], VxTreeCtrl::Check), 0);
  EXPECT_EQ(tree->CopyItem(n[1], TVI_ROOT), TVI_NULL);
  EXPECT_EQ(tree->GetNextSelectedItem(n[1]), TVI_NULL);
  EXPECT_EQ(tree->FindItem(L"x", false, true, false, n[1]), TVI_NULL);
  tree->SetItemColor(n[1], 0);
  EXPECT_FALSE(tree->HasDisplayInfo(n[1]));
}

// --- Items of their own colour and font, in pixels ----------------------------------

wxImage PaintedImage(Tree & tree) {
  wxSize const size = tree.GetClientSize();
  wxBitmap bitmap(size);
  {
    wxMemoryDC dc(bitmap);
    tree.OnPaint(dc, wxRect(size));
  }
  return bitmap.ConvertToImage();
}

// Pixels of `colour` in `area`, and the width of what is not `background`.
int CountColour(wxImage const & image, wxRect const & area, wxColour const & colour) {
  int count = 0;
  for (int y = std::max(0, area.GetTop()); y <= std::min(image.GetHeight() - 1, area.GetBottom());
       ++y)
    for (int x = std::max(0, area.GetLeft()); x <= std::min(image.GetWidth() - 1, area.GetRight());
         ++x)
      if (wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)) == colour)
        ++count;
  return count;
}
int InkWidth(wxImage const & image, wxRect const & area, wxColour const & background) {
  int left = area.GetRight() + 1;
  int right = area.GetLeft() - 1;
  for (int y = area.GetTop(); y <= std::min(image.GetHeight() - 1, area.GetBottom()); ++y)
    for (int x = area.GetLeft(); x <= std::min(image.GetWidth() - 1, area.GetRight()); ++x)
      if (wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)) != background) {
        left = std::min(left, x);
        right = std::max(right, x);
      }
  return std::max(0, right - left + 1);
}

TEST_F(VxTreeTest, OwnColoursAndFontsArePaintedAndFollowTheControlFont) {
  auto const n = Build("red label\nserif label\nplain label\n");
  wxColour const red(200, 0, 0);
  tree->SetItemColor(n[0], RGB(200, 0, 0));
  LOGFONTW serif{};
  wcscpy(serif.lfFaceName, L"Serif");
  tree->SetItemFont(n[1], serif);
  tree->SetSize(300, 200);
  wxColour const window = GetSysColour(COLOR_WINDOW);
  auto row = [this](HTREEITEM item) {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    // To the window's edge: a label in its own font may be wider.
    return wxRect(rect.left, rect.top, 300 - rect.left, rect.bottom - rect.top);
  };

  wxImage const first = PaintedImage(*tree);
  EXPECT_GT(CountColour(first, row(n[0]), red), 0) << "the own colour";
  EXPECT_EQ(CountColour(first, row(n[2]), red), 0);
  EXPECT_EQ(CountColour(first, row(n[0]), GetSysColour(COLOR_WINDOWTEXT)), 0)
      << "no default label under the coloured one";
  EXPECT_GT(InkWidth(first, row(n[1]), window), 0) << "the label in its own font";
  wxImage const again = PaintedImage(*tree);
  EXPECT_EQ(std::vector<unsigned char>(again.GetData(),
                                       again.GetData() + again.GetWidth() * again.GetHeight() * 3),
            std::vector<unsigned char>(first.GetData(),
                                       first.GetData() + first.GetWidth() * first.GetHeight() * 3))
      << "a second paint from kept fonts looks the same";

  // A selected item shows the selection, its label in the control's way.
  tree->SelectItem(n[0]);
  wxImage const selected = PaintedImage(*tree);
  EXPECT_GT(InkWidth(selected, row(n[0]), window), 0);
  EXPECT_EQ(CountColour(selected, row(n[0]), red), 0);
  tree->SelectItem(n[2]);

  // A face of its own keeps the control's size: a larger control font makes
  // that label wider too.
  int const before = InkWidth(PaintedImage(*tree), row(n[1]), window);
  tree->SetFont(tree->GetFont().Scaled(2.0F));
  int const after = InkWidth(PaintedImage(*tree), row(n[1]), window);
  EXPECT_GT(after, before * 3 / 2);
}

// Fonts kept per look: no two looks share one, and each is what the look
// asks for over the control's font.
TEST(ItemFontCacheTest, EveryLookGetsItsOwnFont) {
  wxFont const base(wxFontInfo(10).FaceName("Sans"));
  auto look = [](wchar_t const * face, LONG height, LONG weight, BYTE italic, BYTE underline,
                 BYTE strike) {
    LOGFONTW font{};
    wcscpy(font.lfFaceName, face);
    font.lfHeight = height;
    font.lfWeight = weight;
    font.lfItalic = italic;
    font.lfUnderline = underline;
    font.lfStrikeOut = strike;
    return font;
  };
  struct Case {
    LOGFONTW font;
    bool bold;
  };
  std::vector<Case> const cases = {
      {look(L"", 0, 0, 0, 0, 0), false},        {look(L"", 0, 0, 0, 0, 0), true},
      {look(L"Serif", 0, 0, 0, 0, 0), false},   {look(L"Serif", 0, 0, 0, 0, 0), true},
      {look(L"Serif", -20, 0, 0, 0, 0), false}, {look(L"Serif", 0, FW_BOLD, 0, 0, 0), false},
      {look(L"Serif", 0, 0, 1, 0, 0), false},   {look(L"Serif", 0, 0, 0, 1, 0), false},
      {look(L"Serif", 0, 0, 0, 0, 1), false},   {look(L"Monospace", 0, 0, 0, 0, 0), false},
  };
  auto expected = [&base](Case const & c) {
    wxFont font = c.font.lfFaceName[0] != L'\0' ? FontFromLogFont(c.font, base) : base;
    if (c.bold) font.SetWeight(wxFONTWEIGHT_BOLD);
    return font;
  };
  ItemFontCache cache;
  for (Case const & c : cases) EXPECT_TRUE(cache.Font(c.font, c.bold, base) == expected(c));
  // Asked again in another order, every look finds its own font.
  for (auto c = cases.rbegin(); c != cases.rend(); ++c)
    EXPECT_TRUE(cache.Font(c->font, c->bold, base) == expected(*c));
  // A face-less look ignores the other fields; bold by weight is bold.
  EXPECT_TRUE(cache.Font(look(L"", -30, 0, 1, 1, 1), false, base) == base);
  EXPECT_TRUE(cache.Font(look(L"Serif", 0, FW_BOLD, 0, 0, 0), false, base) ==
              cache.Font(look(L"Serif", 0, 0, 0, 0, 0), true, base));
  // A new control font starts over.
  wxFont const larger = base.Scaled(2.0F);
  EXPECT_EQ(cache.Font(look(L"", 0, 0, 0, 0, 0), false, larger).GetPointSize(),
            larger.GetPointSize());
  EXPECT_EQ(cache.FontCount(), 1U);
}

TEST_F(VxTreeTest, DeleteAsksAndDeletesDataFirst) {
  tree->EnableMultiSelect(true);
  auto const n = Build("a\n\tb\nc\nd\n");
  for (size_t i = 0; i < n.size(); ++i) tree->SetItemData(n[i], i + 1);
  tree->SelectItems(n[0], n[2]);
  tree->Expand(n[0], TVE_EXPAND);
  tree->SelectItems(n[0], n[2]);  // a, b, c
  {
    ModalDialogScript script;
    script.Answer(wxID_NO);
    tree->DeleteSelectedItems(true);
  }
  EXPECT_EQ(tree->GetCount(), 4u) << "No changes nothing";
  EXPECT_TRUE(tree->dataDeleted.empty());
  {
    ModalDialogScript script;
    script.Answer(wxID_YES);
    tree->DeleteSelectedItems(true);
  }
  EXPECT_EQ(tree->dataDeleted, (std::vector<DWORD_PTR>{1, 2, 3}));
  EXPECT_EQ(tree->GetCount(), 1u);
  EXPECT_EQ(tree->GetItemText(tree->GetRootItem()), "d");

  int copies = 0;
  tree->SetUserHasCopiedDataCallBack([&copies] { ++copies; });
  tree->CopySelection();
  EXPECT_EQ(copies, 1);
}

TEST_F(VxTreeTest, BackgroundPictureRefusesWhatItCannotUse) {
  EXPECT_EQ(tree->SetBkImage(L"/nonexistent/picture.png"), 0);
  std::string const broken =
      std::string(getenv("TMPDIR") ? getenv("TMPDIR") : "/tmp") + "/broken.png";
  FILE * f = fopen(broken.c_str(), "wb");
  ASSERT_NE(f, nullptr);
  fputs("\x89PNG\r\n\x1a\n garbage", f);
  fclose(f);
  EXPECT_EQ(tree->SetBkImage(wxString(broken).wc_str()), 0);
  EXPECT_EQ(tree->SetBkImage(99999u), 0);
  EXPECT_EQ(tree->SetBkImage(wxBitmap(20000, 2)), 0) << "too large to tile";
  EXPECT_FALSE(tree->HasBkImage());
  wxBitmap tile(8, 8);
  EXPECT_EQ(tree->SetBkImage(tile), 1);
  Build("a\nb\n");
  ShowAll();
  tree->Refresh();
  tree->Update();  // paints the tiled background without fault
  gui_test::Snapshot(*tree, "tree-background");
  EXPECT_EQ(tree->SetBkImage(99999u), 0);
  EXPECT_FALSE(tree->HasBkImage()) << "the old picture is gone";
}

// --- Drags, driven through the handlers --------------------------------------------------

class DragTree : public Tree {
public:
  using Tree::Tree;
  using VxTreeCtrl::OnLButtonUp;
  using VxTreeCtrl::OnMouseMove;

protected:
  // The press "detects" a drag without a real pointer.
  bool DragDetect(POINT /*point*/) override { return true; }
};

class VxTreeDragTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "drag", wxPoint(60, 60), wxSize(360, 420));
    tree = new DragTree(frame, wxID_ANY, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
    std::istringstream in("g1\n\ta\n\tb\ng2\n\tc\n");
    tree->Serialize(in);
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at)) n.push_back(at);
    tree->ExpandAll(TVE_EXPAND);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    tree->SetSize(frame->GetClientSize());
    gui_test::Flush();
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }
  POINT Label(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  void Ctrl(bool down) {
    Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
    XTestFakeKeyEvent(display, XKeysymToKeycode(display, XK_Control_L), down, CurrentTime);
    XSync(display, False);
    gui_test::WaitUntil([down] { return wxGetKeyState(WXK_CONTROL) == down; }, 1000);
  }
  void Press(HTREEITEM from) { tree->OnLButtonDown(0, Label(from)); }

  wxFrame * frame = nullptr;
  DragTree * tree = nullptr;
  std::vector<HTREEITEM> n;
};

TEST_F(VxTreeDragTest, ADropMovesAndCtrlAtReleaseCopies) {
  Press(n[1]);  // a
  ASSERT_TRUE(tree->IsDragging());
  tree->OnMouseMove(MK_LBUTTON, Label(n[4]));  // onto c: after it
  EXPECT_EQ(tree->GetCurrentDropTarget(), n[4]);
  EXPECT_EQ(tree->GetDragCursor(), VxTreeCtrl::DragCursor::Move);
  tree->OnLButtonUp(0, Label(n[4]));
  EXPECT_FALSE(tree->IsDragging());
  EXPECT_FALSE(tree->IsValidItem(n[1])) << "moved";
  EXPECT_EQ(tree->GetItemText(tree->GetNextSiblingItem(n[4])), "a");

  Press(n[2]);  // b, copied with Ctrl held at the release
  ASSERT_TRUE(tree->IsDragging());
  tree->OnMouseMove(MK_LBUTTON, Label(n[4]));
  Ctrl(true);
  tree->OnMouseMove(MK_LBUTTON | MK_CONTROL, Label(n[4]));
  EXPECT_EQ(tree->GetDragCursor(), VxTreeCtrl::DragCursor::Copy);
  tree->OnLButtonUp(MK_CONTROL, Label(n[4]));
  Ctrl(false);
  EXPECT_TRUE(tree->IsValidItem(n[2])) << "copied, the source stays";
  EXPECT_EQ(tree->GetItemText(tree->GetNextSiblingItem(n[4])), "b");
}

TEST_F(VxTreeDragTest, OwnParentSelfAndBranchAreRefusedAndEscapeCancels) {
  for (int target : {0, 1}) {  // a onto its parent, onto itself
    Press(n[1]);
    ASSERT_TRUE(tree->IsDragging());
    tree->OnMouseMove(MK_LBUTTON, Label(n[size_t(target)]));
    EXPECT_EQ(tree->GetCurrentDropTarget(), TVI_NULL) << target;
    EXPECT_EQ(tree->GetDragCursor(), VxTreeCtrl::DragCursor::NoDrop);
    tree->OnLButtonUp(0, Label(n[size_t(target)]));
    EXPECT_EQ(tree->GetParentItem(n[1]), n[0]) << "nothing dropped";
  }
  Press(n[0]);  // g1 into its own branch
  tree->OnMouseMove(MK_LBUTTON, Label(n[2]));
  EXPECT_EQ(tree->GetCurrentDropTarget(), TVI_NULL);
  tree->OnLButtonUp(0, Label(n[2]));
  EXPECT_EQ(tree->GetCount(), 5u);

  Press(n[1]);
  tree->OnMouseMove(MK_LBUTTON, Label(n[3]));
  EXPECT_EQ(tree->GetCurrentDropTarget(), n[3]);
  tree->OnKeyDown(VK_ESCAPE, 1, 0);
  EXPECT_FALSE(tree->IsDragging());
  tree->OnLButtonUp(0, Label(n[3]));
  EXPECT_EQ(tree->GetCount(), 5u);
  EXPECT_EQ(tree->GetParentItem(n[1]), n[0]);
}

TEST_F(VxTreeDragTest, HoverOpensAClosedBranchAndDeletedItemsAreHarmless) {
  tree->Expand(n[3], TVE_COLLAPSE);
  Press(n[1]);
  ASSERT_TRUE(tree->IsDragging());
  tree->OnMouseMove(MK_LBUTTON, Label(n[3]));
  tree->OnTimer(VxTreeCtrl::kHoverTimer);
  EXPECT_NE(tree->GetItemState(n[3], TVIS_EXPANDED), 0u) << "the hover opened g2";
  tree->DeleteItem(n[3]);
  EXPECT_EQ(tree->GetCurrentDropTarget(), TVI_NULL);
  tree->DeleteItem(n[1]);
  EXPECT_FALSE(tree->IsDragging()) << "losing the dragged item ends the drag";
  tree->OnLButtonUp(0, POINT{5, 5});
  EXPECT_EQ(tree->GetCount(), 2u);
}

}  // namespace

// --- Drags with the real pointer (XTest) ---------------------------------------------------

// The press, the moves and the release come from the X server, through the
// tree's own drag detection. The pointer leaves the press's spot before the
// tree reads the press: the detection loop asks the server where the
// pointer and button are now, so what it must see is already there.
class VxTreePointerDragTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "pointer drag", wxPoint(60, 60), wxSize(360, 420));
    tree = new Tree(frame, wxID_ANY, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
    std::istringstream in("g1\n\ta\n\tb\ng2\n\tc\n");
    tree->Serialize(in);
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at)) n.push_back(at);
    tree->ExpandAll(TVE_EXPAND);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    tree->SetSize(frame->GetClientSize());
    ASSERT_TRUE(gui_test::WaitUntil([this] { return IsClickable(*tree); }));
    display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }
  // Where the X server shows the middle of the item's label.
  wxPoint OnScreen(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    wxPoint const centre = ScreenCentre(*tree);
    wxSize const size = tree->GetClientSize();
    return wxPoint(centre.x - size.x / 2 + (rect.left + rect.right) / 2,
                   centre.y - size.y / 2 + (rect.top + rect.bottom) / 2);
  }
  void MoveTo(wxPoint at) {
    XTestFakeMotionEvent(display, -1, at.x, at.y, CurrentTime);
    XSync(display, False);
  }
  void Button(bool down) {
    XTestFakeButtonEvent(display, 1, down, CurrentTime);
    XSync(display, False);
  }
  void CtrlKey(bool down) {
    XTestFakeKeyEvent(display, XKeysymToKeycode(display, XK_Control_L), down, CurrentTime);
    XSync(display, False);
  }
  // Drags `item` onto `target` and drops it there, Ctrl held at the drop
  // when `copy`.
  void Drag(HTREEITEM item, HTREEITEM target, bool copy) {
    wxPoint const from = OnScreen(item);
    MoveTo(from);
    gui_test::Flush();
    Button(true);
    MoveTo(from + wxPoint(0, 12));  // past the drag threshold, button held
    ASSERT_TRUE(gui_test::WaitUntil([this] { return tree->IsDragging(); }))
        << "the press did not start a drag";
    EXPECT_EQ(tree->GetDragItem(), item);
    MoveTo(OnScreen(target));
    EXPECT_TRUE(gui_test::WaitUntil([&] { return tree->GetCurrentDropTarget() == target; }));
    if (copy) CtrlKey(true);
    EXPECT_TRUE(gui_test::WaitUntil([&] {
      return tree->GetDragCursor() ==
             (copy ? VxTreeCtrl::DragCursor::Copy : VxTreeCtrl::DragCursor::Move);
    }));
    Button(false);
    if (copy) CtrlKey(false);
    EXPECT_TRUE(gui_test::WaitUntil([this] { return !tree->IsDragging(); }));
  }
  std::vector<wxString> Texts() const {
    std::vector<wxString> texts;
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at))
      texts.push_back(std::string(tree->GetIndentLevel(at), ' ') + tree->GetItemText(at));
    return texts;
  }

  wxFrame * frame = nullptr;
  Tree * tree = nullptr;
  std::vector<HTREEITEM> n;
  Display * display = nullptr;
};

TEST_F(VxTreePointerDragTest, DragMovesAndCtrlDragCopies) {
  Drag(n[1], n[4], false);  // a onto c: after it
  EXPECT_EQ(Texts(), (std::vector<wxString>{"g1", " b", "g2", " c", " a"}));
  // Not b, which now lies where a was pressed: a second press there within
  // the double-click time is a double click, which never drags.
  HTREEITEM const c = tree->GetChildItem(tree->GetNextSiblingItem(tree->GetRootItem()));
  Drag(c, tree->GetRootItem(), true);  // c onto g1 with Ctrl: a copy after g1
  EXPECT_EQ(Texts(), (std::vector<wxString>{"g1", " b", "c", "g2", " c", " a"}));
}
