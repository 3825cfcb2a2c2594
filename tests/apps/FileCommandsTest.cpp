// The sample's file commands through the menu, with the choosers answered
// by the test: Save As writes the run list, a failed save says why and
// leaves the old file, Open names what it opened, Search Folders keeps its
// list in the profile.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/listctrl.h>
#include <wx/menu.h>

#include "../../apps/sample/FileCommands.h"
#include "dialogs/FolderCollectionDialog.h"
#include "dialogs/NativeChoosers.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "utl/Paths.h"

namespace {

std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

class FileCommandsTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Sample");
    frame->CreateStatusBar();
    menu = new wxMenu;
    AddFileCommands(*frame, *menu, [] { return std::vector<std::string>{"Run 1", "Run 2"}; });
    auto * bar = new wxMenuBar;
    bar->Append(menu, "&File");
    frame->SetMenuBar(bar);
    mFormer = SetFileChooserFunction([this](FileChooserRequest const & request) {
      requests.push_back(request);
      return answer;
    });
  }
  void TearDown() override {
    SetFileChooserFunction(mFormer);
    frame->Destroy();
    gui_test::Flush();
  }

  void Run(char const * label) {
    int const id = menu->FindItem(label);
    ASSERT_NE(id, wxNOT_FOUND) << label;
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
  }

  wxFrame * frame = nullptr;
  wxMenu * menu = nullptr;
  FileChooserAnswer answer;
  std::vector<FileChooserRequest> requests;

private:
  FileChooserFunction mFormer;
};

TEST_F(FileCommandsTest, SaveAsWritesTheRunsAndAFailedSaveSaysWhy) {
  std::string const folder = VxPathAppend(std::getenv("TMPDIR"), "exports");
  VxCreateFolder(folder);
  answer.accepted = true;
  answer.paths = {wxString::FromUTF8(folder + "/runs")};
  Run("Save As...");
  EXPECT_EQ(Slurp(folder + "/runs.csv"), "run\nRun 1\nRun 2\n");  // the extension added
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_FALSE(requests[0].open);
  EXPECT_TRUE(requests[0].overwritePrompt);

  answer.paths = {wxString::FromUTF8(folder + "/no such folder/runs.csv")};
  ModalDialogScript script;
  script.Answer(wxID_OK);
  Run("Save As...");
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_NE(script.Shown()[0].message.Find("no such folder"), wxNOT_FOUND);
  EXPECT_EQ(VxFileExist(folder + "/no such folder"), VxNothing);  // nothing made for it
}

TEST_F(FileCommandsTest, OpenTakesAnyNumberOfFilesAndStartsWhereTheLastImportWas) {
  std::string const folder = VxPathAppend(std::getenv("TMPDIR"), "imports");
  VxCreateFolder(folder);
  answer.accepted = true;
  for (int i = 0; i < 500; ++i)
    answer.paths.push_back(
        wxString::FromUTF8(folder + "/measurement " + std::to_string(i) + ".dat"));
  Run("Open...");
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(),
            wxString::FromUTF8("Opened 500 file(s) from " + folder));
  Run("Open...");
  ASSERT_EQ(requests.size(), 2u);
  EXPECT_TRUE(requests[0].multiple);
  EXPECT_EQ(requests[1].initialFolder.utf8_string(), folder + "/");
}

TEST_F(FileCommandsTest, SearchFoldersKeepsTheEditedListInTheProfile) {
  std::string const folder = VxPathAppend(std::getenv("TMPDIR"), "search");
  VxCreateFolder(folder);
  AppProfile::WriteProfileString("Sample", "SearchFolders", "");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto * list = dynamic_cast<wxListCtrl *>(d.FindWindow(FolderCollectionDialog::kListId));
    list->SetItemText(0, wxString::FromUTF8(folder));
    wxCommandEvent ok(wxEVT_BUTTON, 1);  // IDOK
    ok.SetEventObject(d.FindWindow(1));
    d.FindWindow(1)->ProcessWindowEvent(ok);
  });
  Run("Search Folders...");
  EXPECT_EQ(AppProfile::GetProfileString("Sample", "SearchFolders", ""), folder + ";");
}

}  // namespace
