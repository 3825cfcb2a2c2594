// From a help number or a file name to a page: the help map with every
// code it returns, and the places a help file is looked for.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "ChmTestFiles.h"
#include "help/ChmAddress.h"
#include "help/ChmFileSearch.h"
#include "help/ChmHelpMap.h"
#include "platform/WinReg.h"
#include "platform/WinUser.h"
#include "utl/Utf.h"

namespace fs = std::filesystem;

namespace {

std::string Scratch(std::string const & name) {
  fs::path const folder =
      fs::path(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") / name;
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder.string();
}

// A help file whose "#IVB" and "#STRINGS" are exactly `ivb` and `strings`
// (either left out when null).
std::string WithStreams(std::string const & path, char const * ivb, std::size_t ivbSize,
                        char const * strings, std::size_t stringsSize) {
  std::vector<chmwriter::ChmFile> files = {{"/a.htm", "A"}};
  if (ivb != nullptr) files.push_back({"/#IVB", std::string(ivb, ivbSize)});
  if (strings != nullptr) files.push_back({"/#STRINGS", std::string(strings, stringsSize)});
  chmtest::WriteFile(path, chmwriter::BuildChm(files));
  return path;
}

TEST(ChmHelpMap, EveryCodeOfALookup) {
  std::string const folder = Scratch("codes");
  char const onePair[] = "\x08\0\0\0\x05\0\0\0\x01\0\0\0";
  char const strings[] = "\0a.htm\0";
  struct Case {
    char const * what;
    std::string path;
    std::uint32_t helpId;
    HRESULT code;
  };
  chmtest::WriteFile(folder + "/junk.chm", "not a help file");
  Case const cases[] = {
      {"no file", "", 5, STG_E_PATHNOTFOUND},
      {"missing file", folder + "/none.chm", 5, STG_E_PATHNOTFOUND},
      {"not a help file", folder + "/junk.chm", 5, STG_E_PATHNOTFOUND},
      {"no map", WithStreams(folder + "/nomap.chm", nullptr, 0, strings, 7), 5, STG_E_FILENOTFOUND},
      {"map without its size", WithStreams(folder + "/short.chm", "\x08\0", 2, strings, 7), 5,
       STG_E_READFAULT},
      {"size past the map",
       WithStreams(folder + "/past.chm", "\x10\0\0\0\x05\0\0\0", 8, strings, 7), 5,
       STG_E_READFAULT},
      {"empty map", WithStreams(folder + "/empty.chm", "\0\0\0\0", 4, strings, 7), 5, E_FAIL},
      {"number not in the map", WithStreams(folder + "/one.chm", onePair, 12, strings, 7), 6,
       E_FAIL},
      {"found", folder + "/one.chm", 5, S_OK},
  };
  for (auto const & c : cases) {
    ChmHelpMap map;
    std::string address;
    EXPECT_EQ(map.Resolve(c.path, c.helpId, address), c.code) << c.what;
    if (c.code == S_OK) EXPECT_EQ(address, MakeChmAddress(c.path, "/a.htm"));
  }
}

TEST(ChmHelpMap, TopicNamesThatCannotBeReadLeaveTheTopicOut) {
  std::string const folder = Scratch("topics");
  // Numbers 1..5: a name across several 64-byte chunks, an offset past the
  // names, a name without its zero byte, a name in Windows-1252, a name
  // longer than the room of an address.
  std::string const longName = std::string(150, 'n') + ".htm";
  std::string strings = std::string(1, '\0') + longName + '\0';
  std::uint32_t const latin = static_cast<std::uint32_t>(strings.size());
  strings += std::string("caf\xE9.htm") + '\0';
  std::uint32_t const huge = static_cast<std::uint32_t>(strings.size());
  strings += std::string(ChmHelpMap::kAddressRoom, 'h') + '\0';
  std::uint32_t const unterminated = static_cast<std::uint32_t>(strings.size());
  strings += "cut.htm";
  std::string ivb;
  auto const put = [&ivb](std::uint32_t v) {
    for (int i = 0; i < 4; ++i) ivb.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
  };
  put(40);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> const pairs = {
      {1, 1}, {2, 100000}, {3, unterminated}, {4, latin}, {5, huge}};
  for (auto const & pair : pairs) {
    put(pair.first);
    put(pair.second);
  }
  std::string const path =
      WithStreams(folder + "/t.chm", ivb.data(), ivb.size(), strings.data(), strings.size());
  ChmHelpMap map;
  std::string address;
  ASSERT_EQ(map.Resolve(path, 1, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(path, "/" + longName));
  ASSERT_EQ(map.Resolve(path, 2, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(path, "/"));
  ASSERT_EQ(map.Resolve(path, 3, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(path, "/"));
  ASSERT_EQ(map.Resolve(path, 4, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(path, "/caf\xC3\xA9.htm"));
  ASSERT_EQ(map.Resolve(path, 5, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(path, "/"));
}

TEST(ChmHelpMap, ANumberGivenTwiceTakesItsFirstPairOnEveryLookup) {
  std::string const folder = Scratch("twice");
  char const pairs[] = "\x18\0\0\0\x09\0\0\0\x01\0\0\0\x05\0\0\0\x07\0\0\0\x05\0\0\0\x01\0\0\0";
  char const strings[] = "\0a.htm\0b.htm\0";
  std::string const path = WithStreams(folder + "/t.chm", pairs, 28, strings, 13);
  ChmHelpMap map;
  // The first lookup searches in place, later ones through the index.
  for (int lookup = 0; lookup < 3; ++lookup) {
    std::string address;
    ASSERT_EQ(map.Resolve(path, 5, address), S_OK);
    EXPECT_EQ(address, MakeChmAddress(path, "/b.htm")) << lookup;
    ASSERT_EQ(map.Resolve(path, 9, address), S_OK);
    EXPECT_EQ(address, MakeChmAddress(path, "/a.htm")) << lookup;
    EXPECT_EQ(map.Resolve(path, 6, address), E_FAIL);
  }
}

TEST(ChmHelpMap, TheMapIsReadOnceAndOutlivesAChangeOfFile) {
  std::string const folder = Scratch("kept");
  chmtest::WriteFile(folder + "/first.chm", chmtest::SmallHelp());
  chmwriter::ChmProject other;
  other.aliases = {{1001, "/other.htm"}};
  auto files = chmwriter::SystemStreams(other);
  files.push_back({"/other.htm", "other"});
  chmtest::WriteFile(folder + "/second.chm", chmwriter::BuildChm(files));

  ChmHelpMap map;
  std::string address;
  ASSERT_EQ(map.Resolve(folder + "/first.chm", 1002, address), S_OK);
  EXPECT_EQ(map.GetPairCount(), 3U);
  ASSERT_EQ(map.Resolve(folder + "/first.chm", 7, address), S_OK);
  EXPECT_EQ(address, MakeChmAddress(folder + "/first.chm", "/index.htm"));
  // Another file keeps the first file's map: 1002 is still known, and its
  // offset is read from the second file's names.
  EXPECT_EQ(map.Resolve(folder + "/second.chm", 1002, address), S_OK);
  EXPECT_EQ(map.GetPairCount(), 3U);
  map.Reset();
  EXPECT_EQ(map.Resolve(folder + "/second.chm", 1002, address), E_FAIL);
  EXPECT_EQ(map.GetPairCount(), 1U);
}

class ChmFileSearchTest : public ::testing::Test {
protected:
  void SetUp() override {
    root = Scratch("search");
    for (char const * sub : {"program", "current", "registered", "shared/help", "config", "disc"})
      fs::create_directories(root + "/" + sub);
    places.programFolder = root + "/program";
    places.currentFolder = root + "/current";
    places.sharedFolderFallback = root + "/shared";
    places.hhIniPath = root + "/config/hh.ini";
    places.ask = [this](std::string const & prompt) {
      prompts.push_back(prompt);
      if (prompts.size() == 2) chmtest::WriteFile(root + "/disc/late.chm", "x");
      return prompts.size() < 3 ? IDOK : IDCANCEL;
    };
  }
  void SetMachineValue(wchar_t const * key, wchar_t const * name, std::string const & value) {
    HKEY handle = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, key, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                              &handle, nullptr),
              ERROR_SUCCESS);
    std::wstring const wide = vx3::Utf8ToWide(value);
    RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<BYTE const *>(wide.c_str()),
                   static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(handle);
  }
  std::string root;
  ChmFileSearchPlaces places;
  std::vector<std::string> prompts;
};

TEST_F(ChmFileSearchTest, TheFirstPlaceThatHasTheFileWins) {
  chmtest::WriteFile(root + "/program/a.chm", "x");
  chmtest::WriteFile(root + "/current/a.chm", "x");
  chmtest::WriteFile(root + "/current/b.chm", "x");
  chmtest::WriteFile(root + "/registered/c.chm", "x");
  SetMachineValue(kChmFolderKey, L"c.chm", root + "/registered");
  chmtest::WriteFile(root + "/shared/help/d.chm", "x");
  chmtest::WriteFile(root + "/disc/e.chm", "x");
  chmtest::WriteFile(places.hhIniPath,
                     "[other]\ne.chm=/nowhere\n[Files]\n E.CHM = " + root +
                         "/disc/e.chm,Insert the disc\nshort.chm=x\nnoprompt.chm=" + root +
                         "/disc/none.chm,\nlate.chm=" + root + "/disc/late.chm,Insert disc 2\n");
  struct Case {
    std::string name;
    bool found;
    std::string result;
  };
  std::vector<Case> const cases = {
      {root + "/current/b.chm", true, root + "/current/b.chm"},
      {"help/a.chm", true, root + "/program/a.chm"},  // by its last part
      {"C:\\help\\b.chm", true, root + "/current/b.chm"},
      {"c.chm", true, root + "/registered/c.chm"},
      {"d.chm", true, root + "/shared/help/d.chm"},
      {"e.chm", true, root + "/disc/e.chm"},
      {"short.chm", false, ""},
      {"noprompt.chm", false, ""},
      {"absent.chm", false, ""},
  };
  for (auto const & c : cases) {
    std::string result;
    EXPECT_EQ(FindChmFile(c.name, result, places), c.found) << c.name;
    if (c.found) EXPECT_EQ(result, c.result) << c.name;
  }
  EXPECT_TRUE(prompts.empty()) << "no file was asked for";

  SetMachineValue(kSharedFolderKey, L"SharedDir", root + "/registered");
  fs::create_directories(root + "/registered/help");
  chmtest::WriteFile(root + "/registered/help/f.chm", "x");
  std::string result;
  EXPECT_TRUE(FindChmFile("f.chm", result, places));
  EXPECT_FALSE(FindChmFile("d.chm", result, places)) << "SharedDir replaces the data folder";
}

TEST_F(ChmFileSearchTest, AMissingFileIsAskedForUntilItComesOrTheUserCancels) {
  chmtest::WriteFile(places.hhIniPath, "[files]\nlate.chm=" + root +
                                           "/disc/late.chm,Insert disc 2\n"
                                           "gone.chm=" +
                                           root + "/disc/gone.chm,Insert disc 3\n");
  std::string result;
  EXPECT_TRUE(FindChmFile("late.chm", result, places));
  EXPECT_EQ(result, root + "/disc/late.chm");
  EXPECT_EQ(prompts, (std::vector<std::string>{"Insert disc 2", "Insert disc 2"}));
  // Cancelled with the file still absent: true, with the path as found.
  prompts.assign(2, "");
  EXPECT_TRUE(FindChmFile("gone.chm", result, places));
  EXPECT_EQ(result, root + "/disc/gone.chm");
  EXPECT_EQ(prompts.size(), 3U);
}

}  // namespace
