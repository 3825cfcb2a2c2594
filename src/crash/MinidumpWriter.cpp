#include "crash/MinidumpWriter.h"

#include <cpuid.h>
#include <fcntl.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <vector>

#include "crash/LoadedModules.h"
#include "crash/MinidumpFormat.h"
#include "crash/ProcessMemory.h"
#include "crash/ThreadRegisters.h"

namespace minidump {
namespace {

// The red zone below a stack pointer that a leaf function may use, and how
// much of a stack above it a dump keeps: enough for deep GUI stacks, and a
// bound where a thread's stack shares its mapping with other memory.
constexpr uint64_t kRedZone = 128;
constexpr uint64_t kMostStackBytes = 512 * 1024;
constexpr size_t kChunk = 1024 * 1024;

// Appends records to the file and hands back where each landed.
class DumpFile {
public:
  explicit DumpFile(int fd) : mFd(fd) {}

  uint64_t Offset() const { return mOffset + mBuffer.size(); }
  int Error() const { return mError; }

  uint32_t Append(void const * data, size_t size) {
    auto const rva = static_cast<uint32_t>(Offset());
    auto const * bytes = static_cast<char const *>(data);
    mBuffer.insert(mBuffer.end(), bytes, bytes + size);
    if (mBuffer.size() >= kChunk) Flush();
    return rva;
  }
  template <typename T>
  uint32_t Append(T const & record) {
    return Append(&record, sizeof record);
  }
  void Align(size_t to) {
    static char const zeros[16] = {};
    if (size_t const rest = Offset() % to) Append(zeros, to - rest);
  }

  bool Flush() {
    size_t done = 0;
    while (mError == 0 && done < mBuffer.size()) {
      ssize_t const wrote = ::write(mFd, mBuffer.data() + done, mBuffer.size() - done);
      if (wrote < 0 && errno == EINTR) continue;
      if (wrote <= 0)
        mError = wrote < 0 ? errno : EIO;
      else
        done += static_cast<size_t>(wrote);
    }
    mOffset += mBuffer.size();
    mBuffer.clear();
    return mError == 0;
  }

  bool WriteAt(uint64_t offset, void const * data, size_t size) {
    if (::pwrite(mFd, data, size, static_cast<off_t>(offset)) != static_cast<ssize_t>(size) &&
        mError == 0)
      mError = errno != 0 ? errno : EIO;
    return mError == 0;
  }

private:
  int mFd;
  uint64_t mOffset = 0;
  std::vector<char> mBuffer;
  int mError = 0;
};

// UTF-8 to UTF-16; a byte that starts no valid sequence becomes U+FFFD.
std::u16string Utf16(std::string const & utf8) {
  std::u16string text;
  size_t i = 0;
  while (i < utf8.size()) {
    auto const lead = static_cast<unsigned char>(utf8[i]);
    size_t const extra = lead < 0x80    ? 0
                         : lead >= 0xf0 ? 3
                         : lead >= 0xe0 ? 2
                         : lead >= 0xc2 ? 1
                                        : 9;
    char32_t code = lead & (0x7f >> extra);
    bool valid = extra <= 3 && i + extra < utf8.size();
    for (size_t k = 1; valid && k <= extra; ++k) {
      auto const next = static_cast<unsigned char>(utf8[i + k]);
      valid = (next & 0xc0) == 0x80;
      code = (code << 6) | (next & 0x3f);
    }
    if (!valid || code > 0x10ffff || (code >= 0xd800 && code < 0xe000)) {
      text.push_back(u'\ufffd');
      ++i;
      continue;
    }
    i += extra + 1;
    if (code >= 0x10000) {
      code -= 0x10000;
      text.push_back(static_cast<char16_t>(0xd800 + (code >> 10)));
      text.push_back(static_cast<char16_t>(0xdc00 + (code & 0x3ff)));
    } else {
      text.push_back(static_cast<char16_t>(code));
    }
  }
  return text;
}

// A length-prefixed UTF-16 string, as module names and the system's version
// text are kept.
uint32_t AppendString(DumpFile & file, std::string const & utf8) {
  std::u16string const text = Utf16(utf8);
  file.Align(4);
  auto const bytes = static_cast<uint32_t>(text.size() * 2);
  uint32_t const rva = file.Append(bytes);
  file.Append(text.data(), text.size() * 2);
  file.Append(char16_t{0});
  return rva;
}

Location AppendBytes(DumpFile & file, std::string const & bytes) {
  return {static_cast<uint32_t>(bytes.size()), file.Append(bytes.data(), bytes.size())};
}

// Copies [start, start + size) of the process into the file; unreadable
// pages come out as zeros so that the layout already promised holds.
Location AppendMemory(DumpFile & file, pid_t pid, uint64_t start, uint64_t size) {
  file.Align(16);
  auto const rva = static_cast<uint32_t>(file.Offset());
  std::vector<char> chunk;
  for (uint64_t at = 0; at < size; at += kChunk) {
    size_t const length = static_cast<size_t>(std::min<uint64_t>(kChunk, size - at));
    chunk.assign(length, 0);
    if (!ReadProcessMemory(pid, start + at, chunk.data(), length))
      for (size_t page = 0; page < length; page += 4096)
        ReadProcessMemory(pid, start + at + page, chunk.data() + page,
                          std::min<size_t>(4096, length - page));
    file.Append(chunk.data(), length);
  }
  return {static_cast<uint32_t>(size), rva};
}

SystemInfo MakeSystemInfo(DumpFile & file) {
  SystemInfo info{};
  info.processorArchitecture = kArchitectureAmd64;
  info.platformId = kPlatformLinux;
  long const processors = ::sysconf(_SC_NPROCESSORS_ONLN);
  info.numberOfProcessors = static_cast<uint8_t>(std::clamp<long>(processors, 1, 255));
  unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
  if (__get_cpuid(0, &eax, &ebx, &ecx, &edx) != 0) {
    info.vendorId[0] = ebx;
    info.vendorId[1] = edx;
    info.vendorId[2] = ecx;
  }
  if (__get_cpuid(1, &eax, &ebx, &ecx, &edx) != 0) {
    unsigned const family = (eax >> 8) & 0xf;
    unsigned const model = (eax >> 4) & 0xf;
    info.processorLevel =
        static_cast<uint16_t>(family == 0xf ? family + ((eax >> 20) & 0xff) : family);
    info.processorRevision = static_cast<uint16_t>(
        ((family == 0x6 || family == 0xf ? model | (((eax >> 16) & 0xf) << 4) : model) << 8) |
        (eax & 0xf));
    info.versionInformation = eax;
    info.featureInformation = edx;
  }
  utsname name{};
  std::string version = "Linux";
  if (::uname(&name) == 0) {
    // "6.1.0-18-amd64": major, minor, build; what is no number counts as 0.
    char * at = name.release;
    uint32_t * const parts[] = {&info.majorVersion, &info.minorVersion, &info.buildNumber};
    for (uint32_t * part : parts) {
      *part = static_cast<uint32_t>(std::strtoul(at, &at, 10));
      if (*at != '.') break;
      ++at;
    }
    version = std::string("Linux ") + name.release + " " + name.version + " " + name.machine;
  }
  info.csdVersionRva = AppendString(file, version);
  return info;
}

// The part of a thread's stack a dump keeps: from just below its stack
// pointer to the top of the mapping it lies in (or above a guard page it
// overflowed into), at most kMostStackBytes.
bool StackRange(std::vector<Mapping> const & maps, uint64_t sp, uint64_t & start, uint64_t & size) {
  for (Mapping const & m : maps) {
    if (m.end <= sp || !m.readable) continue;
    start = std::max(m.start, sp >= kRedZone ? sp - kRedZone : 0);
    if (start >= m.end) return false;
    size = std::min(m.end - start, kMostStackBytes);
    return true;
  }
  return false;
}

struct ThreadRecord {
  pid_t tid;
  ContextAmd64 context;
  bool crashed;
};

int Write(DumpFile & file, CrashContext const & crash, int dumpType) {
  pid_t const pid = crash.pid;
  std::vector<StoppedThread> stopped = StopThreads(pid, crash.tid);
  std::vector<ThreadRecord> threads;
  if (crash.tid != 0)
    threads.push_back(
        {crash.tid, ContextFromSignal(crash.context, crash.hasFpState ? &crash.fpState : nullptr),
         true});
  for (StoppedThread const & t : stopped) threads.push_back({t.tid, t.context, false});

  std::string const mapsText = ReadProcFile(pid, "maps");
  std::vector<Mapping> const maps = ParseMaps(mapsText);
  std::vector<Directory> directory;

  Header header{};
  header.signature = kSignature;
  header.version = kVersion;
  header.timeDateStamp = static_cast<uint32_t>(std::time(nullptr));
  // The directory's size is fixed by the type: header, then the slots.
  size_t const streamCount = 9 + (crash.tid != 0 ? 1 : 0) + (dumpType >= kTypeFullMemory ? 1 : 0);
  file.Append(header);
  std::vector<Directory> slots(streamCount);
  header.streamDirectoryRva = file.Append(slots.data(), slots.size() * sizeof(Directory));

  SystemInfo const system = MakeSystemInfo(file);
  file.Align(8);
  directory.push_back({kSystemInfoStream, {sizeof system, file.Append(system)}});

  MiscInfo misc{};
  misc.sizeOfInfo = sizeof misc;
  misc.flags1 = kMiscProcessId;
  misc.processId = static_cast<uint32_t>(pid);
  directory.push_back({kMiscInfoStream, {sizeof misc, file.Append(misc)}});

  directory.push_back({kLinuxProcStatus, AppendBytes(file, ReadProcFile(pid, "status"))});
  directory.push_back({kLinuxCmdLine, AppendBytes(file, ReadProcFile(pid, "cmdline"))});
  directory.push_back({kLinuxAuxv, AppendBytes(file, ReadProcFile(pid, "auxv"))});
  directory.push_back({kLinuxMaps, AppendBytes(file, mapsText)});

  // Thread contexts and stacks; the stacks are also the memory list's first entries.
  std::vector<Thread> threadList;
  std::vector<MemoryDescriptor> memory;
  Location crashContext{};
  for (ThreadRecord const & t : threads) {
    Thread record{};
    record.threadId = static_cast<uint32_t>(t.tid);
    file.Align(16);
    record.context = {sizeof(ContextAmd64), file.Append(t.context)};
    if (t.crashed) crashContext = record.context;
    uint64_t start = 0, size = 0;
    if (t.context.rsp != 0 && StackRange(maps, t.context.rsp, start, size)) {
      record.stack = {start, AppendMemory(file, pid, start, size)};
      memory.push_back(record.stack);
    }
    threadList.push_back(record);
  }
  file.Align(8);
  auto const threadCount = static_cast<uint32_t>(threadList.size());
  uint32_t const threadRva = file.Append(threadCount);
  file.Append(threadList.data(), threadList.size() * sizeof(Thread));
  directory.push_back({kThreadListStream,
                       {static_cast<uint32_t>(4 + threadList.size() * sizeof(Thread)), threadRva}});

  if (crash.tid != 0) {
    ExceptionStream exception{};
    exception.threadId = static_cast<uint32_t>(crash.tid);
    // The code is the signal number: that is how debuggers read a Linux dump.
    exception.exception.exceptionCode = static_cast<uint32_t>(crash.signal);
    exception.exception.exceptionFlags = static_cast<uint32_t>(crash.info.si_code);
    exception.exception.exceptionAddress = reinterpret_cast<uint64_t>(crash.info.si_addr);
    exception.threadContext = crashContext;
    file.Align(8);
    directory.push_back({kExceptionStream, {sizeof exception, file.Append(exception)}});
  }

  std::vector<LoadedModule> const modules = FindLoadedModules(pid, maps);
  std::vector<Module> moduleList;
  for (LoadedModule const & m : modules) {
    Module record{};
    record.baseOfImage = m.base;
    record.sizeOfImage = static_cast<uint32_t>(std::min<uint64_t>(m.size, UINT32_MAX));
    record.moduleNameRva = AppendString(file, m.path);
    if (!m.buildId.empty()) {
      file.Align(4);
      record.cvRecord.rva = file.Append(kCodeViewBuildId);
      file.Append(m.buildId.data(), m.buildId.size());
      record.cvRecord.dataSize = static_cast<uint32_t>(4 + m.buildId.size());
    }
    moduleList.push_back(record);
  }
  if (dumpType >= kTypeWithModuleData && dumpType < kTypeFullMemory) {
    // A module's writable segments, and the anonymous memory right after
    // them, where the rest of its zero-initialized data lies.
    auto const isModule = [&modules](std::string const & path) {
      return std::any_of(modules.begin(), modules.end(),
                         [&path](LoadedModule const & lm) { return lm.path == path; });
    };
    for (size_t i = 0; i < maps.size(); ++i) {
      Mapping const & m = maps[i];
      bool const data = m.readable && m.writable && !m.path.empty() && isModule(m.path);
      bool const zeroData = m.readable && m.writable && m.path.empty() && i > 0 &&
                            maps[i - 1].end == m.start && maps[i - 1].writable &&
                            isModule(maps[i - 1].path);
      if (data || zeroData)
        memory.push_back({m.start, AppendMemory(file, pid, m.start, m.end - m.start)});
    }
  }
  file.Align(8);
  auto const moduleCount = static_cast<uint32_t>(moduleList.size());
  uint32_t const moduleRva = file.Append(moduleCount);
  file.Append(moduleList.data(), moduleList.size() * sizeof(Module));
  directory.push_back({kModuleListStream,
                       {static_cast<uint32_t>(4 + moduleList.size() * sizeof(Module)), moduleRva}});

  file.Align(8);
  auto const memoryCount = static_cast<uint32_t>(memory.size());
  uint32_t const memoryRva = file.Append(memoryCount);
  file.Append(memory.data(), memory.size() * sizeof(MemoryDescriptor));
  directory.push_back(
      {kMemoryListStream,
       {static_cast<uint32_t>(4 + memory.size() * sizeof(MemoryDescriptor)), memoryRva}});

  if (dumpType >= kTypeFullMemory) {
    // Every readable range but the kernel's vvar page, which cannot be read
    // through another process; its bytes follow the list in one block.
    std::vector<MemoryDescriptor64> ranges;
    for (Mapping const & m : maps)
      if (m.readable && m.path != "[vvar]" && m.path != "[vsyscall]")
        ranges.push_back({m.start, m.end - m.start});
    file.Align(8);
    uint64_t const count = ranges.size();
    uint32_t const listRva = file.Append(count);
    uint64_t const baseRva = file.Offset() + 8 + ranges.size() * sizeof(MemoryDescriptor64);
    file.Append(baseRva);
    file.Append(ranges.data(), ranges.size() * sizeof(MemoryDescriptor64));
    directory.push_back(
        {kMemory64ListStream,
         {static_cast<uint32_t>(16 + ranges.size() * sizeof(MemoryDescriptor64)), listRva}});
    std::vector<char> chunk;
    for (MemoryDescriptor64 const & r : ranges)
      for (uint64_t at = 0; at < r.size && file.Error() == 0; at += kChunk) {
        size_t const length = static_cast<size_t>(std::min<uint64_t>(kChunk, r.size - at));
        chunk.assign(length, 0);
        ReadProcessMemory(pid, r.start + at, chunk.data(), length);
        file.Append(chunk.data(), length);
      }
  }
  DetachThreads(stopped);

  file.Flush();
  directory.resize(streamCount);  // a slot left over stays stream type 0, "unused"
  header.streamCount = static_cast<uint32_t>(directory.size());
  file.WriteAt(0, &header, sizeof header);
  file.WriteAt(header.streamDirectoryRva, directory.data(), directory.size() * sizeof(Directory));
  return file.Error();
}

}  // namespace

int WriteMinidump(int fd, CrashContext const & crash, int dumpType) {
  DumpFile file(fd);
  return Write(file, crash, dumpType);
}

int WriteMinidumpFile(std::string const & path, CrashContext const & crash, int dumpType) {
  std::string const partial = path + ".part";
  int const fd = ::open(partial.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (fd < 0) return errno;
  int error = WriteMinidump(fd, crash, dumpType);
  if (error == 0 && ::fsync(fd) != 0) error = errno;
  if (::close(fd) != 0 && error == 0) error = errno;
  if (error == 0 && ::rename(partial.c_str(), path.c_str()) != 0) error = errno;
  if (error != 0) ::unlink(partial.c_str());
  return error;
}

}  // namespace minidump
