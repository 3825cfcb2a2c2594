#pragma once
// The event log: entries written by a source, and the sources registered in
// the registry store (HKEY_LOCAL_MACHINE, so registering needs the right to
// write the system hive, as it needed an administrator).
//
// Entries go to the journal (JournalFields.h names the fields), or to the
// system log when no journal listens. Writing never throws.

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "service/VxSid.h"

class EventSource;
class JournalWriter;
namespace VxJournal {
class EntryFields;
}

class EventLog {
public:
  enum EventType { Error = 1, Warning = 2, Information = 4 };

  static char const * const APPLICATION_LOG;  // "Application"
  static char const * const SYSTEM_LOG;       // "System"
  // "System\CurrentControlSet\Services\EventLog".
  static char const * const ROOT_KEY;

  // Registers `source` for writing; a null source gives an object that
  // writes nothing.
  explicit EventLog(wchar_t const * source);
  // The same, writing to `writer` (a journal at another socket, or a test's).
  EventLog(wchar_t const * source, std::shared_ptr<JournalWriter> writer);
  ~EventLog();
  EventLog(EventLog const &) = delete;
  EventLog & operator=(EventLog const &) = delete;

  // Throws Exception "The event source already exists" when a log has the
  // source already, or when the source's key cannot be made (no right to
  // write the system hive, a name the registry cannot hold).
  static EventSource CreateEventSource(wchar_t const * source, wchar_t const * log);
  // False when the source is in no log or its key cannot be deleted.
  static bool DeleteEventSource(wchar_t const * source);
  static bool SourceExists(wchar_t const * source);
  // The log that holds `source`, compared without regard to case; empty
  // when none does (or the root cannot be opened).
  static std::string LogNameFromSourceName(wchar_t const * source);

  void WriteEntry(unsigned long id, EventType type = Information, unsigned short category = 0,
                  unsigned long size = 0, void const * data = nullptr);
  void WriteEntry(std::string const & text, unsigned long id, EventType type = Information,
                  unsigned short category = 0, unsigned long size = 0, void const * data = nullptr);
  void WriteEntry(std::vector<std::string> const & texts, unsigned long id,
                  EventType type = Information, unsigned short category = 0, unsigned long size = 0,
                  void const * data = nullptr);

private:
  // Every WriteEntry ends here. The strings are cut at NUL as the wide
  // strings of the platform call were.
  void InternalWriteEntry(std::string const * texts, size_t count, unsigned long id, EventType type,
                          unsigned short category, unsigned long size, void const * data);

  VxSid mSid;
  std::string mSource;  // empty: no handle
  std::string mLog;
  std::shared_ptr<JournalWriter> mWriter;
  std::mutex mLock;  // one entry is built at a time in mFields
  std::unique_ptr<VxJournal::EntryFields> mFields;
};
