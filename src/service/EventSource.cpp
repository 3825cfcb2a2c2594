#include "service/EventSource.h"

#include "settings/RegistrySection.h"
#include "utl/Utf.h"

namespace {

char const * const kMessageFile = "EventMessageFile";
char const * const kCategoryCount = "CategoryCount";
char const * const kCategoryFile = "CategoryMessageFile";
char const * const kParameterFile = "ParameterMessageFile";
char const * const kTypesSupported = "TypesSupported";

}  // namespace

EventSource::EventSource(std::string source, std::string log)
    : mSource(std::move(source)), mLog(std::move(log)) {
  std::string const path = std::string(EventLog::ROOT_KEY) + "\\" + mLog + "\\" + mSource;
  mSection = std::make_shared<RegistrySection>(HKEY_LOCAL_MACHINE, path.c_str(), 0x2001F, true);
  for (char const * name : {kMessageFile, kCategoryCount, kCategoryFile, kParameterFile})
    mSection->DeleteKey(name);
  mSection->WriteInt(kTypesSupported, 7);
}

std::wstring EventSource::ReadText(char const * name) const {
  std::wstring value;
  if (!mSection->ReadKey(name, value)) return {};
  return value;
}

void EventSource::WriteText(char const * name, wchar_t const * value) {
  if (value == nullptr)
    mSection->DeleteKey(name);
  else
    mSection->WriteKey(name, value);
}

unsigned long EventSource::ReadNumber(char const * name) const {
  int value = 0;
  if (!mSection->ReadInt(name, value)) return 0;
  return static_cast<unsigned long>(static_cast<unsigned int>(value));
}

std::wstring EventSource::GetMessageFile() const { return ReadText(kMessageFile); }
void EventSource::SetMessageFile(wchar_t const * file) { WriteText(kMessageFile, file); }
std::wstring EventSource::GetCategoryFile() const { return ReadText(kCategoryFile); }
void EventSource::SetCategoryFile(wchar_t const * file) { WriteText(kCategoryFile, file); }
std::wstring EventSource::GetParameterFile() const { return ReadText(kParameterFile); }
void EventSource::SetParameterFile(wchar_t const * file) { WriteText(kParameterFile, file); }
unsigned long EventSource::GetNumCategories() const { return ReadNumber(kCategoryCount); }

void EventSource::SetNumCategories(unsigned long count) {
  mSection->WriteInt(kCategoryCount, static_cast<int>(count));
}

EventLog::EventType EventSource::GetSupportedEventTypes() const {
  return static_cast<EventLog::EventType>(ReadNumber(kTypesSupported));
}

void EventSource::SetSupportedEventTypes(EventLog::EventType types) {
  mSection->WriteInt(kTypesSupported, static_cast<int>(types));
}
