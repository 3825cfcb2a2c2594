// The info tip with real popup windows: its layout rules, its timers (driven
// by calling their handlers), the relayed events that pop it, the text asked
// of the parent, and what the X server and the window manager make of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/textctrl.h>

#include "harness/GuiTestUtilities.h"
#include "lists/InfoTipWnd.h"
#include "platform/SystemMetrics.h"
#include "platform/WinUser.h"
#include "work/XTestInput.h"

namespace {

namespace m = infotip_messages;

std::string RunCommand(std::string const & command) {
  std::string out;
  FILE * pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return out;
  char buffer[256];
  while (fgets(buffer, sizeof buffer, pipe) != nullptr) out += buffer;
  pclose(pipe);
  return out;
}

class InfoTipTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Tips", wxPoint(100, 100), wxSize(400, 300));
    edit = new wxTextCtrl(frame, wxID_ANY);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    tip = new InfoTipWnd;
    ASSERT_TRUE(tip->Create(frame));
    tip->SetCursorSource([this] { return cursor; });
    screen = wxDisplay(0u).GetGeometry();
  }
  void TearDown() override {
    tip->Destroy();
    frame->Destroy();
    gui_test::Flush();
  }

  wxFrame * frame = nullptr;
  wxTextCtrl * edit = nullptr;
  InfoTipWnd * tip = nullptr;
  wxPoint cursor{150, 150};
  wxRect screen;
};

TEST_F(InfoTipTest, MarginsAndLineSpaceHaveFloors) {
  struct Case {
    int asked, margin, lineSpace;
  };
  for (Case c : {Case{2, 3, 2}, Case{1, 3, 2}, Case{3, 3, 3}, Case{4, 4, 4}, Case{12, 12, 12}}) {
    tip->SetMargins(wxSize(c.asked, c.asked));
    tip->SetLineSpace(c.asked);
    EXPECT_EQ(tip->GetMargins(), wxSize(c.margin, c.margin)) << c.asked;
    EXPECT_EQ(tip->GetLineSpace(), c.lineSpace) << c.asked;
  }
}

TEST_F(InfoTipTest, SizeFollowsTitleTextIconAndLineSpace) {
  std::wstring const text = L"The value must lie between 1 and 100.";
  tip->SetTipText(text.c_str(), nullptr);
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  wxRect const plain = tip->GetTipRect();
  EXPECT_EQ(plain.GetPosition(), wxPoint(200, 200));
  EXPECT_GT(plain.width, 16);
  EXPECT_EQ(tip->GetTextRect().GetPosition(), wxPoint(8, 8));

  tip->SetTipText(text.c_str(), L"Refused");
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  wxRect const titled = tip->GetTipRect();
  int const titleStep = tip->GetTextRect().y - 8;  // title height + line space
  EXPECT_EQ(titled.height, plain.height + titleStep);
  tip->SetLineSpace(20);
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  EXPECT_EQ(tip->GetTipRect().height, titled.height + 12);

  wxBitmap const icon(32, 32);
  tip->SetTipText(text.c_str(), nullptr, icon);
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  EXPECT_EQ(tip->GetTipRect().width, plain.width + GetSystemMetrics(SM_CYICON) + 8);
  EXPECT_EQ(tip->GetTextRect().x, 8 + GetSystemMetrics(SM_CXICON) + 8);
}

TEST_F(InfoTipTest, TextIsTrimmedAndWrappedAtSixtyCharacters) {
  struct Case {
    std::wstring text;
    size_t lines;
  };
  std::wstring const words70 =
      L"aaaa bbbb cccc dddd eeee ffff gggg hhhh iiii jjjj kkkk llll mmmm nnnn";
  Case const cases[] = {
      {L"  short  ", 1},
      {words70, 2},
      {std::wstring(70, L'x'), 2},  // no break at all: cut
      {L"one\ntwo\nthree", 3},
  };
  for (Case const & c : cases) {
    tip->SetTipText(c.text.c_str());
    ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
    std::wstring const & shown = tip->GetShownText();
    EXPECT_EQ(size_t(std::count(shown.begin(), shown.end(), L'\n')) + 1, c.lines) << shown;
    size_t start = 0;
    while (start <= shown.size()) {
      size_t const end = std::min(shown.find(L'\n', start), shown.size());
      EXPECT_LE(end - start, InfoTipWnd::kLineLength) << shown;
      start = end + 1;
    }
    EXPECT_NE(shown.front(), L' ');
    EXPECT_NE(shown.back(), L' ');
  }
}

TEST_F(InfoTipTest, HugeTextsStayOnTheMonitor) {
  std::wstring const unbroken(1 << 20, L'w');
  std::wstring broken;
  for (int i = 0; i < 100000; ++i) broken += L"word ";
  for (std::wstring const * text : {&unbroken, static_cast<std::wstring const *>(&broken)}) {
    tip->SetTipText(text->c_str(), L"Title");
    ASSERT_TRUE(tip->ShowTipWindow(wxPoint(screen.GetRight() - 5, screen.GetBottom() - 5)));
    EXPECT_TRUE(screen.Contains(tip->GetTipRect()))
        << tip->GetTipRect().x << "," << tip->GetTipRect().y;
  }
}

TEST_F(InfoTipTest, NothingShowsWithoutTextAndTitleOnlyShows) {
  tip->SetTipText(L"", nullptr);
  EXPECT_FALSE(tip->ShowTipWindow(wxPoint(200, 200)));
  EXPECT_FALSE(tip->IsShown());
  tip->SetTipText(L"   \n ", nullptr);
  EXPECT_FALSE(tip->ShowTipWindow(wxPoint(200, 200)));
  tip->SetTipText(nullptr, L"Title only");
  EXPECT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  EXPECT_TRUE(tip->IsShown());
  EXPECT_EQ(tip->GetShownTitle(), L"Title only");
}

TEST_F(InfoTipTest, PlacementKeepsTheTipOnTheMonitor) {
  tip->SetTipText(L"Some words of a tip that is wide enough to matter");
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(200, 200)));
  wxSize const size = tip->GetTipRect().GetSize();

  wxPoint const nearBottom(200, screen.GetBottom() - size.y / 2);
  ASSERT_TRUE(tip->ShowTipWindow(nearBottom));
  EXPECT_EQ(tip->GetTipRect().y, nearBottom.y - size.y - 21) << "stands above the pointer";
  EXPECT_EQ(tip->GetTipRect().x, 200);

  wxPoint const nearRight(screen.GetRight() - size.x / 2, 200);
  ASSERT_TRUE(tip->ShowTipWindow(nearRight));
  EXPECT_EQ(tip->GetTipRect().GetRight(), screen.GetRight());
  EXPECT_EQ(tip->GetTipRect().y, 200);

  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(screen.x - 50, 200)));
  EXPECT_EQ(tip->GetTipRect().x, screen.x);
}

TEST_F(InfoTipTest, CheckTimerClosesByTimeoutOrByMovingAway) {
  struct Case {
    unsigned timeout;
    int moveAfterTicks;  // -1: the pointer stays
    int closedAtTick;    // -1: still open after 10 ticks
  };
  Case const cases[] = {
      {0, -1, -1},    // no timeout: only a move closes it
      {0, 3, 3},      // ... and at once
      {1500, -1, 3},  // a timeout closes it whatever the pointer does
      {1500, 1, 3},   // moved early: the timeout still counts
  };
  for (Case const & c : cases) {
    tip->SetTimeout(0);
    auto * fresh = new InfoTipWnd;  // close-after-timeout is sticky: a new tip a case
    ASSERT_TRUE(fresh->Create(frame));
    fresh->SetCursorSource([this] { return cursor; });
    fresh->SetTimeout(c.timeout);
    cursor = wxPoint(150, 150);
    fresh->SetTipText(L"Tip");
    ASSERT_TRUE(fresh->ShowTipWindow(wxPoint(300, 300)));
    EXPECT_TRUE(fresh->IsCheckRunning());
    int closedAt = -1;
    for (int tick = 1; tick <= 10 && closedAt < 0; ++tick) {
      if (tick == c.moveAfterTicks) cursor = wxPoint(160, 150);
      fresh->OnCheckTimer();
      if (!fresh->IsShown()) closedAt = tick;
    }
    EXPECT_EQ(closedAt, c.closedAtTick) << c.timeout << " " << c.moveAfterTicks;
    if (closedAt > 0) {
      EXPECT_TRUE(fresh->IsPopped());
    }
    fresh->Destroy();
  }
}

TEST_F(InfoTipTest, APointerRestingOnTheTipKeepsIt) {
  tip->SetTimeout(500);
  tip->SetTipText(L"Tip");
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(300, 300)));
  cursor = tip->GetTipRect().GetPosition() + wxPoint(2, 2);
  for (int tick = 0; tick < 5; ++tick) tip->OnCheckTimer();
  EXPECT_TRUE(tip->IsShown());
  EXPECT_EQ(tip->GetElapsed(), 2500u);
  cursor = wxPoint(10, 10);
  tip->OnCheckTimer();
  EXPECT_FALSE(tip->IsShown());
}

TEST_F(InfoTipTest, RelayedMessagesPopOrArm) {
  UINT const popping[] = {m::WM_MOVE,
                          m::WM_SIZE,
                          m::WM_ACTIVATE,
                          m::WM_KILLFOCUS,
                          m::WM_WINDOWPOSCHANGING,
                          m::WM_WINDOWPOSCHANGED,
                          m::WM_NCLBUTTONDOWN,
                          m::WM_NCLBUTTONDBLCLK,
                          m::WM_NCRBUTTONDOWN,
                          m::WM_NCRBUTTONDBLCLK,
                          m::WM_NCMBUTTONDOWN,
                          m::WM_NCMBUTTONDBLCLK,
                          m::WM_KEYDOWN,
                          m::WM_SYSKEYDOWN,
                          m::WM_LBUTTONDBLCLK,
                          m::WM_RBUTTONDOWN,
                          m::WM_RBUTTONDBLCLK,
                          m::WM_MBUTTONDOWN,
                          m::WM_MBUTTONDBLCLK,
                          m::WM_MOUSEWHEEL,
                          m::WM_MOVING};
  UINT const ignored[] = {m::WM_LBUTTONDOWN, 0x0202 /* left up */, 0x0102 /* char */, 0x000F};
  tip->SetTipText(L"Tip");
  for (UINT message : popping) {
    ASSERT_TRUE(tip->ShowTipWindow(wxPoint(300, 300)));
    tip->RelayMessage(message);
    EXPECT_FALSE(tip->IsShown()) << std::hex << message;
    tip->RelayMessage(m::WM_MOUSEMOVE);  // clears the pop for the next case
    tip->SetTipText(L"Tip");
  }
  for (UINT message : ignored) {
    ASSERT_TRUE(tip->ShowTipWindow(wxPoint(300, 300)));
    tip->RelayMessage(message);
    EXPECT_TRUE(tip->IsShown()) << std::hex << message;
    tip->SetTipText(L"Tip");
  }
}

TEST_F(InfoTipTest, APlainMoveArmsTheDelayAndAPopHoldsUntilThen) {
  tip->SetTipText(L"Tip");
  tip->Pop();
  EXPECT_FALSE(tip->ShowTipWindow(wxPoint(300, 300))) << "popped: the next show is refused";
  EXPECT_FALSE(tip->IsPopped());

  tip->RelayMessage(m::WM_MOUSEMOVE, true);
  EXPECT_FALSE(tip->IsDelayRunning()) << "a button or modifier is down";
  wxMouseEvent withCtrl(wxEVT_MOTION);
  withCtrl.SetControlDown(true);
  tip->RelayEvent(withCtrl);
  EXPECT_FALSE(tip->IsDelayRunning());

  tip->Pop();
  tip->RelayEvent(wxMouseEvent(wxEVT_MOTION));
  EXPECT_TRUE(tip->IsDelayRunning());
  EXPECT_FALSE(tip->IsPopped());
  tip->SetTipText(L"Tip");
  cursor = wxPoint(220, 230);
  tip->OnDelayTimer();
  EXPECT_TRUE(tip->IsShown());
  EXPECT_EQ(tip->GetTipRect().GetPosition(), wxPoint(220, 252)) << "22 below the pointer";

  tip->RelayEvent(wxMouseEvent(wxEVT_RIGHT_DOWN));
  EXPECT_FALSE(tip->IsShown());
}

TEST_F(InfoTipTest, TheParentGivesTitleAndTextOnRequest) {
  auto * asking = new InfoTipWnd;
  ASSERT_TRUE(asking->Create(edit, true));
  std::wstring answer;
  int asked = 0;
  edit->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() != TTN_GETDISPINFOW) return event.Skip();
    ++asked;
    event.GetNotification<NMTTDISPINFOW>()->lpszText = answer.c_str();
  });
  struct Case {
    std::wstring answer, title, text;
  };
  Case const cases[] = {{L"Pressure\rin bar", L"Pressure", L"in bar"},
                        {L"\rleading return", L"", L"\rleading return"},
                        {L"no title", L"", L"no title"}};
  for (Case const & c : cases) {
    answer = c.answer;
    ASSERT_TRUE(asking->ShowTipWindow(wxPoint(300, 300)));
    EXPECT_EQ(asking->GetShownTitle(), c.title);
    EXPECT_EQ(asking->GetShownText(), c.text.substr(c.text.find_first_not_of(L'\r')));
  }
  EXPECT_EQ(asked, 3);
  // Text set by call is used once instead of asking.
  asking->SetTipText(L"set by call");
  ASSERT_TRUE(asking->ShowTipWindow(wxPoint(300, 300)));
  EXPECT_EQ(asking->GetShownText(), L"set by call");
  EXPECT_EQ(asked, 3);
  asking->Destroy();
}

TEST_F(InfoTipTest, ColoursFollowTheCallerOrTheTheme) {
  tip->SetTipColors(RGB(1, 2, 3), RGB(200, 100, 50));
  EXPECT_EQ(tip->GetBackColour(), wxColour(1, 2, 3));
  wxSysColourChangedEvent changed;
  tip->GetEventHandler()->ProcessEvent(changed);
  EXPECT_EQ(tip->GetBackColour(), wxColour(1, 2, 3)) << "own colours stay";
  auto * themed = new InfoTipWnd;
  ASSERT_TRUE(themed->Create(frame));
  EXPECT_EQ(themed->GetBackColour().Alpha(), wxALPHA_OPAQUE);
  themed->Destroy();
}

// The tip is override-redirect, takes no focus when shown or clicked, and a
// click on it pops it.
TEST_F(InfoTipTest, TheTipIsAnOverrideRedirectWindowThatNeverTakesTheFocus) {
  frame->Raise();
  edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return IsClickable(*edit); }));
  std::string const focusBefore = RunCommand("xdotool getwindowfocus");
  tip->SetTipText(L"Click me", L"Tip");
  ASSERT_TRUE(tip->ShowTipWindow(wxPoint(160, 160)));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return gtk_widget_get_mapped(tip->GetHandle()) != 0; }));
  gui_test::Snapshot(*tip, "info-tip");
  Window const xid = GDK_WINDOW_XID(gtk_widget_get_window(tip->GetHandle()));
  std::string const info = RunCommand("xwininfo -all -id " + std::to_string(xid));
  EXPECT_NE(info.find("Override Redirect State: yes"), std::string::npos) << info;
  EXPECT_EQ(RunCommand("xdotool getwindowfocus"), focusBefore);

  FakeClick(*tip);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !tip->IsShown(); }));
  EXPECT_TRUE(tip->IsPopped());
  EXPECT_EQ(RunCommand("xdotool getwindowfocus"), focusBefore);
  EXPECT_TRUE(edit->HasFocus());
}

TEST_F(InfoTipTest, MessageBoxTipsShareOneInstanceAtThePointer) {
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeMotionEvent(display, -1, 300, 250, CurrentTime);
  XSync(display, False);
  ASSERT_TRUE(gui_test::WaitUntil([] { return wxGetMousePosition() == wxPoint(300, 250); }));

  ASSERT_TRUE(InfoTipMessageBox(L"Not a number", 2000, L"Value", MB_ICONEXCLAMATION));
  InfoTipWnd * first = SharedInfoTip();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->GetTipRect().GetPosition(), wxPoint(305, 272));
  EXPECT_EQ(first->GetTextRect().x, 8 + GetSystemMetrics(SM_CXICON) + 8) << "with its icon";

  wxPoint const at(120, 130);
  ASSERT_TRUE(InfoTipMessageBox(frame, &at, L"Second", 0, nullptr, 0));
  gui_test::Flush();
  EXPECT_NE(SharedInfoTip(), nullptr);
  EXPECT_EQ(SharedInfoTip()->GetTipRect().GetPosition(), at);
  EXPECT_EQ(SharedInfoTip()->GetTextRect().x, 8) << "no icon for type 0";
  ASSERT_TRUE(InfoTipMessageBox(nullptr, L"Third", 0));
  EXPECT_EQ(SharedInfoTip()->GetTipRect().GetPosition(), wxPoint(300, 272));
  EXPECT_FALSE(InfoTipMessageBox(nullptr, L"", 0)) << "nothing to show";
  SharedInfoTip()->Destroy();
}

}  // namespace
