// The about markup from a package: what is refused, how the subset maps to
// HTML, and that nothing in the markup can reach the page as HTML of its own.
#include <gtest/gtest.h>

#include <string>

#include "frame/AboutMarkupHtml.h"
#include "frame/AboutMarkupReader.h"
#include "utl/Exception.h"

namespace {

std::string Render(std::string const & markup, AboutPictureResolver const & resolve = {}) {
  return RenderAboutMarkupHtml(ReadAboutMarkup(markup, "(test)"), resolve);
}

std::string Nested(int depth) {
  std::string text;
  for (int i = 0; i < depth; ++i) text += "<StackPanel>";
  for (int i = 0; i < depth; ++i) text += "</StackPanel>";
  return text;
}

TEST(AboutMarkup, RefusesWhatCouldExhaustOrEscapeTheReader) {
  std::string many = "<StackPanel>";
  for (size_t i = 0; i < AboutMarkup::kMaxElements; ++i) many += "<LineBreak/>";
  many += "</StackPanel>";
  std::string const huge =
      "<TextBlock>" + std::string(AboutMarkup::kMaxBytes, 'x') + "</TextBlock>";
  struct Case {
    char const * what;
    std::string markup;
  } const cases[] = {
      {"entity expansion",
       "<!DOCTYPE a [<!ENTITY e \"xxxxxxxx\"><!ENTITY f "
       "\"&e;&e;&e;&e;\">]><TextBlock>&f;</TextBlock>"},
      {"external entity", "<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><a>&x;</a>"},
      {"too deep", Nested(AboutMarkup::kMaxDepth + 2)},
      {"too many elements", many},
      {"too large", huge},
      {"not well-formed", "<StackPanel><TextBlock></StackPanel>"},
      {"empty", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    try {
      ReadAboutMarkup(c.markup, "(test)");
      ADD_FAILURE() << "accepted";
    } catch (Exception const & e) {
      EXPECT_NE(e.Why().find("(test)"), std::string::npos) << e.Why();
    }
  }
  EXPECT_NO_THROW(ReadAboutMarkup(Nested(AboutMarkup::kMaxDepth - 2), "(test)"));
}

TEST(AboutMarkup, TextAndAttributesNeverBecomeMarkup) {
  struct Case {
    char const * what;
    char const * markup;
    char const * absent;   // must not reach the page
    char const * present;  // must
  } const cases[] = {
      {"tags in text", "<TextBlock>&lt;script&gt;alert(1)&lt;/script&gt;</TextBlock>", "<script",
       "&lt;script&gt;"},
      {"tags in CDATA", "<TextBlock><![CDATA[<img src=x>]]></TextBlock>", "<img", "&lt;img"},
      {"quote in a link",
       "<TextBlock><Hyperlink NavigateUri='x\" onclick=\"y'>a</Hyperlink></TextBlock>",
       "\" onclick", "href=\"x&quot; onclick=&quot;y\""},
      {"tags in a Run's Text", "<TextBlock><Run Text='&lt;b&gt;'/></TextBlock>", "<b>",
       "&lt;b&gt;"},
      {"colour that is no colour", "<TextBlock Foreground='red\"&gt;&lt;script&gt;'>t</TextBlock>",
       "<script", "t"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    std::string const html = Render(c.markup);
    EXPECT_EQ(html.find(c.absent), std::string::npos) << html;
    EXPECT_NE(html.find(c.present), std::string::npos) << html;
  }
}

TEST(AboutMarkup, SubsetMapsToTheHtmlWindowsVocabulary) {
  struct Case {
    char const * markup;
    char const * expected;
  } const cases[] = {
      {"<TextBlock>a<Bold>b</Bold><Italic>c</Italic><Underline>d</Underline></TextBlock>",
       "a<b>b</b><i>c</i><u>d</u>"},
      {"<TextBlock>a<LineBreak/>b</TextBlock>", "a<br>b"},
      {"<TextBlock><Hyperlink NavigateUri=' https://example.org/a?b=1&amp;c=2 "
       "'>site</Hyperlink></TextBlock>",
       "<a href=\"https://example.org/a?b=1&amp;c=2\">site</a>"},
      {"<TextBlock Foreground='#f00' FontSize='32'>r</TextBlock>",
       "<font size=\"6\" color=\"#FF0000\">r</font>"},
      {"<TextBlock Foreground='#80123456'>r</TextBlock>", "color=\"#123456\""},
      {"<TextBlock FontWeight='Bold' FontStyle='Italic'>x</TextBlock>", "<b><i>x</i></b>"},
      {"<TextBlock TextAlignment='Center'>x</TextBlock>", "<div align=\"center\">x</div>"},
      {"<TextBlock TextWrapping='NoWrap'>x</TextBlock>", "<td nowrap>x</td>"},
      {"<StackPanel Margin='5,7'><TextBlock>x</TextBlock></StackPanel>",
       "height=\"7\"></td></tr><tr><td width=\"5\"></td>"},
      {"<Border Background='White' Padding='4'><TextBlock>x</TextBlock></Border>",
       "cellpadding=\"4\" border=\"0\" bgcolor=\"#FFFFFF\""},
      {"<p:StackPanel xmlns:p='urn:x' p:Orientation='Horizontal'><TextBlock>a</TextBlock>"
       "<TextBlock>b</TextBlock></p:StackPanel>",
       "<td valign=\"top\"><div align=\"left\">a</div></td><td valign=\"top\">"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.markup);
    std::string const html = Render(c.markup);
    EXPECT_NE(html.find(c.expected), std::string::npos) << html;
  }
}

TEST(AboutMarkup, UnknownAndUnreadableAreShownAroundAndReportedOnce) {
  AboutMarkup const markup = ReadAboutMarkup(
      "<StackPanel><Grid><TextBlock>inside</TextBlock></Grid><Grid/>"
      "<TextBlock FontSize='enormous' Margin='1,2,3'>t</TextBlock></StackPanel>",
      "(test)");
  ASSERT_EQ(markup.problems.size(), 3u);
  EXPECT_EQ(markup.problems[0], "unknown element <Grid>");
  EXPECT_NE(markup.problems[1].find("FontSize"), std::string::npos);
  EXPECT_NE(markup.problems[2].find("Margin"), std::string::npos);
  std::string const html = RenderAboutMarkupHtml(markup, {});
  EXPECT_NE(html.find("inside"), std::string::npos);
  EXPECT_EQ(html.find("<font"), std::string::npos);
}

TEST(AboutMarkup, PicturesComeOnlyFromTheResolver) {
  std::string asked;
  auto const resolve = [&](std::string const & source) {
    asked += source + ";";
    return source == "7" ? std::string("memory:p\"7.png") : std::string();
  };
  std::string const html = Render(
      "<StackPanel><Image Source='7' Width='20'/><Image Source='file:///etc/passwd'/></StackPanel>",
      resolve);
  EXPECT_EQ(asked, "7;file:///etc/passwd;");
  EXPECT_NE(html.find("<img src=\"memory:p&quot;7.png\" width=\"20\">"), std::string::npos) << html;
  EXPECT_EQ(html.find("passwd"), std::string::npos);
}

}  // namespace
