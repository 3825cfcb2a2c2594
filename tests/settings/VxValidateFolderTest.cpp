// VxValidateFolder asks and explains in plain message boxes on the window it
// is given: the boxes are answered by a modal hook that records what each
// one showed and on which parent, with the framework road and the mute
// switch of information boxes set against it.
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <deque>
#include <string>
#include <vector>

#include "harness/GuiTestUtilities.h"
#include "platform/MessageBoxes.h"
#include "platform/RunningApplication.h"
#include "settings/VxValidateFolder.h"
#include "utl/Paths.h"
#include "utl/TestFiles.h"

namespace {

struct Box {
  wxWindow * parent;
  std::string caption;
  std::string text;
  bool operator==(Box const & o) const {
    return parent == o.parent && caption == o.caption && text == o.text;
  }
};

void PrintTo(Box const & box, std::ostream * out) {
  *out << "{" << box.parent << ", \"" << box.caption << "\", \"" << box.text << "\"}";
}

// Answers each box with the next scripted answer (wxID_OK when none is left).
class BoxRecorder : public wxModalDialogHook {
public:
  BoxRecorder() { Register(); }
  ~BoxRecorder() override { Unregister(); }

  std::deque<int> answers;
  std::vector<Box> boxes;

protected:
  int Enter(wxDialog * dialog) override {
    auto * box = dynamic_cast<wxMessageDialogBase *>(dialog);
    boxes.push_back(Box{dialog->GetParent(), dialog->GetTitle().utf8_string(),
                        box != nullptr ? box->GetMessage().utf8_string() : "(not a message box)"});
    if (answers.empty()) return wxID_OK;
    int const answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void Exit(wxDialog *) override {}
};

class ValidateFolder : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(VxCreateFolder(mRoot));
    // A box takes only a window on screen as its parent.
    ASSERT_TRUE(gui_test::ShowAndWait(*mParent));
    // Neither the framework road nor the mute switch may take these boxes.
    mFormerHandler = SetFrameworkMessageBoxHandler([](wxString const & text, UINT, UINT) {
      ADD_FAILURE() << "framework box: " << text.utf8_string();
      return IDCANCEL;
    });
    mFormerApp = SetRunningApplication({nullptr, [] { return true; }, nullptr});
  }
  void TearDown() override {
    SetRunningApplication(mFormerApp);
    SetFrameworkMessageBoxHandler(mFormerHandler);
    mParent->Destroy();
  }

  Box Expected(std::string const & caption, std::string const & text) const {
    return Box{mParent, caption, text};
  }

  std::string const mRoot = Temp("validate");
  wxFrame * mParent = new wxFrame(nullptr, wxID_ANY, "Owner");
  BoxRecorder mRecorder;
  FrameworkMessageBoxHandler mFormerHandler;
  RunningApplicationHooks mFormerApp;
};

TEST_F(ValidateFolder, AnExistingFolderPassesSilentlyAFileInTheWayIsShownEvenMuted) {
  EXPECT_TRUE(VxValidateFolder(mRoot, mParent));
  EXPECT_TRUE(mRecorder.boxes.empty());
  std::string const file = mRoot + "/file";
  Spit(file, "x");
  EXPECT_FALSE(VxValidateFolder(file, mParent));
  EXPECT_EQ(mRecorder.boxes,
            (std::vector<Box>{Expected("Select Folder",
                                       "A file with the same name as the specified folder already "
                                       "exists.\n" +
                                           file +
                                           "\nPlease change the folder name to something else.")}));
}

TEST_F(ValidateFolder, AMissingFolderIsCreatedOnlyWhenTheUserAgrees) {
  std::string const wanted = mRoot + "/new/deeper";
  mRecorder.answers = {wxID_NO, wxID_YES};
  EXPECT_FALSE(VxValidateFolder(wanted, mParent));
  EXPECT_EQ(VxFileExist(wanted), VxNothing);
  EXPECT_TRUE(VxValidateFolder(wanted, mParent));
  EXPECT_EQ(VxFileExist(wanted), VxFolder);
  Box const question = Expected("Select Folder", "The specified folder '" + wanted +
                                                     "' does not exist, do you want to create it?");
  EXPECT_EQ(mRecorder.boxes, (std::vector<Box>{question, question}));
}

TEST_F(ValidateFolder, BlanksAroundTheLastNameAndFailedCreationAreExplained) {
  struct Case {
    std::string name;
    bool blocked;  // a file stands in the path, so the folder cannot be made
    Box refusal;
  } const cases[] = {
      {"/ lead", false,
       Expected("Select Folder",
                "A folder name may not start or end with spaces, please change the folder name.")},
      {"/tab\t", false,
       Expected("Select Folder",
                "A folder name may not start or end with spaces, please change the folder name.")},
      {"/blocker/below", true, Expected("Create Folder", "The folder could not be created.")},
  };
  Spit(mRoot + "/blocker", "x");
  for (Case const & c : cases) {
    mRecorder.boxes.clear();
    mRecorder.answers = {wxID_YES};
    std::string const wanted = mRoot + c.name;
    EXPECT_FALSE(VxValidateFolder(wanted, mParent)) << c.name;
    EXPECT_EQ(VxFileExist(wanted), VxNothing) << c.name;
    ASSERT_EQ(mRecorder.boxes.size(), 2u) << c.name;
    EXPECT_EQ(mRecorder.boxes[1], c.refusal) << c.name;
  }
  mRecorder.answers = {wxID_YES};
  EXPECT_TRUE(VxValidateFolder(mRoot + "/ inner blanks are fine/x", mParent));
}

}  // namespace
