#include "service/JournalFields.h"

#include <syslog.h>

#include <algorithm>

#include "utl/Utf.h"

namespace VxJournal {

int Priority(unsigned int eventType) {
  if ((eventType & 1u) != 0) return LOG_ERR;
  if ((eventType & 2u) != 0) return LOG_WARNING;
  return LOG_INFO;
}

std::string CleanString(std::string const & text) {
  // Most strings are short ASCII: nothing to cut or check.
  if (text.size() <= kMaxStringCharacters &&
      std::all_of(text.begin(), text.end(), [](char c) { return c > 0; }))
    return text;
  std::string const valid = vx3::SanitizeUtf8(std::string_view(text.c_str()));
  size_t characters = 0;
  size_t at = 0;
  while (at < valid.size() && characters < kMaxStringCharacters) {
    vx3::DecodeUtf8(valid, at);
    ++characters;
  }
  return valid.substr(0, at);
}

std::string CleanIdentifier(std::string const & source) {
  std::string result = CleanString(source);
  for (char & c : result)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  return result;
}

namespace {

std::vector<std::string> CleanStrings(std::vector<std::string> const & strings) {
  size_t const count = std::min(strings.size(), kMaxStrings);
  std::vector<std::string> cleaned;
  cleaned.reserve(count);
  for (size_t i = 0; i < count; ++i) cleaned.push_back(CleanString(strings[i]));
  return cleaned;
}

std::string JoinMessage(unsigned long id, std::vector<std::string> const & strings) {
  std::string text = "Event " + std::to_string(id) + ": ";
  for (size_t i = 0; i < strings.size(); ++i) {
    if (i > 0) text += "; ";
    text += strings[i];
  }
  return text;
}

}  // namespace

std::string MessageText(unsigned long id, std::vector<std::string> const & strings) {
  return JoinMessage(id, CleanStrings(strings));
}

std::vector<std::string> EncodeFields(Entry const & entry,
                                      std::vector<std::string> const & rawStrings) {
  std::vector<std::string> const strings = CleanStrings(rawStrings);
  std::vector<std::string> fields;
  fields.reserve(9 + strings.size());
  fields.push_back("MESSAGE=" + JoinMessage(entry.id, strings));
  fields.push_back("PRIORITY=" + std::to_string(Priority(entry.type)));
  fields.push_back("SYSLOG_IDENTIFIER=" + CleanIdentifier(entry.source));
  fields.push_back("EVENT_ID=" + std::to_string(entry.id));
  fields.push_back("EVENT_TYPE=" + std::to_string(entry.type));
  fields.push_back("EVENT_CATEGORY=" + std::to_string(entry.category));
  fields.push_back("EVENT_LOG=" + CleanIdentifier(entry.log));
  for (size_t i = 0; i < strings.size(); ++i)
    fields.push_back("EVENT_STRING_" + std::to_string(i + 1) + "=" + strings[i]);
  if (entry.data != nullptr && entry.dataSize > 0) {
    static char const kHex[] = "0123456789ABCDEF";
    auto const * bytes = static_cast<unsigned char const *>(entry.data);
    size_t const size = std::min(entry.dataSize, kMaxDataBytes);
    std::string field = "EVENT_DATA=";
    field.reserve(field.size() + 2 * size);
    for (size_t i = 0; i < size; ++i) {
      field += kHex[bytes[i] >> 4];
      field += kHex[bytes[i] & 15];
    }
    fields.push_back(std::move(field));
  }
  if (!entry.userSid.empty()) fields.push_back("USER_SID=" + entry.userSid);
  return fields;
}

}  // namespace VxJournal
