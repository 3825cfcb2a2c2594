#include "platform/AcceleratorText.h"

#include <cctype>
#include <utility>

#include <wx/accel.h>
#include <wx/defs.h>

namespace {

bool SameNoCase(std::string_view a, char const * b) {
  size_t i = 0;
  for (; i < a.size() && b[i] != '\0'; ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return i == a.size() && b[i] == '\0';
}

int NamedKey(std::string_view name) {
  static std::pair<char const *, int> const kNames[] = {
      {"Del", WXK_DELETE},    {"Delete", WXK_DELETE},
      {"Ins", WXK_INSERT},    {"Insert", WXK_INSERT},
      {"Home", WXK_HOME},     {"End", WXK_END},
      {"PgUp", WXK_PAGEUP},   {"PageUp", WXK_PAGEUP},
      {"PgDn", WXK_PAGEDOWN}, {"PageDown", WXK_PAGEDOWN},
      {"Left", WXK_LEFT},     {"Right", WXK_RIGHT},
      {"Up", WXK_UP},         {"Down", WXK_DOWN},
      {"Enter", WXK_RETURN},  {"Return", WXK_RETURN},
      {"Esc", WXK_ESCAPE},    {"Escape", WXK_ESCAPE},
      {"Tab", WXK_TAB},       {"Space", WXK_SPACE},
      {"Back", WXK_BACK},     {"Backspace", WXK_BACK},
  };
  if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0])))
    return std::toupper(static_cast<unsigned char>(name[0]));
  if (name.size() >= 2 && name.size() <= 3 && (name[0] == 'F' || name[0] == 'f')) {
    int number = 0;
    for (char const c : name.substr(1)) {
      if (!std::isdigit(static_cast<unsigned char>(c))) return 0;
      number = number * 10 + (c - '0');
    }
    return number >= 1 && number <= 24 ? WXK_F1 + number - 1 : 0;
  }
  for (auto const & [text, code] : kNames)
    if (SameNoCase(name, text)) return code;
  return 0;
}

// "Ctrl+Shift+F" into flags and key; false for anything else.
bool ParseKeys(std::string_view keys, AcceleratorLine & line) {
  line.flags = wxACCEL_NORMAL;
  while (true) {
    size_t const plus = keys.find('+', 1);  // a lone "+" is no separator
    if (plus == std::string_view::npos) break;
    std::string_view const modifier = keys.substr(0, plus);
    if (SameNoCase(modifier, "Ctrl"))
      line.flags |= wxACCEL_CTRL;
    else if (SameNoCase(modifier, "Shift"))
      line.flags |= wxACCEL_SHIFT;
    else if (SameNoCase(modifier, "Alt"))
      line.flags |= wxACCEL_ALT;
    else
      return false;
    keys.remove_prefix(plus + 1);
  }
  line.keyCode = NamedKey(keys);
  return line.keyCode != 0;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view NextWord(std::string_view & rest) {
  while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
  size_t end = 0;
  while (end < rest.size() && !IsBlank(rest[end])) ++end;
  std::string_view const word = rest.substr(0, end);
  rest.remove_prefix(end);
  return word;
}

}  // namespace

bool ParseAcceleratorText(std::string_view text, std::vector<AcceleratorLine> & lines,
                          std::string & error) {
  int number = 0;
  while (!text.empty()) {
    ++number;
    size_t const end = text.find('\n');
    std::string_view rest = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    std::string_view const keys = NextWord(rest);
    if (keys.empty() || keys.front() == '#') continue;
    std::string const where = "line " + std::to_string(number) + ": ";
    AcceleratorLine line{};
    if (!ParseKeys(keys, line)) {
      error = where + "\"" + std::string(keys) + "\" is no key";
      return false;
    }
    std::string_view const command = NextWord(rest);
    unsigned long id = 0;
    bool digits = !command.empty() && command.size() <= 5;
    for (char const c : command) {
      digits = digits && std::isdigit(static_cast<unsigned char>(c));
      id = id * 10 + static_cast<unsigned>(c - '0');
    }
    if (!digits || id < 1 || id > 65535) {
      error = where + "a command id of 1 to 65535 expected";
      return false;
    }
    if (!NextWord(rest).empty()) {
      error = where + "unexpected text after the command id";
      return false;
    }
    line.command = static_cast<unsigned>(id);
    lines.push_back(line);
  }
  return true;
}

unsigned FindAccelerator(std::vector<AcceleratorLine> const & lines, int flags, int keyCode) {
  if (keyCode >= 'a' && keyCode <= 'z') keyCode -= 'a' - 'A';
  for (AcceleratorLine const & line : lines)
    if (line.keyCode == keyCode && line.flags == flags) return line.command;
  return 0;
}
