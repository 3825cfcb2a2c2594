#pragma once
// One event-log entry as the journal's fields. journald has no message
// files to expand an event identifier into text, so the entry carries its
// text and its parts as fields of their own, which keeps entries searchable
// (`journalctl EVENT_ID=7 SYSLOG_IDENTIFIER=Sampler`):
//
//   MESSAGE            "Event <id>: " + the strings joined by "; "
//   PRIORITY           3 error, 4 warning, 6 information (and the rest)
//   SYSLOG_IDENTIFIER  the source
//   EVENT_ID, EVENT_TYPE, EVENT_CATEGORY, EVENT_LOG
//   EVENT_STRING_1 ... one per insertion string
//   EVENT_DATA         the binary data in hexadecimal, when there is any
//   USER_SID           the writer's SID, when it has one
//
// Strings come from the program, often from outside input, so each is cut
// as the platform cut it: at its first NUL, to 31,839 characters, invalid
// UTF-8 removed; at most 256 strings and 61,440 bytes of data are kept.

#include <sys/uio.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace VxJournal {

constexpr size_t kMaxStringCharacters = 31839;
constexpr size_t kMaxStrings = 256;
constexpr size_t kMaxDataBytes = 61440;

// The syslog priority of an event type.
int Priority(unsigned int eventType);

// The string as it is written: cut at NUL, valid UTF-8, at most
// kMaxStringCharacters code points.
std::string CleanString(std::string_view text);

// The source as an identifier: cleaned, and every control character
// (which journald would take for the end of a field name's line) a space.
std::string CleanIdentifier(std::string_view source);

// The fields of the entries one writer makes: one source, one log, one
// user. Those three are cleaned and encoded once; each entry's own fields
// are written into one buffer kept from entry to entry, so that once it has
// grown an entry costs no allocation. Not safe to build from two threads.
class EntryFields {
public:
  EntryFields(std::string_view source, std::string_view log, std::string_view userSid);

  // Makes the fields of one entry; what the accessors below give stays
  // valid until the next call.
  void Build(unsigned long id, unsigned int type, unsigned short category,
             std::string const * strings, size_t stringCount, void const * data = nullptr,
             size_t dataSize = 0);

  // Every field as "NAME=value", in the order of the table above.
  iovec const * Fields() const { return mFields.data(); }
  size_t Count() const { return mFields.size(); }
  // A value holds a newline (the native protocol then needs its binary form).
  bool HasNewline() const { return mHasNewline; }
  std::string_view Message() const;
  int EntryPriority() const { return mPriority; }
  std::string const & Identifier() const { return mIdentifier; }

private:
  struct Span {
    size_t at;
    size_t size;
    size_t value = 0;  // where the value starts, for the insertion strings
  };
  Span AppendNumberField(std::string_view name, unsigned long value);

  std::string mIdentifier;
  std::string mIdentifierField;  // "SYSLOG_IDENTIFIER=..."
  std::string mLogField;         // "EVENT_LOG=..."
  std::string mSidField;         // "USER_SID=...", or empty
  std::string mBuffer;
  std::vector<Span> mStrings;  // the EVENT_STRING_n fields in mBuffer
  std::vector<iovec> mFields;
  Span mMessage{0, 0};
  int mPriority = 6;
  bool mHasNewline = false;
};

}  // namespace VxJournal
