#include "utl/Paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace {

// Position of the separator that ends the folder part, ignoring trailing
// separators of the folder itself.
std::string::size_type LastSeparator(std::string const & path) { return path.rfind('/'); }

}  // namespace

std::string VxGetDirectory(std::string path) {
  auto const slash = LastSeparator(path);
  if (slash == std::string::npos) return std::string();
  // Drop the separator run before the last element, but keep the root.
  auto end = slash;
  while (end > 0 && path[end - 1] == '/') --end;
  if (end == 0) return "/";
  path.resize(end);
  return path;
}

std::string VxGetFileName(std::string const & path) {
  auto const slash = LastSeparator(path);
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string VxGetFileExtension(std::string const & path) {
  std::string const name = VxGetFileName(path);
  auto const dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return std::string();
  return name.substr(dot + 1);
}

std::string VxPathAppend(std::string directory, std::string name) {
  if (directory.empty()) return name;
  if (name.empty()) return directory;
  while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
  std::string::size_type start = 0;
  while (start < name.size() && name[start] == '/') ++start;
  if (directory != "/") directory += '/';
  directory.append(name, start, std::string::npos);
  return directory;
}

bool VxCreateFolder(std::string const & path) {
  if (path.empty()) return false;
  if (VxFileExist(path) == VxFolder) return true;
  // Create each missing level in turn; a level that another process created
  // meanwhile (EEXIST) is no failure.
  std::string::size_type position = 0;
  while (position != std::string::npos) {
    position = path.find('/', position + 1);
    std::string const level = path.substr(0, position);
    if (level.empty() || level == "/") continue;
    if (::mkdir(level.c_str(), 0777) != 0 && errno != EEXIST) return false;
  }
  return VxFileExist(path) == VxFolder;
}

int VxFileExist(std::string const & path) {
  struct stat info {};
  if (path.empty() || ::stat(path.c_str(), &info) != 0) return VxNothing;
  return S_ISDIR(info.st_mode) ? VxFolder : VxFile;
}

std::string VxGetModuleFileName() {
  std::vector<char> buffer(4096);
  for (;;) {
    ssize_t const length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length < 0) return std::string();
    if (static_cast<size_t>(length) < buffer.size())
      return std::string(buffer.data(), static_cast<size_t>(length));
    buffer.resize(buffer.size() * 2);
  }
}

std::string VxGetExecutableDirectory() {
  std::string const file = VxGetModuleFileName();
  return file.empty() ? file : VxGetDirectory(file);
}
