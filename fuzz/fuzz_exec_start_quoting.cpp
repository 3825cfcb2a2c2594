// The ExecStart line of an installed service: whatever the program's path
// and argument hold, reading the line back by systemd's rules (C escapes in
// double quotes, "%%" for "%", "$$" for "$" in arguments) gives them back,
// and the line holds no raw line break or control character. Paths that
// pass the program check hold nothing systemd refuses in a program's name.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "service/ServiceUnitFile.h"

namespace {

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Splits the line into words as systemd reads a command line; false for
// anything it would not read.
bool ReadWords(std::string const & line, std::vector<std::string> & words) {
  std::size_t at = 0;
  while (at < line.size()) {
    if (line[at] == ' ') {
      ++at;
      continue;
    }
    if (line[at] != '"') return false;
    ++at;
    std::string word;
    bool const argument = !words.empty();
    for (;;) {
      if (at >= line.size()) return false;
      char const c = line[at++];
      if (c == '"') break;
      if (c == '\\') {
        if (at >= line.size()) return false;
        char const e = line[at++];
        if (e == 'n')
          word += '\n';
        else if (e == 't')
          word += '\t';
        else if (e == '\\' || e == '"')
          word += e;
        else if (e == 'x' && at + 1 < line.size() && HexValue(line[at]) >= 0 &&
                 HexValue(line[at + 1]) >= 0) {
          word += static_cast<char>(HexValue(line[at]) * 16 + HexValue(line[at + 1]));
          at += 2;
        } else {
          return false;
        }
      } else if (c == '%') {
        if (at >= line.size() || line[at] != '%') return false;  // a specifier
        ++at;
        word += '%';
      } else if (c == '$' && argument) {
        if (at >= line.size() || line[at] != '$') return false;  // a variable
        ++at;
        word += '$';
      } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
        return false;
      } else {
        word += c;
      }
    }
    words.push_back(word);
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::size_t const split = input.find('\0');
  std::string const program = input.substr(0, split);
  std::string const argument = split == std::string::npos ? std::string() : input.substr(split + 1);
  if (argument.find('\0') != std::string::npos) return 0;  // a unit file cannot hold NUL

  std::string const line = VxService::QuoteExecStart(program, &argument, 1);
  std::vector<std::string> words;
  if (!ReadWords(line, words)) std::abort();
  if (words.size() != 2 || words[0] != program || words[1] != argument) std::abort();

  if (VxService::IsUsableProgramPath(program)) {
    for (unsigned char c : program)
      if (c < 0x20 || c == 0x7F || c == '"' || c == '\\' || c == '\'') std::abort();
    if (program.empty() || program[0] != '/' || program.find("//") != std::string::npos)
      std::abort();
  }
  return 0;
}
