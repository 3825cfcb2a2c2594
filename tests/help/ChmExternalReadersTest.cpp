// Help files written by talvo-chm are read by other readers: their listing
// names every file, their extraction gives the bytes this library serves,
// and their reading of the help map is ours.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "ChmTestFiles.h"
#include "help/ChmAddress.h"
#include "help/ChmArchive.h"
#include "help/ChmScheme.h"

namespace fs = std::filesystem;

namespace {

std::string Output(std::string const & command) {
  std::string output;
  FILE * pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return output;
  char buffer[4096];
  std::size_t n = 0;
  while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  ::pclose(pipe);
  return output;
}

bool Have(char const * tool) { return Output(std::string("command -v ") + tool).find('/') == 0; }

class ExternalReaders : public testing::Test {
protected:
  void SetUp() override {
    folder = fs::path(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") / "ext";
    fs::remove_all(folder);
    fs::create_directories(folder / "site" / "img");
    chmtest::WriteFile((folder / "site" / "index.htm").string(), "<html>index</html>");
    chmtest::WriteFile((folder / "site" / "img" / "p.png").string(), std::string(5000, '\x89'));
    std::string many;
    for (int i = 0; i < 400; ++i) {
      chmtest::WriteFile(
          (folder / "site" / ("page-with-a-long-name-" + std::to_string(i) + ".htm")).string(),
          "page " + std::to_string(i));
    }
    chmtest::WriteFile((folder / "project.ini").string(),
                       "[options]\ntitle=External\ndefault=index.htm\n[map]\n"
                       "100=index.htm\n200=img/p.png\n");
    chm = (folder / "help.chm").string();
    std::string const command = std::string(TALVO_CHM_TOOL) + " '" +
                                (folder / "project.ini").string() + "' '" +
                                (folder / "site").string() + "' '" + chm + "'";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
  }
  fs::path folder;
  std::string chm;
};

TEST_F(ExternalReaders, ListAndExtractWhatIsServed) {
  if (!Have("enum_chmLib") || !Have("extract_chmLib")) GTEST_SKIP() << "libchm-bin is missing";
  std::string const listing = Output("enum_chmLib '" + chm + "'");
  for (char const * name : {"/index.htm", "/img/p.png", "/page-with-a-long-name-399.htm", "/#IVB",
                            "/#STRINGS", "/#SYSTEM"})
    EXPECT_NE(listing.find(name), std::string::npos) << name << "\n" << listing;

  Output("extract_chmLib '" + chm + "' '" + (folder / "out").string() + "'");
  ChmScheme::Instance().Register(chm);
  int compared = 0;
  for (auto const & entry : fs::recursive_directory_iterator(folder / "site")) {
    if (!entry.is_regular_file()) continue;
    std::string const inner = "/" + fs::relative(entry.path(), folder / "site").generic_string();
    std::string bytes;
    std::string mime;
    std::string error;
    ASSERT_TRUE(ChmScheme::Instance().Serve(MakeChmAddress(chm, inner), bytes, mime, error))
        << inner;
    EXPECT_EQ(bytes, chmtest::ReadFile((folder / "out").string() + inner)) << inner;
    ++compared;
  }
  ChmScheme::Instance().Unregister(chm);
  EXPECT_EQ(compared, 402);
}

TEST_F(ExternalReaders, AnArchiverListsEveryFile) {
  if (!Have("7zz")) GTEST_SKIP() << "7zip is missing";
  std::string const listing = Output("7zz l '" + chm + "'");
  EXPECT_NE(listing.find("405 files"), std::string::npos)
      << listing.substr(listing.size() > 400 ? listing.size() - 400 : 0);
  EXPECT_NE(listing.find("img/p.png"), std::string::npos);
}

TEST_F(ExternalReaders, TheHelpMapReadsTheSameElsewhere) {
  if (!Have("chmls")) GTEST_SKIP() << "fp-utils is missing";
  Output("cd '" + folder.string() + "' && chmls extractalias help.chm");
  std::string const aliases = chmtest::ReadFile((folder / "help.ali").string());
  EXPECT_NE(aliases.find("helpid100=index.htm"), std::string::npos) << aliases;
  EXPECT_NE(aliases.find("helpid200=img/p.png"), std::string::npos) << aliases;
}

}  // namespace
