#include "crash/MinidumpReader.h"

#include <cstring>
#include <stdexcept>
#include <string_view>

using namespace minidump;

namespace {
constexpr uint32_t kMostRecords = 1u << 20;
}

template <typename T>
T MinidumpReader::Record(uint64_t rva) const {
  if (rva > mBytes.size() || mBytes.size() - rva < sizeof(T))
    throw std::runtime_error("record past the end of the dump");
  T record;
  std::memcpy(&record, mBytes.data() + rva, sizeof record);
  return record;
}

std::string MinidumpReader::Bytes(uint64_t rva, uint64_t size) const {
  if (rva > mBytes.size() || mBytes.size() - rva < size)
    throw std::runtime_error("data past the end of the dump");
  return mBytes.substr(rva, size);
}

std::string MinidumpReader::Utf16String(uint32_t rva) const {
  auto const length = Record<uint32_t>(rva);
  if (length % 2 != 0) throw std::runtime_error("odd string length");
  std::string const units = Bytes(uint64_t{rva} + 4, length);
  std::string text;
  for (size_t i = 0; i + 1 < units.size(); i += 2) {
    unsigned const unit =
        static_cast<unsigned char>(units[i]) | static_cast<unsigned char>(units[i + 1]) << 8;
    text.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');  // the tests' paths are ASCII
  }
  return text;
}

MinidumpReader::MinidumpReader(std::string bytes) : mBytes(std::move(bytes)) {
  auto const header = Record<Header>(0);
  if (header.signature != kSignature || (header.version & 0xffff) != kVersion)
    throw std::runtime_error("not a minidump");
  if (header.streamCount > kMostRecords) throw std::runtime_error("too many streams");
  for (uint32_t i = 0; i < header.streamCount; ++i)
    ReadStream(Record<Directory>(uint64_t{header.streamDirectoryRva} + i * sizeof(Directory)));
}

void MinidumpReader::ReadStream(Directory const & entry) {
  uint32_t const rva = entry.location.rva;
  uint32_t const size = entry.location.dataSize;
  Bytes(rva, size);  // the whole stream lies in the file
  switch (entry.streamType) {
    case kSystemInfoStream: {
      auto const info = Record<SystemInfo>(rva);
      architecture = info.processorArchitecture;
      platform = info.platformId;
      break;
    }
    case kMiscInfoStream:
      if (Record<MiscInfo>(rva).flags1 & kMiscProcessId)
        processId = Record<MiscInfo>(rva).processId;
      break;
    case kThreadListStream: {
      auto const count = Record<uint32_t>(rva);
      if (count > kMostRecords || uint64_t{count} * sizeof(minidump::Thread) + 4 > size)
        throw std::runtime_error("thread list longer than its stream");
      for (uint32_t i = 0; i < count; ++i) {
        auto const t = Record<minidump::Thread>(uint64_t{rva} + 4 + i * sizeof(minidump::Thread));
        ThreadInfo info;
        info.tid = t.threadId;
        if (t.context.dataSize < sizeof(ContextAmd64))
          throw std::runtime_error("short thread context");
        info.context = Record<ContextAmd64>(t.context.rva);
        info.stackStart = t.stack.start;
        info.stackSize = t.stack.memory.dataSize;
        Bytes(t.stack.memory.rva, t.stack.memory.dataSize);
        threads.push_back(info);
      }
      break;
    }
    case kModuleListStream: {
      auto const count = Record<uint32_t>(rva);
      if (count > kMostRecords || uint64_t{count} * sizeof(Module) + 4 > size)
        throw std::runtime_error("module list longer than its stream");
      for (uint32_t i = 0; i < count; ++i) {
        auto const m = Record<Module>(uint64_t{rva} + 4 + i * sizeof(Module));
        ModuleInfo info;
        info.base = m.baseOfImage;
        info.size = m.sizeOfImage;
        info.name = Utf16String(m.moduleNameRva);
        if (m.cvRecord.dataSize >= 4 && Record<uint32_t>(m.cvRecord.rva) == kCodeViewBuildId) {
          static char const hex[] = "0123456789abcdef";
          for (char const byte : Bytes(uint64_t{m.cvRecord.rva} + 4, m.cvRecord.dataSize - 4)) {
            info.buildId.push_back(hex[(static_cast<unsigned char>(byte) >> 4) & 0xf]);
            info.buildId.push_back(hex[static_cast<unsigned char>(byte) & 0xf]);
          }
        }
        modules.push_back(info);
      }
      break;
    }
    case kMemoryListStream: {
      auto const count = Record<uint32_t>(rva);
      if (count > kMostRecords || uint64_t{count} * sizeof(MemoryDescriptor) + 4 > size)
        throw std::runtime_error("memory list longer than its stream");
      for (uint32_t i = 0; i < count; ++i) {
        auto const d = Record<MemoryDescriptor>(uint64_t{rva} + 4 + i * sizeof(MemoryDescriptor));
        Bytes(d.memory.rva, d.memory.dataSize);
        mMemory.push_back({d.start, d.memory.dataSize, d.memory.rva});
      }
      break;
    }
    case kMemory64ListStream: {
      auto const count = Record<uint64_t>(rva);
      uint64_t at = Record<uint64_t>(uint64_t{rva} + 8);
      if (count > kMostRecords || count * sizeof(MemoryDescriptor64) + 16 > size)
        throw std::runtime_error("memory list longer than its stream");
      for (uint64_t i = 0; i < count; ++i) {
        auto const d =
            Record<MemoryDescriptor64>(uint64_t{rva} + 16 + i * sizeof(MemoryDescriptor64));
        if (at > mBytes.size() || mBytes.size() - at < d.size)
          throw std::runtime_error("memory past the end of the dump");
        mMemory.push_back({d.start, d.size, at});
        at += d.size;
      }
      break;
    }
    case kExceptionStream: {
      auto const e = Record<ExceptionStream>(rva);
      hasException = true;
      exceptionThread = e.threadId;
      exceptionCode = e.exception.exceptionCode;
      exceptionAddress = e.exception.exceptionAddress;
      break;
    }
    case kLinuxMaps: maps = Bytes(rva, size); break;
    case kLinuxProcStatus: status = Bytes(rva, size); break;
    case kLinuxCmdLine: commandLine = Bytes(rva, size); break;
    case kLinuxAuxv: auxv = Bytes(rva, size); break;
    default: break;
  }
}

MinidumpReader::ThreadInfo const * MinidumpReader::Thread(uint32_t tid) const {
  for (ThreadInfo const & t : threads)
    if (t.tid == tid) return &t;
  return nullptr;
}

MinidumpReader::ModuleInfo const * MinidumpReader::ModuleAt(uint64_t address) const {
  for (ModuleInfo const & m : modules)
    if (address >= m.base && address - m.base < m.size) return &m;
  return nullptr;
}

bool MinidumpReader::ReadMemory(uint64_t address, void * out, size_t size) const {
  for (Range const & r : mMemory)
    if (address >= r.start && address - r.start <= r.size && r.size - (address - r.start) >= size) {
      std::memcpy(out, mBytes.data() + r.rva + (address - r.start), size);
      return true;
    }
  return false;
}

bool MinidumpReader::MemoryContains(std::string const & pattern) const {
  for (Range const & r : mMemory)
    if (std::string_view(mBytes.data() + r.rva, r.size).find(pattern) != std::string_view::npos)
      return true;
  return false;
}
