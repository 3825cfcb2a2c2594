#include "crash/ProcessMemory.h"

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <sstream>

namespace {

// The next field of a maps line, up to a space (or `separator`).
bool Field(char const *& at, char separator, std::string & field) {
  while (*at == ' ') ++at;
  char const * start = at;
  while (*at != '\0' && *at != ' ' && *at != separator) ++at;
  field.assign(start, at);
  if (*at == separator && separator != ' ') ++at;
  return !field.empty();
}

bool Hex(std::string const & text, uint64_t & value) {
  char * end = nullptr;
  errno = 0;
  value = std::strtoull(text.c_str(), &end, 16);
  return errno == 0 && end != text.c_str() && *end == '\0';
}

}  // namespace

std::vector<Mapping> ParseMaps(std::string const & text) {
  std::vector<Mapping> mappings;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    // start-end perms offset dev inode [path]
    Mapping mapping;
    char const * at = line.c_str();
    std::string start, end, perms, offset, device, inode;
    if (!Field(at, '-', start) || !Field(at, ' ', end) || !Field(at, ' ', perms) ||
        !Field(at, ' ', offset) || !Field(at, ' ', device) || !Field(at, ' ', inode) ||
        !Hex(start, mapping.start) || !Hex(end, mapping.end) || !Hex(offset, mapping.offset) ||
        mapping.end <= mapping.start || perms.size() < 3)
      continue;
    mapping.readable = perms[0] == 'r';
    mapping.writable = perms[1] == 'w';
    mapping.executable = perms[2] == 'x';
    while (*at == ' ') ++at;
    mapping.path = at;  // may hold spaces
    mappings.push_back(mapping);
  }
  return mappings;
}

std::string ReadProcFile(pid_t pid, char const * name) {
  std::string const path = "/proc/" + std::to_string(pid) + "/" + name;
  int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return {};
  std::string text;
  char chunk[4096];
  for (;;) {
    ssize_t const got = ::read(fd, chunk, sizeof chunk);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    text.append(chunk, static_cast<size_t>(got));
  }
  ::close(fd);
  return text;
}

bool ReadProcessMemory(pid_t pid, uint64_t address, void * buffer, size_t size) {
  auto * out = static_cast<char *>(buffer);
  size_t done = 0;
  while (done < size) {
    iovec local{out + done, size - done};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): an address in the other process
    iovec remote{reinterpret_cast<void *>(address + done), size - done};
    ssize_t const got = ::process_vm_readv(pid, &local, 1, &remote, 1, 0);
    if (got <= 0) break;
    done += static_cast<size_t>(got);
  }
  if (done == size) return true;
  // A kernel without cross-memory attach, or a range it refuses: the memory file.
  std::string const path = "/proc/" + std::to_string(pid) + "/mem";
  int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  while (done < size) {
    ssize_t const got = ::pread(fd, out + done, size - done, static_cast<off_t>(address + done));
    if (got <= 0) break;
    done += static_cast<size_t>(got);
  }
  ::close(fd);
  return done == size;
}
