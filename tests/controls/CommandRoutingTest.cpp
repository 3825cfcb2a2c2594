// Asking the command routing (GUI::Enabler) and opening context menus
// through the one replaceable road (VxMenu, GUI::DisplayContextMenu).
#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sstream.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xmlres.h>

#include "controls/DisplayContextMenu.h"
#include "controls/Enabler.h"
#include "controls/VxMenu.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"

namespace {

TEST(Enabler, TheMainWindowsUpdateHandlersDecide) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Main");
  wxTheApp->SetTopWindow(frame);
  for (int id : {100, 0, 65535, 70000})
    frame->Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Enable(true); }, id);
  frame->Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Enable(false); }, 101);
  // A handler that looks only at the check mark sets no enable state.
  frame->Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Check(true); }, 103);
  // One that enables on the second call only would show through: both
  // calls must agree.
  int calls = 0;
  frame->Bind(
      wxEVT_UPDATE_UI, [&calls](wxUpdateUIEvent & e) { e.Enable(++calls == 2); }, 104);

  struct Case {
    unsigned int id;
    bool enabled;
  };
  Case const cases[] = {{100, true}, {101, false},   {102, false},  {103, false},
                        {0, false},  {65535, false}, {70000, false}};
  GUI::Enabler enabler;
  for (Case const & c : cases) EXPECT_EQ(enabler.IsEnable(c.id), c.enabled) << c.id;
  EXPECT_FALSE(enabler.IsEnable(104));
  EXPECT_EQ(calls, 1);                 // disabled by the first answer: no second question
  EXPECT_TRUE(enabler.IsEnable(100));  // the flag starts afresh with each question
  wxTheApp->SetTopWindow(nullptr);
  frame->Destroy();
}

struct PopupCall {
  wxMenu * menu = nullptr;
  unsigned int flags = 0;
  wxPoint point;
  wxWindow * wnd = nullptr;
  int count = 0, menuItems = 0;
};

class ContextMenuTest : public testing::Test {
protected:
  void SetUp() override {
    VxMenu::SetTrackPopupMenuFunction(
        [this](wxMenu * menu, unsigned int flags, int x, int y, wxWindow * wnd, wxRect const *) {
          call = {menu, flags,          wxPoint(x, y),
                  wnd,  call.count + 1, menu != nullptr ? int(menu->GetMenuItemCount()) : -1};
          return 42;
        });
    frame = new wxFrame(nullptr, wxID_ANY, "Frame", wxPoint(50, 60), wxSize(300, 200));
    button = new wxButton(new wxPanel(frame), wxID_ANY, "Child", wxPoint(20, 30));
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
    frame->Destroy();
  }

  PopupCall call;
  wxFrame * frame = nullptr;
  wxButton * button = nullptr;
};

TEST_F(ContextMenuTest, OwnerAndPointOfTheMenu) {
  wxMenu menu;
  wxPoint const keyboard = button->ClientToScreen(wxPoint(5, 5));
  wxDialog * dialog = new wxDialog(frame, wxID_ANY, "Dialog");
  wxButton * inDialog = new wxButton(dialog, wxID_ANY, "In dialog");
  wxFrame * other = new wxFrame(nullptr, wxID_ANY, "Other");
  struct Case {
    wxWindow * wnd;
    wxPoint point;
    bool findFrame;
    wxWindow * owner;
    wxWindow * expectedOwner;
    wxPoint expectedPoint;
  };
  Case const cases[] = {{button, GUI::KeyboardMenuPoint, true, nullptr, frame, keyboard},
                        {button, wxPoint(400, 300), true, nullptr, frame, wxPoint(400, 300)},
                        {button, wxPoint(400, 300), false, nullptr, button, wxPoint(400, 300)},
                        {button, wxPoint(400, 300), true, other, other, wxPoint(400, 300)},
                        // Inside a dialog the walk up ends on no frame: the window keeps it.
                        {inDialog, wxPoint(1, 2), true, nullptr, inDialog, wxPoint(1, 2)},
                        {dialog, wxPoint(1, 2), true, nullptr, dialog, wxPoint(1, 2)}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.wnd->GetLabel());
    call = PopupCall();
    GUI::DisplayContextMenu(c.wnd, menu, c.point, c.findFrame, c.owner);
    EXPECT_EQ(call.count, 1);
    EXPECT_EQ(call.menu, &menu);
    EXPECT_EQ(call.flags, TPM_RIGHTBUTTON);
    EXPECT_EQ(call.wnd, c.expectedOwner);
    EXPECT_EQ(call.point, c.expectedPoint);
  }
  dialog->Destroy();
  other->Destroy();
}

TEST_F(ContextMenuTest, TheMenuResourceGivesItsFirstMenu) {
  char const * xrc = R"(<?xml version="1.0"?>
<resource xmlns="http://www.wxwidgets.org/wxxrc" version="2.5.3.0">
  <object class="wxMenuBar" name="13500">
    <object class="wxMenu" name="first"><label>First</label>
      <object class="wxMenuItem" name="13501"><label>Copy</label></object>
      <object class="wxMenuItem" name="13502"><label>Paste</label></object>
      <object class="separator"/>
      <object class="wxMenuItem" name="13503"><label>Properties</label></object>
    </object>
    <object class="wxMenu" name="second"><label>Second</label>
      <object class="wxMenuItem" name="13504"><label>Other</label></object></object>
  </object>
</resource>)";
  wxStringInputStream input(xrc);
  auto * document = new wxXmlDocument(input);
  ASSERT_TRUE(document->IsOk());
  ASSERT_TRUE(wxXmlResource::Get()->LoadDocument(document, "context-menu-test"));

  GUI::DisplayContextMenu(button, 13500, wxPoint(10, 10), true);
  EXPECT_EQ(call.count, 1);
  EXPECT_EQ(call.menuItems, 4);
  EXPECT_EQ(call.wnd, frame);
  GUI::DisplayContextMenu(button, 13999, wxPoint(10, 10), true);  // no such resource
  EXPECT_EQ(call.count, 1);
  wxXmlResource::Get()->Unload("context-menu-test");
}

}  // namespace
