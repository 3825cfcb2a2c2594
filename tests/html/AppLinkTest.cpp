// "app:" links as the browser hands them over: any case in the scheme,
// names percent-encoded as UTF-8.
#include <gtest/gtest.h>

#include "html/AppLink.h"

namespace {

TEST(AppLink, NamesAreDecodedAndOtherSchemesPass) {
  struct Case {
    char const * url;
    bool isApp;
    wxString name;
  };
  Case const cases[] = {
      {"app:RunCalculation", true, "RunCalculation"},
      {"APP:Foo", true, "Foo"},
      {"aPp:", true, ""},
      {"app:%C3%9Cn%C3%AF", true, wxString::FromUTF8("\xc3\x9cn\xc3\xaf")},
      {"app:a%20b%2fc", true, "a b/c"},
      {"app:100%", true, "100%"},  // no digits after "%"
      {"app:%4", true, "%4"},
      {"app:%zz", true, "%zz"},
      {"app:%FF%FE", true, "%FF%FE"},  // decoded bytes that are no UTF-8
      {"ap:Foo", false, ""},
      {"https://app:Foo", false, ""},
      {"about:blank", false, ""},
      {"", false, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.url);
    wxString name = "before";
    EXPECT_EQ(ParseAppLink(c.url, name), c.isApp);
    EXPECT_EQ(name, c.isApp ? c.name : wxString("before"));
  }
}

}  // namespace
