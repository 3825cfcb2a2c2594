// The audit trail: what it records, that every change made outside the
// library is caught, that a refused file is never overwritten, and that its
// page shows event texts as text.
#include <gtest/gtest.h>

#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <sys/stat.h>

#include <regex>

#include "InMemorySection.h"
#include "TestFiles.h"
#include "utl/AuditTrail.h"
#include "utl/Exception.h"

namespace {

std::string Replace(std::string text, std::string const & from, std::string const & to) {
  auto const at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// A trail on a file of its own, with a clock that ticks one microsecond a
// reading from 2024-06-11 09:15:02 UTC, and a fixed user.
class Trail {
public:
  explicit Trail(std::string const & path, int level = 1, std::string const & keys = Temp("keys"))
      : trail(path.c_str(), Settings(level), keys) {
    trail.SetClock([this] {
      return std::chrono::system_clock::time_point(std::chrono::seconds(1718097302) +
                                                   std::chrono::microseconds(++ticks));
    });
    trail.SetUserName("ann");
  }
  AuditTrail * operator->() { return &trail; }
  AuditTrail trail;
  long ticks = 0;

private:
  static InMemorySection * Settings(int level) {
    auto * section = new InMemorySection;
    section->WriteInt("LogEvents", level);
    return section;
  }
};

// A saved trail of one session with three events.
std::string SavedTrail(std::string const & name, std::string const & keys = Temp("keys")) {
  std::string path = Temp(name);
  Trail trail(path, 1, keys);
  trail->SetProjectName("Assay 12");
  trail->BeginSessionAndVerifySignature();
  for (char const * text : {"Sample A measured.", "Sample B measured.", "Result signed."})
    trail->AddEvent(text, "", 0);
  trail->EndSessionAndSave();
  return path;
}

// The reason a trail is refused; it names the file.
std::string Refusal(std::string const & path, std::string const & keys = Temp("keys")) {
  Trail trail(path, 1, keys);
  try {
    trail->BeginSessionAndVerifySignature();
  } catch (Exception const & refused) {
    EXPECT_NE(refused.Why().find(path), std::string::npos) << refused.Why();
    return refused.Why();
  }
  return "accepted";
}

TEST(AuditTrail, RecordsEventsAndReadsThemBackVerified) {
  std::string const path = Temp("recorded.xml");
  {
    Trail trail(path, 2);
    trail->SetProjectName("Assay <12>");
    trail->BeginSessionAndVerifySignature();
    trail->AddEvent("<script>alert(1)</script> & more", "line 1\r\nline 2\ttab", 0);
    trail->AddEvent("bell\a and \xff bad UTF-8 and 日本", nullptr, 1);
    trail->AddEvent("not recorded at log level 2", "", 2);
    trail->EndSessionAndSave();
    EXPECT_FALSE(trail->IsModified());
  }
  Trail reloaded(path, 2);
  ASSERT_NO_THROW(reloaded->BeginSessionAndVerifySignature());
  auto const & events = reloaded->GetEvents();
  ASSERT_EQ(events.size(), 5u);
  std::string const expected[][3] = {
      {"session-begin", "Session started.", ""},
      {"event", "<script>alert(1)</script> & more", "line 1\r\nline 2\ttab"},
      {"event", "bell\xEF\xBF\xBD and  bad UTF-8 and 日本", ""},
      {"session-end", "Session ended.", ""},
      {"session-begin", "Session started.", ""},
  };
  for (size_t i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(events[i].sequence, i + 1);
    EXPECT_EQ(events[i].type, expected[i][0]);
    EXPECT_EQ(events[i].text, expected[i][1]);
    if (i != 0 && i != 4) {
      EXPECT_EQ(events[i].detail, expected[i][2]);
    }
    EXPECT_EQ(events[i].level, i == 2 ? 1 : 0);
    EXPECT_EQ(events[i].user, "ann");
  }
  EXPECT_EQ(events[0].time, "2024-06-11T09:15:02.000001Z");
  EXPECT_EQ(reloaded->GetProjectName(), "Assay <12>");
  EXPECT_EQ(Slurp(path).find("<script>"), std::string::npos) << "markup must be escaped";
}

TEST(AuditTrail, RecordsOnlyWhenOnAndBelowTheLogLevel) {
  struct Case {
    int logLevel, eventLevel;
    bool recorded;
  } const cases[] = {{0, 0, false}, {1, 0, true}, {1, 1, false}, {3, 2, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(::testing::Message() << c.logLevel << "/" << c.eventLevel);
    Trail trail(Temp("levels.xml"), c.logLevel);
    trail->AddEvent("text", "", c.eventLevel);
    EXPECT_EQ(trail->IsEmpty(), !c.recorded);
  }
}

TEST(AuditTrail, CatchesEveryChangeMadeOutsideTheLibraryAndNeverWritesOverIt) {
  std::string const original = Slurp(SavedTrail("pristine.xml"));
  auto const events = [](std::string const & text) {
    std::regex const event("  <Event[^]*?</Event>\n");
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), event), end; it != end; ++it)
      found.push_back(it->str());
    return found;
  };
  ASSERT_EQ(events(original).size(), 5u);
  std::vector<std::string> const e = events(original);
  struct Case {
    char const * name;
    std::string edited;
    char const * expected;
  } const cases[] = {
      {"text", Replace(original, "Sample A", "Sample X"), "event 2 was altered"},
      {"user", Replace(original, "user=\"ann\"", "user=\"bob\""), "event 1"},
      {"time", Replace(original, "09:15:02.000003Z", "09:14:02.000003Z"), "event 3"},
      {"removed", Replace(original, e[2], ""), "event 3"},
      {"swapped", Replace(original, e[1] + e[2], e[2] + e[1]), "event 2"},
      {"last cut", Replace(original, e[4], ""), "covers 5 events"},
      {"project", Replace(original, "Assay 12", "Assay 13"), "seal is not valid"},
      {"signature",
       std::regex_replace(original, std::regex("signature=\"[0-9a-f]{8}"), "signature=\"deadbeef"),
       "seal is not valid"},
      {"stylesheet", Replace(original, "audit_trail.xsl", "evil.xsl"), "stylesheet reference"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp(std::string("tampered-") + c.name + ".xml");
    Spit(path, c.edited);
    std::string const why = Refusal(path);
    EXPECT_NE(why.find(c.expected), std::string::npos) << why;

    Trail trail(path);
    EXPECT_THROW(trail->BeginSessionAndVerifySignature(), Exception);
    EXPECT_THROW(trail->AddEvent("more", "", 0), Exception);
    EXPECT_THROW(trail->Save(), Exception);
    EXPECT_THROW(trail->SaveAs(Temp("export.xml").c_str()), Exception);
    EXPECT_THROW(trail->EndSessionAndSave(), Exception);
    EXPECT_EQ(Slurp(path), c.edited);
  }
}

TEST(AuditTrail, RefusesFilesThatAreNoTrailAndLeavesThemAlone) {
  std::string const good = Slurp(SavedTrail("shape.xml"));
  std::string deep = "<AuditTrail format='1' id='00000000000000000000000000000000'>";
  for (int i = 0; i < 20; ++i) deep += "<Event>";
  struct Case {
    char const * name;
    std::string content;
    char const * expected;
  } const cases[] = {
      {"truncated", good.substr(0, good.size() / 2), "line"},
      {"wrong-root", "<Settings/>", "not <AuditTrail>"},
      {"no-seal", std::regex_replace(good, std::regex("  <Seal[^>]*/>\n"), ""), "no seal"},
      {"billion-laughs",
       "<!DOCTYPE AuditTrail [<!ENTITY a 'x'><!ENTITY b '&a;&a;&a;'>]><AuditTrail>&b;</AuditTrail>",
       "document type"},
      {"deep", deep, "deeper than 8"},
      {"foreign-element", Replace(good, "  <Seal", "  <Note>hi</Note>\n  <Seal"),
       "unknown element"},
      {"bad-id", std::regex_replace(good, std::regex("id=\"[0-9a-f]+\""), "id=\"../../x\""),
       "id is missing or invalid"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp(std::string("bad-") + c.name + ".xml");
    Spit(path, c.content);
    std::string const why = Refusal(path);
    EXPECT_NE(why.find(c.expected), std::string::npos) << why;
    Trail trail(path);
    EXPECT_THROW(trail->Load(), Exception);
    EXPECT_THROW(trail->Save(), Exception);
    EXPECT_EQ(Slurp(path), c.content);
  }
}

TEST(AuditTrail, LedgerCatchesARestoredOlderCopy) {
  std::string const path = SavedTrail("rolled-back.xml");
  std::string const older = Slurp(path);
  {
    Trail trail(path);
    trail->BeginSessionAndVerifySignature();
    trail->AddEvent("Later event.", "", 0);
    trail->EndSessionAndSave();
  }
  Spit(path, older);
  EXPECT_NE(Refusal(path).find("older or different copy"), std::string::npos);
}

TEST(AuditTrail, OnlyTrustedSignersVerify) {
  std::string const foreignKeys = Temp("foreign-keys");
  std::string const keys = Temp("own-keys");
  std::string const path = SavedTrail("foreign.xml", foreignKeys);
  EXPECT_NE(Refusal(path, keys).find("does not trust"), std::string::npos);

  ASSERT_TRUE(VxCreateFolder(keys + "/trusted"));
  Spit(keys + "/trusted/colleague.pub", Slurp(foreignKeys + "/signing-key.pub"));
  {
    Trail trail(path, 1, keys);
    EXPECT_NO_THROW(trail->BeginSessionAndVerifySignature());
    trail->AddEvent("Reviewed here.", "", 0);
    EXPECT_NO_THROW(trail->EndSessionAndSave());
  }
  EXPECT_EQ(Refusal(path, keys), "accepted") << "resealed with our own key";
}

TEST(AuditTrail, SigningKeyMustBePrivate) {
  std::string const keys = Temp("leaky-keys");
  Trail(Temp("leaky.xml"), 1, keys)->PrepareForLogging();
  struct stat info {};
  ASSERT_EQ(::stat((keys + "/signing-key.pem").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
  ASSERT_EQ(::stat(keys.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  ASSERT_EQ(::chmod((keys + "/signing-key.pem").c_str(), 0644), 0);
  try {
    Trail(Temp("leaky.xml"), 1, keys)->PrepareForLogging();
    ADD_FAILURE() << "a key others can read was used";
  } catch (Exception const & refused) {
    EXPECT_NE(refused.Why().find("other users"), std::string::npos) << refused.Why();
  }
}

TEST(AuditTrail, ClearKeepsARefusedFileAndRecordsTheClearing) {
  std::string const path = SavedTrail("cleared.xml");
  std::string const edited = Replace(Slurp(path), "Sample A", "Sample Z");
  Spit(path, edited);
  {
    Trail trail(path);
    EXPECT_THROW(trail->BeginSessionAndVerifySignature(), Exception);
    std::string const oldId = trail->GetTrailId();
    trail->Clear();
    ASSERT_EQ(trail->GetEvents().size(), 1u);
    AuditTrail::Event const & cleared = trail->GetEvents()[0];
    EXPECT_EQ(cleared.type, "cleared");
    EXPECT_NE(trail->GetTrailId(), oldId);
    std::smatch aside;
    ASSERT_TRUE(std::regex_search(cleared.detail, aside, std::regex("kept as (\\S+)\\.$")))
        << cleared.detail;
    EXPECT_EQ(Slurp(aside[1]), edited);
    trail->BeginSessionAndVerifySignature();
    trail->EndSessionAndSave();
  }
  Trail reloaded(path);
  EXPECT_NO_THROW(reloaded->BeginSessionAndVerifySignature());
  // A good trail: the clearing names the trail it replaces and its events
  // (cleared, begin and end of the first session, begin of this one).
  std::string const previousId = reloaded->GetTrailId();
  reloaded->Clear();
  EXPECT_NE(reloaded->GetEvents()[0].detail.find(previousId + " with 4 events"), std::string::npos)
      << reloaded->GetEvents()[0].detail;
}

TEST(AuditTrail, ADeletedTrailIsNoLongerActive) {
  {
    Trail trail(Temp("active.xml"));
    AuditTrail::SetActiveAuditTrail(&trail.trail);
  }
  EXPECT_EQ(AuditTrail::GetActiveAuditTrail(), nullptr);
}

TEST(AuditTrail, UnsavedEventsAreSavedOnDestructionAndBeforeALoad) {
  std::string const path = Temp("unsaved.xml");
  {
    Trail trail(path);
    trail->AddEvent("first", "", 0);
    EXPECT_EQ(VxFileExist(path), VxNothing) << "nothing is written before a save";
    trail->Load();
    EXPECT_EQ(trail->GetEvents().size(), 1u) << "Load saved the event first";
    trail->AddEvent("second", "", 0);
  }
  Trail reloaded(path);
  reloaded->Load();
  EXPECT_EQ(reloaded->GetEvents().size(), 2u);

  std::string const empty = Temp("empty.xml");
  Trail(empty, 0)->Save();
  EXPECT_EQ(Refusal(empty), "accepted") << "an empty trail is saved to create its file";
}

// The page a browser shows: every event, its texts as text, never markup.
TEST(AuditTrail, SaveAsWritesThePageAndItsStylesheet) {
  std::string const trailPath = Temp("page.xml");
  std::string const exported = Temp("export/Sample Audit Trail.xml");
  ASSERT_TRUE(VxCreateFolder(Temp("export")));
  {
    Trail trail(trailPath);
    trail->SetProjectName("Assay & Co");
    trail->BeginSessionAndVerifySignature();
    trail->AddEvent("<script>alert('x')</script><b>bold</b>", "<img src=x onerror=y>", 0);
    trail->SaveAs(exported.c_str());
    EXPECT_EQ(VxFileExist(trailPath), VxNothing) << "SaveAs leaves the trail's own file alone";
  }
  xsltStylesheetPtr const sheet =
      xsltParseStylesheetFile(BAD_CAST Temp("export/audit_trail.xsl").c_str());
  ASSERT_NE(sheet, nullptr);
  xmlDocPtr const document = xmlReadFile(exported.c_str(), nullptr, XML_PARSE_NONET);
  ASSERT_NE(document, nullptr);
  xmlDocPtr const result = xsltApplyStylesheet(sheet, document, nullptr);
  ASSERT_NE(result, nullptr);
  xmlChar * html = nullptr;
  int length = 0;
  ASSERT_EQ(xsltSaveResultToString(&html, &length, result, sheet), 0);
  std::string const page(reinterpret_cast<char const *>(html), static_cast<size_t>(length));
  xmlFree(html);
  xmlFreeDoc(result);
  xmlFreeDoc(document);
  xsltFreeStylesheet(sheet);

  for (char const * markup : {"<script", "<b>", "<img"})
    EXPECT_EQ(page.find(markup), std::string::npos) << page;
  for (char const * text : {"&lt;script&gt;alert('x')&lt;/script&gt;&lt;b&gt;bold&lt;/b&gt;",
                            "Assay &amp; Co", "2024-06-11 09:15:02"})
    EXPECT_NE(page.find(text), std::string::npos) << text << "\n" << page;
  std::regex const row("<tr class=\"(session-begin|event)\">");
  EXPECT_EQ(
      std::distance(std::sregex_iterator(page.begin(), page.end(), row), std::sregex_iterator()),
      2);
}

}  // namespace
