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

std::string Why(Exception const & e) { return e.Why(std::locale::classic()); }

std::wstring const kModule = vx3::Utf8ToWide(TALVO_LOADER_TEST_MODULE);

TEST(LibraryLoader, LoadsFindsAndCloses) {
  LibraryLoader loader(kModule.c_str());
  ASSERT_NE(loader.Handle(), nullptr);
  FARPROC const answer = loader.GetFunction("TalvoLoaderAnswer");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer(), 42);
  EXPECT_EQ(loader.GetFunction("NoSuchFunction"), nullptr);
  LibraryLoader moved(std::move(loader));
  EXPECT_EQ(loader.Handle(), nullptr);
  EXPECT_TRUE(moved.Close());
  EXPECT_TRUE(moved.Close()) << "nothing loaded is no failure";
}

TEST(LibraryLoader, OpenReplacesAndReportsFailure) {
  LibraryLoader loader(kModule.c_str());
  EXPECT_TRUE(loader.Open(L"libm.so.6")) << "a bare name is searched";
  EXPECT_NE(loader.GetFunction("cos"), nullptr);
  EXPECT_EQ(loader.GetFunction("TalvoLoaderAnswer"), nullptr) << "the first module was closed";
  EXPECT_FALSE(loader.Open(L"/no/such/library.so"));
  EXPECT_EQ(loader.Handle(), nullptr);
  EXPECT_FALSE(loader.Open(nullptr)) << "never the main program";
}

TEST(LibraryLoader, ThrowsWithTheReason) {
  try {
    LibraryLoader loader(L"/no/such/library.so");
    FAIL() << "no exception";
  } catch (Exception const & e) {
    EXPECT_EQ(Why(e), "The file /no/such/library.so does not exist.");
  }
  // A file that is there but no library: the loader's reason.
  try {
    LibraryLoader loader(vx3::Utf8ToWide(TALVO_LOADER_TEST_SOURCE).c_str());
    FAIL() << "no exception";
  } catch (Exception const & e) {
    EXPECT_NE(Why(e).find("could not be loaded"), std::string::npos) << Why(e);
  }
  EXPECT_THROW(LibraryLoader().GetFunction("anything"), Exception);
}

class LaunchUrl : public testing::Test {
protected:
  void SetUp() override {
    mPrevious = VxSetUrlLauncher([this](std::string const & target) {
      mTargets.push_back(target);
      return mSucceed;
    });
  }
  void TearDown() override { VxSetUrlLauncher(mPrevious); }

  VxUrlLauncher mPrevious;
  std::vector<std::string> mTargets;
  bool mSucceed = true;
};

TEST_F(LaunchUrl, HandsTheTargetOnAsUtf8AndIsAlwaysTrue) {
  EXPECT_TRUE(LaunchURL(L"https://example.org/a b?q=\"x\";rm -rf", false));
  mSucceed = false;
  EXPECT_TRUE(LaunchURL(L"/home/user/Résumé $HOME.pdf", true)) << "a failed launch is true too";
  EXPECT_TRUE(LaunchURL(nullptr, false));
  EXPECT_EQ(mTargets, (std::vector<std::string>{"https://example.org/a b?q=\"x\";rm -rf",
                                                "/home/user/Résumé $HOME.pdf"}));
}

TEST(UrlScheme, TellsUrlsFromPaths) {
  struct Case {
    char const * target;
    bool url;
  };
  Case const cases[] = {
      {"mailto:someone@example.org", true}, {"a.b-c+d:rest", true},
      {"/tmp/report.pdf", false},           {"C:/report.pdf", false},
      {"1http://x", false},                 {"http", false},
      {"my file:x", false},                 {"", false},
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
