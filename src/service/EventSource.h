#pragma once
// One event source's registry record, under HKEY_LOCAL_MACHINE at
// "System\CurrentControlSet\Services\EventLog\<log>\<source>":
// "EventMessageFile", "CategoryCount", "CategoryMessageFile",
// "ParameterMessageFile" and "TypesSupported". Made by
// EventLog::CreateEventSource only; copies share the open key.

#include <memory>
#include <string>

#include "service/EventLog.h"

class RegistrySection;

class EventSource {
public:
  std::wstring GetMessageFile() const;
  // A null `file` removes the value.
  void SetMessageFile(wchar_t const * file);
  std::wstring GetCategoryFile() const;
  void SetCategoryFile(wchar_t const * file);
  std::wstring GetParameterFile() const;
  void SetParameterFile(wchar_t const * file);
  unsigned long GetNumCategories() const;
  void SetNumCategories(unsigned long count);
  EventLog::EventType GetSupportedEventTypes() const;
  void SetSupportedEventTypes(EventLog::EventType types);
  std::string const & GetSource() const { return mSource; }
  std::string const & GetLog() const { return mLog; }

private:
  friend class EventLog;
  // Opens, creating it, the source's key (throws Exception when it cannot),
  // and leaves it with a clean record.
  EventSource(std::string source, std::string log);

  std::wstring ReadText(char const * name) const;
  void WriteText(char const * name, wchar_t const * value);
  unsigned long ReadNumber(char const * name) const;

  std::string mSource;
  std::string mLog;
  std::shared_ptr<RegistrySection> mSection;
};
