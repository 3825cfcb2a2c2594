// Any subject, body, path and address through the crash report's mailto
// link: the link is one token of plain ASCII with exactly one "?", and
// percent-decoding each field gives back what went in.
#include <cstdint>
#include <string>

#include "crash/CrashReportText.h"

namespace {

std::string Decode(std::string const & text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      out.push_back(static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16)));
      i += 2;
    } else {
      out.push_back(text[i]);
    }
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  // Four fields split at NUL bytes: address, subject, body, path.
  std::string fields[4];
  size_t field = 0;
  for (char const c : input) {
    if (c == '\0' && field < 3)
      ++field;
    else
      fields[field].push_back(c);
  }
  std::string const url = crash_report::MailtoUrl(fields[0], fields[1], fields[2], fields[3]);
  for (char const c : url)
    if (static_cast<unsigned char>(c) <= ' ' || static_cast<unsigned char>(c) >= 0x7f)
      __builtin_trap();
  size_t const query = url.find('?');
  if (query == std::string::npos || url.find('?', query + 1) != std::string::npos) __builtin_trap();
  if (Decode(url.substr(7, query - 7)) != fields[0]) __builtin_trap();
  size_t const body = url.find("&body=");
  if (body == std::string::npos || url.compare(query, 9, "?subject=") != 0) __builtin_trap();
  if (Decode(url.substr(query + 9, body - query - 9)) != fields[1]) __builtin_trap();
  std::string const text = Decode(url.substr(body + 6));
  if (text.size() < fields[2].size() ||
      text.compare(text.size() - fields[2].size(), std::string::npos, fields[2]) != 0)
    __builtin_trap();
  for (crash_report::Run const & run : crash_report::SplitLinks(fields[1]))
    if (run.text.size() > fields[1].size()) __builtin_trap();
  return 0;
}
