#include "settings/VxShellLink.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "platform/WinError.h"
#include "settings/DesktopEntry.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/Utf.h"

namespace VxShellLink {

namespace {

constexpr off_t kLargestEntry = 1 << 20;

std::optional<std::string> SlotText(wchar_t const * text) {
  if (text == nullptr) return std::nullopt;
  return vx3::WideToUtf8(text);
}

void FillSlot(std::optional<std::string> const & text, wchar_t * buffer, int size) {
  if (buffer == nullptr || size <= 0) return;
  std::wstring const wide = vx3::Utf8ToWide(text.value_or(std::string()));
  size_t const count = std::min(wide.size(), static_cast<size_t>(size) - 1);
  wide.copy(buffer, count);
  buffer[count] = L'\0';
}

std::string LinkName(std::string const & file) {
  std::string name = VxGetFileName(file);
  std::string const suffix = ".desktop";
  if (name.size() > suffix.size() &&
      name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0)
    name.resize(name.size() - suffix.size());
  return name;
}

// The whole file, or an HRESULT saying why not.
HRESULT ReadEntry(std::string const & file, std::string & text) {
  int const descriptor = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descriptor < 0) {
    return HRESULT_FROM_WIN32(errno == EACCES || errno == EPERM ? ERROR_ACCESS_DENIED
                                                                : ERROR_FILE_NOT_FOUND);
  }
  struct stat info {};
  HRESULT result = S_OK;
  if (::fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > kLargestEntry) {
    result = HRESULT_FROM_WIN32(ERROR_BAD_FORMAT);
  } else {
    text.clear();
    char chunk[8192];
    for (;;) {
      ssize_t const got = ::read(descriptor, chunk, sizeof chunk);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) {
        result = E_FAIL;
        break;
      }
      if (got == 0) break;
      text.append(chunk, static_cast<size_t>(got));
      // The file may have grown since fstat.
      if (text.size() > static_cast<size_t>(kLargestEntry)) {
        result = HRESULT_FROM_WIN32(ERROR_BAD_FORMAT);
        break;
      }
    }
  }
  ::close(descriptor);
  return result;
}

}  // namespace

long CreateLink(wchar_t const * linkFile, LinkInfo const * info) {
  if (linkFile == nullptr || info == nullptr) return E_POINTER;
  std::string const file = vx3::WideToUtf8(linkFile);
  DesktopShortcut shortcut;
  shortcut.path = SlotText(info->path);
  shortcut.description = SlotText(info->description);
  shortcut.workingDirectory = SlotText(info->workingDirectory);
  shortcut.arguments = SlotText(info->arguments);
  try {
    vx3::WriteFileAtomically(file, FormatDesktopEntry(shortcut, LinkName(file)), 0777);
  } catch (Exception const & e) {
    Log::WriteMessage("VxShellLink", "CreateLink", e.Why(), Log::Error, false);
    return E_FAIL;
  }
  return S_OK;
}

long ResolveLink(wchar_t const * linkFile, LinkInfo * info) {
  if (linkFile == nullptr || info == nullptr) return E_POINTER;
  std::string const file = vx3::WideToUtf8(linkFile);
  std::string text;
  HRESULT const read = ReadEntry(file, text);
  if (FAILED(read)) return read;
  DesktopShortcut shortcut;
  std::string error;
  if (!ParseDesktopEntry(text, shortcut, error)) {
    Log::WriteMessage("VxShellLink", "ResolveLink", file + ": " + error, Log::Notice, false);
    return HRESULT_FROM_WIN32(ERROR_BAD_FORMAT);
  }
  FillSlot(shortcut.path, info->path, info->pathSize);
  FillSlot(shortcut.description, info->description, info->descriptionSize);
  FillSlot(shortcut.workingDirectory, info->workingDirectory, info->workingDirectorySize);
  FillSlot(shortcut.arguments, info->arguments, info->argumentsSize);
  return S_OK;
}

}  // namespace VxShellLink
