// The sample's help pane: its help file was built with the sample, its
// first topic shows, and the page's "app:" link runs the calculation in the
// main window, as it does from the help window of Help > Contents.
#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/toplevel.h>

#include "HelpPane.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "help/CHHCtrl.h"
#include "help/HelpWindow.h"
#include "html/HtmlBrowser.h"
#include "work/Progress.h"

namespace {

constexpr int kLoadTimeoutMs = 20000;

TEST(SampleHelpPane, ShowsTheSampleHelpAndItsLinkRunsTheCalculation) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  bool calculated = false;
  frame->SetCalculationPlan({2, [&calculated](Progress & progress, int) {
                               calculated = true;
                               return progress.Set(1);
                             }});
  wxCommandEvent command(wxEVT_MENU, kHelpPaneCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  auto * pane = dynamic_cast<wxFrame *>(frame->FindWindowByName(kHelpPaneName, frame));
  ASSERT_NE(pane, nullptr);
  CHHCtrl * control = nullptr;
  for (wxWindow * child : pane->GetChildren())
    if (auto * found = dynamic_cast<CHHCtrl *>(child)) control = found;
  ASSERT_NE(control, nullptr);
  EXPECT_TRUE(wxString(control->GetChmFile()).EndsWith("/SampleHelp.chm"));
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return control->GetReadyState() == 4 && control->GetLocationName() == "Sample help"; },
      kLoadTimeoutMs))
      << control->GetLocationURL();
  gui_test::Snapshot(*pane, "sample-help-pane");

  control->GetBrowser()->RunScript("document.getElementById('run').click()");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return calculated; }, kLoadTimeoutMs));
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    return frame->GetStatusBar()->GetStatusText().StartsWith("Calculation finished");
  })) << frame->GetStatusBar()->GetStatusText();
  pane->Destroy();
  frame->Destroy();
  gui_test::Flush();
}

TEST(SampleHelpPane, TheHelpWindowsLinkRunsTheCalculationToo) {
  auto * frame = new MainFrame;
  wxTheApp->SetTopWindow(frame);
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  bool calculated = false;
  frame->SetCalculationPlan({2, [&calculated](Progress & progress, int) {
                               calculated = true;
                               return progress.Set(1);
                             }});
  wxCommandEvent command(wxEVT_MENU, kHelpContentsCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  HelpWindow * window = nullptr;
  for (wxWindow * top : wxTopLevelWindows)
    if (auto * found = dynamic_cast<HelpWindow *>(top)) window = found;
  ASSERT_NE(window, nullptr);
  auto * control = dynamic_cast<CHHCtrl *>(window->GetViewer()->GetWindow());
  ASSERT_NE(control, nullptr);
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return control->GetReadyState() == 4 && control->GetLocationName() == "Sample help"; },
      kLoadTimeoutMs))
      << control->GetLocationURL();

  control->GetBrowser()->RunScript("document.getElementById('run').click()");
  EXPECT_TRUE(gui_test::WaitUntil([&] { return calculated; }, kLoadTimeoutMs));
  window->Destroy();
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
