// A snapshot reads back what the X server shows: the pixels of the window's
// own painting, not a blank buffer.
#include <gtest/gtest.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include "controls/WindowSnapshot.h"
#include "harness/GuiTestUtilities.h"

namespace {

TEST(WindowSnapshot, CapturesWhatTheWindowPainted) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Snapshot", wxDefaultPosition, wxSize(200, 120));
  auto * left = new wxPanel(frame);
  auto * right = new wxPanel(frame);
  left->SetBackgroundColour(wxColour(200, 30, 30));
  right->SetBackgroundColour(wxColour(30, 30, 200));
  auto * sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(left, 1, wxEXPAND);
  sizer->Add(right, 1, wxEXPAND);
  frame->SetSizer(sizer);
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));

  wxImage const image = CaptureWindowImage(*frame);
  ASSERT_TRUE(image.IsOk());
  EXPECT_EQ(image.GetSize(), frame->GetClientSize());
  auto pixel = [&image](int x) {
    int const y = image.GetHeight() / 2;
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
  };
  EXPECT_EQ(pixel(10), wxColour(200, 30, 30));
  EXPECT_EQ(pixel(image.GetWidth() - 10), wxColour(30, 30, 200));

  wxString const path = wxString(getenv("TMPDIR")) + "/snapshot.png";
  EXPECT_TRUE(SaveWindowSnapshot(*frame, path));
  EXPECT_EQ(wxImage(path, wxBITMAP_TYPE_PNG).GetSize(), image.GetSize());
  // A hidden window gives no image.
  frame->Hide();
  EXPECT_FALSE(CaptureWindowImage(*frame).IsOk());
  EXPECT_FALSE(SaveWindowSnapshot(*frame, wxString(getenv("TMPDIR")) + "/none.png"));
  frame->Destroy();
}

}  // namespace
