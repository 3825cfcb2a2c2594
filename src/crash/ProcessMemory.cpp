#include "crash/ProcessMemory.h"

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <sstream>

std::vector<Mapping> ParseMaps(std::string const & text) {
  std::vector<Mapping> mappings;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    Mapping mapping;
    char perms[5] = {};
    int pathStart = 0;
    // start-end perms offset dev inode [path]
    if (std::sscanf(line.c_str(), "%" SCNx64 "-%" SCNx64 " %4s %" SCNx64 " %*s %*s %n",
                    &mapping.start, &mapping.end, perms, &mapping.offset, &pathStart) < 4 ||
        mapping.end <= mapping.start)
      continue;
    mapping.readable = perms[0] == 'r';
    mapping.writable = perms[1] == 'w';
    mapping.executable = perms[2] == 'x';
    if (pathStart > 0 && static_cast<size_t>(pathStart) <= line.size())
      mapping.path = line.substr(static_cast<size_t>(pathStart));
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
