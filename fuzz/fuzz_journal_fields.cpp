// An event-log entry from anywhere: the first bytes give the identifier,
// type and category, the rest is the source, then insertion strings, then
// the data, separated by 0x1F. The fields must be what journald accepts
// (names of capitals, digits and "_"; text values valid UTF-8 without NUL;
// the identifier on one line), and the datagram must give them back.
#include <cstdint>
#include <string>
#include <vector>

#include "service/JournalFields.h"
#include "service/JournalWriter.h"
#include "utl/Utf.h"

namespace {

std::vector<std::string> Split(std::string const & text) {
  std::vector<std::string> parts;
  size_t at = 0;
  for (size_t end; (end = text.find('\x1F', at)) != std::string::npos; at = end + 1)
    parts.push_back(text.substr(at, end - at));
  parts.push_back(text.substr(at));
  return parts;
}

// The fields of a datagram as journald reads them; false when it is broken.
bool Parse(std::string const & datagram, std::vector<std::string> & fields) {
  for (size_t at = 0; at < datagram.size();) {
    size_t const end = datagram.find('\n', at);
    if (end == std::string::npos) return false;
    std::string const line = datagram.substr(at, end - at);
    if (line.find('=') != std::string::npos) {
      fields.push_back(line);
      at = end + 1;
      continue;
    }
    if (end + 9 > datagram.size()) return false;
    uint64_t size = 0;
    for (int i = 7; i >= 0; --i)
      size = (size << 8) | static_cast<unsigned char>(datagram[end + 1 + i]);
    if (size > datagram.size() || end + 9 + size >= datagram.size() ||
        datagram[end + 9 + size] != '\n')
      return false;
    fields.push_back(line + "=" + datagram.substr(end + 9, size));
    at = end + 10 + size;
  }
  return true;
}

bool IsFieldName(std::string const & name) {
  if (name.empty() || name[0] == '_' || (name[0] >= '0' && name[0] <= '9')) return false;
  for (char const c : name)
    if (!((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_')) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size < 7) return 0;
  unsigned long const id =
      data[0] | (data[1] << 8) | (data[2] << 16) | (static_cast<unsigned long>(data[3]) << 24);
  unsigned int const type = data[4];
  auto const category = static_cast<unsigned short>(data[5] | (data[6] << 8));
  std::vector<std::string> parts =
      Split(std::string(reinterpret_cast<char const *>(data) + 7, size - 7));
  std::string const binary = parts.size() > 2 ? parts.back() : std::string();
  std::vector<std::string> const strings(parts.begin() + 1,
                                         parts.size() > 2 ? parts.end() - 1 : parts.end());

  // Built twice: the second entry must not keep anything of the first.
  VxJournal::EntryFields entry(parts.front(), "Application", "S-1-22-1-0");
  entry.Build(id ^ 1u, type, category, parts.data(), parts.size());
  entry.Build(id, type, category, strings.data(), strings.size(), binary.data(), binary.size());
  std::vector<std::string> fields;
  bool newline = false;
  for (size_t i = 0; i < entry.Count(); ++i) {
    std::string const field(static_cast<char const *>(entry.Fields()[i].iov_base),
                            entry.Fields()[i].iov_len);
    size_t const equals = field.find('=');
    if (equals == std::string::npos || !IsFieldName(field.substr(0, equals))) __builtin_trap();
    std::string const value = field.substr(equals + 1);
    if (value.find('\0') != std::string::npos || vx3::SanitizeUtf8(value) != value)
      __builtin_trap();
    if (field.rfind("SYSLOG_IDENTIFIER=", 0) == 0 &&
        value.find_first_of("\n\r") != std::string::npos)
      __builtin_trap();
    if (i == 0 && (field.rfind("MESSAGE=", 0) != 0 || value != entry.Message())) __builtin_trap();
    newline = newline || value.find('\n') != std::string::npos;
    fields.push_back(field);
  }
  if (newline != entry.HasNewline()) __builtin_trap();
  std::vector<std::string> parsed;
  if (!Parse(JournalWriter::EncodeDatagram(entry.Fields(), entry.Count()), parsed) ||
      parsed != fields)
    __builtin_trap();
  return 0;
}
