// The library links no browser: WebKit comes into a process only with the
// first HTML view (the view's GUI test covers the loading itself).
#include <gtest/gtest.h>
#include <link.h>

#include <string>
#include <vector>

#include "html/HtmlBrowserModule.h"

namespace {

std::vector<std::string> LoadedObjects() {
  std::vector<std::string> names;
  dl_iterate_phdr(
      [](dl_phdr_info * info, size_t, void * data) {
        static_cast<std::vector<std::string> *>(data)->emplace_back(info->dlpi_name);
        return 0;
      },
      &names);
  return names;
}

TEST(HtmlBrowserModule, LinkingTheLibraryLoadsNoBrowser) {
  std::vector<std::string> const loaded = LoadedObjects();
  bool sawLibrary = false;
  for (std::string const & name : loaded) {
    if (name.find("libTALVOutlwin") != std::string::npos) sawLibrary = true;
    EXPECT_EQ(name.find("webkit"), std::string::npos) << name;
    EXPECT_EQ(name.find("wx_gtk3u_webview"), std::string::npos) << name;
    EXPECT_EQ(name.find("TALVOhtmlbrowser"), std::string::npos) << name;
  }
  EXPECT_TRUE(sawLibrary);  // the walk sees the libraries at all
  EXPECT_FALSE(IsHtmlBrowserLoaded());
}

}  // namespace
