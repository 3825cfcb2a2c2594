#include "utl/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

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

}  // namespace

void WriteFileAtomically(std::string const & path, std::string_view bytes, mode_t mode) {
  std::string const target = ResolveTarget(path);
  std::string folder = VxGetDirectory(target);
  if (folder.empty()) folder = ".";

  // A fresh name with O_EXCL; the kernel applies the umask to `mode`
  // (mkstemp would fix 0600, and reading the umask is not thread-safe).
  std::string temporary;
  int fd = -1;
  for (int attempt = 0; fd < 0 && attempt < 16; ++attempt) {
    unsigned char noise[6];
    if (::getentropy(noise, sizeof noise) != 0) throw WriteFailure(path, errno);
    static char const kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::string suffix;
    for (unsigned char const byte : noise) suffix += kDigits[byte % 36];
    temporary = VxPathAppend(folder, "." + VxGetFileName(target) + ".tmp-" + suffix);
    fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd < 0 && errno != EEXIST) throw WriteFailure(path, errno);
  }
  if (fd < 0) throw WriteFailure(path, EEXIST);

  auto const abandon = [&](int error) {
    if (fd >= 0) ::close(fd);
    ::unlink(temporary.c_str());
    return WriteFailure(path, error);
  };
  struct stat existing {};
  if (::stat(target.c_str(), &existing) == 0 && ::fchmod(fd, existing.st_mode & 07777) != 0)
    throw abandon(errno);
  try {
    WriteAll(fd, bytes, path);
  } catch (...) {
    ::close(fd);
    ::unlink(temporary.c_str());
    throw;
  }
  if (::fsync(fd) != 0) throw abandon(errno);
  int const closed = ::close(fd);
  fd = -1;
  if (closed != 0) throw abandon(errno);
  if (::rename(temporary.c_str(), target.c_str()) != 0) throw abandon(errno);

  // The rename is in the folder's data: flush it too. A failure here comes
  // after the new content is in place, so it is not reported.
  int const folderFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folderFd >= 0) {
    ::fsync(folderFd);
    ::close(folderFd);
  }
}

}  // namespace vx3
