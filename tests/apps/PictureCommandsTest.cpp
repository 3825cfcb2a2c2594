// The sample's picture commands through the menu, with the chooser answered
// by the test: the window saved as BMP, PNG and JPEG (read back by wx's own
// readers), each opened again in a picture window, a PNG with its file
// facts, and a damaged file refused with a message.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include <wx/frame.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "../../apps/sample/PictureCommands.h"
#include "dialogs/NativeChoosers.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "utl/Paths.h"

namespace {

class PictureCommandsTest : public testing::Test {
protected:
  void SetUp() override {
    wxInitAllImageHandlers();
    frame = new wxFrame(nullptr, wxID_ANY, "Sample", wxPoint(20, 20), wxSize(240, 160));
    frame->CreateStatusBar();
    auto * sizer = new wxBoxSizer(wxHORIZONTAL);
    for (wxColour const & colour : {wxColour(220, 40, 40), wxColour(40, 40, 220)}) {
      auto * panel = new wxPanel(frame);
      panel->SetBackgroundColour(colour);
      sizer->Add(panel, 1, wxEXPAND);
    }
    frame->SetSizer(sizer);
    auto * file = new wxMenu;
    auto * tools = new wxMenu;
    AddOpenPictureCommand(*file, *frame);
    AddSaveWindowPictureCommand(*tools, *frame);
    auto * bar = new wxMenuBar;
    bar->Append(file, "&File");
    bar->Append(tools, "&Tools");
    frame->SetMenuBar(bar);
    mFormer = SetFileChooserFunction([this](FileChooserRequest const &) { return answer; });
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    folder = VxPathAppend(std::getenv("TMPDIR"), "pictures");
    VxCreateFolder(folder);
  }
  void TearDown() override {
    SetFileChooserFunction(mFormer);
    frame->Destroy();
    gui_test::Flush();
  }

  void Run(char const * label, std::string const & path) {
    answer.accepted = true;
    answer.paths = {wxString::FromUTF8(path)};
    int const id = frame->GetMenuBar()->FindMenuItem(label[0] == 'O' ? "File" : "Tools", label);
    ASSERT_NE(id, wxNOT_FOUND) << label;
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
  }

  wxFrame * frame = nullptr;
  FileChooserAnswer answer;
  std::string folder;

private:
  FileChooserFunction mFormer;
};

constexpr char const * kSave = "Save window as picture (BMP, PNG or JPEG)...";
constexpr char const * kOpen = "Open picture...";

TEST_F(PictureCommandsTest, SavesTheWindowAsItsNameAsksAndOpensItAgain) {
  struct Case {
    char const * name;
    wxBitmapType type;
    int tolerance;  // JPEG is lossy
    char const * facts;
  } const cases[] = {
      {"window.png", wxBITMAP_TYPE_PNG, 0, "PNG: RGB, 8 bits per sample, 24 bits per pixel"},
      {"window.bmp", wxBITMAP_TYPE_BMP, 0, nullptr},
      {"window.jpg", wxBITMAP_TYPE_JPEG, 12, nullptr},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    std::string const path = folder + "/" + test.name;
    Run(kSave, path);
    EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "Saved " + wxString::FromUTF8(path));
    wxImage const saved(wxString::FromUTF8(path), test.type);
    ASSERT_TRUE(saved.IsOk());
    EXPECT_GE(saved.GetWidth(), frame->GetClientSize().x);
    EXPECT_GE(saved.GetHeight(), frame->GetClientSize().y);
    int const y = saved.GetHeight() - 40;  // above the status bar, in the panels
    EXPECT_NEAR(saved.GetRed(20, y), 220, test.tolerance);
    EXPECT_NEAR(saved.GetBlue(20, y), 40, test.tolerance);
    EXPECT_NEAR(saved.GetRed(saved.GetWidth() - 20, y), 40, test.tolerance);
    EXPECT_NEAR(saved.GetBlue(saved.GetWidth() - 20, y), 220, test.tolerance);

    Run(kOpen, path);
    auto * shown = dynamic_cast<wxFrame *>(wxWindow::FindWindowByName(kPictureWindowName));
    ASSERT_NE(shown, nullptr);
    auto * facts = dynamic_cast<wxStaticText *>(shown->FindWindow(kPictureFactsName));
    ASSERT_NE(facts, nullptr);
    wxString const text = facts->GetLabel();
    EXPECT_NE(text.Find(wxString::Format("%d x %d pixels", saved.GetWidth(), saved.GetHeight())),
              wxNOT_FOUND)
        << text;
    if (test.facts != nullptr) {
      EXPECT_NE(text.Find(test.facts), wxNOT_FOUND) << text;
      EXPECT_NE(text.Find("Gamma: 0.45455"), wxNOT_FOUND) << text;
    }
    gui_test::Snapshot(*shown, test.name);
    shown->Destroy();
    gui_test::Flush();
  }
}

TEST_F(PictureCommandsTest, ADamagedPictureIsRefusedWithAMessage) {
  for (char const * name : {"damaged.png", "damaged.bmp", "damaged.jpg"}) {
    SCOPED_TRACE(name);
    std::string const path = folder + "/" + name;
    std::ofstream(path, std::ios::binary) << "BM no picture in here";
    ModalDialogScript script;
    script.Answer(wxID_OK);
    Run(kOpen, path);
    ASSERT_EQ(script.Shown().size(), 1u);
    EXPECT_NE(script.Shown()[0].message.Find("could not be opened"), wxNOT_FOUND);
    EXPECT_EQ(wxWindow::FindWindowByName(kPictureWindowName), nullptr);
  }
  ModalDialogScript script;
  script.Answer(wxID_OK);
  Run(kSave, folder + "/no such folder/window.png");
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_NE(script.Shown()[0].message.Find("no such folder"), wxNOT_FOUND);
}

}  // namespace
