#include "settings/VxCanCreateFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <locale>

#include "utl/ExceptionMessage.h"
#include "utl/Paths.h"

namespace {

std::string OpenFailure(std::string const & path, int code) {
  return (ExceptionMessage::translate("The file {1} could not be opened: {2}.") % path %
          std::string(std::strerror(code)))
      .ToString(std::locale());
}

}  // namespace

bool VxCanCreateFile(std::string const & path, std::string * error, int * existed) {
  int const kind = VxFileExist(path);
  if (existed != nullptr) *existed = kind;
  int file = -1;
  // O_NONBLOCK: a FIFO or device standing there must not hang the test.
  if (kind == VxFile) {
    file = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  } else if (kind == VxNothing) {
    // O_EXCL: only a file made here is removed afterwards, never one that
    // another process created meanwhile.
    file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOCTTY | O_CLOEXEC, 0666);
  } else {
    return false;
  }
  if (file < 0) {
    if (error != nullptr) *error = OpenFailure(path, errno);
    return false;
  }
  bool const closed = ::close(file) == 0;
  if (kind == VxNothing) return ::unlink(path.c_str()) == 0 && closed;
  return closed;
}
