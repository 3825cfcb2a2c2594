#include "settings/VxRemoveDirectory.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

bool RemoveEntry(int parent, char const * name);

// Removes everything in the open folder `folder`, which this takes over.
bool EmptyFolder(int folder) {
  DIR * const listing = ::fdopendir(folder);
  if (listing == nullptr) {
    ::close(folder);
    return false;
  }
  // Names first, removals after: the listing is not changed under readdir.
  std::vector<std::string> names;
  while (dirent const * entry = ::readdir(listing)) {
    if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
      names.emplace_back(entry->d_name);
  }
  bool removed = true;
  for (std::string const & name : names)
    removed = RemoveEntry(::dirfd(listing), name.c_str()) && removed;
  ::closedir(listing);
  return removed;
}

bool RemoveEntry(int parent, char const * name) {
  struct stat info {};
  if (::fstatat(parent, name, &info, AT_SYMLINK_NOFOLLOW) != 0) return false;
  if (!S_ISDIR(info.st_mode)) return ::unlinkat(parent, name, 0) == 0;
  // O_NOFOLLOW: a folder swapped for a link since the fstatat fails here.
  int const folder = ::openat(parent, name, kFolderFlags);
  bool const emptied = folder >= 0 && EmptyFolder(folder);
  return ::unlinkat(parent, name, AT_REMOVEDIR) == 0 && emptied;
}

}  // namespace

bool VxRemoveDirectory(std::string const & path) {
  if (path.empty()) return false;
  int const folder = ::open(path.c_str(), kFolderFlags);
  if (folder < 0) return false;
  bool const emptied = EmptyFolder(folder);
  return ::rmdir(path.c_str()) == 0 && emptied;
}
