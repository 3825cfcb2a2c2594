#pragma once
// Shortcuts as desktop-entry files (see DesktopEntry.h for the format): a
// link file written by CreateLink is a ".desktop" file a desktop can show
// and start, and ResolveLink reads one back.

#include "platform/WinHResult.h"

namespace VxShellLink {

// The four text slots of a shortcut; each buffer is NUL-terminated, and its
// size counts characters (code points, wchar_t being UTF-32 here). A null
// pointer leaves the slot out.
struct LinkInfo {
  wchar_t * path = nullptr;
  int pathSize = 0;
  wchar_t * description = nullptr;
  int descriptionSize = 0;
  wchar_t * workingDirectory = nullptr;
  int workingDirectorySize = 0;
  wchar_t * arguments = nullptr;
  int argumentsSize = 0;
};

// Writes the slots that are not null into `linkFile`, replacing it
// atomically; its Name is the file's name without ".desktop". The file is
// made executable (less the umask), as desktops want of a launcher.
// S_OK; E_POINTER for a null argument; E_FAIL when the file cannot be
// written.
long CreateLink(wchar_t const * linkFile, LinkInfo const * info);

// Reads `linkFile` and fills each slot whose pointer and size are both not
// zero, truncated to its buffer; a slot the file does not have becomes "".
// S_OK; E_POINTER for a null argument; HRESULT_FROM_WIN32 of
// ERROR_FILE_NOT_FOUND or ERROR_ACCESS_DENIED when the file cannot be
// opened, and of ERROR_BAD_FORMAT for a file that is no desktop entry (not a
// regular file, over 1 MiB, or malformed). On failure no slot is touched.
long ResolveLink(wchar_t const * linkFile, LinkInfo * info);

}  // namespace VxShellLink
