// The trail page made in this process: a sound trail gives one row per
// event, and hostile or broken trails and stylesheets give a page that
// names the problem, with nothing fetched, read or written on the way.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "audit/AuditTrailTransform.h"
#include "utl/AuditTrail.h"
#include "utl/InMemorySection.h"
#include "utl/TestFiles.h"

namespace {

size_t Count(std::string const & text, std::string const & what) {
  size_t count = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

std::string TrailXml(int events) {
  auto * section = new InMemorySection;
  section->WriteInt("LogEvents", 1);
  AuditTrail trail(Temp("transform.xml").c_str(), section, Temp("keys"));
  trail.SetUserName("ann");
  trail.SetProjectName("Assay <12>");
  trail.BeginSessionAndVerifySignature();
  for (int i = 0; i < events; ++i)
    trail.AddEvent(("Sample " + std::to_string(i) + " <b>measured</b>").c_str(), "", 0);
  return trail.ToXmlString();
}

std::string const kStylesheet = AuditTrail::GetStylesheet();

TEST(AuditTrailTransform, ASoundTrailGivesOneRowPerEventWithMarkupAsText) {
  AuditTrailHtml const page = TransformAuditTrail(TrailXml(3), kStylesheet);
  ASSERT_TRUE(page.ok) << page.problem;
  EXPECT_EQ(Count(page.html, "<td class=\"time\">"), 4u) << "session start and three events";
  EXPECT_NE(page.html.find("Sample 2 &lt;b&gt;measured&lt;/b&gt;"), std::string::npos);
  EXPECT_EQ(page.html.find("<b>measured"), std::string::npos);
}

TEST(AuditTrailTransform, HostileOrBrokenInputNamesTheProblem) {
  std::string const trail = TrailXml(1);
  std::string const withDoctype =
      "<?xml version=\"1.0\"?><!DOCTYPE AuditTrail [<!ENTITY x \"boom\">]>" +
      trail.substr(trail.find("<AuditTrail"));
  std::string const external =
      "<?xml version=\"1.0\"?><!DOCTYPE AuditTrail SYSTEM \"http://example.invalid/a.dtd\">"
      "<AuditTrail/>";
  std::string const laughs =
      "<?xml version=\"1.0\"?><!DOCTYPE l [<!ENTITY a \"aaaaaaaa\">"
      "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c "
      "\"&b;&b;&b;&b;&b;&b;&b;&b;\">]><AuditTrail>&c;</AuditTrail>";
  std::string deep = "<AuditTrail>";
  for (int i = 0; i < 5000; ++i) deep += "<a>";
  std::string const looping =
      "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
      "<xsl:template match=\"/\"><xsl:call-template name=\"loop\"/></xsl:template>"
      "<xsl:template name=\"loop\"><xsl:call-template name=\"loop\"/></xsl:template>"
      "</xsl:stylesheet>";
  std::string const terminating =
      "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
      "<xsl:template match=\"/\"><xsl:message terminate=\"yes\">no</xsl:message>"
      "</xsl:template></xsl:stylesheet>";
  struct Case {
    char const * name;
    std::string trail;
    std::string stylesheet;
    char const * problem;
  };
  Case const cases[] = {
      {"entities declared", withDoctype, kStylesheet, "document type"},
      {"external DTD", external, kStylesheet, "document type"},
      {"entity expansion", laughs, kStylesheet, "The audit trail"},
      {"too deep", deep, kStylesheet, "no well-formed XML"},
      {"cut short", trail.substr(0, trail.size() / 2), kStylesheet, "no well-formed XML"},
      {"empty", "", kStylesheet, "no well-formed XML"},
      {"wrong root", "<Favourites/>", kStylesheet, "no audit trail"},
      {"too large", std::string(kMaxInputBytes + 1, ' '), kStylesheet, "too large"},
      {"stylesheet no XML", trail, "<xsl:stylesheet", "stylesheet is no well-formed"},
      {"stylesheet no XSLT", trail, "<html/>", "no valid XSLT"},
      {"stylesheet with DTD", trail, "<!DOCTYPE x [<!ENTITY e \"e\">]><x/>", "document type"},
      {"endless recursion", trail, looping, "failed on the audit trail"},
      {"terminating", trail, terminating, "failed on the audit trail"},
  };
  for (Case const & c : cases) {
    AuditTrailHtml const page = TransformAuditTrail(c.trail, c.stylesheet);
    EXPECT_FALSE(page.ok) << c.name;
    EXPECT_NE(page.problem.find(c.problem), std::string::npos) << c.name << ": " << page.problem;
    std::string const shown = AuditTrailProblemPage(page.problem + " <script>");
    EXPECT_NE(shown.find("&lt;script&gt;"), std::string::npos) << "the problem is escaped";
  }
}

TEST(AuditTrailTransform, TheStylesheetMayNeitherReadNorWriteNorFetch) {
  std::string const secret = Temp("secret.xml");
  Spit(secret, "<secret>hidden words</secret>");
  std::string const written = Temp("written.html");
  std::string const head =
      "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\" "
      "xmlns:exsl=\"http://exslt.org/common\" extension-element-prefixes=\"exsl\">"
      "<xsl:template match=\"/\">";
  std::string const tail = "</xsl:template></xsl:stylesheet>";
  std::string const cases[] = {
      head + "<p><xsl:value-of select=\"document('" + secret + "')\"/></p>" + tail,
      head + "<p><xsl:value-of select=\"document('http://127.0.0.1:9/x.xml')\"/></p>" + tail,
      head + "<exsl:document href=\"" + written + "\"><p>out</p></exsl:document>" + tail,
      "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
      "<xsl:include href=\"" +
          secret + "\"/></xsl:stylesheet>",
  };
  for (std::string const & stylesheet : cases) {
    AuditTrailHtml const page = TransformAuditTrail(TrailXml(0), stylesheet);
    EXPECT_EQ(page.html.find("hidden words"), std::string::npos) << stylesheet;
    EXPECT_FALSE(page.ok) << stylesheet;
  }
  struct stat info {};
  EXPECT_NE(::stat(written.c_str(), &info), 0) << "nothing was written";
}

TEST(AuditTrailTransform, FilesThatCannotBeReadAreNamed) {
  AuditTrailHtml const page = TransformAuditTrailFile(Temp("missing.xml"), Temp("missing.xsl"));
  EXPECT_FALSE(page.ok);
  EXPECT_NE(page.problem.find("missing.xml"), std::string::npos);
}

}  // namespace
