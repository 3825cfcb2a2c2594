// Library loading, URL launching and what the process is.
#include <gtest/gtest.h>

#include <unistd.h>

#include <vector>

#include "settings/LaunchURL.h"
#include "settings/LibraryLoader.h"
#include "settings/VxIsWow64.h"
#include "utl/Exception.h"
#include "utl/Utf.h"

namespace {

std::wstring const kModule = vx3::Utf8ToWide(TALVO_LOADER_TEST_MODULE);

std::string LoadFailure(std::string const & path) {
  try {
    LibraryLoader loader(vx3::Utf8ToWide(path).c_str());
    return "loaded";
  } catch (Exception const & e) {
    return e.Why(std::locale::classic());
  }
}

TEST(LibraryLoader, LoadsFindsReplacesAndCloses) {
  LibraryLoader loader(kModule.c_str());
  FARPROC const answer = loader.GetFunction("TalvoLoaderAnswer");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer(), 42);
  EXPECT_EQ(loader.GetFunction("NoSuchFunction"), nullptr);
  LibraryLoader moved(std::move(loader));
  EXPECT_EQ(loader.Handle(), nullptr);  // NOLINT(bugprone-use-after-move): what a move leaves
  EXPECT_TRUE(moved.Open(L"libm.so.6")) << "a bare name is searched";
  EXPECT_NE(moved.GetFunction("cos"), nullptr);
  EXPECT_EQ(moved.GetFunction("TalvoLoaderAnswer"), nullptr) << "the first module was closed";
  EXPECT_TRUE(moved.Close());
  EXPECT_TRUE(moved.Close()) << "nothing loaded is no failure";
  EXPECT_FALSE(moved.Open(L"/no/such/library.so"));
  EXPECT_EQ(moved.Handle(), nullptr);
  EXPECT_FALSE(moved.Open(nullptr)) << "never the main program";
}

TEST(LibraryLoader, ThrowsWithTheReason) {
  EXPECT_EQ(LoadFailure("/no/such/library.so"), "The file /no/such/library.so does not exist.");
  // A file that is there but no library: the loader's reason.
  EXPECT_NE(LoadFailure(TALVO_LOADER_TEST_SOURCE).find("could not be loaded"), std::string::npos)
      << LoadFailure(TALVO_LOADER_TEST_SOURCE);
  EXPECT_THROW(LibraryLoader().GetFunction("anything"), Exception);
}

TEST(LaunchUrl, HandsTheTargetOnAsUtf8AndIsAlwaysTrue) {
  std::vector<std::string> targets;
  bool succeed = true;
  VxUrlLauncher const previous = VxSetUrlLauncher([&](std::string const & target) {
    targets.push_back(target);
    return succeed;
  });
  EXPECT_TRUE(LaunchURL(L"https://example.org/a b?q=\"x\";rm -rf", false));
  succeed = false;
  EXPECT_TRUE(LaunchURL(L"/home/user/Résumé $HOME.pdf", true)) << "a failed launch is true too";
  EXPECT_TRUE(LaunchURL(nullptr, false));
  VxSetUrlLauncher(previous);
  EXPECT_EQ(targets, (std::vector<std::string>{"https://example.org/a b?q=\"x\";rm -rf",
                                               "/home/user/Résumé $HOME.pdf"}));
}

TEST(UrlScheme, TellsUrlsFromPaths) {
  struct Case {
    char const * target;
    bool url;
  } const cases[] = {
      {"mailto:someone@example.org", true},
      {"a.b-c+d:rest", true},
      {"/tmp/report.pdf", false},
      {"C:/report.pdf", false},
      {"1http://x", false},
      {"http", false},
      {"my file:x", false},
      {"", false},
  };
  for (Case const & c : cases) EXPECT_EQ(VxHasUrlScheme(c.target), c.url) << c.target;
}

TEST(ProcessKind, Wow64IsA32BitProcessOnA64BitKernel) {
  EXPECT_FALSE(VxIsWow64()) << "a 64-bit build";
  EXPECT_TRUE(VxIsWow64For(32, "x86_64"));
  EXPECT_FALSE(VxIsWow64For(32, "i686")) << "a 32-bit kernel, or a linux32 personality";
  EXPECT_FALSE(VxIsWow64For(64, "x86_64"));
}

}  // namespace
