// The MDI child list, menus set by the command routing, and the parts of
// command strings.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/mdi.h>
#include <wx/menu.h>

#include "controls/GUIUtilities.h"
#include "harness/GuiTestUtilities.h"

namespace {

TEST(GUIUtilities, TextPartSplitsAtTheFirstLineFeed) {
  struct Case {
    char const * text;
    bool after;
    char const * part;
  };
  Case const cases[] = {{"No feed", false, "No feed"},
                        {"No feed", true, "No feed"},
                        {"a\nb\nc", false, "a"},
                        {"a\nb\nc", true, "b\nc"},
                        {"only before\n", true, ""}};
  for (Case const & c : cases)
    EXPECT_EQ(GUIUtilities::TextPart(c.text, c.after), wxString(c.part)) << c.text << c.after;
}

TEST(GUIUtilities, EnableMenuAsksTheTargetForEveryItem) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Target");
  for (int id : {200, 210, 221})
    frame->Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Enable(false); }, id);
  frame->Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Check(true); }, 201);
  frame->Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.SetText("Renamed"); }, 202);

  wxMenu menu;
  menu.Append(200, "Disabled");
  menu.AppendCheckItem(201, "Checked");
  menu.Append(202, "Old text");
  menu.AppendSeparator();
  menu.Append(203, "Untouched");
  auto subMenu = [&menu](int first, int second) {
    auto * sub = new wxMenu;
    sub->Append(first, "First");
    sub->Append(second, "Second");
    return std::make_pair(sub, menu.AppendSubMenu(sub, "Sub"));
  };
  // A sub-menu whose first command is disabled is disabled itself; a later
  // disabled command leaves it enabled.
  auto const [firstOff, firstOffItem] = subMenu(210, 211);
  auto const [laterOff, laterOffItem] = subMenu(220, 221);

  GUIUtilities::EnableMenu(frame, &menu);
  EXPECT_FALSE(menu.IsEnabled(200));
  EXPECT_TRUE(menu.IsChecked(201));
  EXPECT_EQ(menu.GetLabel(202), "Renamed");
  EXPECT_TRUE(menu.IsEnabled(203));
  EXPECT_FALSE(firstOffItem->IsEnabled());
  EXPECT_TRUE(firstOff->IsEnabled(211));
  EXPECT_TRUE(laterOffItem->IsEnabled());
  EXPECT_FALSE(laterOff->IsEnabled(221));
  frame->Destroy();
}

TEST(GUIUtilities, MdiChildrenOfTheMainWindow) {
  auto * parent = new wxMDIParentFrame(nullptr, wxID_ANY, "MDI");
  wxTheApp->SetTopWindow(parent);
  std::vector<wxMDIChildFrame *> made;
  for (char const * title : {"One", "Two", "Three"})
    made.push_back(new wxMDIChildFrame(parent, wxID_ANY, title));
  ASSERT_TRUE(gui_test::ShowAndWait(*parent));
  for (wxMDIChildFrame * child : made) child->Show();

  std::vector<wxMDIChildFrame *> all;
  EXPECT_EQ(GUIUtilities::GetMDIChildWnds(&all, false), 3);
  EXPECT_EQ(all, made);
  // GTK's MDI shows one child at a time, on the front tab.
  for (wxMDIChildFrame * front : {made[2], made[0]}) {
    front->Activate();
    std::vector<wxMDIChildFrame *> visible;
    EXPECT_EQ(GUIUtilities::GetMDIChildWnds(&visible, true), 1);
    EXPECT_EQ(visible, std::vector<wxMDIChildFrame *>{front});
  }

  // A main window that is no MDI frame has no MDI children.
  wxFrame * plain = new wxFrame(nullptr, wxID_ANY, "Plain");
  wxTheApp->SetTopWindow(plain);
  EXPECT_EQ(GUIUtilities::GetMDIChildWnds(&all, false), 0);
  EXPECT_EQ(all.size(), 3u);  // nothing added
  wxTheApp->SetTopWindow(nullptr);
  plain->Destroy();
  parent->Destroy();
}

}  // namespace
