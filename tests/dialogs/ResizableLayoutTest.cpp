// Anchored controls of a resizable dialog as it grows, and the bounds of its
// size.
#include <gtest/gtest.h>

#include <wx/button.h>

#include "dialogs/ResizableDialog.h"
#include "harness/GuiTestUtilities.h"

namespace {

TEST(ResizableLayout, ControlsFollowTheirAnchorsAsTheDialogGrows) {
  // expected: after the client area grew by (100, 60) from (300, 200).
  struct AnchorCase {
    char const * name;
    ANCHOR topLeft, bottomRight;
    wxRect expected;
  };
  wxRect const start(20, 30, 80, 40);
  AnchorCase const cases[] = {
      {"top left, kept", TOP_LEFT, NOANCHOR, start},
      {"stretched", TOP_LEFT, BOTTOM_RIGHT, wxRect(20, 30, 180, 100)},
      {"bottom centre", BOTTOM_CENTER, NOANCHOR, wxRect(70, 90, 80, 40)},
      {"top right", TOP_RIGHT, NOANCHOR, wxRect(120, 30, 80, 40)},
      {"wider only", TOP_LEFT, TOP_RIGHT, wxRect(20, 30, 180, 40)},
  };
  auto * dialog = new CResizableDialog;
  dialog->Create(nullptr, wxID_ANY, "Resizable", wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | CResizableDialog::kResizableStyle);
  dialog->SetClientSize(300, 200);
  std::vector<wxButton *> buttons;
  for (AnchorCase const & c : cases) {
    buttons.push_back(new wxButton(dialog, wxID_ANY, c.name, start.GetPosition(), start.GetSize()));
    dialog->AddAnchor(buttons.back(), c.topLeft, c.bottomRight);
  }
  dialog->SetClientSize(400, 260);
  dialog->ArrangeLayout();  // a size event may come later under the window manager
  for (size_t i = 0; i < buttons.size(); ++i) {
    SCOPED_TRACE(cases[i].name);
    EXPECT_EQ(buttons[i]->GetRect(), cases[i].expected);
  }
  // A control destroyed while anchored is simply left out.
  buttons[1]->Destroy();
  dialog->SetClientSize(320, 220);
  dialog->ArrangeLayout();
  EXPECT_EQ(buttons[2]->GetRect(), wxRect(30, 50, 80, 40));
  dialog->Destroy();
}

TEST(ResizableLayout, TheWindowStaysWithinItsTrackSizes) {
  auto * dialog = new CResizableDialog;
  dialog->Create(nullptr, wxID_ANY, "Bounds", wxDefaultPosition, wxSize(400, 300),
                 wxDEFAULT_DIALOG_STYLE | CResizableDialog::kResizableStyle);
  dialog->SetMinTrackSize(wxSize(360, 240));
  dialog->SetMaxTrackSize(wxSize(600, 500));
  ASSERT_TRUE(gui_test::ShowAndWait(*dialog));
  dialog->SetSize(200, 100);
  gui_test::Flush();
  EXPECT_GE(dialog->GetSize().x, 360);
  EXPECT_GE(dialog->GetSize().y, 240);
  dialog->SetSize(900, 900);
  gui_test::Flush();
  EXPECT_LE(dialog->GetSize().x, 600);
  EXPECT_LE(dialog->GetSize().y, 500);
  dialog->Destroy();
}

}  // namespace
