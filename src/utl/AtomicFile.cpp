#include "utl/AtomicFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "utl/Exception.h"
#include "utl/Paths.h"

namespace vx3 {

namespace {

Exception WriteFailure(std::string const & path, int error) {
  return Exception(ExceptionMessage::translate("The file {1} cannot be written: {2}.") % path %
                   std::string(std::strerror(error)));
}

// Where the bytes must go: the target itself, or what a link at the target
// points to (which need not exist yet).
std::string ResolveTarget(std::string const & path) {
  struct stat info {};
  if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
  std::string target(PATH_MAX, '\0');
  ssize_t const length = ::readlink(path.c_str(), &target[0], target.size());
  if (length <= 0 || static_cast<size_t>(length) >= target.size()) return path;
  target.resize(static_cast<size_t>(length));
  if (target.front() != '/') target = VxPathAppend(VxGetDirectory(path), target);
  return target;
}

void WriteAll(int fd, std::string_view bytes, std::string const & path) {
  while (!bytes.empty()) {
    ssize_t const written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      throw WriteFailure(path, errno);
    }
    bytes.remove_prefix(static_cast<size_t>(written));
  }
}

constexpr size_t kSuffixLength = 6;
constexpr char kSuffixDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";

// ".<name>.tmp-": the temporaries of `target` are this and six digits.
std::string TemporaryPrefix(std::string const & target) {
  return "." + VxGetFileName(target) + ".tmp-";
}

bool IsTemporaryName(std::string const & name, std::string const & prefix) {
  if (name.size() != prefix.size() + kSuffixLength || name.compare(0, prefix.size(), prefix) != 0)
    return false;
  return std::all_of(name.begin() + prefix.size(), name.end(),
                     [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z'); });
}

// Removes the temporaries of this target whose writers are gone: a writer
// holds an exclusive flock on its temporary until it has renamed it, and the
// kernel drops the lock of a process that died, so a temporary whose lock
// can be taken belongs to nobody. Best effort: nothing here is reported.
void RemoveStaleTemporaries(std::string const & folder, std::string const & prefix) {
  std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.c_str()), ::closedir);
  if (!directory) return;
  std::vector<std::string> found;
  while (dirent const * entry = ::readdir(directory.get()))
    if (IsTemporaryName(entry->d_name, prefix)) found.emplace_back(entry->d_name);
  for (std::string const & name : found) {
    std::string const temporary = VxPathAppend(folder, name);
    int const fd = ::open(temporary.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) continue;
    struct stat locked {};
    struct stat named {};
    // Still the file that was locked (not renamed into place meanwhile and
    // replaced): then it is removed while the lock keeps writers off it.
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0 && ::fstat(fd, &locked) == 0 &&
        ::lstat(temporary.c_str(), &named) == 0 && S_ISREG(named.st_mode) &&
        locked.st_dev == named.st_dev && locked.st_ino == named.st_ino)
      ::unlink(temporary.c_str());
    ::close(fd);
  }
}

}  // namespace

void WriteFileAtomically(std::string const & path, std::string_view bytes, mode_t mode) {
  std::string const target = ResolveTarget(path);
  std::string folder = VxGetDirectory(target);
  if (folder.empty()) folder = ".";
  std::string const prefix = TemporaryPrefix(target);
  RemoveStaleTemporaries(folder, prefix);

  // A fresh name with O_EXCL; the kernel applies the umask to `mode`
  // (mkstemp would fix 0600, and reading the umask is not thread-safe).
  // The lock on it says "its writer lives" until the rename is done.
  std::string temporary;
  int fd = -1;
  for (int attempt = 0; fd < 0 && attempt < 16; ++attempt) {
    unsigned char noise[kSuffixLength];
    if (::getentropy(noise, sizeof noise) != 0) throw WriteFailure(path, errno);
    std::string suffix;
    for (unsigned char const byte : noise) suffix += kSuffixDigits[byte % 36];
    temporary = VxPathAppend(folder, prefix + suffix);
    fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd < 0 && errno != EEXIST) throw WriteFailure(path, errno);
    if (fd < 0) continue;
    // Between open and flock another writer may have taken the new file for
    // a dead one's and removed it; then it has no name and another is made.
    struct stat made {};
    if (::flock(fd, LOCK_EX) != 0) {
      int const error = errno;
      ::unlink(temporary.c_str());
      ::close(fd);
      throw WriteFailure(path, error);
    }
    if (::fstat(fd, &made) != 0 || made.st_nlink == 0) {
      ::close(fd);
      fd = -1;
    }
  }
  if (fd < 0) throw WriteFailure(path, EEXIST);

  auto const abandon = [&](int error) {
    ::unlink(temporary.c_str());
    ::close(fd);
    return WriteFailure(path, error);
  };
  struct stat existing {};
  if (::stat(target.c_str(), &existing) == 0 && ::fchmod(fd, existing.st_mode & 07777) != 0)
    throw abandon(errno);
  try {
    WriteAll(fd, bytes, path);
  } catch (...) {
    ::unlink(temporary.c_str());
    ::close(fd);
    throw;
  }
  if (::fsync(fd) != 0) throw abandon(errno);
  // Renamed while the lock is held, so that no writer ever sees the
  // temporary unlocked under its temporary name.
  if (::rename(temporary.c_str(), target.c_str()) != 0) throw abandon(errno);
  // The bytes are on disk already (fsync): a failing close changes nothing.
  ::close(fd);

  // The rename is in the folder's data: flush it too. A failure here comes
  // after the new content is in place, so it is not reported.
  int const folderFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folderFd >= 0) {
    ::fsync(folderFd);
    ::close(folderFd);
  }
}

}  // namespace vx3
