#pragma once
// The text form of a shortcut: a freedesktop.org desktop-entry file
// ("[Desktop Entry]" with Type=Application), standing where a Windows
// shortcut stood. The four slots of a shortcut map to keys:
//
//   path               the program of Exec, always quoted
//   arguments          appended to Exec after one space, as written
//   description        Comment
//   working directory  Path
//
// Values are written with the format's escapes (\s \n \t \r \\; a space is
// escaped where a reader would drop it, at either end), and within Exec every
// "%" is doubled and the program's '"', '`', '$' and '\' are escaped inside
// its quotes, so that a round trip gives back each slot exactly, blanks,
// quotes, "%", backslashes and non-ASCII text included. The arguments are a
// command tail: they are kept as the caller wrote them, and quoting inside
// them is the caller's, as it was in a shortcut.

#include <optional>
#include <string>
#include <string_view>

struct DesktopShortcut {
  // UTF-8; an absent slot is left out of the file.
  std::optional<std::string> path;
  std::optional<std::string> description;
  std::optional<std::string> workingDirectory;
  std::optional<std::string> arguments;

  bool operator==(DesktopShortcut const & other) const;
};

// The file's text; `name` becomes its Name key.
std::string FormatDesktopEntry(DesktopShortcut const & shortcut, std::string const & name);

// Reads the slots of the "[Desktop Entry]" group (keys with a locale, other
// keys and later groups are skipped). The text must be valid UTF-8 and
// well formed: comments and blank lines, then "[Desktop Entry]" as the first
// group, "Key=Value" lines with keys of letters, digits and "-" (plus an
// optional "[locale]"), no key twice in a group, and an Exec whose quoted
// program is closed and followed by a space or nothing. False with a reason
// in `error` otherwise, leaving `shortcut` alone.
bool ParseDesktopEntry(std::string_view text, DesktopShortcut & shortcut, std::string & error);
