// The family's edits on real wx controls: the hint that reads as empty, the
// numeric filter, selections in user-perceived characters, the selection
// notice, and the timed edits driven by calling their timer handler.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>

#include "controls/CReadOnlyEdit.h"
#include "controls/VxEdit.h"
#include "controls/VxTimedEdit.h"
#include "harness/GuiTestUtilities.h"
#include "platform/SysColor.h"
#include "platform/WindowMessage.h"

namespace {

struct Frame {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Edits");
  ~Frame() { frame->Destroy(); }
};

void Focus(wxWindow & window, wxEventType type) {
  wxFocusEvent event(type, window.GetId());
  event.SetEventObject(&window);
  window.GetEventHandler()->ProcessEvent(event);
}

TEST(VxEdit, HintReadsAsEmptyAndGivesWayToTheValue) {
  Frame f;
  auto * edit = new VxEdit(f.frame, wxID_ANY);
  edit->SetHintText(L"Search runs");
  EXPECT_TRUE(edit->IsHintShowing());
  EXPECT_EQ(edit->GetValue(), "");
  EXPECT_EQ(edit->GetLastPosition(), 11) << "the shown text's length is not hidden";
  EXPECT_TRUE(edit->GetFont().GetStyle() == wxFONTSTYLE_ITALIC);

  Focus(*edit, wxEVT_SET_FOCUS);
  EXPECT_FALSE(edit->IsHintShowing());
  EXPECT_EQ(edit->GetLastPosition(), 0);
  // A real value that equals the hint is a value.
  edit->ChangeValue("Search runs");
  Focus(*edit, wxEVT_KILL_FOCUS);
  EXPECT_FALSE(edit->IsHintShowing());
  EXPECT_EQ(edit->GetValue(), "Search runs");

  edit->ChangeValue("");
  Focus(*edit, wxEVT_KILL_FOCUS);
  EXPECT_TRUE(edit->IsHintShowing());
  edit->RemoveHintText();
  EXPECT_FALSE(edit->IsHintShowing());
  EXPECT_EQ(edit->GetValue(), "Search runs") << "the text in the box stays";
}

TEST(VxEdit, NumericFilterTakesDigitsAndALeadingMinus) {
  struct Case {
    char const * text;
    long from, to;
    int key;
    int allowNegative;
    bool accepted;
  };
  std::vector<Case> const cases = {
      {"12", 0, 0, '-', 1, true},     {"12", 1, 1, '-', 1, false},     {"12", 0, 2, '-', 1, true},
      {"", 0, 0, '-', 1, true},       {"-12", 0, 0, '-', 1, true},     {"12", 0, 0, '-', 0, false},
      {"12", 1, 1, '7', 0, true},     {"12", 1, 1, WXK_BACK, 0, true}, {"12", 1, 1, 'a', 1, false},
      {"12", 1, 1, 3, 1, false},       // Ctrl+C
      {"12", 1, 1, 0x0663, 1, false},  // an Arabic-Indic digit
  };
  Frame f;
  auto * edit = new VxEdit(f.frame, wxID_ANY);
  for (Case const & c : cases) {
    edit->SetNumeric(1, c.allowNegative);
    edit->ChangeValue(c.text);
    edit->SetSelection(c.from, c.to);
    EXPECT_EQ(edit->AcceptsCharacter(c.key), c.accepted) << c.text << " " << c.from << " " << c.key;
  }
  edit->SetNumeric(0, 1);
  EXPECT_TRUE(edit->AcceptsCharacter('a'));
}

TEST(VxEdit, SelectionsInUserPerceivedCharacters) {
  Frame f;
  // "e" + combining acute, a flag of two code points, "x", an emoji family.
  wxString const text(L"e\u0301\U0001F1EB\U0001F1F7x\U0001F468\u200D\U0001F469");
  auto * edit = new VxEdit(f.frame, wxID_ANY, text);
  struct Case {
    int start, end;  // code points
    int clusterStart, clusterEnd;
  };
  std::vector<Case> const cases = {{0, 0, 0, 0}, {0, 2, 0, 1}, {2, 4, 1, 2},
                                   {4, 5, 2, 3}, {5, 8, 3, 4}, {1, 3, 1, 2}};
  for (Case const & c : cases) {
    int start = -1;
    int end = -1;
    edit->ConvertToGraphemeClusterSel(c.start, c.end, start, end);
    EXPECT_EQ(start, c.clusterStart) << c.start;
    EXPECT_EQ(end, c.clusterEnd) << c.end;
  }
  edit->SetGraphemeClusterSel(1, 3, 0);
  long from = 0;
  long to = 0;
  edit->GetSelection(&from, &to);
  EXPECT_EQ(from, 2);
  EXPECT_EQ(to, 5);
  int start = 0;
  int end = 0;
  edit->GetGraphemeClusterSel(start, end);
  EXPECT_EQ(start, 1);
  EXPECT_EQ(end, 3);

  edit->SetGraphemeClusterSel(-1, 3, 1);
  edit->GetSelection(&from, &to);
  EXPECT_EQ(from, to) << "start -1 deselects";
  edit->SetGraphemeClusterSel(0, -1, 0);
  edit->GetSelection(&from, &to);
  EXPECT_EQ(from, 0);
  EXPECT_EQ(to, edit->GetLastPosition()) << "0, -1 selects all";
}

TEST(VxEdit, SelectionNoticeIsQueuedOncePerChangeWithPackedPositions) {
  Frame f;
  std::vector<std::pair<std::uintptr_t, std::intptr_t>> notices;
  f.frame->Bind(VX_EVT_WINDOW_MESSAGE, [&](WindowMessageEvent & event) {
    if (event.GetMessage() == VxEdit::kSelectionNotice)
      notices.emplace_back(event.GetWParam(), event.GetLParam());
  });
  // Multi-line: a GTK entry holds at most 65,535 characters.
  // Short lines: Pango lays out one 70,000-character line very slowly.
  wxString text;
  for (int i = 0; i < 70000; ++i) text += i % 80 == 79 ? '\n' : 'x';
  auto * edit =
      new VxEdit(f.frame, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
  edit->SetSelection(3, 65540);
  wxMouseEvent up(wxEVT_LEFT_UP);
  edit->GetEventHandler()->ProcessEvent(up);
  wxTheApp->ProcessPendingEvents();
  edit->GetEventHandler()->ProcessEvent(up);
  wxTheApp->ProcessPendingEvents();
  ASSERT_EQ(notices.size(), 1u) << "an unchanged selection is not sent again";
  EXPECT_EQ(notices[0].first, reinterpret_cast<std::uintptr_t>(edit));
  EXPECT_EQ(notices[0].second, (3 << 16) | (65540 & 0xFFFF)) << "the halves wrap past 65535";

  wxMouseEvent twice(wxEVT_LEFT_DCLICK);
  edit->GetEventHandler()->ProcessEvent(twice);
  wxTheApp->ProcessPendingEvents();
  EXPECT_EQ(notices.size(), 2u) << "a double click always tells";
}

class Recorder : public TimedEditParent {
public:
  void OnTimedEditChanged(TimedEditBox * box, wchar_t const * text) override {
    boxes.push_back(box);
    texts.emplace_back(text);
  }
  std::vector<TimedEditBox *> boxes;
  std::vector<std::wstring> texts;
};

TEST(TimedEditBox, TypedTextSettlesOnceAndProgramTextNever) {
  Frame f;
  Recorder parent;
  auto * box = new TimedEditBox(10, &parent);
  ASSERT_TRUE(box->Create(f.frame, wxID_ANY));
  EXPECT_EQ(box->GetDelayTime(), 100) << "the constructor raises the delay to 100 ms";
  EXPECT_EQ(box->GetTimer().GetId(), TimedEditBox::kTimerId);

  box->SetText(L"from the program");
  EXPECT_FALSE(box->GetTimer().IsRunning());

  box->ChangeValue("ty");
  wxCommandEvent typed(wxEVT_TEXT, box->GetId());
  box->GetEventHandler()->ProcessEvent(typed);
  EXPECT_TRUE(box->GetTimer().IsRunning());
  EXPECT_EQ(box->GetTimer().GetInterval(), 100);

  wxTimerEvent other(box->GetTimer());
  other.SetId(1);
  box->OnTimer(other);
  EXPECT_TRUE(parent.texts.empty()) << "another timer's event is not ours";

  wxTimerEvent tick(box->GetTimer());
  box->OnTimer(tick);
  EXPECT_FALSE(box->GetTimer().IsRunning());
  ASSERT_EQ(parent.texts.size(), 1u);
  EXPECT_EQ(parent.boxes[0], box);
  EXPECT_EQ(parent.texts[0], L"ty");
}

TEST(CReadOnlyEdit, KeepsTheWindowColour) {
  Frame f;
  auto * edit = new CReadOnlyEdit(f.frame, wxID_ANY, "fixed");
  EXPECT_FALSE(edit->IsEditable());
  COLORREF const window = GetSysColor(COLOR_WINDOW);
  EXPECT_EQ(static_cast<COLORREF>(edit->GetBackgroundColour().GetRGB()), window);
}

}  // namespace
