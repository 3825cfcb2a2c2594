// "its:" addresses: what the control makes, what the scheme accepts, and
// that nothing outside a registered archive is ever served.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "ChmTestFiles.h"
#include "help/ChmAddress.h"
#include "help/ChmScheme.h"

namespace {

TEST(ChmAddress, MadeAddressesParseBackToTheirParts) {
  struct Case {
    std::string path;
    std::string topic;
    std::string inner;
  };
  Case const cases[] = {
      {"/opt/help/a.chm", "/index.htm", "/index.htm"},
      {"/opt/help/a.chm", "index.htm", "/index.htm"},
      {"/my docs/#1 50%?.chm", "/sub dir/b 1.htm", "/sub dir/b 1.htm"},
      {"/c:/odd::name.chm", "/x.htm", "/x.htm"},
      {"/d\xC3\xA9j\xC3\xA0/h.chm", "/caf\xC3\xA9.htm", "/caf\xC3\xA9.htm"},
  };
  for (auto const & c : cases) {
    std::string const address = MakeChmAddress(c.path, c.topic);
    EXPECT_EQ(address.find(' '), std::string::npos) << address;
    std::string path;
    std::string inner;
    ASSERT_TRUE(ParseChmAddress(address, path, inner)) << address;
    EXPECT_EQ(path, c.path);
    EXPECT_EQ(inner, c.inner);
  }
}

TEST(ChmAddress, WhatTheBrowserAsksFor) {
  struct Case {
    char const * url;
    char const * path;  // null: refused
    char const * inner;
  };
  Case const cases[] = {
      {"its:/h/a.chm::/x.htm", "/h/a.chm", "/x.htm"},
      {"ITS:/h/a.chm::/x.htm#part", "/h/a.chm", "/x.htm"},
      {"its:/h/a.chm::/x.htm?q=1", "/h/a.chm", "/x.htm"},
      {"its:/h/a.chm::/d/../img/./p.png", "/h/a.chm", "/img/p.png"},
      {"its:/h/a%20b.chm::/n%23m.htm", "/h/a b.chm", "/n#m.htm"},
      // Relative links that climb out of a top-level topic lose the "::".
      {"its:/h/x.png", nullptr, nullptr},
      {"its:/etc/passwd", nullptr, nullptr},
      {"its:/abs.png", nullptr, nullptr},
      {"its:/h/a.chm::/../../etc/passwd", nullptr, nullptr},
      {"its:/h/a.chm::/%2e%2e/x", nullptr, nullptr},
      {"its:/h/a.chm::/", nullptr, nullptr},
      {"its:/h/a.chm::/x%00.htm", nullptr, nullptr},
      {"its:/h/a.chm::/x%2", nullptr, nullptr},
      {"its:::/x.htm", nullptr, nullptr},
      {"file:/h/a.chm::/x.htm", nullptr, nullptr},
  };
  for (auto const & c : cases) {
    std::string path;
    std::string inner;
    bool const parsed = ParseChmAddress(c.url, path, inner);
    EXPECT_EQ(parsed, c.path != nullptr) << c.url;
    if (parsed && c.path != nullptr) {
      EXPECT_EQ(path, c.path) << c.url;
      EXPECT_EQ(inner, c.inner) << c.url;
    }
  }
}

TEST(ChmAddress, ForeignHelpLinks) {
  std::string file;
  std::string topic;
  ASSERT_TRUE(ParseForeignChmLink("MS-ITS:other.chm::/t.htm", file, topic));
  EXPECT_EQ(file, "other.chm");
  EXPECT_EQ(topic, "/t.htm");
  ASSERT_TRUE(ParseForeignChmLink("mk:@MSITStore:C:\\help\\other.chm::/t.htm", file, topic));
  EXPECT_EQ(file, "C:\\help\\other.chm");
  EXPECT_FALSE(ParseForeignChmLink("its:/a.chm::/t.htm", file, topic));
  EXPECT_FALSE(ParseForeignChmLink("ms-its:::/t.htm", file, topic));
}

TEST(ChmScheme, ServesOnlyRegisteredArchives) {
  std::string const folder = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp";
  std::string const path = folder + "/served help.chm";
  chmtest::WriteFile(path, chmtest::SmallHelp());
  chmtest::WriteFile(folder + "/outside.png", "secret");
  ChmScheme & scheme = ChmScheme::Instance();
  std::string bytes;
  std::string mime;
  std::string error;
  std::string const page = MakeChmAddress(path, "/sub dir/b 1.htm");
  EXPECT_FALSE(scheme.Serve(page, bytes, mime, error)) << "not registered yet";

  scheme.Register(path);
  scheme.Register(path);
  ASSERT_TRUE(scheme.Serve(page, bytes, mime, error)) << error;
  EXPECT_EQ(bytes, "<html><body>B page</body></html>");
  EXPECT_EQ(mime, "text/html");
  ASSERT_TRUE(scheme.Serve(MakeChmAddress(path, "/PIC.PNG"), bytes, mime, error));
  EXPECT_EQ(mime, "image/png");
  EXPECT_EQ(bytes.size(), 16U);
  for (std::string const & url :
       {MakeChmAddress(path, "/missing.htm"), MakeChmAddress(path, "/../outside.png"),
        "its:" + folder + "/outside.png", std::string("its:/abs.png")}) {
    EXPECT_FALSE(scheme.Serve(url, bytes, mime, error)) << url;
    EXPECT_TRUE(bytes.empty()) << url;
  }
  scheme.Unregister(path);
  EXPECT_TRUE(scheme.Serve(page, bytes, mime, error)) << "one registration is left";
  scheme.Unregister(path);
  EXPECT_FALSE(scheme.Serve(page, bytes, mime, error));
  EXPECT_FALSE(scheme.IsRegistered(path));
}

}  // namespace
