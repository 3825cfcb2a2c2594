#pragma once
// Opening a URL or a document with the desktop's choice of program.
//
// Everything goes through one replaceable launcher, so that tests see what
// would be opened instead of starting a browser. The default launcher hands
// a target with a URL scheme ("https:", "mailto:", "file:") to
// wxLaunchDefaultBrowser and anything else, a path, to
// wxLaunchDefaultApplication; both start xdg-open with the target as one
// argument, never through a shell, so no character of the target is
// interpreted.

#include <functional>
#include <string>

// Opens a UTF-8 target; true when a program was started.
using VxUrlLauncher = std::function<bool(std::string const & target)>;

// Installs `launcher` (an empty one reinstalls the default) and returns the
// one it replaces.
VxUrlLauncher VxSetUrlLauncher(VxUrlLauncher launcher);

// Whether `target` starts with a URL scheme: a letter, then letters, digits,
// "+", "-" or ".", then ":". A one-letter scheme is taken as a drive ("C:").
bool VxHasUrlScheme(std::string const & target);

// Opens `url` through the launcher and returns true whatever came of it, as
// callers never acted on the result; a null `url` opens nothing. `flag` is
// not used.
bool LaunchURL(wchar_t const * url, bool flag);
