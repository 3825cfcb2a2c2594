// Real pointer input through the X server (XTest): a press and release on a
// label selects it, and a press that moves away starts a drag from inside
// the press, as the detection loop sees the pointer.

#include <gtest/gtest.h>

#include "../../harness/GuiTestUtilities.h"
#include "TreeCtrlTestSupport.h"

// X11's headers define macros (None, Bool...) that would break the ones above.
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <gdk/gdkx.h>

namespace {

Display * XDisplay() { return GDK_DISPLAY_XDISPLAY(gdk_display_get_default()); }

void MoveTo(wxWindow & window, POINT client) {
  wxPoint const screen = window.ClientToScreen(wxPoint(client.x, client.y));
  XTestFakeMotionEvent(XDisplay(), -1, screen.x, screen.y, CurrentTime);
  XSync(XDisplay(), False);
}

void Button(bool down) {
  XTestFakeButtonEvent(XDisplay(), 1, down ? True : False, CurrentTime);
  XSync(XDisplay(), False);
}

class TreeInput : public TreeFixture {
protected:
  void SetUp() override {
    TreeFixture::SetUp();
    first = tree->InsertItem("first");
    second = tree->InsertItem("second");
    third = tree->InsertItem("third");
    frame->Show();
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*frame));
    gui_test::Flush();
  }
  HTREEITEM first, second, third;
};

TEST_F(TreeInput, APressAndReleaseOnALabelSelectsIt) {
  // Both events are made before the tree sees the press: the detection
  // loop finds the button up and it is a click.
  MoveTo(*tree, LabelPoint(second));
  Button(true);
  Button(false);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return tree->GetSelectedItem() == second; }));
  EXPECT_TRUE(Of(TVN_BEGINDRAG).empty());
  EXPECT_FALSE(Of(NM_CLICK).empty());
  EXPECT_TRUE(tree->HasFocus());
}

TEST_F(TreeInput, APressThatMovesAwayBeginsADragFromInsideThePress) {
  POINT const start = LabelPoint(third);
  MoveTo(*tree, start);
  Button(true);
  MoveTo(*tree, POINT{start.x + 30, start.y - 15});
  // The button is still down: the loop inside the press sees the pointer
  // leave the drag rectangle.
  bool const began = gui_test::WaitUntil([&] { return !Of(TVN_BEGINDRAG).empty(); });
  Button(false);
  gui_test::Flush();
  ASSERT_TRUE(began);
  EXPECT_EQ(Of(TVN_BEGINDRAG)[0].newItem, third);
  EXPECT_FALSE(tree->GetSelectedItem() == third);  // a drag selects nothing
  EXPECT_TRUE(Of(NM_CLICK).empty());
}

}  // namespace

namespace {

void Control(bool down) {
  XTestFakeKeyEvent(XDisplay(), XKeysymToKeycode(XDisplay(), XK_Control_L), down ? True : False,
                    CurrentTime);
  XSync(XDisplay(), False);
}

TEST_F(TreeInput, WithControlDownTheMovingKeysScrollAndLeaveTheCaret) {
  for (int i = 0; i < 100; ++i) tree->InsertItem(wxString::Format("more %d", i));
  tree->SelectItem(first);
  Control(true);
  tree->OnKeyDown(VK_DOWN, 1, 0);
  tree->OnKeyDown(VK_DOWN, 1, 0);
  int const afterLines = tree->GetScrollPos(SB_VERT);
  tree->OnKeyDown(VK_END, 1, 0);
  int const afterEnd = tree->GetScrollPos(SB_VERT);
  Control(false);
  EXPECT_EQ(afterLines, 2);
  EXPECT_EQ(afterEnd, 103 - static_cast<int>(tree->GetVisibleCount()));
  EXPECT_EQ(tree->GetSelectedItem(), first);
  tree->OnKeyDown(VK_DOWN, 1, 0);  // without Ctrl the caret moves (and scrolls back to it)
  EXPECT_EQ(tree->GetSelectedItem(), second);
  EXPECT_EQ(tree->GetScrollPos(SB_VERT), 1);
}

}  // namespace
