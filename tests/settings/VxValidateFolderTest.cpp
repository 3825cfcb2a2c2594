// VxValidateFolder asks through the framework road: a scripted handler
// answers each box and records what it said.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "platform/MessageBoxes.h"
#include "settings/VxValidateFolder.h"
#include "utl/Paths.h"

namespace {

class ValidateFolder : public testing::Test {
protected:
  struct Box {
    std::string text;
    UINT type;
  };

  void SetUp() override {
    mRoot = std::string(std::getenv("TMPDIR")) + "/validate";
    ASSERT_TRUE(VxCreateFolder(mRoot));
    mPrevious = SetFrameworkMessageBoxHandler([this](wxString const & text, UINT type, UINT) {
      mBoxes.push_back(Box{text.utf8_string(), type});
      return mAnswer;
    });
  }
  void TearDown() override { SetFrameworkMessageBoxHandler(mPrevious); }

  std::string mRoot;
  int mAnswer = IDYES;
  std::vector<Box> mBoxes;
  FrameworkMessageBoxHandler mPrevious;
};

TEST_F(ValidateFolder, AnExistingFolderPassesSilentlyAFileInTheWayIsAnError) {
  EXPECT_TRUE(VxValidateFolder(mRoot, nullptr));
  EXPECT_TRUE(mBoxes.empty());
  std::string const file = mRoot + "/file";
  std::ofstream(file) << "x";
  EXPECT_FALSE(VxValidateFolder(file, nullptr));
  ASSERT_EQ(mBoxes.size(), 1u);
  EXPECT_EQ(mBoxes[0].type, MB_ICONHAND);
  EXPECT_EQ(mBoxes[0].text, "A file with the same name as the specified folder already exists.\n" +
                                file + "\nPlease change the folder name to something else.");
}

TEST_F(ValidateFolder, AMissingFolderIsCreatedOnlyWhenTheUserAgrees) {
  std::string const wanted = mRoot + "/new/deeper";
  mAnswer = IDNO;
  EXPECT_FALSE(VxValidateFolder(wanted, nullptr));
  EXPECT_EQ(VxFileExist(wanted), VxNothing);
  mAnswer = IDYES;
  EXPECT_TRUE(VxValidateFolder(wanted, nullptr));
  EXPECT_EQ(VxFileExist(wanted), VxFolder);
  ASSERT_EQ(mBoxes.size(), 2u);
  for (Box const & box : mBoxes) {
    EXPECT_EQ(box.type, MB_YESNO | MB_ICONINFORMATION);
    EXPECT_EQ(box.text, "The specified folder '" + wanted +
                            "' does not exist, do you want to create it?");
  }
}

TEST_F(ValidateFolder, BlanksAroundTheLastNameAreRefusedAfterTheQuestion) {
  for (std::string const name : {" lead", "tab\t"}) {
    mBoxes.clear();
    std::string const wanted = mRoot + "/" + name;
    EXPECT_FALSE(VxValidateFolder(wanted, nullptr)) << name;
    EXPECT_EQ(VxFileExist(wanted), VxNothing) << name;
    ASSERT_EQ(mBoxes.size(), 2u) << name;
    EXPECT_EQ(mBoxes[1].type, MB_ICONHAND);
    EXPECT_EQ(mBoxes[1].text,
              "A folder name may not start or end with spaces, please change the folder name.");
  }
  EXPECT_TRUE(VxValidateFolder(mRoot + "/ inner blanks are fine/x", nullptr));
  // A folder that cannot be made (a file stands in its path) is reported.
  std::ofstream(mRoot + "/blocker") << "x";
  mBoxes.clear();
  EXPECT_FALSE(VxValidateFolder(mRoot + "/blocker/below", nullptr));
  ASSERT_EQ(mBoxes.size(), 2u);
  EXPECT_EQ(mBoxes[1].text, "The folder could not be created.");
}

}  // namespace
