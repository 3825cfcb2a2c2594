// The scrolling message box: the warning icon for the kinds that take one,
// the buttons each kind shows and where, the ids Yes and No give, and a
// scroll bar only while the text does not fit.
#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include "dialogs/ScrollMessageBox.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;

TEST(ScrollMessageBoxes, OnlyTheCommonKindsWithoutAnIconTakeTheWarningIcon) {
  struct Case {
    unsigned int type;
    unsigned int expected;
  } const cases[] = {
      {MB_OK, MB_OK | MB_ICONEXCLAMATION},
      {MB_OKCANCEL, MB_OKCANCEL | MB_ICONEXCLAMATION},
      {MB_YESNOCANCEL, MB_YESNOCANCEL | MB_ICONEXCLAMATION},
      {MB_YESNO, MB_YESNO | MB_ICONEXCLAMATION},
      {MB_ABORTRETRYIGNORE, MB_ABORTRETRYIGNORE},
      {MB_RETRYCANCEL, MB_RETRYCANCEL},
      {MB_YESNO | MB_ICONHAND, MB_YESNO | MB_ICONHAND},
      {MB_OK | MB_ICONQUESTION, MB_OK | MB_ICONQUESTION},
  };
  for (Case const & c : cases) {
    ScrollMessageBox const box(L"Text", c.type, L"Icon");
    EXPECT_EQ(box.GetType(), c.expected) << c.type;
  }
}

// Visible buttons left to right with their ids, the default one, and the
// result of pressing each.
TEST(ScrollMessageBoxes, EachKindShowsItsButtonsInARowAtTheRight) {
  struct Case {
    char const * name;
    unsigned int type;
    std::vector<int> leftToRight;
    int defaultId;
  } const cases[] = {
      {"OK", MB_OK, {IDOK}, IDOK},
      {"OK Cancel", MB_OKCANCEL, {IDOK, IDCANCEL}, IDOK},
      {"Yes No", MB_YESNO, {IDYES, IDNO}, IDYES},
      {"Yes No Cancel", MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}, IDYES},
  };
  for (Case const & c : cases) {
    for (int pressed : c.leftToRight) {
      SCOPED_TRACE(testing::Message() << c.name << " pressing " << pressed);
      ScrollMessageBox box(L"Delete the 12 runs?", c.type, L"Runs");
      ModalDialogScript script;
      script.Act([&](wxDialog & d) {
        std::vector<std::pair<int, int>> shown;  // x, id
        int y = -1;
        for (int id : {IDOK, IDCANCEL, IDYES, IDNO}) {
          wxWindow * w = d.FindWindow(id);
          if (w == nullptr || !w->IsShown()) continue;
          shown.emplace_back(w->GetPosition().x, id);
          if (y >= 0) {
            EXPECT_EQ(w->GetPosition().y, y) << id;  // one row
          }
          y = w->GetPosition().y;
          EXPECT_LE(w->GetRect().GetRight(), d.GetClientSize().GetWidth()) << id;
        }
        std::sort(shown.begin(), shown.end());
        ASSERT_EQ(shown.size(), c.leftToRight.size());
        for (size_t i = 0; i < shown.size(); ++i) {
          EXPECT_EQ(shown[i].second, c.leftToRight[i]) << i;
          if (i > 0) {
            EXPECT_GT(shown[i].first, shown[i - 1].first + 40) << "overlap " << i;
          }
        }
        // The rightmost button ends at the same edge whatever the kind.
        EXPECT_EQ(d.FindWindow(shown.back().second)->GetRect().GetRight(),
                  d.FindWindow(ScrollMessageBox::kTextId)->GetRect().GetRight());
        ASSERT_NE(d.GetDefaultItem(), nullptr);
        EXPECT_EQ(d.GetDefaultItem()->GetId(), c.defaultId);
        Click(d, pressed);
      });
      EXPECT_EQ(box.DoModal(), pressed);
      ASSERT_EQ(script.Shown().size(), 1U);
      EXPECT_EQ(script.Shown()[0].title, "Runs");
    }
  }
}

TEST(ScrollMessageBoxes, TheIconFollowsTheTypeAndIsHiddenWithoutOne) {
  struct Case {
    unsigned int type;
    bool shown;
  } const cases[] = {{MB_OK, true},
                     {MB_OK | MB_ICONHAND, true},
                     {MB_OK | MB_ICONASTERISK, true},
                     {MB_OK | MB_ICONQUESTION, false},
                     {MB_RETRYCANCEL, false}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.type);
    ScrollMessageBox box(L"Text", c.type, L"Icon");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * icon = dynamic_cast<wxStaticBitmap *>(d.FindWindow(ScrollMessageBox::kIconId));
      ASSERT_NE(icon, nullptr);
      EXPECT_EQ(icon->IsShown(), c.shown);
      if (c.shown) {
        EXPECT_TRUE(icon->GetBitmap().IsOk());
      }
      Click(d, IDOK);
    });
    box.DoModal();
  }
}

GtkScrolledWindow * ScrolledText(wxDialog & d) {
  return GTK_SCROLLED_WINDOW(d.FindWindow(ScrollMessageBox::kTextId)->GetHandle());
}

// The text has a place and its lines are measured: from here on the bar's
// state is GTK's answer, not the state before the first layout.
bool LaidOut(wxDialog & d) {
  gui_test::Flush();
  GtkAdjustment * lines = gtk_scrolled_window_get_vadjustment(ScrolledText(d));
  return gtk_adjustment_get_page_size(lines) > 0 && gtk_adjustment_get_upper(lines) > 0;
}

bool VerticalBarShown(wxDialog & d) {
  gui_test::Flush();
  GtkWidget * bar = gtk_scrolled_window_get_vscrollbar(ScrolledText(d));
  return bar != nullptr && gtk_widget_get_child_visible(bar) != 0;
}

// Generous: a loaded machine lays a megabyte out slowly; a pass returns
// as soon as the state is reached.
constexpr int kLayoutMs = 20'000;

// A short text has no bar; a long one has; shrinking the window until a
// middling text no longer fits brings the bar, growing it back takes it
// away. A megabyte without a line break wraps, so it scrolls only down.
TEST(ScrollMessageBoxes, AScrollBarOnlyWhenTheTextDoesNotFit) {
  std::wstring middling;
  for (int line = 1; line <= 6; ++line) middling += L"Run " + std::to_wstring(line) + L"\n";
  std::wstring longText;
  for (int line = 1; line <= 400; ++line) longText += L"File " + std::to_wstring(line) + L"\n";
  std::wstring const unbroken(1'000'000, L'x');
  struct Case {
    char const * name;
    std::wstring const & text;
    bool bar;
  } const cases[] = {{"short", L"One line.", false},
                     {"middling", middling, false},
                     {"long", longText, true},
                     {"unbroken", unbroken, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ScrollMessageBox box(c.text.c_str(), MB_OK, L"Scroll");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      ASSERT_TRUE(gui_test::WaitUntil([&] { return LaidOut(d); }, kLayoutMs));
      EXPECT_TRUE(gui_test::WaitUntil([&] { return VerticalBarShown(d) == c.bar; }, kLayoutMs));
      auto * edit = dynamic_cast<wxTextCtrl *>(d.FindWindow(ScrollMessageBox::kTextId));
      ASSERT_NE(edit, nullptr);
      EXPECT_FALSE(edit->IsEditable());
      EXPECT_EQ(edit->GetLastPosition() >= static_cast<long>(c.text.size()), true);
      if (&c.text == &middling) {
        wxSize const size = d.GetClientSize();
        d.SetClientSize(size.GetWidth(), size.GetHeight() - 120);
        EXPECT_TRUE(gui_test::WaitUntil([&] { return VerticalBarShown(d); }, kLayoutMs));
        d.SetClientSize(size);
        EXPECT_TRUE(gui_test::WaitUntil([&] { return !VerticalBarShown(d); }, kLayoutMs));
      }
      Click(d, IDOK);
    });
    EXPECT_EQ(box.DoModal(), IDOK);
  }
}

TEST(ScrollMessageBoxes, LineEndsBecomeCrLfAndAMissingCaptionNamesTheApplication) {
  ScrollMessageBox const box(L"first\nsecond\r\nthird", MB_OK, nullptr);
  EXPECT_EQ(box.GetText(), L"first\r\nsecond\r\nthird");
  ScrollMessageBox untitled(L"Text", MB_OK, nullptr);
  ModalDialogScript script;
  script.Act([](wxDialog & d) { Click(d, IDOK); });
  untitled.DoModal();
  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_FALSE(script.Shown()[0].title.empty());
  EXPECT_NE(script.Shown()[0].title, "Message");  // not the template's
}

}  // namespace
