// VxFileDialog with the chooser answered by the test: the folder each kind
// of work starts in and its fallbacks, what OK stores and Cancel does not,
// multiple selections and the names buffer, and what the chooser is asked.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <wx/strconv.h>

#include "dialogs/FileSystemNames.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/VxFileDialog.h"
#include "frame/AppProfile.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/TestFiles.h"

namespace {

std::string Stored(char const * key) {
  return AppProfile::GetProfileString(VxFileDialog::kSection, key, "");
}

// Answers every chooser with `answer` and keeps the requests.
struct FakeChooser {
  explicit FakeChooser(FileChooserAnswer answer) {
    former = SetFileChooserFunction(
        [this, answer = std::move(answer)](FileChooserRequest const & request) {
          requests.push_back(request);
          return answer;
        });
  }
  ~FakeChooser() { SetFileChooserFunction(former); }
  std::vector<FileChooserRequest> requests;
  FileChooserFunction former;
};

FileChooserAnswer Chose(std::vector<std::string> const & paths) {
  FileChooserAnswer answer;
  answer.accepted = true;
  for (std::string const & path : paths) answer.paths.push_back(wxString::FromUTF8(path));
  return answer;
}

class VxFileDialogTest : public testing::Test {
protected:
  void SetUp() override {
    AppProfile::WriteProfileString(VxFileDialog::kSection, nullptr, nullptr);
    VxCreateFolder(mProjects);
    VxCreateFolder(mApp);
    VxCreateFolder(mDocuments);
    // The XDG documents folder, as xdg-user-dirs writes it.
    Spit(VxPathAppend(std::getenv("XDG_CONFIG_HOME"), "user-dirs.dirs"),
         "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  }

  std::string const mProjects = Temp("projects");
  std::string const mApp = Temp("app-default");
  std::string const mDocuments = VxPathAppend(std::getenv("HOME"), "Dokumente");
};

TEST_F(VxFileDialogTest, AKindStartsInItsFolderElseTheApplicationsElseTheDocuments) {
  std::string const deleted = Temp("deleted");
  VxCreateFolder(deleted);
  std::string const file = Temp("a-file");
  Spit(file, "x");
  // The kind's folder stored, the application's, the folder expected.
  struct Case {
    char const * name;
    std::string stored, appDefault, expected;
  };
  Case const cases[] = {
      {"stored", mProjects, mApp, mProjects + "/"},
      {"stored with separator", mProjects + "/", "", mProjects + "/"},
      {"deleted", deleted, mApp, mApp + "/"},
      {"a file now", file, mApp, mApp + "/"},
      {"none", "", mApp, mApp + "/"},
      {"neither", "", "", mDocuments + "/"},
      {"deleted, no app default", deleted, "", mDocuments + "/"},
  };
  std::remove(deleted.c_str());
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    AppProfile::WriteProfileString("Settings", "VxDefaultExportDir", c.stored.c_str());
    VxFileDialog::SetAppDefaultFolder(wxString::FromUTF8(c.appDefault).wc_str());
    EXPECT_EQ(VxFileDialog::GetDefaultFolder(VxFileDialog::eExportDir).utf8_string(), c.expected);
  }
}

TEST_F(VxFileDialogTest, EachKindHasItsKeyAndAnUnknownKindIsTheProjectKind) {
  struct Case {
    int kind;
    char const * key;
  };
  Case const cases[] = {{0, "VxDefaultProjectDir"}, {1, "VxDefaultWorkspaceDir"},
                        {2, "VxDefaultExportDir"},  {3, "VxDefaultImportDir"},
                        {7, "VxDefaultProjectDir"}, {-1, "VxDefaultProjectDir"}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.kind);
    AppProfile::WriteProfileString(VxFileDialog::kSection, nullptr, nullptr);
    auto const kind = static_cast<VxFileDialog::EDirectory>(c.kind);
    VxFileDialog::SetDefaultFolder(kind, wxString::FromUTF8(mProjects).wc_str());
    EXPECT_EQ(Stored(c.key), mProjects);
    EXPECT_EQ(VxFileDialog::GetDefaultFolder(kind).utf8_string(), mProjects + "/");
  }
}

TEST_F(VxFileDialogTest, OkStoresTheFolderOfTheChoiceForItsKindAndCancelStoresNothing) {
  VxFileDialog::SetDefaultFolder(VxFileDialog::eImportDir, wxString::FromUTF8(mApp).wc_str());
  {
    FakeChooser chooser(Chose({mProjects + "/run 1.dat"}));
    VxFileDialog dialog(VxFileDialog::eImportDir, 1, nullptr, nullptr, OFN_FILEMUSTEXIST,
                        L"Data (*.dat)|*.dat|All files (*.*)|*.*||");
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName().utf8_string(), mProjects + "/run 1.dat");
    EXPECT_EQ(dialog.GetFileTitle(), "run 1");
    EXPECT_EQ(dialog.GetFileExt(), "dat");
    EXPECT_EQ(Stored("VxDefaultImportDir"), mProjects);
    EXPECT_EQ(Stored("VxDefaultProjectDir"), "");  // only the dialog's kind

    ASSERT_EQ(chooser.requests.size(), 1u);
    FileChooserRequest const & asked = chooser.requests[0];
    EXPECT_TRUE(asked.open);
    EXPECT_EQ(asked.initialFolder.utf8_string(), mApp + "/");
    EXPECT_EQ(asked.wildcard, "Data (*.dat)|*.dat|All files (*.*)|*");
    EXPECT_TRUE(asked.fileMustExist);
    EXPECT_FALSE(asked.multiple);
    EXPECT_NE(dialog.m_ofn.Flags & OFN_ENABLESIZING, 0u);
  }
  FileChooserAnswer cancelled;
  FakeChooser chooser(cancelled);
  VxFileDialog dialog(VxFileDialog::eImportDir, 1);
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(Stored("VxDefaultImportDir"), mProjects);
  EXPECT_EQ(dialog.GetStartPosition(), nullptr);
}

TEST_F(VxFileDialogTest, AMultipleSelectionIsWalkedInOrderAndItsFolderStored) {
  std::vector<std::string> const chosen = {mApp + "/b.dat", mApp + "/a.dat", mApp + "/c.dat"};
  FakeChooser chooser(Chose(chosen));
  VxFileDialog dialog(VxFileDialog::eWorkspaceDir, 1, nullptr, nullptr,
                      OFN_ALLOWMULTISELECT | OFN_EXPLORER);
  ASSERT_EQ(dialog.DoModal(), IDOK);
  EXPECT_TRUE(chooser.requests.at(0).multiple);

  std::vector<wxString> names = {"kept"};
  dialog.GetFileNames(names);
  ASSERT_EQ(names.size(), 4u);
  EXPECT_EQ(names[0], "kept");  // appended to
  for (size_t i = 0; i < chosen.size(); ++i) EXPECT_EQ(names[i + 1].utf8_string(), chosen[i]);

  POSITION position = dialog.GetStartPosition();
  for (std::string const & path : chosen)
    EXPECT_EQ(dialog.GetNextPathName(position).utf8_string(), path);
  EXPECT_EQ(position, nullptr);
  EXPECT_EQ(dialog.GetNextPathName(position), "");  // past the end stays there
  EXPECT_EQ(Stored("VxDefaultWorkspaceDir"), mApp);
}

TEST_F(VxFileDialogTest, ASelectionTooLongForTheBufferIsOkOnlyWithTheDialogsOwnBuffer) {
  std::vector<std::string> chosen;
  chosen.reserve(300);
  for (int i = 0; i < 300; ++i)
    chosen.push_back(mApp + "/measurement-" + std::to_string(i) + ".dat");
  // error: the base's, which the own buffer takes as OK.
  struct Case {
    char const * name;
    unsigned long size;
    int64_t result;
    bool stored;
    DWORD error;
  };
  Case const cases[] = {
      {"default buffer", 0, IDCANCEL, false, FNERR_BUFFERTOOSMALL},  // over 4096 characters
      {"own small buffer", 100, IDOK, true, FNERR_BUFFERTOOSMALL},
      {"own large buffer", 100000, IDOK, true, CDERR_GENERALCODES},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    AppProfile::WriteProfileString(VxFileDialog::kSection, nullptr, nullptr);
    FakeChooser chooser(Chose(chosen));
    VxFileDialog dialog(VxFileDialog::eProjectDir, 1, nullptr, nullptr, OFN_ALLOWMULTISELECT,
                        nullptr, nullptr, c.size);
    EXPECT_EQ(dialog.DoModal(), c.result);
    EXPECT_EQ(CommDlgExtendedError(), c.error);
    EXPECT_EQ(Stored("VxDefaultProjectDir").empty(), !c.stored);
    std::vector<wxString> names;
    dialog.GetFileNames(names);
    EXPECT_EQ(names.size(), chosen.size());  // nothing is cut off
  }
  FakeChooser chooser(Chose({mApp + "/one.dat"}));
  VxFileDialog single(VxFileDialog::eProjectDir, 1);
  EXPECT_EQ(single.DoModal(), IDOK);
  EXPECT_EQ(CommDlgExtendedError(), CDERR_GENERALCODES);
}

TEST_F(VxFileDialogTest, ASaveDialogAddsItsExtensionAndLabelsItsButton) {
  struct Case {
    char const *chosen, *saved;
  };
  Case const cases[] = {
      {"report", "report.csv"},
      {"report.txt", "report.txt"},
      {"archive.2024/report", "archive.2024/report.csv"},  // a point in a folder is no extension
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.chosen);
    FakeChooser chooser(Chose({mApp + "/" + c.chosen}));
    VxFileDialog dialog(VxFileDialog::eExportDir, 0, L"csv", L"report", OFN_OVERWRITEPROMPT,
                        L"Tables (*.csv)|*.csv||");
    dialog.SetButtonText(IDOK, L"&Export");
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName().utf8_string(), mApp + "/" + c.saved);
    FileChooserRequest const & asked = chooser.requests.at(0);
    EXPECT_FALSE(asked.open);
    EXPECT_TRUE(asked.overwritePrompt);
    EXPECT_EQ(asked.fileName, "report");
    EXPECT_EQ(asked.acceptLabel, "&Export");
  }
}

TEST_F(VxFileDialogTest, AFolderWhoseNameIsNoUtf8IsStoredAndFoundAgain) {
  // File names as a GTK application of wx reads them (no display here):
  // UTF-8, with bytes that are none kept as private-use characters.
  struct GtkFileNames {
    wxMBConvUTF8 conversion{wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA};
    wxMBConv * former = std::exchange(wxConvFileName, &conversion);
    ~GtkFileNames() { wxConvFileName = former; }
  } gtkFileNames;
  std::string const odd = Temp("odd\xFF\xFEname");
  VxCreateFolder(odd);
  FileChooserAnswer answer;
  answer.accepted = true;
  answer.paths = {FromFileSystemPath(odd + "/data.dat")};
  FakeChooser chooser(answer);
  VxFileDialog dialog(VxFileDialog::eImportDir, 1);
  ASSERT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(ToFileSystemPath(dialog.GetFolderPath()), odd);
  EXPECT_EQ(ToFileSystemPath(VxFileDialog::GetDefaultFolder(VxFileDialog::eImportDir)), odd + "/");
}

}  // namespace
