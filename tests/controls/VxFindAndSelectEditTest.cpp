// The find-and-select edit over a real report list: each way of matching,
// the empty text, adding to the selection, the setters that search at once,
// the first match scrolled to the top, and typing through the X server.
#include <gtest/gtest.h>

#include <X11/keysym.h>

#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/sizer.h>

#include "controls/VxFindAndSelectEdit.h"
#include "harness/GuiTestUtilities.h"
#include "platform/commctrl/CListCtrl.h"
#include "work/XTestInput.h"

namespace {

using How = VxFindAndSelectEdit::HowToFind;

struct Fixture {
  wxFrame * frame =
      new wxFrame(nullptr, wxID_ANY, "Find and select", wxDefaultPosition, wxSize(400, 300));
  CListCtrl * list = new CListCtrl(frame, wxID_ANY);
  VxFindAndSelectEdit * edit = new VxFindAndSelectEdit(10, list, VxFindAndSelectEdit::FindContains);

  explicit Fixture(std::vector<std::vector<char const *>> const & rows) {
    EXPECT_TRUE(edit->Create(frame, wxID_ANY));
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(edit, 0, wxEXPAND);
    sizer->Add(list, 1, wxEXPAND);
    frame->SetSizer(sizer);
    list->InsertColumn(0, "Name", LVCFMT_LEFT, 150);
    list->InsertColumn(1, "Kind", LVCFMT_LEFT, 150);
    for (size_t i = 0; i < rows.size(); ++i) {
      int const row = list->InsertItem(static_cast<int>(i), wxString::FromUTF8(rows[i][0]));
      if (rows[i].size() > 1) list->SetItemText(row, 1, wxString::FromUTF8(rows[i][1]));
    }
  }
  ~Fixture() { frame->Destroy(); }

  std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int i = list->GetNextItem(-1, LVNI_SELECTED); i >= 0;
         i = list->GetNextItem(i, LVNI_SELECTED))
      rows.push_back(i);
    return rows;
  }
  void Select(std::vector<int> const & rows) {
    list->SetItemState(-1, 0, LVIS_SELECTED);
    for (int const row : rows) list->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  }
};

std::vector<std::vector<char const *>> const kNames = {
    {"Alpha run", "Sample"}, {"alpha*star", "Blank"}, {"Beta", "Sample"},
    {"ALPHA", "Control"},    {"Straße", "Standard"},  {"Omega?", "Sample"},
};

TEST(VxFindAndSelectEdit, EachWayOfMatchingSelectsItsRows) {
  Fixture f(kNames);
  struct Case {
    int how;
    wchar_t const * text;
    std::vector<int> rows;
  };
  std::vector<Case> const cases = {
      {How::FindContains, L"alpha", {0, 1, 3}},
      {How::FindContains, L"STRASSE", {4}},  // full folding: ß is ss
      {How::FindContains, L"*", {1}},        // a star is a plain character here
      {How::FindWildCard, L"alpha", {3}},    // the whole cell must match
      {How::FindWildCard, L"a*", {0, 1, 3}},
      {How::FindWildCard, L"?eta", {2}},
      {How::FindByPattern, L"a*", {0, 1, 3}},          // holds "*": wildcard
      {How::FindByPattern, L"a", {0, 1, 2, 3, 4, 5}},  // plain: contains
      {How::FindByPattern, L"omega?", {5}},            // "?" is one character
      {How::FindEquals, L"alpha", {3}},
      {How::FindEquals, L"strasse", {4}},
      {How::FindEquals, L"Alpha", {3}},
      {How::FindEquals, L"Alph", {}},
      {How::FindContains, L"nowhere", {}},
  };
  for (Case const & c : cases) {
    f.Select({2, 5});
    f.edit->SetHowToFind(static_cast<How>(c.how), false);
    f.edit->EditTriggered(c.text);
    EXPECT_EQ(f.Selected(), c.rows) << "how " << c.how << " text " << wxString(c.text);
  }
}

TEST(VxFindAndSelectEdit, EmptyTextOrUnknownWayFindsNothingNew) {
  Fixture f(kNames);
  f.Select({1, 4});
  f.edit->EditTriggered(L"");
  EXPECT_EQ(f.Selected(), (std::vector<int>{1, 4})) << "the empty text leaves the selection";

  f.edit->SetHowToFind(static_cast<How>(7), false);
  f.edit->EditTriggered(L"alpha");
  EXPECT_TRUE(f.Selected().empty()) << "the old selection goes, no way of matching selects";

  f.edit->SetListCtrl(nullptr);
  EXPECT_EQ(f.edit->GetListCtrl(), nullptr);
  f.edit->SetHowToFind(How::FindContains, false);
  f.edit->EditTriggered(L"alpha");  // without a list there is nothing to do
  f.edit->SetListCtrl(f.list);
  EXPECT_TRUE(f.Selected().empty());
}

TEST(VxFindAndSelectEdit, SelectionModeAddsAndSettersSearchAtOnce) {
  Fixture f(kNames);
  f.edit->ChangeValue("sample");
  f.Select({3});

  f.edit->SetFindInColumn(1, false);
  EXPECT_EQ(f.edit->GetFindInColumn(), 1);
  EXPECT_EQ(f.Selected(), (std::vector<int>{3})) << "without searchNow nothing happens";

  f.edit->SetSelectionMode(true);
  f.edit->SetFindInColumn(1, true);
  EXPECT_EQ(f.Selected(), (std::vector<int>{0, 2, 3, 5})) << "added to row 3";

  f.edit->SetSelectionMode(false);
  f.edit->SetHowToFind(VxFindAndSelectEdit::FindEquals, true);
  EXPECT_EQ(f.edit->GetHowToFind(), VxFindAndSelectEdit::FindEquals);
  EXPECT_EQ(f.Selected(), (std::vector<int>{0, 2, 5})) << "replaces the selection";

  f.edit->SetFindInColumn(0, true);
  EXPECT_TRUE(f.Selected().empty()) << "no name equals \"sample\"";
}

TEST(VxFindAndSelectEdit, FirstMatchIsScrolledToTheTopUnlessAdding) {
  std::vector<std::vector<char const *>> rows;
  std::vector<std::string> names;
  names.reserve(200);
  for (int i = 0; i < 200; ++i) names.push_back("Run " + std::to_string(i));
  rows.reserve(names.size());
  for (std::string const & name : names) rows.push_back({name.c_str()});
  Fixture f(rows);
  f.frame->Show();
  f.frame->Layout();
  ASSERT_GT(f.list->GetCountPerPage(), 1);
  ASSERT_LT(f.list->GetCountPerPage(), 100);

  f.edit->SetHowToFind(VxFindAndSelectEdit::FindEquals, false);
  f.edit->EditTriggered(L"run 120");
  EXPECT_EQ(f.list->GetTopIndex(), 120);
  f.edit->EditTriggered(L"run 40");
  EXPECT_EQ(f.list->GetTopIndex(), 40) << "scrolls back up as well";

  f.edit->SetSelectionMode(true);
  f.edit->EditTriggered(L"run 150");
  EXPECT_EQ(f.list->GetTopIndex(), 40) << "adding does not scroll";
  EXPECT_EQ(f.Selected(), (std::vector<int>{40, 150}));

  f.edit->SetSelectionMode(false);
  f.edit->EditTriggered(L"no such run");
  EXPECT_EQ(f.list->GetTopIndex(), 40) << "no match: the view stays";
  EXPECT_TRUE(f.Selected().empty());
}

TEST(VxFindAndSelectEdit, TypedTextSelectsWhenTheTimerRunsOut) {
  Fixture f(kNames);
  EXPECT_EQ(f.edit->GetDelayTime(), 100) << "the constructor raises the delay";
  EXPECT_EQ(f.edit->GetTimer().GetId(), VxFindAndSelectEdit::kTimerId);
  f.edit->SetDelayTime(600000);  // the test runs the timer out itself
  ASSERT_TRUE(gui_test::ShowAndWait(*f.frame));
  ASSERT_TRUE(gui_test::WaitUntilPlaced(*f.frame));
  f.edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntilFocused(*f.edit));

  for (KeySym const key : {XK_b, XK_e, XK_t}) FakeKey(key);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.edit->GetValue() == "bet"; }));
  EXPECT_TRUE(f.edit->GetTimer().IsRunning()) << "each key restarts the wait";
  EXPECT_TRUE(f.Selected().empty()) << "nothing before the typing has stopped";

  wxTimerEvent tick(f.edit->GetTimer());
  f.edit->OnTimer(tick);
  EXPECT_FALSE(f.edit->GetTimer().IsRunning());
  EXPECT_EQ(f.Selected(), (std::vector<int>{2}));

  FakeKey(XK_BackSpace);
  FakeKey(XK_BackSpace);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.edit->GetValue() == "b"; }));
  wxTimerEvent again(f.edit->GetTimer());
  f.edit->OnTimer(again);
  EXPECT_EQ(f.Selected(), (std::vector<int>{2}));
  FakeKey(XK_BackSpace);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.edit->GetValue().empty(); }));
  wxTimerEvent last(f.edit->GetTimer());
  f.edit->OnTimer(last);
  EXPECT_EQ(f.Selected(), (std::vector<int>{2})) << "an emptied box keeps the selection";
}

}  // namespace
