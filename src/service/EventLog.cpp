#include "service/EventLog.h"

#include <boost/locale/message.hpp>

#include "service/EventSource.h"
#include "service/JournalFields.h"
#include "service/JournalWriter.h"
#include "settings/RegistrySection.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"
#include "utl/Utf.h"
#include "utl/VxStdString.h"

char const * const EventLog::APPLICATION_LOG = "Application";
char const * const EventLog::SYSTEM_LOG = "System";
char const * const EventLog::ROOT_KEY = "System\\CurrentControlSet\\Services\\EventLog";

namespace {

constexpr REGSAM kSourceAccess = 0x2001F;

std::string Narrow(wchar_t const * text) {
  return text != nullptr ? vx3::WideToUtf8(text) : std::string();
}

// The sub-keys of `path` under HKEY_LOCAL_MACHINE; empty when it cannot be
// opened with the access the family always used.
std::vector<std::string> SubKeys(std::string const & path) {
  RegistrySection section;
  if (!section.Open(HKEY_LOCAL_MACHINE, path.c_str(), kSourceAccess, false)) return {};
  return section.GetSectionNames();
}

// A name the registry holds as one key: not empty, at most 255 characters,
// no "\\" (which would make it a path), no control characters, no
// character outside Unicode.
bool IsKeyName(wchar_t const * name) {
  if (name == nullptr || name[0] == L'\0') return false;
  size_t length = 0;
  for (wchar_t const * c = name; *c != L'\0'; ++c, ++length) {
    auto const code = static_cast<unsigned long>(*c);
    if (length >= 255 || *c == L'\\' || code < 0x20 || code == 0x7F ||
        (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF)
      return false;
  }
  return true;
}

}  // namespace

EventLog::EventLog(wchar_t const * source) : EventLog(source, std::make_shared<JournalWriter>()) {}

EventLog::EventLog(wchar_t const * source, std::shared_ptr<JournalWriter> writer)
    : mSid(nullptr), mWriter(std::move(writer)) {
  if (source == nullptr) return;
  mSource = Narrow(source);
  mLog = LogNameFromSourceName(source);
  // An unregistered source writes to the application log, as it always did.
  if (mLog.empty()) mLog = APPLICATION_LOG;
  mFields = std::make_unique<VxJournal::EntryFields>(mSource, mLog, mSid.ToString());
}

EventLog::~EventLog() = default;

std::string EventLog::LogNameFromSourceName(wchar_t const * source) {
  if (source == nullptr) return {};
  std::string const wanted = Narrow(source);
  std::locale const locale;
  for (std::string const & log : SubKeys(ROOT_KEY))
    for (std::string const & name : SubKeys(std::string(ROOT_KEY) + "\\" + log))
      if (VxStdString::CompareNoCase(name, wanted, locale) == 0) return log;
  return {};
}

bool EventLog::SourceExists(wchar_t const * source) {
  return !LogNameFromSourceName(source).empty();
}

EventSource EventLog::CreateEventSource(wchar_t const * source, wchar_t const * log) {
  if (!LogNameFromSourceName(source).empty())
    throw Exception(ExceptionMessage::translate("The event source already exists"));
  if (!IsKeyName(source) || !IsKeyName(log))
    throw Exception(ExceptionMessage::translate("The event source or log name is invalid"));
  return EventSource(Narrow(source), Narrow(log));
}

bool EventLog::DeleteEventSource(wchar_t const * source) {
  try {
    std::string const log = LogNameFromSourceName(source);
    if (log.empty()) return false;
    RegistrySection section(HKEY_LOCAL_MACHINE,
                            (std::string(ROOT_KEY) + "\\" + log + "\\" + Narrow(source)).c_str(),
                            kSourceAccess, false);
    return section.DeleteSection();
  } catch (Exception &) {
    return false;
  }
}

void EventLog::WriteEntry(unsigned long id, EventType type, unsigned short category,
                          unsigned long size, void const * data) {
  InternalWriteEntry(nullptr, 0, id, type, category, size, data);
}

void EventLog::WriteEntry(std::string const & text, unsigned long id, EventType type,
                          unsigned short category, unsigned long size, void const * data) {
  InternalWriteEntry(&text, 1, id, type, category, size, data);
}

void EventLog::WriteEntry(std::vector<std::string> const & texts, unsigned long id, EventType type,
                          unsigned short category, unsigned long size, void const * data) {
  InternalWriteEntry(texts.data(), texts.size(), id, type, category, size, data);
}

void EventLog::InternalWriteEntry(std::string const * texts, size_t count, unsigned long id,
                                  EventType type, unsigned short category, unsigned long size,
                                  void const * data) {
  if (mSource.empty() || !mWriter) return;
  try {
    std::lock_guard<std::mutex> const hold(mLock);
    mFields->Build(id, static_cast<unsigned int>(type), category, texts, count, data,
                   data != nullptr ? size : 0);
    mWriter->Write(*mFields);
  } catch (std::exception &) {
    // Writing to the log never throws (only memory can run out here).
  }
}
