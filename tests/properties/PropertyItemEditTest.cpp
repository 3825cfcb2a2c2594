// The property items with real windows: what DrawValue puts into a cell,
// the editor each item lays over it, and what SetData takes back from that
// editor, including the texts a user may type that must be refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include "controls/WindowSnapshot.h"
#include "dialogs/FileSystemNames.h"
#include "harness/GuiTestUtilities.h"
#include "lists/InfoTipWnd.h"
#include "platform/SysColor.h"
#include "properties/PathCompact.h"
#include "properties/PropertyInPlaceBrowseForColor.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceEdit.h"
#include "properties/PropertyItemColorPopup.h"
#include "properties/PropertyItemCustomList.h"
#include "properties/PropertyItemFloat.h"
#include "properties/PropertyItemListBool.h"
#include "properties/PropertyItemNumber.h"
#include "properties/PropertyItemPaths.h"
#include "properties/PropertyItemString.h"

namespace {

RECT const kCell{10, 10, 250, 32};

class PropertyItemEditTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Items", wxPoint(80, 80), wxSize(400, 200));
    panel = new wxPanel(frame);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    if (InfoTipWnd * tip = SharedInfoTip()) tip->Destroy();
    frame->Destroy();
    gui_test::Flush();
  }

  // The editor of `item` over kCell, owned by the panel.
  template <typename Editor>
  Editor * MakeEditor(PropertyItem & item) {
    wxWindow * made = item.CreateInPlaceControl(panel, kCell);
    auto * editor = dynamic_cast<Editor *>(made);
    EXPECT_NE(editor, nullptr);
    return editor;
  }

  // `item` drawn into a white cell of kCell's size at the origin.
  static wxImage Draw(PropertyItem & item) {
    wxBitmap bitmap(kCell.right, kCell.bottom);
    {
      wxMemoryDC dc(bitmap);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      dc.SetFont(*wxNORMAL_FONT);
      item.DrawValue(dc, kCell);
    }
    return bitmap.ConvertToImage();
  }

  static bool Blank(wxImage const & image) {
    for (int y = 0; y < image.GetHeight(); ++y)
      for (int x = 0; x < image.GetWidth(); ++x)
        if (image.GetRed(x, y) != 255 || image.GetGreen(x, y) != 255 || image.GetBlue(x, y) != 255)
          return false;
    return true;
  }

  wxFrame * frame = nullptr;
  wxPanel * panel = nullptr;
};

TEST_F(PropertyItemEditTest, NumberTakesBackTypedTextAndRefusesWhatIsTooLarge) {
  struct Case {
    wchar_t const * typed;
    int expected;  // 42: the old value stays
    bool outOfRange;
  } const cases[] = {
      {L"123", 123, false},
      {L"12ab", 12, false},
      {L"", 0, false},
      {L"2147483646", 2147483646, false},
      {L"2147483647", 42, true},
      {L"99999999999", 42, true},
      {L"-99999999999", 42, true},
  };
  for (Case const & c : cases) {
    PropertyItemNumber item(L"Runs", 1, L"");
    item.SetData(42);
    auto * edit = MakeEditor<PropertyInPlaceEdit>(item);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->GetValue(), L"42");
    EXPECT_EQ(edit->GetInsertionPoint(), 2);  // caret at the end
    if (InfoTipWnd * tip = SharedInfoTip()) tip->Destroy();
    edit->ChangeValue(c.typed);
    item.SetData(edit);
    int value = 0;
    item.GetData(value);
    EXPECT_EQ(value, c.expected) << c.typed;
    EXPECT_EQ(SharedInfoTip() != nullptr, c.outOfRange) << c.typed;
    if (c.outOfRange) {
      EXPECT_EQ(SharedInfoTip()->GetShownText(), L"Value out of range");
      EXPECT_EQ(edit->GetValue(), L"42");  // the text goes back too
    }
    edit->Destroy();
  }
}

TEST_F(PropertyItemEditTest, TextThatIsNoNumberSnapsBackWhenTheFocusLeaves) {
  PropertyItemNegNumber negative(L"Offset", 2, L"");
  negative.SetData(-5);
  PropertyItemFloat real(L"Gain", 3, L"");
  real.SetData(2.5F);
  struct Case {
    PropertyItem * item;
    PropertyInPlaceEdit::ValidateFunction validate;
    wchar_t const * typed;
    wchar_t const * after;
  } const cases[] = {
      {&negative, &PropertyItemNegNumber::ValidateFunc, L"-12", L"-12"},
      {&negative, &PropertyItemNegNumber::ValidateFunc, L"12x", L"-5"},
      {&negative, &PropertyItemNegNumber::ValidateFunc, L"99999999999", L"-5"},
      {&real, &PropertyItemFloat::ValidateFunc, L"1.25e3", L"1.25e3"},
      {&real, &PropertyItemFloat::ValidateFunc, L"nan", L"2.5"},
      {&real, &PropertyItemFloat::ValidateFunc, L"inf", L"2.5"},
      {&real, &PropertyItemFloat::ValidateFunc, L"1,5", L"2.5"},
  };
  for (Case const & c : cases) {
    auto * edit = MakeEditor<PropertyInPlaceEdit>(*c.item);
    ASSERT_NE(edit, nullptr);
    edit->ChangeValue(c.typed);
    c.validate(edit, c.item);
    EXPECT_EQ(edit->GetValue(), c.after) << c.typed;
    edit->Destroy();
  }
  auto * edit = MakeEditor<PropertyInPlaceEdit>(negative);
  edit->ChangeValue(L"-12");
  negative.SetData(edit);
  int number = 0;
  negative.GetData(number);
  EXPECT_EQ(number, -12);
  edit->ChangeValue(L"nan");
  real.SetData(edit);  // refused: the value stays
  float value = 0;
  real.GetData(value);
  EXPECT_EQ(value, 2.5F);
  edit->Destroy();
}

TEST_F(PropertyItemEditTest, MissingFloatShowsAnEmptyCellAndAnEmptyEditor) {
  PropertyItemFloat item(L"Gain", 3, L"");
  item.SetData(-99.0F);
  EXPECT_TRUE(Blank(Draw(item)));
  auto * edit = MakeEditor<PropertyInPlaceEdit>(item);
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(edit->GetValue(), L"");
  item.SetData(edit);  // left empty: still missing
  float value = 0;
  item.GetData(value);
  EXPECT_EQ(value, -99.0F);
  item.SetData(-98.5F);
  EXPECT_FALSE(Blank(Draw(item)));
}

TEST_F(PropertyItemEditTest, PathEditorShowsThePathWholeAndGivesItBackExactly) {
  // Long, with a line break, and with bytes that are no UTF-8.
  std::string bytes = "/srv/data/";
  for (int i = 0; i < 60; ++i) bytes += "Messungen 2024/";
  bytes += "line\nbreak/\xff\xfe run.csv";
  wxString const path = FromFileSystemPath(bytes);
  PropertyItemFilePath file(L"Result", 4, L"");
  PropertyItemFolderPath folder(L"Folder", 5, L"");
  for (PropertyItemPath * item :
       {static_cast<PropertyItemPath *>(&file), static_cast<PropertyItemPath *>(&folder)}) {
    item->SetData(path);
    auto * editor = MakeEditor<PropertyInPlaceEditAndBrowse>(*item);
    ASSERT_NE(editor, nullptr);
    auto * edit =
        dynamic_cast<wxTextCtrl *>(editor->FindWindow(PropertyInPlaceEditAndBrowse::kEditId));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->GetInsertionPoint(), edit->GetLastPosition());
    item->SetData(wxString(L"other"));
    item->SetData(editor);
    wxString back;
    item->GetData(back);
    EXPECT_EQ(ToFileSystemPath(back), bytes);
    EXPECT_FALSE(Blank(Draw(*item)));
    editor->Destroy();
  }
}

TEST_F(PropertyItemEditTest, CompactedPathFitsTheCellAsDrawn) {
  wxBitmap bitmap(8, 8);
  wxMemoryDC dc(bitmap);
  dc.SetFont(*wxNORMAL_FONT);
  wxString const path = L"/home/ana/projects/Messungen 2024/raw/station 7/Protokoll Élan.txt";
  for (int width : {400, 200, 150, 90, 40}) {
    wxString const shown = CompactPath(dc, path, width);
    wxCoord drawn = 0;
    wxCoord height = 0;
    dc.GetTextExtent(shown, &drawn, &height);
    if (shown != L"...") EXPECT_LE(drawn, width) << shown;
    if (shown != path && width >= 150) EXPECT_TRUE(shown.EndsWith(L"/Protokoll Élan.txt")) << shown;
  }
}

TEST_F(PropertyItemEditTest, ListEditorOffersTheEntriesAndTakesTheChoice) {
  PropertyItemListEnabledDisabled item(L"Alarm", 6, L"");
  item.SetData(1);
  auto * combo = MakeEditor<PropertyInPlaceComboBox>(item);
  ASSERT_NE(combo, nullptr);
  ASSERT_EQ(combo->GetCount(), 2);
  EXPECT_EQ(combo->GetString(0), L"Disabled");
  EXPECT_EQ(combo->GetCurSel(), 1);
  combo->SetCurSel(0, false);
  item.SetData(combo);
  bool on = true;
  item.GetData(on);
  EXPECT_FALSE(on);
  combo->Destroy();
}

// Counts the calls and fills the entries for its identifier.
class UnitList : public PropertyItemCustomList {
public:
  using PropertyItemCustomList::PropertyItemCustomList;
  void InitPropertyItemList(std::vector<wxString> & items, unsigned id) override {
    ++calls;
    lastId = id;
    items = {L"mg/l", L"ppm"};
  }
  int calls = 0;
  unsigned lastId = 99;
};

TEST_F(PropertyItemEditTest, CustomListIsMadeOnTheFirstDraw) {
  UnitList item(L"Unit", 12, L"");
  EXPECT_EQ(item.GetNumItems(), 0U);
  Draw(item);
  Draw(item);
  EXPECT_EQ(item.calls, 1);
  EXPECT_EQ(item.lastId, 12U);
  EXPECT_EQ(item.GetNumItems(), 2U);
  item.SetSelectedData(L"percent");
  EXPECT_TRUE(Blank(Draw(item)));  // a miss draws empty
}

TEST_F(PropertyItemEditTest, ColourShowsItsSwatchAndLeavesItBesideTheEditor) {
  PropertyItemColorPopup item(L"Trace", 7, L"");
  item.SetData(COLORREF(0xFF2080C0));  // a top byte no colour has
  wxImage const image = Draw(item);
  int const middle = (kCell.top + kCell.bottom) / 2;
  wxColour const face = GetSysColour(COLOR_BTNFACE);
  struct Pixel {
    int x;
    wxColour expected;
  } const pixels[] = {
      {kCell.left, *wxWHITE},  // left of the swatch
      {kCell.left + 1, face},  // its frame
      {kCell.left + 2, wxColour(0xC0, 0x80, 0x20)},
      {kCell.left + 29, wxColour(0xC0, 0x80, 0x20)},
      {kCell.left + 30, face},
      {kCell.left + 31, *wxWHITE},
  };
  for (Pixel const & p : pixels)
    EXPECT_EQ(wxColour(image.GetRed(p.x, middle), image.GetGreen(p.x, middle),
                       image.GetBlue(p.x, middle)),
              p.expected)
        << p.x;
  // The text starts at left + 37.
  int first = -1;
  for (int x = kCell.left + 31; x < kCell.right && first < 0; ++x)
    for (int y = kCell.top; y < kCell.bottom; ++y)
      if (image.GetRed(x, y) != 255 || image.GetGreen(x, y) != 255 || image.GetBlue(x, y) != 255) {
        first = x;
        break;
      }
  EXPECT_GE(first, kCell.left + 37);
  EXPECT_LE(first, kCell.left + 40);

  auto * editor = MakeEditor<PropertyInPlaceBrowseForColor>(item);
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->GetPosition().x, kCell.left + 33);
  COLORREF shown = 0;
  editor->GetData(shown);
  EXPECT_EQ(shown & 0xFFFFFF, 0x2080C0U);
  editor->SetData(COLORREF(0x00336699));
  item.SetData(editor);
  item.GetData(shown);
  EXPECT_EQ(shown, 0x00336699U);
  editor->Destroy();
}

// What ImageMagick reads from a screenshot of a swatch drawn on screen.
std::string PixelByImageMagick(std::string const & png, int x, int y) {
  // A stand-in earlier on PATH may shadow the real tool.
  char const * const tool = access("/usr/bin/convert", X_OK) == 0 ? "/usr/bin/convert" : "convert";
  std::string const command = std::string(tool) + " '" + png + "' -format '%[pixel:p{" +
                              std::to_string(x) + "," + std::to_string(y) + "}]' info: 2>&1";
  std::string out;
  if (FILE * pipe = popen(command.c_str(), "r")) {
    char buffer[256];
    while (fgets(buffer, sizeof buffer, pipe) != nullptr) out += buffer;
    pclose(pipe);
  }
  return out;
}

TEST_F(PropertyItemEditTest, ScreenshotShowsTheSwatchInItsExactColour) {
  PropertyItemColorPopup item(L"Trace", 7, L"");
  item.SetData(COLORREF(0x00336699));
  panel->Bind(wxEVT_PAINT, [&](wxPaintEvent &) {
    wxPaintDC dc(panel);
    item.DrawValue(dc, kCell);
  });
  panel->Refresh();
  gui_test::Flush();
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    wxImage const shot = CaptureWindowImage(*panel);
    return shot.IsOk() && shot.GetRed(kCell.left + 15, 20) == 0x99;
  }));
  std::string const png =
      std::string(wxGetenv("TMPDIR") ? wxGetenv("TMPDIR") : "/tmp") + "/swatch.png";
  ASSERT_TRUE(SaveWindowSnapshot(*panel, png));
  std::string const pixel = PixelByImageMagick(png, kCell.left + 15, 20);
  if (pixel.find("ImageMagick is not installed") != std::string::npos)
    GTEST_SKIP() << "needs ImageMagick: " << pixel;
  EXPECT_EQ(pixel, "srgb(153,102,51)");
}

}  // namespace

// Value text stays inside its cell less the inset whatever clip the caller
// set (none, wider than the cell, or the list's own column clip), and is
// centred in the font it is drawn in, also after another font's drawing.
TEST_F(PropertyItemEditTest, ValueTextKeepsToItsCellInEveryClipAndFont) {
  PropertyItemString item(L"Text", 1, L"");
  item.SetData(wxString(L'W', 200));
  struct Case {
    wxRect clip;  // empty: none
    int pointSize;
  };
  int const inkLimit = kCell.right - 3;
  wxRect const whole(0, 0, kCell.right + 40, kCell.bottom + 10);
  wxRect const wider(kCell.left, 0, whole.width - kCell.left, whole.height);
  wxRect const column(kCell.left, kCell.top, inkLimit - kCell.left, kCell.bottom - kCell.top);
  for (Case const & c : {Case{wxRect(), 18}, Case{wider, 9}, Case{whole, 18}, Case{column, 18},
                         Case{column, 9}, Case{wxRect(), 9}}) {
    wxBitmap bitmap(whole.width, whole.height);
    {
      wxMemoryDC dc(bitmap);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      wxFont font = *wxNORMAL_FONT;
      font.SetPointSize(c.pointSize);
      dc.SetFont(font);
      if (!c.clip.IsEmpty()) dc.SetClippingRegion(c.clip);
      item.DrawValue(dc, kCell);
    }
    wxImage const image = bitmap.ConvertToImage();
    int top = image.GetHeight();
    int bottom = -1;
    for (int y = 0; y < image.GetHeight(); ++y)
      for (int x = 0; x < image.GetWidth(); ++x) {
        if (image.GetRed(x, y) == 255 && image.GetGreen(x, y) == 255 && image.GetBlue(x, y) == 255)
          continue;
        EXPECT_LT(x, inkLimit) << c.pointSize << " pt, clip width " << c.clip.width;
        EXPECT_TRUE(y >= kCell.top && y < kCell.bottom) << y;
        top = std::min(top, y);
        bottom = std::max(bottom, y);
      }
    ASSERT_GE(bottom, top) << "nothing drawn";
    // Centred: as much room above the ink as below, within the font's
    // ascent/descent imbalance.
    int const above = top - kCell.top;
    int const below = kCell.bottom - 1 - bottom;
    EXPECT_LE(std::abs(above - below), c.pointSize / 2 + 3) << c.pointSize << " pt";
  }
}
