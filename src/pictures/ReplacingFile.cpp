#include "pictures/ReplacingFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

mode_t NewFileMode(std::string const & path) {
  struct stat existing {};
  if (::stat(path.c_str(), &existing) == 0) return existing.st_mode & 07777;
  mode_t const mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

std::FILE * ReplacingFile::Open() {
  Discard();
  mTemporary = mTarget + ".XXXXXX";
  int const descriptor = ::mkstemp(mTemporary.data());
  if (descriptor < 0) {
    mTemporary.clear();
    return nullptr;
  }
  ::fchmod(descriptor, NewFileMode(mTarget));
  mFile = ::fdopen(descriptor, "wb");
  if (mFile == nullptr) {
    int const reason = errno;
    ::close(descriptor);
    ::unlink(mTemporary.c_str());
    mTemporary.clear();
    errno = reason;
  }
  return mFile;
}

bool ReplacingFile::Commit() {
  if (mFile == nullptr) return false;
  bool const closed = std::fclose(mFile) == 0;
  mFile = nullptr;
  bool const done = closed && std::rename(mTemporary.c_str(), mTarget.c_str()) == 0;
  if (!done) {
    int const reason = errno;
    ::unlink(mTemporary.c_str());
    errno = reason;
  }
  mTemporary.clear();
  return done;
}

void ReplacingFile::Discard() {
  if (mFile != nullptr) {
    std::fclose(mFile);
    mFile = nullptr;
  }
  if (!mTemporary.empty()) {
    ::unlink(mTemporary.c_str());
    mTemporary.clear();
  }
}
