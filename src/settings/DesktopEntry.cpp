#include "settings/DesktopEntry.h"

#include <set>

#include "utl/Utf.h"

namespace {

constexpr std::string_view kGroup = "Desktop Entry";

// The value escapes of the format. Spaces at either end become \s, since
// readers drop blanks around "=" and some drop them at the end of a line.
std::string EscapeValue(std::string_view text) {
  std::string out;
  for (size_t index = 0; index < text.size(); ++index) {
    char const c = text[index];
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\t': out += "\\t"; break;
      case '\r': out += "\\r"; break;
      case ' ': out += (index == 0 || index + 1 == text.size()) ? "\\s" : " "; break;
      default: out += c;
    }
  }
  return out;
}

// The reverse; an unknown escape stays as it stands (the list separator
// "\;" of other keys, for one).
std::string UnescapeValue(std::string_view text) {
  std::string out;
  for (size_t index = 0; index < text.size(); ++index) {
    if (text[index] != '\\' || index + 1 == text.size()) {
      out += text[index];
      continue;
    }
    char const next = text[++index];
    switch (next) {
      case 's': out += ' '; break;
      case 'n': out += '\n'; break;
      case 't': out += '\t'; break;
      case 'r': out += '\r'; break;
      case '\\': out += '\\'; break;
      default: out += '\\'; out += next;
    }
  }
  return out;
}

std::string DoublePercents(std::string_view text) {
  std::string out;
  for (char const c : text) {
    out += c;
    if (c == '%') out += '%';
  }
  return out;
}

// The program as a quoted Exec argument: inside double quotes, '"', '`', '$'
// and '\' take a backslash; "%" is doubled.
std::string QuoteProgram(std::string_view program) {
  std::string out = "\"";
  for (char const c : program) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') out += '\\';
    out += c;
    if (c == '%') out += '%';
  }
  return out + "\"";
}

// Exec (unescaped) split into program and arguments; false when a quoted
// program is not closed or something other than a space follows it.
bool SplitExec(std::string const & exec, std::string & program,
               std::optional<std::string> & arguments) {
  size_t index = 0;
  program.clear();
  if (!exec.empty() && exec[0] == '"') {
    for (index = 1;; ++index) {
      if (index == exec.size()) return false;
      char const c = exec[index];
      if (c == '"') break;
      if (c == '\\' && index + 1 < exec.size() &&
          std::string_view("\"`$\\").find(exec[index + 1]) != std::string_view::npos) {
        program += exec[++index];
      } else if (c == '%' && index + 1 < exec.size() && exec[index + 1] == '%') {
        program += exec[++index];
      } else {
        program += c;
      }
    }
    ++index;
  } else {
    for (; index < exec.size() && exec[index] != ' '; ++index) {
      program += exec[index];
      if (exec[index] == '%' && index + 1 < exec.size() && exec[index + 1] == '%') ++index;
    }
  }
  if (index == exec.size()) {
    arguments.reset();
    return true;
  }
  if (exec[index] != ' ') return false;
  std::string tail;
  for (++index; index < exec.size(); ++index) {
    tail += exec[index];
    if (exec[index] == '%' && index + 1 < exec.size() && exec[index + 1] == '%') ++index;
  }
  arguments = tail;
  return true;
}

bool IsKeyCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
}

// Splits "Key[locale] = value" into the key with its locale and the raw
// value; false when the line is no entry.
bool SplitEntry(std::string_view line, std::string & key, bool & localised,
                std::string_view & value) {
  size_t const equals = line.find('=');
  if (equals == std::string_view::npos) return false;
  std::string_view name = line.substr(0, equals);
  while (!name.empty() && (name.back() == ' ' || name.back() == '\t')) name.remove_suffix(1);
  size_t const bracket = name.find('[');
  std::string_view const bare = name.substr(0, bracket);
  if (bare.empty()) return false;
  for (char const c : bare)
    if (!IsKeyCharacter(c)) return false;
  localised = bracket != std::string_view::npos;
  if (localised && (name.back() != ']' || name.size() < bracket + 3)) return false;
  key = std::string(name);
  value = line.substr(equals + 1);
  while (!value.empty() && (value.front() == ' ' || value.front() == '\t')) value.remove_prefix(1);
  return true;
}

}  // namespace

bool DesktopShortcut::operator==(DesktopShortcut const & other) const {
  return path == other.path && description == other.description &&
         workingDirectory == other.workingDirectory && arguments == other.arguments;
}

std::string FormatDesktopEntry(DesktopShortcut const & shortcut, std::string const & name) {
  std::string text = "[Desktop Entry]\nType=Application\nVersion=1.5\n";
  text += "Name=" + EscapeValue(name) + "\n";
  if (shortcut.description) text += "Comment=" + EscapeValue(*shortcut.description) + "\n";
  if (shortcut.path || shortcut.arguments) {
    std::string exec = QuoteProgram(shortcut.path.value_or(std::string()));
    if (shortcut.arguments) exec += " " + DoublePercents(*shortcut.arguments);
    text += "Exec=" + EscapeValue(exec) + "\n";
  }
  if (shortcut.workingDirectory) text += "Path=" + EscapeValue(*shortcut.workingDirectory) + "\n";
  return text;
}

bool ParseDesktopEntry(std::string_view text, DesktopShortcut & shortcut, std::string & error) {
  if (vx3::SanitizeUtf8(text) != text) {
    error = "the file is not valid UTF-8";
    return false;
  }
  DesktopShortcut read;
  bool inGroup = false;
  bool seenGroup = false;
  std::set<std::string> keys;
  size_t lineNumber = 0;
  for (size_t start = 0; start < text.size();) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(start, end - start);
    start = end + 1;
    ++lineNumber;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    std::string const where = "line " + std::to_string(lineNumber) + ": ";
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      if (line.back() != ']' || line.size() < 3) {
        error = where + "a group header is not closed";
        return false;
      }
      std::string_view const group = line.substr(1, line.size() - 2);
      if (!seenGroup && group != kGroup) {
        error = where + "the first group is not [Desktop Entry]";
        return false;
      }
      inGroup = group == kGroup && !seenGroup;
      seenGroup = true;
      keys.clear();
      continue;
    }
    std::string key;
    bool localised = false;
    std::string_view value;
    if (!SplitEntry(line, key, localised, value)) {
      error = where + "not a Key=Value entry";
      return false;
    }
    if (!seenGroup) {
      error = where + "an entry before [Desktop Entry]";
      return false;
    }
    if (!keys.insert(key).second) {
      error = where + "the key " + key + " stands twice";
      return false;
    }
    if (!inGroup || localised) continue;
    if (key == "Comment") {
      read.description = UnescapeValue(value);
    } else if (key == "Path") {
      read.workingDirectory = UnescapeValue(value);
    } else if (key == "Exec") {
      std::string program;
      if (!SplitExec(UnescapeValue(value), program, read.arguments)) {
        error = where + "the program of Exec is not quoted properly";
        return false;
      }
      read.path = program;
    }
  }
  if (!seenGroup) {
    error = "there is no [Desktop Entry] group";
    return false;
  }
  shortcut = std::move(read);
  return true;
}
