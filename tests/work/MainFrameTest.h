#pragma once
// A test with a main frame of its own on the screen: the application's top
// window, which Progress and the break dialog work with.

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/frame.h>

#include "harness/GuiTestUtilities.h"

class MainFrameTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Calculation", wxPoint(40, 40), wxSize(640, 480));
    Populate();
    wxTheApp->SetTopWindow(frame);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  // Adds the test's controls to the frame before it is shown.
  virtual void Populate() {}
  void TearDown() override {
    wxTheApp->SetTopWindow(nullptr);
    frame->Destroy();
    gui_test::Flush();
  }

  wxFrame * frame = nullptr;
};
