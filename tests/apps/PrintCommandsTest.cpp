// File > Print and File > Print window of the sample, answered with
// "Print to File": the run list on as many pages as it needs, each with its
// heading and footer, and the window's picture under the footer line.
#include <gtest/gtest.h>

#include <cstdlib>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#include "PrintCommands.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "printing/PrintDialog.h"
#include "utl/VxSystemInfo.h"

namespace {

std::string Output(std::string const & command) {
  std::string output;
  FILE * pipe = popen((command + " 2>/dev/null").c_str(), "r");
  char buffer[4096];
  std::size_t read = 0;
  while (pipe != nullptr && (read = fread(buffer, 1, sizeof buffer, pipe)) > 0)
    output.append(buffer, read);
  if (pipe != nullptr) pclose(pipe);
  return output;
}

TEST(PrintCommands, PrintTheRunListAndTheWindowToPdf) {
  VxSystemInfo::SetApplication("Sample", "6.3.2.1234");
  std::string const folder = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp";
  std::string path;
  PrintDialogFunction const former = SetPrintDialogFunction([&path](PRINTDLGW & data) {
    data.hDevNames =
        std::make_shared<DEVNAMES>(DEVNAMES{L"PDF", L"", std::wstring(path.begin(), path.end())});
    return IDOK;
  });
  auto * frame = new wxFrame(nullptr, wxID_ANY, "Sample", wxDefaultPosition, wxSize(400, 300));
  frame->CreateStatusBar();
  auto * file = new wxMenu;
  std::vector<std::string> runs;
  for (int i = 1; i <= 120; ++i)
    runs.push_back("Run " + std::to_string(i) + "\tStandard " + std::to_string(i % 7));
  AddPrintCommands(*frame, *file, [&runs] { return runs; });
  auto * bar = new wxMenuBar;
  bar->Append(file, "File");
  frame->SetMenuBar(bar);
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));

  path = folder + "/runs.pdf";
  wxCommandEvent print(wxEVT_MENU, kPrintCommand);
  frame->ProcessWindowEvent(print);
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "The run list was printed.");
  std::string const info = Output("pdfinfo " + path);
  EXPECT_NE(info.find("Pages:           3"), std::string::npos) << info;
  std::string const text = Output("pdftotext -layout " + path + " -");
  for (char const * expected : {"Runs of the sample", "Page 1 of 3", "Page 3 of 3", "Run 1 ",
                                "Run 120 ", "Sample 6.3.2 - Run list - "}) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected;
  }

  path = folder + "/window.pdf";
  wxCommandEvent window(wxEVT_MENU, kPrintWindowCommand);
  frame->ProcessWindowEvent(window);
  std::string const images = Output("pdfimages -list " + path);
  EXPECT_NE(images.find("image"), std::string::npos) << images;
  EXPECT_NE(Output("pdftotext " + path + " -").find("The sample's main window"), std::string::npos);

  SetPrintDialogFunction(former);
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
