#pragma once
// The unit file that installing a service writes: a Type=notify service
// whose ExecStart is the program, started on demand only (no [Install]
// section, so nothing enables it), under the given account or root.

#include <string>

namespace VxService {

// An ExecStart value: the program, then its arguments, each in double
// quotes with systemd's escapes: "%" doubled everywhere (specifiers), "$"
// doubled in arguments (the program's path is not expanded, so it stays),
// and backslash, quote and control characters as C escapes in arguments.
std::string QuoteExecStart(std::string const & program, std::string const * arguments = nullptr,
                           std::size_t argumentCount = 0);

// Whether systemd takes `path` as a program: absolute, normalised, valid
// UTF-8, and none of the characters it refuses in a program's name
// (control characters, DEL, quotes, backslash).
bool IsUsableProgramPath(std::string const & path);

// The unit file's text. `account` empty: root (no User= line).
std::string UnitFileText(std::string const & serviceName, std::string const & program,
                         std::string const & account);

// Where units of the system's manager (/etc/systemd/system) or of the
// user's manager ($XDG_CONFIG_HOME/systemd/user) are written.
std::string UnitFolder(bool userManager);

}  // namespace VxService
