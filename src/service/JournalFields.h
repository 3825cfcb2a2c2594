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

#include <cstddef>
#include <string>
#include <vector>

namespace VxJournal {

constexpr size_t kMaxStringCharacters = 31839;
constexpr size_t kMaxStrings = 256;
constexpr size_t kMaxDataBytes = 61440;

struct Entry {
  std::string source;
  std::string log;
  std::string userSid;
  unsigned long id = 0;
  unsigned int type = 4;
  unsigned short category = 0;
  void const * data = nullptr;
  size_t dataSize = 0;
};

// The syslog priority of an event type.
int Priority(unsigned int eventType);

// The string as it is written: cut at NUL, valid UTF-8, at most
// kMaxStringCharacters code points.
std::string CleanString(std::string const & text);

// The source as an identifier: cleaned, and every control character
// (which journald would take for the end of a field name's line) a space.
std::string CleanIdentifier(std::string const & source);

// "Event <id>: " and the cleaned strings joined by "; ".
std::string MessageText(unsigned long id, std::vector<std::string> const & strings);

// Every field as "NAME=value", in the order of the table above, for the
// entry with these insertion strings.
std::vector<std::string> EncodeFields(Entry const & entry,
                                      std::vector<std::string> const & strings);

}  // namespace VxJournal
