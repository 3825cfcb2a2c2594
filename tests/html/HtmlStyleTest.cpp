// The style side of the HTML view without a browser: the style a page brings
// along, the rule reader, the document utilities, and the texts of the
// shown and the saved page.
#include <gtest/gtest.h>

#include <string>

#include "html/HtmlPageText.h"
#include "html/HtmlStyleExtraction.h"
#include "html/HtmlStyleSheet.h"
#include "html/IHTMLDocumentUtilities.h"
#include "platform/WinHResult.h"

namespace {

TEST(HtmlStyleExtraction, TheFirstStyleElementGivesTheStyle) {
  struct Case {
    wchar_t const * html;
    wchar_t const * style;
  };
  Case const cases[] = {
      {L"<style type=x>a{}</style>", L"a{}"},
      {L"<p><style>\ntd{color:red}</style><style>b{}</style>", L"\ntd{color:red}"},
      {L"<p>no style</p>", L""},
      {L"<STYLE>a{}</STYLE>", L""},  // case-sensitive, as the pages write it
      {L"</style><style>a{}", L""},  // a close before the open closes nothing
      {L"</style><style>a{}</style>", L"a{}"},
      {L"<style a{}</style>", L""},  // the start tag never ends
      {L"<style>", L""},
      {L"<style>x\0y</style>", L""},  // the text ends at the NUL, unclosed
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(c.html)));
    EXPECT_EQ(ExtractStyleFromHtml(c.html), c.style);
  }
  std::wstring const huge = L"<style>" + std::wstring(1 << 20, L'a') + L"</style>";
  EXPECT_EQ(ExtractStyleFromHtml(huge).size(), size_t{1} << 20);
}

TEST(HtmlStyleSheet, RulesAreReadByTheirBraces) {
  struct Case {
    char const * css;
    char const * text;  // the sheet's text after reading
  };
  Case const cases[] = {
      {"a{color:red}", "a { color:red }"},
      {"  td.x ,\n th  { padding: 0 ; }\nb{}", "td.x , th { padding: 0 ; }\nb { }"},
      {"/* head */ a /* x */{ b: c /* d */}", "a { b: c }"},
      {"a{content:\"}/*\"} b{}", "a { content:\"}/*\" }\nb { }"},
      {"@media print { a { x: y } } b{}", "@media print { a { x: y } }\nb { }"},
      {"@import url(x.css); a{}", "a { }"},
      {"} a{x:y", "a { x:y }"},  // a stray close; a rule left open at the end
      {"@media x { a { y", "@media x { a { y } }"},
      {"/* open comment a{}", ""},
      // A quoted brace or comment in a selector opens nothing.
      {"a[title=\"{/*\"] { x: y }", "a[title=\"{/*\"] { x: y }"},
      {"'open /* b *{ a", ""},
      {"", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.css);
    HtmlStyleSheet sheet;
    sheet.SetCssText(c.css);
    EXPECT_EQ(sheet.GetCssText(), c.text);
  }
}

TEST(HtmlDocumentUtilities, TheFirstSheetIsReadAndReplacedAndMadeWhenMissing) {
  HtmlDocumentStyle document;
  int changes = 0;
  document.SetChangeHandler([&changes] { ++changes; });
  wxString text = "untouched";
  EXPECT_EQ(IHTMLDocumentUtilities::GetCSSText(&document, &text), E_FAIL);
  EXPECT_EQ(text, "untouched");
  EXPECT_EQ(IHTMLDocumentUtilities::GetCSSText(nullptr, &text), E_POINTER);
  EXPECT_EQ(IHTMLDocumentUtilities::SetCSSText(nullptr, "a{}"), E_POINTER);

  EXPECT_EQ(IHTMLDocumentUtilities::SetCSSText(&document, "p{margin:0}"), S_OK);
  EXPECT_EQ(document.GetSheetCount(), 1u);
  EXPECT_EQ(IHTMLDocumentUtilities::SetCSSText(&document, "h1{x:1} P{y:2}"), S_OK);
  EXPECT_EQ(document.GetSheetCount(), 1u);  // replaced, not added
  EXPECT_EQ(IHTMLDocumentUtilities::GetCSSText(&document, &text), S_OK);
  EXPECT_EQ(text, "h1 { x:1 }\nP { y:2 }");
  EXPECT_EQ(changes, 2);
}

TEST(HtmlDocumentUtilities, RulesAreFoundWithoutCaseAcrossSheets) {
  HtmlDocumentStyle document;
  document.CreateStyleSheet().SetCssText("h1{x:1}");
  document.CreateStyleSheet().SetCssText("TD.Value , th {y:2} td.value{z:3}");
  struct Case {
    char const * selector;
    HRESULT result;
    char const * style;
  };
  Case const cases[] = {
      {"td.value, th", E_FAIL, ""},  // blanks are collapsed, not removed
      {"td.VALUE , TH", S_OK, "y:2"}, {"  h1 ", S_OK, "x:1"},
      {"td.value", S_OK, "z:3"},      {"h2", E_FAIL, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.selector);
    HtmlStyleRule * rule = nullptr;
    EXPECT_EQ(IHTMLDocumentUtilities::GetIHTMLRuleStyle(c.selector, &document, &rule), c.result);
    EXPECT_EQ(rule != nullptr ? rule->style : wxString(), c.style);
  }
  HtmlStyleRule * rule = nullptr;
  EXPECT_EQ(IHTMLDocumentUtilities::GetIHTMLRuleStyle("h1", document.GetSheet(1), &rule), E_FAIL);
  EXPECT_EQ(IHTMLDocumentUtilities::GetIHTMLRuleStyle("h1", document.GetSheet(0), &rule), S_OK);
}

TEST(HtmlDocumentUtilities, MissingRulesAreAppendedAndOwnRulesStay) {
  HtmlDocumentStyle document;
  HtmlStyleSheet & sheet = document.CreateStyleSheet();
  sheet.SetCssText("A{color:blue} td{x:1}");
  int changes = 0;
  document.SetChangeHandler([&changes] { ++changes; });
  IHTMLDocumentUtilities::AddMissingHTMLRuleStyles("a{color:red} th{y:2} TD{x:9} p{}", &sheet);
  EXPECT_EQ(sheet.GetCssText(), "A { color:blue }\ntd { x:1 }\nth { y:2 }\np { }");
  EXPECT_EQ(changes, 2);
  IHTMLDocumentUtilities::AddMissingHTMLRuleStyles("a{}", nullptr);  // nothing to complete
  sheet.AddRule("em", "z:0", 0);
  EXPECT_EQ(sheet.Rules().front().selectorText, "em");
}

TEST(HtmlPageText, ShownPagesKeepTheStyleInsideItsElement) {
  wxString const page = ComposeHtmlPage("<p>x</p>", "a{}</style><script>");
  EXPECT_TRUE(page.Contains("<style type=\"text/css\">a{}<\\/style><script></style>"));
  EXPECT_TRUE(page.Contains("<body><p>x</p></body>"));
}

TEST(HtmlPageText, SavedPagesAreWholeUtf8DocumentsUnlessTheBodyIsOne) {
  std::string const page =
      ComposeSavedPage(L"R&D <1>", " td{x:1}\n", L"\n<body><p>\u00e9</p></body>  ");
  EXPECT_EQ(page.rfind("<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">", 0), 0u);
  EXPECT_NE(page.find("<title>R&amp;D &lt;1&gt;</title>"), std::string::npos);
  EXPECT_NE(page.find("<style type=\"text/css\"><!--td{x:1}--></style></head><body><p>\xc3\xa9</p>"
                      "</body></html>"),
            std::string::npos);
  EXPECT_EQ(ComposeSavedPage("t", "a{}", " <HTML><body/></HTML> "), "<HTML><body/></HTML>");
}

}  // namespace
