#include "service/JournalFields.h"

#include <syslog.h>

#include <algorithm>
#include <charconv>

#include "utl/Utf.h"

namespace VxJournal {

namespace {

constexpr std::string_view kMessage = "MESSAGE=";

// Most strings are short ASCII: nothing to cut or check.
bool IsPlainAscii(std::string_view text) {
  return text.size() <= kMaxStringCharacters &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > 0; });
}

// The cleaned `text` appended to `out`.
void AppendClean(std::string_view text, std::string & out) {
  if (IsPlainAscii(text)) {
    out.append(text.data(), text.size());
    return;
  }
  std::string const valid =
      vx3::SanitizeUtf8(text.substr(0, std::min(text.find('\0'), text.size())));
  size_t characters = 0;
  size_t at = 0;
  while (at < valid.size() && characters < kMaxStringCharacters) {
    vx3::DecodeUtf8(valid, at);
    ++characters;
  }
  out.append(valid, 0, at);
}

iovec Vector(std::string const & field) { return {const_cast<char *>(field.data()), field.size()}; }

}  // namespace

int Priority(unsigned int eventType) {
  if ((eventType & 1u) != 0) return LOG_ERR;
  if ((eventType & 2u) != 0) return LOG_WARNING;
  return LOG_INFO;
}

std::string CleanString(std::string_view text) {
  std::string result;
  AppendClean(text, result);
  return result;
}

std::string CleanIdentifier(std::string_view source) {
  std::string result = CleanString(source);
  for (char & c : result)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  return result;
}

EntryFields::EntryFields(std::string_view source, std::string_view log, std::string_view userSid)
    : mIdentifier(CleanIdentifier(source)),
      mIdentifierField("SYSLOG_IDENTIFIER=" + mIdentifier),
      mLogField("EVENT_LOG=" + CleanIdentifier(log)) {
  if (!userSid.empty()) mSidField = "USER_SID=" + CleanIdentifier(userSid);
}

EntryFields::Span EntryFields::AppendNumberField(std::string_view name, unsigned long value) {
  Span const span{mBuffer.size(), 0};
  mBuffer.append(name.data(), name.size());
  char digits[24];
  auto const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  mBuffer.append(digits, end);
  return {span.at, mBuffer.size() - span.at};
}

void EntryFields::Build(unsigned long id, unsigned int type, unsigned short category,
                        std::string const * strings, size_t stringCount, void const * data,
                        size_t dataSize) {
  mBuffer.clear();
  mStrings.clear();
  mHasNewline = false;
  mPriority = Priority(type);
  // The insertion strings first: the message repeats them as cleaned here.
  stringCount = std::min(stringCount, kMaxStrings);
  size_t valueBytes = 0;
  for (size_t i = 0; i < stringCount; ++i) {
    Span span = AppendNumberField("EVENT_STRING_", i + 1);
    mBuffer += '=';
    span.value = mBuffer.size();
    AppendClean(strings[i], mBuffer);
    span.size = mBuffer.size() - span.at;
    size_t const size = mBuffer.size() - span.value;
    valueBytes += size;
    if (!mHasNewline && std::string_view(mBuffer).find('\n', span.value) != std::string::npos)
      mHasNewline = true;
    mStrings.push_back(span);
  }
  // Room for the message now, so that copying the strings into it from the
  // same buffer never moves them.
  mBuffer.reserve(mBuffer.size() + 64 + valueBytes + 2 * stringCount);
  mMessage = AppendNumberField("MESSAGE=Event ", id);
  mBuffer += ':';
  mBuffer += ' ';
  for (size_t i = 0; i < mStrings.size(); ++i) {
    if (i > 0) mBuffer.append("; ", 2);
    Span const & field = mStrings[i];
    mBuffer.append(mBuffer.data() + field.value, field.at + field.size - field.value);
  }
  mMessage.size = mBuffer.size() - mMessage.at;
  Span const priority = AppendNumberField("PRIORITY=", static_cast<unsigned long>(mPriority));
  Span const eventId = AppendNumberField("EVENT_ID=", id);
  Span const eventType = AppendNumberField("EVENT_TYPE=", type);
  Span const eventCategory = AppendNumberField("EVENT_CATEGORY=", category);
  Span eventData{0, 0};
  if (data != nullptr && dataSize > 0) {
    static char const kHex[] = "0123456789ABCDEF";
    auto const * bytes = static_cast<unsigned char const *>(data);
    size_t const size = std::min(dataSize, kMaxDataBytes);
    eventData.at = mBuffer.size();
    mBuffer.append("EVENT_DATA=");
    size_t at = mBuffer.size();
    mBuffer.resize(at + 2 * size);
    for (size_t i = 0; i < size; ++i) {
      mBuffer[at++] = kHex[bytes[i] >> 4];
      mBuffer[at++] = kHex[bytes[i] & 15];
    }
    eventData.size = mBuffer.size() - eventData.at;
  }

  // The buffer is complete: point at it.
  char * const base = mBuffer.data();
  auto vector = [base](Span span) { return iovec{base + span.at, span.size}; };
  mFields.clear();
  mFields.push_back(vector(mMessage));
  mFields.push_back(vector(priority));
  mFields.push_back(Vector(mIdentifierField));
  mFields.push_back(vector(eventId));
  mFields.push_back(vector(eventType));
  mFields.push_back(vector(eventCategory));
  mFields.push_back(Vector(mLogField));
  for (Span const & span : mStrings) mFields.push_back(vector(span));
  if (eventData.size > 0) mFields.push_back(vector(eventData));
  if (!mSidField.empty()) mFields.push_back(Vector(mSidField));
}

std::string_view EntryFields::Message() const {
  return std::string_view(mBuffer).substr(mMessage.at + kMessage.size(),
                                          mMessage.size - kMessage.size());
}

}  // namespace VxJournal
