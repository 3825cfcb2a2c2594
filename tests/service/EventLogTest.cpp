// The event log: sources in the registry store's system hive, entries as
// journal fields (read from a socket bound here, in the journal's own
// protocol), the system log when no journal listens, and the SID of the
// writing user.
#include <gtest/gtest.h>
#include <poll.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <syslog.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/RegistryStore.h"
#include "platform/WinError.h"
#include "platform/WinReg.h"
#include "service/EventLog.h"
#include "service/EventSource.h"
#include "service/JournalWriter.h"
#include "service/ServiceErrorText.h"
#include "service/VxSid.h"
#include "utl/Exception.h"
#include "utl/Paths.h"

namespace {

std::wstring const kRoot = L"System\\CurrentControlSet\\Services\\EventLog";

std::string TempPath(std::string const & name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/" + name;
}

void MakeKey(std::wstring const & path) {
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(key);
}

bool KeyExists(std::wstring const & path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
    return false;
  RegCloseKey(key);
  return true;
}

std::wstring SourceKey(std::wstring const & log, std::wstring const & source) {
  return kRoot + L"\\" + log + L"\\" + source;
}

class EventSources : public ::testing::Test {
protected:
  void TearDown() override {
    for (wchar_t const * source : {L"Sampler", L"Straße Monitor"})
      EventLog::DeleteEventSource(source);
  }
};

TEST_F(EventSources, ASourceIsFoundWithoutRegardToCaseInAnyLog) {
  EventSource source = EventLog::CreateEventSource(L"Sampler", L"System");
  EXPECT_EQ(source.GetSupportedEventTypes(), 7);
  EXPECT_EQ(source.GetMessageFile(), L"");
  EXPECT_EQ(source.GetNumCategories(), 0u);
  source.SetMessageFile(L"/opt/sampler/bin/sampler");
  source.SetCategoryFile(L"/opt/sampler/categories");
  source.SetNumCategories(3);
  EventLog::CreateEventSource(L"Straße Monitor", L"Application");

  std::map<std::wstring, std::string> const found = {{L"SAMPLER", "System"},
                                                     {L"sampler", "System"},
                                                     {L"STRASSE MONITOR", "Application"},
                                                     {L"Sample", ""},
                                                     {L"", ""}};
  for (auto const & [name, log] : found) {
    EXPECT_EQ(EventLog::LogNameFromSourceName(name.c_str()), log);
    EXPECT_EQ(EventLog::SourceExists(name.c_str()), !log.empty());
  }
  try {
    EventLog::CreateEventSource(L"SAMPLER", L"Application");
    ADD_FAILURE() << "a second source of the same name was made";
  } catch (Exception & e) {
    EXPECT_EQ(e.Why(), "The event source already exists");
  }
  EXPECT_EQ(source.GetMessageFile(), L"/opt/sampler/bin/sampler") << "the first source is kept";
  source.SetMessageFile(nullptr);
  EXPECT_EQ(source.GetMessageFile(), L"");
  EXPECT_EQ(source.GetCategoryFile(), L"/opt/sampler/categories");
  EXPECT_EQ(source.GetNumCategories(), 3u);

  EXPECT_TRUE(EventLog::DeleteEventSource(L"sampler"));
  EXPECT_FALSE(KeyExists(SourceKey(L"System", L"Sampler")));
  EXPECT_FALSE(EventLog::DeleteEventSource(L"Sampler"));
}

TEST_F(EventSources, HostileNamesAreRefusedAndWriteNothing) {
  std::wstring const surrogate(1, static_cast<wchar_t>(0xD800));
  std::vector<std::pair<std::wstring, std::wstring>> const names = {
      {L"", L"Application"},
      {L"a\\b", L"Application"},
      {L"tab\there", L"Application"},
      {std::wstring(300, L'x'), L"Application"},
      {L"bad" + surrogate, L"Application"},
      {L"Fine", L""},
      {L"Fine", L"App\\lication"}};
  for (auto const & [source, log] : names) {
    EXPECT_THROW(EventLog::CreateEventSource(source.c_str(), log.c_str()), Exception);
  }
  EXPECT_THROW(EventLog::CreateEventSource(nullptr, L"Application"), Exception);
  EXPECT_FALSE(KeyExists(SourceKey(L"Application", L"a")));
  EXPECT_FALSE(KeyExists(SourceKey(L"Application", L"Fine")));
  EXPECT_FALSE(EventLog::SourceExists(nullptr));
  EXPECT_FALSE(EventLog::DeleteEventSource(nullptr));
}

TEST_F(EventSources, OddKeysLeftInTheRegistryDoNotStopTheSearch) {
  MakeKey(kRoot + L"\\Odd\\" + std::wstring(255, L'z'));
  MakeKey(kRoot + L"\\Odd\\%s%n\x2028\x0001");
  MakeKey(kRoot + L"\\Empty Log");
  MakeKey(kRoot + L"\\Zeta\\Deep\\Below\\Sampler");  // a key below a source is no source
  for (int i = 0; i < 50; ++i) MakeKey(kRoot + L"\\Many\\Source " + std::to_wstring(i));
  EventLog::CreateEventSource(L"Sampler", L"Application");
  EXPECT_EQ(EventLog::LogNameFromSourceName(L"sampler"), "Application");
  EXPECT_EQ(EventLog::LogNameFromSourceName(L"SOURCE 49"), "Many");
  EXPECT_EQ(EventLog::LogNameFromSourceName(L"Deep\\Below"), "");
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kRoot.c_str());
}

// Who may write the system hive registers sources: "nobody" may not.
TEST(EventSourceRights, RegisteringASourceNeedsTheRightToWriteTheSystemHive) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs root to run a child as nobody";
  struct passwd const * nobody = ::getpwnam("nobody");
  ASSERT_NE(nobody, nullptr);
  MakeKey(kRoot + L"\\Application");
  registry::CloseHives();
  std::string const hive = std::getenv("TALVO_REGISTRY_SYSTEM_HIVE");
  // Let nobody through the folders of this run to read the hive.
  for (std::string at = VxGetDirectory(hive); at.size() > 1 && at != "/tmp";
       at = VxGetDirectory(at)) {
    struct stat info {};
    ::stat(at.c_str(), &info);
    ::chmod(at.c_str(), (info.st_mode & 07777) | 0711);
  }
  ::chmod(VxGetDirectory(hive).c_str(), 0755);
  ::chmod(hive.c_str(), 0644);
  std::string const child = VxGetExecutableDirectory() + "/eventlog_test_child";
  std::vector<std::string> const asNobody = {
      "/usr/bin/setpriv", "--reuid=" + std::to_string(nobody->pw_uid),
      "--regid=" + std::to_string(nobody->pw_gid), "--clear-groups", "--"};
  std::map<std::string, std::string> const ownUserHive = {
      {"TALVO_REGISTRY_USER_HIVE", TempPath("nobody-user.db")}};

  ChildProcess create;
  std::vector<std::string> command = asNobody;
  command.insert(command.end(), {child, "create", "Intruder"});
  ASSERT_TRUE(create.Start(command, ownUserHive));
  std::string const created = create.ReadAll();
  EXPECT_EQ(create.Wait(), 0);
  EXPECT_EQ(created.rfind("refused ", 0), 0u) << created;
  EXPECT_FALSE(KeyExists(SourceKey(L"Application", L"Intruder")));

  ChildProcess sid;
  command = asNobody;
  command.insert(command.end(), {child, "sid"});
  ASSERT_TRUE(sid.Start(command, ownUserHive));
  EXPECT_EQ(sid.ReadAll(), "S-1-22-1-" + std::to_string(nobody->pw_uid) + "\n");
  sid.Wait();

  // A UID without an account (as in containers) has no SID.
  ChildProcess unknown;
  ASSERT_TRUE(unknown.Start(
      {"/usr/bin/setpriv", "--reuid=54321", "--regid=54321", "--clear-groups", "--", child, "sid"},
      ownUserHive));
  EXPECT_EQ(unknown.ReadAll(), "-\n");
  unknown.Wait();
}

// A journal at a socket of this test.
class JournalEntries : public ::testing::Test {
protected:
  void SetUp() override {
    mPath = TempPath("journal-socket");
    Bind();
  }
  void Bind() {
    ::unlink(mPath.c_str());
    mSocket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", mPath.c_str());
    ASSERT_EQ(::bind(mSocket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    int const size = 4 << 20;
    ::setsockopt(mSocket, SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
  }
  void TearDown() override {
    ::close(mSocket);
    ::unlink(mPath.c_str());
  }

  // The fields of the next datagram, parsed as journald parses them; the
  // order of the names is kept in `order`.
  std::map<std::string, std::string> Receive(std::vector<std::string> * order = nullptr) {
    std::map<std::string, std::string> fields;
    pollfd wait{mSocket, POLLIN, 0};
    if (::poll(&wait, 1, 0) != 1) return fields;
    std::string datagram(1 << 20, '\0');
    ssize_t const got = ::recv(mSocket, datagram.data(), datagram.size(), 0);
    datagram.resize(got > 0 ? static_cast<size_t>(got) : 0);
    for (size_t at = 0; at < datagram.size();) {
      size_t const end = datagram.find('\n', at);
      if (end == std::string::npos) break;
      std::string const line = datagram.substr(at, end - at);
      size_t const equals = line.find('=');
      std::string name, value;
      if (equals != std::string::npos) {
        name = line.substr(0, equals);
        value = line.substr(equals + 1);
        at = end + 1;
      } else {  // binary: name, newline, 64-bit little-endian size, value, newline
        name = line;
        uint64_t size = 0;
        for (int i = 7; i >= 0; --i)
          size = (size << 8) | static_cast<unsigned char>(datagram[end + 1 + i]);
        value = datagram.substr(end + 9, size);
        EXPECT_EQ(datagram[end + 9 + size], '\n');
        at = end + 10 + size;
      }
      EXPECT_EQ(fields.count(name), 0u) << name << " twice";
      fields[name] = value;
      if (order != nullptr) order->push_back(name);
    }
    return fields;
  }

  std::string mPath;
  int mSocket = -1;
};

TEST_F(JournalEntries, AnEntryCarriesItsPartsAsFields) {
  EventLog::CreateEventSource(L"Sampler", L"System");
  EventLog log(L"Sampler", std::make_shared<JournalWriter>(mPath));
  unsigned char const data[] = {0x00, 0x7F, 0xAB, 0xFF};
  log.WriteEntry(std::vector<std::string>{"pump 3", "pressure over limit"}, 7, EventLog::Warning, 2,
                 sizeof data, data);
  std::vector<std::string> order;
  auto fields = Receive(&order);
  EventLog::DeleteEventSource(L"Sampler");
  std::map<std::string, std::string> const expected = {
      {"MESSAGE", "Event 7: pump 3; pressure over limit"},
      {"PRIORITY", "4"},
      {"SYSLOG_IDENTIFIER", "Sampler"},
      {"EVENT_ID", "7"},
      {"EVENT_TYPE", "2"},
      {"EVENT_CATEGORY", "2"},
      {"EVENT_LOG", "System"},
      {"EVENT_STRING_1", "pump 3"},
      {"EVENT_STRING_2", "pressure over limit"},
      {"EVENT_DATA", "007FABFF"},
      {"USER_SID", VxSid(nullptr).ToString()}};
  if (expected.at("USER_SID").empty()) fields.erase("USER_SID");
  EXPECT_EQ(fields, expected);
  ASSERT_FALSE(order.empty());
  EXPECT_EQ(order.front(), "MESSAGE");

  struct Type {
    EventLog::EventType type;
    char const * priority;
  } const types[] = {{EventLog::Error, "3"}, {EventLog::Information, "6"}};
  for (Type const & t : types) {
    log.WriteEntry(t.type == EventLog::Error ? 9 : 10, t.type);
    auto const entry = Receive();
    EXPECT_EQ(entry.count("EVENT_STRING_1"), 0u);
    EXPECT_EQ(entry.count("EVENT_DATA"), 0u);
    EXPECT_EQ(entry.at("PRIORITY"), t.priority);
  }
}

TEST_F(JournalEntries, HostileStringsArriveCutAndReadable) {
  EventLog log(L"Bad\nSource", std::make_shared<JournalWriter>(mPath));
  std::string const huge(40000, 'x');
  std::vector<std::string> strings = {std::string("ab\0cd", 5), huge, "line 1\nline 2",
                                      "\xFF\xFEok\xC3", std::string(70000, 'y')};
  log.WriteEntry(strings, 1, EventLog::Error);
  auto const fields = Receive();
  ASSERT_FALSE(fields.empty()) << "the entry did not arrive";
  EXPECT_EQ(fields.at("EVENT_STRING_1"), "ab");
  EXPECT_EQ(fields.at("EVENT_STRING_2").size(), 31839u);
  EXPECT_EQ(fields.at("EVENT_STRING_3"), "line 1\nline 2");
  EXPECT_EQ(fields.at("EVENT_STRING_4"), "ok");
  EXPECT_EQ(fields.at("SYSLOG_IDENTIFIER"), "Bad Source");
  EXPECT_EQ(fields.at("MESSAGE").rfind("Event 1: ab; xxx", 0), 0u);

  strings.assign(300, "s");
  log.WriteEntry(strings, 2);
  auto const many = Receive();
  EXPECT_EQ(many.count("EVENT_STRING_256"), 1u);
  EXPECT_EQ(many.count("EVENT_STRING_257"), 0u);
}

TEST_F(JournalEntries, AJournalStartedAgainGetsTheNextEntry) {
  std::vector<std::pair<int, std::string>> lines;
  EventLog log(L"Sampler",
               std::make_shared<JournalWriter>(mPath, [&lines](int priority, char const * text) {
                 lines.emplace_back(priority, text);
               }));
  log.WriteEntry("before", 1);
  EXPECT_EQ(Receive()["EVENT_STRING_1"], "before");
  ::close(mSocket);  // the journal stops: its socket is gone
  log.WriteEntry("while stopped", 2);
  Bind();  // and starts again with a new socket at the same path
  log.WriteEntry("after", 3);
  EXPECT_EQ(Receive()["EVENT_STRING_1"], "after");
  std::vector<std::pair<int, std::string>> const expected = {
      {LOG_INFO, "Sampler: Event 2: while stopped"}};
  EXPECT_EQ(lines, expected);
}

TEST_F(JournalEntries, WithoutAJournalTheSystemLogGetsTheText) {
  std::vector<std::pair<int, std::string>> lines;
  auto writer = std::make_shared<JournalWriter>(
      TempPath("no-journal-here"),
      [&lines](int priority, char const * text) { lines.emplace_back(priority, text); });
  EventLog log(L"Sampler", writer);
  log.WriteEntry(std::vector<std::string>{"a", "b"}, 7, EventLog::Error);
  log.WriteEntry("c", 8);
  EventLog(nullptr, writer).WriteEntry("nothing", 9);
  std::vector<std::pair<int, std::string>> const expected = {{LOG_ERR, "Sampler: Event 7: a; b"},
                                                             {LOG_INFO, "Sampler: Event 8: c"}};
  EXPECT_EQ(lines, expected);
}

TEST(ServiceErrorText, GivesTheSystemTextWithoutItsCode) {
  std::map<unsigned long, std::string> const texts = {
      {5, "Access is denied."},
      {1066, "The service has returned a service-specific error code."},
      {1063, "The service process could not connect to the service controller."},
      {987654, "Unknown error."}};
  for (auto const & [code, text] : texts) EXPECT_EQ(VxService::GetErrorText(code), text);
}

}  // namespace
