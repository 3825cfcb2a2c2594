// The property list with real windows: rows in and out, collapse and expand
// as whole ranges, the editor's life across selection changes and commits
// (also when an item rebuilds the editor inside the editor's own message),
// failures stopped at the list's edge, lazy measuring and wrapping, huge
// names, and real pointer and keys (XTest) on the gutter and categories.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <gdk/gdk.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include "harness/GuiTestUtilities.h"
#include "lists/PointerInput.h"
#include "platform/InternalErrorReport.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemColorPopup.h"
#include "properties/PropertyItemListBool.h"
#include "properties/PropertyItemManager.h"
#include "properties/PropertyItemString.h"
#include "properties/PropertyListCtrl.h"
#include "properties/PropertyListGeometry.h"
#include "properties/PropertyRowMeasure.h"
#include "utl/Exception.h"

namespace {

// A row edited in a text control; remembers what the list asked of it.
class TextItem : public PropertyItem {
public:
  TextItem(wchar_t const * name, unsigned id) : PropertyItem(name, id, L"A text.") {}
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override {
    ++created;
    return new wxTextCtrl(parent, wxID_ANY, value, wxPoint(rect.left, rect.top),
                          wxSize(rect.right - rect.left, rect.bottom - rect.top));
  }
  void SetData(wxWindow * control) override {
    ++taken;
    value = static_cast<wxTextCtrl *>(control)->GetValue();
  }
  wxString value;
  int created = 0;
  int taken = 0;
};

// An editor that tells its list of a value from inside its own handler and
// still reads its own fields after the list has answered.
class SelfReportingEditor : public wxWindow {
public:
  SelfReportingEditor(wxWindow * parent, RECT rect)
      : wxWindow(parent, wxID_ANY, wxPoint(rect.left, rect.top),
                 wxSize(rect.right - rect.left, rect.bottom - rect.top)) {}
  void Report() {
    answer = SendWindowMessage(GetParent(), kInPlaceDataChanged, 0, 0);
    reportedBy = GetId();  // the editor must still exist here
  }
  std::intptr_t answer = 0;
  int reportedBy = 0;
};

// As the colour row: taking the value rebuilds the editor through the list.
class RebuildingItem : public PropertyItem {
public:
  RebuildingItem() : PropertyItem(L"colour", 5, L"") {}
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override {
    return new SelfReportingEditor(parent, rect);
  }
  void SetData(wxWindow * control) override {
    if (auto * list = dynamic_cast<PropertyListCtrl *>(control->GetParent()))
      list->ShowInPlaceControl(true);
  }
};

class Manager : public PropertyItemManager {
public:
  void LoadProperties() override {}
  void StoreProperties() override {}
  void OnDataChanged(PropertyItem *, PropertyListCtrl *, int index) override {
    changed.push_back(index);
    if (fail) throw Exception(ExceptionMessage::translate("The run is locked."));
  }
  std::vector<int> changed;
  bool fail = false;
};

// What the X server shows of a window's whole client area (rows and pane),
// as 0xRRGGBB values.
class Screen {
public:
  explicit Screen(wxWindow & window) {
    GdkWindow * drawing = window.GTKGetDrawingWindow();
    gdk_display_sync(gdk_window_get_display(drawing));
    width = gdk_window_get_width(drawing);
    height = gdk_window_get_height(drawing);
    mPixbuf = gdk_pixbuf_get_from_window(drawing, 0, 0, width, height);
  }
  ~Screen() {
    if (mPixbuf != nullptr) g_object_unref(mPixbuf);
  }
  Screen(Screen const &) = delete;
  Screen & operator=(Screen const &) = delete;
  unsigned operator()(int x, int y) const {
    if (mPixbuf == nullptr || x < 0 || y < 0 || x >= width || y >= height) return 0xDEAD;
    guchar const * p = gdk_pixbuf_get_pixels(mPixbuf) + y * gdk_pixbuf_get_rowstride(mPixbuf) +
                       x * gdk_pixbuf_get_n_channels(mPixbuf);
    return (unsigned(p[0]) << 16) | (unsigned(p[1]) << 8) | p[2];
  }
  bool Ok() const { return mPixbuf != nullptr; }
  int width = 0;
  int height = 0;

private:
  GdkPixbuf * mPixbuf = nullptr;
};

std::vector<std::string> gReported;
void Remember(std::string const & text) { gReported.push_back(text); }

class PropertyListTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "properties", wxPoint(40, 40), wxSize(420, 420));
    // A window: the name of its exception guard misleads the check.
    list = new PropertyListCtrl(frame, wxID_ANY);  // NOLINT(bugprone-throw-keyword-missing)
    alpha = std::make_unique<PropertyItemCategory>(L"Alpha", 0, L"First things");
    apple = static_cast<TextItem *>(alpha->AddPropertyItem(new TextItem(L"apple", 1)));
    avocado = static_cast<TextItem *>(alpha->AddPropertyItem(new TextItem(L"avocado", 2)));
    beta = std::make_unique<PropertyItemCategory>(L"Beta", 0, L"");
    beta->SetChildrenVisible(false);
    beta->AddPropertyItem(new TextItem(L"banana", 7));
    cherry = static_cast<TextItem *>(beta->AddPropertyItem(new TextItem(L"cherry", 8)));
    note = std::make_unique<PropertyItem>(L"Zeta note", 9, L"");
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
    SetInternalErrorReporter(nullptr);
    gReported.clear();
  }
  // Alpha, apple, avocado, Beta (collapsed), Zeta note.
  void Fill() {
    for (PropertyItem * item :
         std::vector<PropertyItem *>{alpha.get(), apple, avocado, beta.get(), note.get()})
      list->InsertPropertyItem(item, -1);
  }
  void Show() {
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    gui_test::WaitUntilPlaced(*frame);
    gui_test::Flush();
  }
  std::string Names() const {
    std::string out;
    for (int i = 0; i < list->GetCount(); ++i)
      out += list->GetPropertyItem(i)->GetName().ToStdString().substr(0, 2) + " ";
    return out;
  }
  // A real click at `at` in the list's client coordinates.
  void ClickAt(wxPoint at) {
    FakeMoveTo(list->ClientToScreen(at));
    FakeButton(true);
    FakeButton(false);
  }
  wxRect Row(int index) const { return list->GetItemRect(static_cast<size_t>(index)); }
  // Keeps an item of one test alive until the list is gone.
  template <class Item>
  Item * Own(Item * item) {
    owned.emplace_back(item);
    return item;
  }

  wxFrame * frame = nullptr;
  PropertyListCtrl * list = nullptr;
  std::unique_ptr<PropertyItemCategory> alpha, beta;
  std::unique_ptr<PropertyItem> note;
  std::vector<std::unique_ptr<PropertyItem>> owned;
  Manager manager;
  TextItem * apple = nullptr;
  TextItem * avocado = nullptr;
  TextItem * cherry = nullptr;
};

TEST_F(PropertyListTest, InsertRefusesNullItemsAndIndexesPastTheEnd) {
  Fill();
  struct Case {
    PropertyItem * item;
    int index;
    int expected;
  } const cases[] = {{nullptr, -1, -1},    {nullptr, 0, -1},   {note.get(), 9, -1},
                     {note.get(), -2, -1}, {note.get(), 5, 5}, {note.get(), 0, 0}};
  for (Case const & c : cases) {
    int const before = list->GetCount();
    EXPECT_EQ(list->InsertPropertyItem(c.item, c.index), c.expected) << c.index;
    EXPECT_EQ(list->GetCount(), before + (c.expected >= 0 ? 1 : 0));
  }
  EXPECT_EQ(list->GetPropertyItem(-1), nullptr);
  EXPECT_EQ(list->GetPropertyItem(list->GetCount()), nullptr);
  list->ResetContent();
  EXPECT_EQ(list->GetCount(), 0);
  EXPECT_EQ(list->GetItemCount(), 0U);
}

TEST_F(PropertyListTest, CollapseAndExpandMoveWholeRangesAndKeepTheSelectedItem) {
  Fill();
  Show();
  list->SetCurSel(4);  // Zeta note, below both categories
  list->DoCollapseExpand(0);
  EXPECT_EQ(Names(), "Al Be Ze ");
  EXPECT_FALSE(alpha->GetChildrenVisible());
  EXPECT_EQ(list->GetPropertyItem(list->GetCurSel()), note.get());
  list->DoCollapseExpand(1);
  EXPECT_EQ(Names(), "Al Be ba ch Ze ");
  EXPECT_EQ(list->GetPropertyItem(list->GetCurSel()), note.get());
  EXPECT_EQ(list->GetItemCount(), 5U);
  // A plain row does not flip.
  list->DoCollapseExpand(4);
  EXPECT_EQ(Names(), "Al Be ba ch Ze ");
  // The selected row collapsed away leaves no selection and no editor.
  list->SetCurSel(3);
  list->ShowInPlaceControl(true);
  ASSERT_NE(list->GetInPlaceControl(), nullptr);
  list->DoCollapseExpand(1);
  EXPECT_EQ(list->GetCurSel(), -1);
  EXPECT_EQ(list->GetInPlaceControl(), nullptr);
}

TEST_F(PropertyListTest, SetCurSelByIdOpensACollapsedCategoryAndMakesTheEditor) {
  Fill();
  Show();
  EXPECT_FALSE(list->SetCurSelByID(42));
  ASSERT_TRUE(list->SetCurSelByID(8));
  EXPECT_TRUE(beta->GetChildrenVisible());
  EXPECT_EQ(list->GetPropertyItem(list->GetCurSel()), cherry);
  EXPECT_EQ(cherry->created, 1);
  ASSERT_NE(list->GetInPlaceControl(), nullptr);
  EXPECT_EQ(list->GetInPlaceControl()->GetPosition(),
            list->GetItemValueRect(list->GetCurSel()).GetPosition());
  list->ResetContent();
  EXPECT_FALSE(list->SetCurSelByID(8));
}

TEST_F(PropertyListTest, EditorsMessageCommitsToTheSelectedRowAndASelectionChangeDoesNot) {
  Fill();
  Show();
  // A size event still on its way would make the selected row's editor
  // anew, as it should, and count as a second one below.
  for (int i = 0; i < 20; ++i) gui_test::Flush();
  list->SetCurSel(1);
  list->ShowInPlaceControl(true);
  auto * editor = dynamic_cast<wxTextCtrl *>(list->GetInPlaceControl());
  ASSERT_NE(editor, nullptr);
  editor->ChangeValue("42");
  EXPECT_EQ(SendWindowMessage(list, kInPlaceDataChanged, 0, 0), 1);
  EXPECT_EQ(apple->value, "42");

  // A click on the next row: a new editor, the old one dropped untaken.
  // On a busy machine the window's last layout may still come after the
  // click; each size makes the editor anew, as it should.
  int sizes = 0;
  list->Bind(wxEVT_SIZE, [&sizes](wxSizeEvent & event) {
    ++sizes;
    event.Skip();
  });
  editor->ChangeValue("43");
  wxRect const next = Row(2);
  ClickAt(wxPoint(next.x + next.width * 3 / 4, next.y + next.height / 2));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return list->GetCurSel() == 2; }));
  gui_test::Flush();
  EXPECT_EQ(apple->taken, 1);
  EXPECT_EQ(apple->value, "42");
  EXPECT_GE(avocado->created, 1);
  EXPECT_LE(avocado->created, 1 + sizes) << "one editor for the click";
  EXPECT_NE(list->GetInPlaceControl(), nullptr);
  EXPECT_EQ(list->GetInPlaceControl()->GetPosition(), list->GetItemValueRect(2).GetPosition());
  // Without an editor nothing is taken.
  list->DestroyInPlaceControl();
  EXPECT_FALSE(list->SetCurrentData());
}

TEST_F(PropertyListTest, AFailingManagerStopsAtTheListAndTheListGoesOn) {
  SetInternalErrorReporter(&Remember);

  manager.AddPropertyCategory(L"Run", L"", true)->AddPropertyItem(new TextItem(L"speed", 3));
  list->SetPropertyItemManager(&manager);
  ASSERT_EQ(list->GetCount(), 2);
  Show();
  list->SetCurSel(1);
  list->ShowInPlaceControl(true);
  manager.fail = true;
  SendWindowMessage(list, kInPlaceDataChanged, 0, 0);
  ASSERT_EQ(gReported.size(), 1U);
  EXPECT_NE(gReported[0].find("The run is locked."), std::string::npos);
  manager.fail = false;
  EXPECT_EQ(SendWindowMessage(list, kInPlaceDataChanged, 0, 0), 1);
  EXPECT_EQ(manager.changed, (std::vector<int>{1, 1}));
  EXPECT_EQ(gReported.size(), 1U);
}

TEST_F(PropertyListTest, AnItemRebuildingItsEditorInsideTheEditorsMessageDeletesTheOldOneLater) {
  list->InsertPropertyItem(Own(new RebuildingItem), -1);
  Show();
  list->SetCurSel(0);
  list->ShowInPlaceControl(true);
  auto * first = dynamic_cast<SelfReportingEditor *>(list->GetInPlaceControl());
  ASSERT_NE(first, nullptr);
  wxWeakRef<wxWindow> old(first);
  first->Report();
  EXPECT_EQ(first->answer, 1);
  EXPECT_EQ(first->reportedBy, first->GetId());
  EXPECT_NE(list->GetInPlaceControl(), first);
  EXPECT_NE(list->GetInPlaceControl(), nullptr);
  EXPECT_FALSE(first->IsShown());
  // What the retired editor still sends reaches no row.
  first->Report();
  EXPECT_EQ(first->answer, 0);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return !old; }));
}

TEST_F(PropertyListTest, OnlyRowsNearTheViewAreMeasuredAndNamesWrapToTheNameCell) {
  std::vector<PropertyItem *> items;
  for (int c = 0; c < 100; ++c) {
    PropertyItemCategory * category = manager.AddPropertyCategory(L"Runs", L"", true);
    for (int i = 0; i < 200; ++i)
      items.push_back(category->AddPropertyItem(new TextItem(L"two\nlines", unsigned(i))));
  }
  list->SetPropertyItemManager(&manager);
  EXPECT_EQ(list->GetCount(), 100 * 201);
  Show();
  int measured = 0;
  for (PropertyItem const * row : items) measured += row->GetShowName() == "two lines" ? 1 : 0;
  EXPECT_GT(measured, 5);
  EXPECT_LT(measured, 300);

  list->ResetContent();
  std::wstring words;
  for (int i = 0; i < 30; ++i) words += L"word ";
  TextItem & wrapped = *Own(new TextItem(words.c_str(), 1));
  PropertyItemCategory & whole = *Own(new PropertyItemCategory(words.c_str(), 0, L""));
  list->InsertPropertyItem(&wrapped, -1);
  list->InsertPropertyItem(&whole, -1);
  gui_test::Flush();
  list->Update();
  auto const lines = PropertyRowMeasure::CountLines(wrapped.GetShowName());
  EXPECT_GT(lines, 2);
  EXPECT_EQ(PropertyRowMeasure::CountLines(whole.GetShowName()), 1);
  EXPECT_EQ((Row(0).height - PropertyListGeometry::kRowPadding) % lines, 0);
  EXPECT_GT(Row(0).height, Row(1).height * 2);
}

TEST_F(PropertyListTest, HugeNamesWrapWithoutOverflowingTheRowHeight) {
  // A megabyte of right-to-left words on ten thousand lines.
  std::wstring name;
  for (int line = 0; line < 10000; ++line) {
    for (int word = 0; word < 10; ++word) name += L"\u05E9\u05DC\u05D5\u05DD ";
    name += L'\n';
  }
  while (name.size() < (1U << 20)) name += L"\u05D0";
  TextItem & huge = *Own(new TextItem(name.c_str(), 1));
  PropertyItemCategory & heading = *Own(new PropertyItemCategory(name.c_str(), 0, L""));
  list->InsertPropertyItem(&huge, -1);
  list->InsertPropertyItem(&heading, -1);
  list->InsertPropertyItem(note.get(), -1);
  Show();
  list->Update();
  EXPECT_EQ(Row(0).height, PropertyListGeometry::kMaxRowHeight);
  EXPECT_GT(PropertyRowMeasure::CountLines(huge.GetShowName()), 10000);
  // The heading takes the whole row: its lines were joined, not wrapped.
  EXPECT_EQ(PropertyRowMeasure::CountLines(heading.GetShowName()), 1);
  list->ScrollToRow(2);
  list->SetCurSel(2);
  list->Update();
  EXPECT_EQ(list->GetPropertyItem(list->GetCurSel()), note.get());
}

TEST_F(PropertyListTest, GutterPressesFlipTheCategoryTheyLandOnLeftOfSeventeen) {
  Fill();
  Show();
  struct Case {
    int x;
    bool flips;
  } const cases[] = {{16, true}, {3, true}, {17, false}, {200, false}};
  for (Case const & c : cases) {
    // A press on another row first, far away, so that no two presses make
    // a double click.
    list->SetCurSel(-1);
    wxRect const other = Row(list->GetCount() - 1);
    ClickAt(wxPoint(other.x + other.width - 40, other.y + other.height / 2));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return list->GetCurSel() == list->GetCount() - 1; }));
    bool const before = alpha->GetChildrenVisible();
    wxRect const row = Row(0);
    ClickAt(wxPoint(c.x, row.y + row.height / 2));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return list->GetCurSel() == 0; })) << c.x;
    gui_test::Flush();
    EXPECT_EQ(alpha->GetChildrenVisible() != before, c.flips) << c.x;
  }
}

TEST_F(PropertyListTest, KeysFlipCategoriesAndLettersSearchNames) {
  Fill();
  Show();
  wxRect const betaRow = Row(3);  // Beta, collapsed
  ClickAt(wxPoint(betaRow.x + 200, betaRow.y + betaRow.height / 2));
  ASSERT_TRUE(
      gui_test::WaitUntil([&] { return list->GetCurSel() == 3 && wxWindow::FindFocus() == list; }));
  struct Case {
    KeySym key;
    bool betaVisible;
    char const * selected;
  } const cases[] = {
      {XK_Left, false, "Beta"},        {XK_Right, true, "Beta"},  {XK_Right, true, "Beta"},
      {XK_KP_Subtract, false, "Beta"}, {XK_Return, true, "Beta"}, {XK_c, true, "cherry"},
      {XK_a, true, "Alpha"},           {XK_a, true, "apple"},     {XK_A, true, "avocado"},
      {XK_q, true, "avocado"},         {XK_z, true, "Zeta note"},
  };
  for (Case const & c : cases) {
    FakeKey(c.key);
    EXPECT_TRUE(gui_test::WaitUntil([&] {
      return list->GetCurSel() >= 0 &&
             list->GetPropertyItem(list->GetCurSel())->GetName() == c.selected &&
             beta->GetChildrenVisible() == c.betaVisible;
    })) << XKeysymToString(c.key)
        << " gave "
        << (list->GetCurSel() >= 0 ? list->GetPropertyItem(list->GetCurSel())->GetName() : "none");
  }
  // Escape and Return stay in the list: the frame is still up and the list
  // keeps the focus.
  FakeKey(XK_Escape);
  FakeKey(XK_Return);
  gui_test::Flush();
  EXPECT_TRUE(frame->IsShown());
}

TEST_F(PropertyListTest, PaintsTheGridTheExpanderAndTheDetailsPane) {
  Fill();
  list->SetBackgroundColour(*wxWHITE);
  Show();
  list->Update();
  Screen const pixel(*list);
  ASSERT_TRUE(pixel.Ok());
  int const width = pixel.width;
  int const height = pixel.height;
  wxRect const category = Row(0);
  wxRect const box = PropertyListGeometry::ExpanderRect(category);
  EXPECT_EQ(pixel(16, category.y + 1), 0xC6C6C6U);
  EXPECT_EQ(pixel(width - 1 - (width - list->GetClientSize().x), category.y + 1), 0xC6C6C6U);
  // The box: black edges 9 pixels apart, white inside, the bar of a minus.
  EXPECT_EQ(pixel(box.x, box.y), 0x000000U);
  EXPECT_EQ(pixel(box.x + 8, box.y + 8), 0x000000U);
  EXPECT_EQ(pixel(box.x + 1, box.y + 1), 0xFFFFFFU);
  for (int x = box.x + 2; x <= box.x + 6; ++x) EXPECT_EQ(pixel(x, box.y + 4), 0x000000U) << x;
  EXPECT_EQ(pixel(box.x + 4, box.y + 2), 0xFFFFFFU);  // expanded: no vertical bar
  EXPECT_NE(pixel(box.x + 9, box.y + 4), 0x000000U);
  // The pane: the last 64 pixels, framed, outside the rows.
  EXPECT_EQ(list->GetClientSize().y, height - PropertyListGeometry::kDetailsHeight);
  EXPECT_NE(pixel(30, height - 30), pixel(30, height - PropertyListGeometry::kDetailsHeight - 10));
  gui_test::Snapshot(*frame, "property-list");

  list->ShowDetails(false);
  gui_test::Flush();
  EXPECT_EQ(list->GetClientSize().y, height);
}

// The pane shows the selection, not the rows: a full repaint of the rows
// leaves it alone, a new selection draws it anew, and without the pane the
// rows' repaint covers the whole window.
TEST_F(PropertyListTest, RepaintingTheRowsLeavesTheDetailsPaneAlone) {
  Fill();
  Show();
  wxWindow * pane = nullptr;
  for (wxWindow * child : list->GetChildren())
    if (child->IsShown() && child->GetPosition().y == list->GetClientSize().y) pane = child;
  ASSERT_NE(pane, nullptr);
  int panePaints = 0;
  int rowPaints = 0;
  int paintedBottom = -1;
  pane->Bind(wxEVT_PAINT, [&](wxPaintEvent & event) {
    ++panePaints;
    event.Skip();
  });
  list->Bind(wxEVT_PAINT, [&](wxPaintEvent & event) {
    ++rowPaints;
    paintedBottom = list->GetUpdateRegion().GetBox().GetBottom();
    event.Skip();
  });
  // What showing the frame left to draw is drawn first.
  for (int i = 0; i < 20; ++i) gui_test::Flush();
  list->Update();
  panePaints = rowPaints = 0;
  list->Refresh(false);
  list->Update();
  EXPECT_GE(rowPaints, 1);
  EXPECT_EQ(panePaints, 0);
  EXPECT_LT(paintedBottom, list->GetClientSize().y);

  wxCommandEvent select(wxEVT_LISTBOX, list->GetId());
  list->SetCurSel(1);
  list->GetEventHandler()->ProcessEvent(select);
  list->Update();
  EXPECT_GE(panePaints, 1) << "a new selection draws the pane";

  list->ShowDetails(false);
  gui_test::Flush();
  rowPaints = 0;
  list->Refresh(false);
  list->Update();
  EXPECT_GE(rowPaints, 1);
  EXPECT_EQ(paintedBottom, list->GetClientSize().y - 1) << "the rows take the pane's room";
}

// The library's own items and editors in a dialog, driven by real keys.
TEST_F(PropertyListTest, TypedTextCommitsAndTabEscapeReturnLeaveTheDialogUp) {
  auto * dialog = new wxDialog(frame, wxID_ANY, "Run settings", wxPoint(80, 80), wxSize(420, 360));
  auto * rows = new PropertyListCtrl(dialog, wxID_ANY);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(rows, 1, wxEXPAND);
  sizer->Add(dialog->CreateButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND);
  dialog->SetSizer(sizer);
  PropertyItemCategory * run = manager.AddPropertyCategory(L"Run", L"How the run goes", true);
  auto * title = static_cast<PropertyItemString *>(
      run->AddPropertyItem(new PropertyItemString(L"Title", 1, L"Shown on reports")));
  run->AddPropertyItem(new PropertyItemListYesNo(L"Archive", 2, L""));
  auto * colour = static_cast<PropertyItemColorPopup *>(
      run->AddPropertyItem(new PropertyItemColorPopup(L"Trace colour", 3, L"")));
  colour->SetData(COLORREF(0x0000FF));  // red
  rows->SetPropertyItemManager(&manager);
  ASSERT_TRUE(gui_test::ShowAndWait(*dialog));
  gui_test::WaitUntilPlaced(*dialog);
  dialog->Layout();
  gui_test::Flush();

  wxRect const titleRow = rows->GetItemRect(1);
  FakeClickAt(*rows,
              wxPoint(titleRow.x + titleRow.width * 3 / 4, titleRow.y + titleRow.height / 2));
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    wxWindow * focus = wxWindow::FindFocus();
    return rows->GetCurSel() == 1 && focus != nullptr && focus != rows &&
           focus->GetParent() == rows;
  }));
  FakeType("abc");
  for (KeySym key : {XK_Tab, XK_Escape, XK_Return}) FakeKey(key);
  wxString text;
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    title->GetData(text);
    return text == "abc";
  })) << text;
  gui_test::Flush();
  EXPECT_TRUE(dialog->IsShown());

  // The colour row selected: its swatch stays beside its editor.
  rows->SetCurSelByID(3);
  rows->Update();
  gui_test::Flush();
  ASSERT_NE(rows->GetInPlaceControl(), nullptr);
  wxRect const swatch = rows->GetItemValueRect(3);
  unsigned seen = 0;
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    rows->Update();
    seen = Screen(*rows)(swatch.x + 10, swatch.y + swatch.height / 2);
    return seen == 0xFF0000U;
  })) << std::hex
      << seen;
  dialog->Destroy();
}

}  // namespace
