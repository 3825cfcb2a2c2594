#include "utl/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "utl/Exception.h"

namespace vx3 {

bool ReadWholeFile(std::string const & path, size_t maxBytes, std::string & bytes) {
  auto const failure = [&](int error) {
    return Exception(ExceptionMessage::translate("The file {1} cannot be read: {2}.") % path %
                     std::string(std::strerror(error)));
  };
  // O_NONBLOCK: a FIFO at that path must not hang the caller.
  int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) {
    if (errno == ENOENT) return false;
    throw failure(errno);
  }
  struct Closer {
    int fd;
    ~Closer() { ::close(fd); }
  } const closer{fd};
  struct stat info {};
  if (::fstat(fd, &info) != 0) throw failure(errno);
  if (!S_ISREG(info.st_mode))
    throw Exception(
        ExceptionMessage::translate("The file {1} cannot be read: it is no regular file.") % path);
  auto const tooLarge = [&] {
    return Exception(
        ExceptionMessage::translate("The file {1} is larger than {2} MB and is not read.") % path %
        static_cast<int>(maxBytes >> 20));
  };
  if (static_cast<unsigned long long>(info.st_size) > maxBytes) throw tooLarge();
  std::string content(static_cast<size_t>(info.st_size), '\0');
  size_t filled = 0;
  for (;;) {
    // Read one byte beyond the expected size: the file may have grown.
    if (filled == content.size()) {
      if (content.size() >= maxBytes + 1) throw tooLarge();
      content.resize(std::min(maxBytes + 1, content.size() + 65536));
    }
    ssize_t const got = ::read(fd, &content[filled], content.size() - filled);
    if (got < 0) {
      if (errno == EINTR) continue;
      throw failure(errno);
    }
    if (got == 0) break;
    filled += static_cast<size_t>(got);
  }
  if (filled > maxBytes) throw tooLarge();
  content.resize(filled);
  bytes.swap(content);
  return true;
}

int ReadFileBytes(std::string const & path, std::string & bytes) {
  int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return errno;
  char buffer[64 * 1024];
  int code = 0;
  for (;;) {
    ssize_t const n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) code = errno;
    if (n <= 0) break;
    bytes.append(buffer, static_cast<size_t>(n));
  }
  ::close(fd);
  return code;
}

}  // namespace vx3
