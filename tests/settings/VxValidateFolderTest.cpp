// VxValidateFolder asks through the framework road: a scripted handler
// answers each box and records what it said.
#include <gtest/gtest.h>

#include "platform/MessageBoxes.h"
#include "settings/VxValidateFolder.h"
#include "utl/Paths.h"
#include "utl/TestFiles.h"

namespace {

using Boxes = std::vector<std::pair<UINT, std::string>>;  // type and text of each box

class ValidateFolder : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(VxCreateFolder(mRoot));
    mPrevious = SetFrameworkMessageBoxHandler([this](wxString const & text, UINT type, UINT) {
      mBoxes.emplace_back(type, text.utf8_string());
      return mAnswer;
    });
  }
  void TearDown() override { SetFrameworkMessageBoxHandler(mPrevious); }

  std::string const mRoot = Temp("validate");
  int mAnswer = IDYES;
  Boxes mBoxes;
  FrameworkMessageBoxHandler mPrevious;
};

TEST_F(ValidateFolder, AnExistingFolderPassesSilentlyAFileInTheWayIsAnError) {
  EXPECT_TRUE(VxValidateFolder(mRoot, nullptr));
  EXPECT_TRUE(mBoxes.empty());
  std::string const file = mRoot + "/file";
  Spit(file, "x");
  EXPECT_FALSE(VxValidateFolder(file, nullptr));
  EXPECT_EQ(
      mBoxes,
      (Boxes{{MB_ICONHAND, "A file with the same name as the specified folder already exists.\n" +
                               file + "\nPlease change the folder name to something else."}}));
}

TEST_F(ValidateFolder, AMissingFolderIsCreatedOnlyWhenTheUserAgrees) {
  std::string const wanted = mRoot + "/new/deeper";
  mAnswer = IDNO;
  EXPECT_FALSE(VxValidateFolder(wanted, nullptr));
  EXPECT_EQ(VxFileExist(wanted), VxNothing);
  mAnswer = IDYES;
  EXPECT_TRUE(VxValidateFolder(wanted, nullptr));
  EXPECT_EQ(VxFileExist(wanted), VxFolder);
  std::pair<UINT, std::string> const question{
      MB_YESNO | MB_ICONINFORMATION,
      "The specified folder '" + wanted + "' does not exist, do you want to create it?"};
  EXPECT_EQ(mBoxes, (Boxes{question, question}));
}

TEST_F(ValidateFolder, BlanksAroundTheLastNameAreRefusedAfterTheQuestion) {
  for (std::string const name : {" lead", "tab\t"}) {
    mBoxes.clear();
    std::string const wanted = mRoot + "/" + name;
    EXPECT_FALSE(VxValidateFolder(wanted, nullptr)) << name;
    EXPECT_EQ(VxFileExist(wanted), VxNothing) << name;
    ASSERT_EQ(mBoxes.size(), 2u) << name;
    EXPECT_EQ(mBoxes[1], (std::pair<UINT, std::string>{
                             MB_ICONHAND,
                             "A folder name may not start or end with spaces, please "
                             "change the folder name."}));
  }
  EXPECT_TRUE(VxValidateFolder(mRoot + "/ inner blanks are fine/x", nullptr));
  // A folder that cannot be made (a file stands in its path) is reported.
  Spit(mRoot + "/blocker", "x");
  mBoxes.clear();
  EXPECT_FALSE(VxValidateFolder(mRoot + "/blocker/below", nullptr));
  ASSERT_EQ(mBoxes.size(), 2u);
  EXPECT_EQ(mBoxes[1].second, "The folder could not be created.");
}

}  // namespace
