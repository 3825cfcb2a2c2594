// The audit trail: what it records, that every change made outside the
// library is caught, that a refused file is never overwritten, and that its
// page shows event texts as text.
#include <gtest/gtest.h>

#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>

#include "InMemorySection.h"
#include "utl/AuditTrail.h"
#include "utl/Exception.h"
#include "utl/Paths.h"

namespace {

std::string Temp(std::string const & name) { return VxPathAppend(std::getenv("TMPDIR"), name); }

std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void Spit(std::string const & path, std::string const & bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string Replace(std::string text, std::string const & from, std::string const & to) {
  auto const at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

InMemorySection * SettingsWithLevel(int level) {
  auto * section = new InMemorySection;
  section->WriteInt("LogEvents", level);
  return section;
}

// A trail on a file of its own, with a clock that ticks one microsecond a
// reading from 2024-06-11 09:15:02 UTC, and a fixed user.
class Trail {
public:
  explicit Trail(std::string const & path, int level = 1, std::string const & keys = Temp("keys"))
      : trail(path.c_str(), SettingsWithLevel(level), keys) {
    trail.SetClock([this] {
      return std::chrono::system_clock::time_point(std::chrono::seconds(1718097302) +
                                                   std::chrono::microseconds(++ticks));
    });
    trail.SetUserName("ann");
  }
  AuditTrail * operator->() { return &trail; }
  AuditTrail trail;
  long ticks = 0;
};

// A saved trail of one session with three events.
std::string SavedTrail(std::string const & name, std::string const & keys = Temp("keys")) {
  std::string const path = Temp(name);
  Trail trail(path, 1, keys);
  trail->SetProjectName("Assay 12");
  trail->BeginSessionAndVerifySignature();
  trail->AddEvent("Sample A measured.", "Plate 1", 0);
  trail->AddEvent("Sample B measured.", "Plate 2", 0);
  trail->AddEvent("Result signed.", "", 0);
  trail->EndSessionAndSave();
  return path;
}

std::string ExpectRefused(std::string const & path, std::string const & keys = Temp("keys")) {
  Trail trail(path, 1, keys);
  try {
    trail->BeginSessionAndVerifySignature();
  } catch (Exception const & refused) {
    std::string const why = refused.Why();
    EXPECT_NE(why.find(path), std::string::npos) << why;
    return why;
  }
  ADD_FAILURE() << "accepted";
  return std::string();
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
  struct Expected {
    char const *type, *text, *detail;
    int level;
  };
  Expected const expected[] = {
      {"session-begin", "Session started.", nullptr, 0},
      {"event", "<script>alert(1)</script> & more", "line 1\r\nline 2\ttab", 0},
      {"event", "bell\xEF\xBF\xBD and  bad UTF-8 and 日本", "", 1},
      {"session-end", "Session ended.", "", 0},
      {"session-begin", "Session started.", nullptr, 0},
  };
  for (size_t i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(events[i].sequence, i + 1);
    EXPECT_EQ(events[i].type, expected[i].type);
    EXPECT_EQ(events[i].text, expected[i].text);
    if (expected[i].detail != nullptr) {
      EXPECT_EQ(events[i].detail, expected[i].detail);
    }
    EXPECT_EQ(events[i].level, expected[i].level);
    EXPECT_EQ(events[i].user, "ann");
  }
  EXPECT_EQ(events[0].time, "2024-06-11T09:15:02.000001Z");
  EXPECT_EQ(reloaded->GetProjectName(), "Assay <12>");
  std::string const file = Slurp(path);
  EXPECT_EQ(file.find("<script>"), std::string::npos) << "markup must be escaped";
  EXPECT_NE(file.find("&lt;script&gt;"), std::string::npos);
}

TEST(AuditTrail, RecordsOnlyWhenOnAndBelowTheLogLevel) {
  struct Case {
    int logLevel, eventLevel;
    bool recorded;
  };
  Case const cases[] = {{0, 0, false}, {-1, 0, false}, {1, 0, true},
                        {1, 1, false}, {3, 2, true},   {3, -5, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(::testing::Message() << c.logLevel << "/" << c.eventLevel);
    Trail trail(Temp("levels.xml"), c.logLevel);
    int added = 0;
    boost::signals2::scoped_connection const counter =
        AuditTrail::msAuditTrailEventAdded.connect([&](AuditTrail *) { ++added; });
    trail->AddEvent("text", "", c.eventLevel);
    EXPECT_EQ(trail->IsEmpty(), !c.recorded);
    EXPECT_EQ(added, c.recorded ? 1 : 0);
  }
}

struct Tamper {
  char const * name;
  std::function<std::string(std::string const &)> edit;
  char const * expected;
};

TEST(AuditTrail, CatchesEveryChangeMadeOutsideTheLibrary) {
  std::string const original = Slurp(SavedTrail("pristine.xml"));
  std::regex const event("  <Event[^]*?</Event>\n");
  auto const events = [&](std::string const & text) {
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), event), end; it != end; ++it)
      found.push_back(it->str());
    return found;
  };
  ASSERT_EQ(events(original).size(), 5u);
  Tamper const cases[] = {
      {"text", [](std::string const & t) { return Replace(t, "Sample A", "Sample X"); },
       "event 2 was altered"},
      {"user", [](std::string const & t) { return Replace(t, "user=\"ann\"", "user=\"bob\""); },
       "event 1"},
      {"time",
       [](std::string const & t) { return Replace(t, "09:15:02.000003Z", "09:14:02.000003Z"); },
       "event 3"},
      {"removed",
       [&](std::string const & t) { return Replace(t, events(t)[2], ""); }, "event 3"},
      {"swapped",
       [&](std::string const & t) {
         auto const e = events(t);
         return Replace(t, e[1] + e[2], e[2] + e[1]);
       },
       "event 2"},
      {"last cut",
       [&](std::string const & t) { return Replace(t, events(t)[4], ""); }, "covers 5 events"},
      {"project",
       [](std::string const & t) { return Replace(t, "Assay 12", "Assay 13"); },
       "seal is not valid"},
      {"signature",
       [](std::string const & t) {
         std::regex const start("signature=\"[0-9a-f]{8}");
         return std::regex_replace(t, start, "signature=\"deadbeef");
       },
       "seal is not valid"},
      {"stylesheet",
       [](std::string const & t) {
         return Replace(t, "href=\"audit_trail.xsl\"", "href=\"evil.xsl\"");
       },
       "stylesheet reference"},
  };
  for (Tamper const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp(std::string("tampered-") + c.name + ".xml");
    std::string const edited = c.edit(original);
    ASSERT_NE(edited, original);
    Spit(path, edited);
    std::string const why = ExpectRefused(path);
    EXPECT_NE(why.find(c.expected), std::string::npos) << why;

    // Refused: nothing writes over it.
    Trail trail(path);
    EXPECT_THROW(trail->BeginSessionAndVerifySignature(), Exception);
    EXPECT_THROW(trail->AddEvent("more", "", 0), Exception);
    EXPECT_THROW(trail->Save(), Exception);
    EXPECT_THROW(trail->SaveAs(Temp("export.xml").c_str()), Exception);
    EXPECT_THROW(trail->EndSessionAndSave(), Exception);
    EXPECT_EQ(Slurp(path), edited);
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
  };
  Case const cases[] = {
      {"truncated", good.substr(0, good.size() / 2), "line"},
      {"not-xml", "2024-06-11 ann Sample measured\n", "line 1"},
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
    Trail trail(path);
    try {
      trail->Load();
      ADD_FAILURE() << "accepted";
    } catch (Exception const & refused) {
      EXPECT_NE(refused.Why().find(path), std::string::npos) << refused.Why();
      EXPECT_NE(refused.Why().find(c.expected), std::string::npos) << refused.Why();
    }
    EXPECT_THROW(trail->BeginSessionAndVerifySignature(), Exception);
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
  std::string const why = ExpectRefused(path);
  EXPECT_NE(why.find("older or different copy"), std::string::npos) << why;
}

TEST(AuditTrail, OnlyTrustedSignersVerify) {
  std::string const foreignKeys = Temp("foreign-keys");
  std::string const keys = Temp("own-keys");
  std::string const path = SavedTrail("foreign.xml", foreignKeys);
  std::string const why = ExpectRefused(path, keys);
  EXPECT_NE(why.find("does not trust"), std::string::npos) << why;

  ASSERT_TRUE(VxCreateFolder(keys + "/trusted"));
  Spit(keys + "/trusted/colleague.pub", Slurp(foreignKeys + "/signing-key.pub"));
  Trail trail(path, 1, keys);
  EXPECT_NO_THROW(trail->BeginSessionAndVerifySignature());
  trail->AddEvent("Reviewed here.", "", 0);
  EXPECT_NO_THROW(trail->EndSessionAndSave());
  Trail again(path, 1, keys);
  EXPECT_NO_THROW(again->BeginSessionAndVerifySignature()) << "resealed with our own key";
}

TEST(AuditTrail, SigningKeyMustBePrivate) {
  std::string const keys = Temp("leaky-keys");
  {
    Trail trail(Temp("leaky.xml"), 1, keys);
    trail->PrepareForLogging();
  }
  struct stat info {};
  ASSERT_EQ(::stat((keys + "/signing-key.pem").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
  ASSERT_EQ(::stat(keys.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  ASSERT_EQ(::chmod((keys + "/signing-key.pem").c_str(), 0644), 0);
  Trail trail(Temp("leaky.xml"), 1, keys);
  try {
    trail->PrepareForLogging();
    ADD_FAILURE() << "a key others can read was used";
  } catch (Exception const & refused) {
    EXPECT_NE(refused.Why().find("other users"), std::string::npos) << refused.Why();
  }
}

TEST(AuditTrail, ClearKeepsARefusedFileAndRecordsTheClearing) {
  std::string const path = SavedTrail("cleared.xml");
  std::string const edited = Replace(Slurp(path), "Sample A", "Sample Z");
  Spit(path, edited);
  std::string asideName;
  {
    Trail trail(path);
    EXPECT_THROW(trail->BeginSessionAndVerifySignature(), Exception);
    std::string const oldId = trail->GetTrailId();
    trail->Clear();
    ASSERT_EQ(trail->GetEvents().size(), 1u);
    AuditTrail::Event const & cleared = trail->GetEvents()[0];
    EXPECT_EQ(cleared.type, "cleared");
    EXPECT_NE(trail->GetTrailId(), oldId);
    std::smatch match;
    ASSERT_TRUE(std::regex_search(cleared.detail, match, std::regex("kept as (\\S+)\\.$")))
        << cleared.detail;
    asideName = match[1];
    EXPECT_EQ(Slurp(asideName), edited);
    trail->BeginSessionAndVerifySignature();
    trail->EndSessionAndSave();
  }
  Trail reloaded(path);
  EXPECT_NO_THROW(reloaded->BeginSessionAndVerifySignature());
  EXPECT_EQ(reloaded->GetEvents().front().type, "cleared");

  // A good trail: the clearing names the trail it replaces.
  std::string const previousId = reloaded->GetTrailId();
  reloaded->Clear();
  // cleared, begin and end of the first session, begin of this one
  EXPECT_NE(reloaded->GetEvents()[0].detail.find(previousId + " with 4 events"), std::string::npos)
      << reloaded->GetEvents()[0].detail;
}

TEST(AuditTrail, SignalsAnnounceTheLifeOfATrail) {
  std::map<std::string, int> fired;
  std::vector<boost::signals2::scoped_connection> connections;
  std::pair<char const *, AuditTrail::Signal *> const signals[] = {
      {"deleting", &AuditTrail::msAuditTrailDeleting},
      {"active", &AuditTrail::msAuditTrailActiveAuditTrailChanged},
      {"project", &AuditTrail::msAuditTrailProjectNameChanged},
      {"end", &AuditTrail::msAuditTrailEndSession},
      {"event", &AuditTrail::msAuditTrailEventAdded},
      {"begin", &AuditTrail::msAuditTrailBeginSession}};
  for (auto const & [name, signal] : signals)
    connections.emplace_back(
        signal->connect([&fired, name = name](AuditTrail *) { ++fired[name]; }));
  {
    auto trail = std::make_unique<Trail>(Temp("signals.xml"));
    AuditTrail::SetActiveAuditTrail(&trail->trail);
    EXPECT_EQ(AuditTrail::GetActiveAuditTrail(), &trail->trail);
    (*trail)->SetProjectName("P");
    (*trail)->BeginSessionAndVerifySignature();
    (*trail)->AddEvent("e", "", 0);
    (*trail)->BroadCastChange();
    (*trail)->EndSessionAndSave();
  }
  EXPECT_EQ(AuditTrail::GetActiveAuditTrail(), nullptr) << "a deleted trail is no longer active";
  std::map<std::string, int> const expected = {{"deleting", 1}, {"active", 2}, {"project", 1},
                                               {"end", 1},      {"event", 1},  {"begin", 1}};
  EXPECT_EQ(fired, expected);
}

TEST(AuditTrail, UnsavedEventsAreSavedOnDestructionAndBeforeALoad) {
  std::string const path = Temp("unsaved.xml");
  {
    Trail trail(path);
    trail->AddEvent("first", "", 0);
    EXPECT_EQ(VxFileExist(path), VxNothing) << "nothing is written before a save";
    EXPECT_TRUE(trail->IsModified());
    trail->Load();
    EXPECT_EQ(trail->GetEvents().size(), 1u) << "Load saved the event first";
    trail->AddEvent("second", "", 0);
  }
  Trail reloaded(path);
  reloaded->Load();
  EXPECT_EQ(reloaded->GetEvents().size(), 2u);
}

TEST(AuditTrail, EmptyTrailIsSavedToCreateItsFile) {
  std::string const path = Temp("empty.xml");
  Trail trail(path, 0);
  EXPECT_TRUE(trail->IsEmpty());
  trail->Save();
  EXPECT_EQ(VxFileExist(path), VxFile);
  Trail reloaded(path, 0);
  EXPECT_NO_THROW(reloaded->BeginSessionAndVerifySignature());
  EXPECT_TRUE(reloaded->IsEmpty()) << "logging off: no session events";
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
  std::string const stylesheet = Temp("export/audit_trail.xsl");
  ASSERT_EQ(Slurp(stylesheet), AuditTrail::GetStylesheet());

  xsltStylesheetPtr const sheet = xsltParseStylesheetFile(BAD_CAST stylesheet.c_str());
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

  EXPECT_EQ(page.find("<script"), std::string::npos) << page;
  EXPECT_EQ(page.find("<b>"), std::string::npos);
  EXPECT_EQ(page.find("<img"), std::string::npos);
  EXPECT_NE(page.find("&lt;script&gt;alert('x')&lt;/script&gt;&lt;b&gt;bold&lt;/b&gt;"),
            std::string::npos)
      << page;
  EXPECT_NE(page.find("Assay &amp; Co"), std::string::npos);
  EXPECT_NE(page.find("2024-06-11 09:15:02"), std::string::npos);
  std::regex const row("<tr class=\"(session-begin|event)\">");
  EXPECT_EQ(std::distance(std::sregex_iterator(page.begin(), page.end(), row),
                          std::sregex_iterator()),
            2);
}

TEST(AuditTrailSettings, ReadsAndWritesItsKeys) {
  auto * section = new InMemorySection;
  AuditTrailSettings settings(section);
  settings.mLogLevel = 7;
  settings.Load();
  EXPECT_EQ(settings.mLogLevel, 7) << "absent keys leave the fields alone";
  section->WriteKey("ExtendedUserInfo", "QA reviewer");
  section->WriteKey("LockedUI", "1");
  settings.Load();
  EXPECT_EQ(settings.mExtendedUserInfo, "QA reviewer");
  EXPECT_TRUE(settings.mLocked);
  settings.mLogLevel = 2;
  settings.mPromptForExtendedUserInfo = true;
  settings.Save();
  EXPECT_EQ(section->Raw("LogEvents"), "2");
  EXPECT_EQ(section->Raw("PromptForExtendedUserInfo"), "1");
  EXPECT_EQ(section->Raw("LockedUI"), "1");
  AuditTrailSettings none(nullptr);
  none.Load();
  none.Save();
  EXPECT_EQ(none.mLogLevel, 0);
}

}  // namespace
