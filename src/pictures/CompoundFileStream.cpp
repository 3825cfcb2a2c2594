#include "pictures/CompoundFileStream.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "utl/Utf.h"

namespace vx3 {

namespace {

constexpr uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr uint32_t kNoStream = 0xFFFFFFFF;
constexpr uint32_t kMaxRegularSector = 0xFFFFFFFA;
constexpr size_t kHeaderBytes = 512;
constexpr size_t kHeaderDifatEntries = 109;
constexpr size_t kDirectoryEntryBytes = 128;
constexpr size_t kMiniSectorBytes = 64;
constexpr uint8_t kStreamObject = 2;
constexpr uint8_t kRootObject = 5;
constexpr unsigned char kSignature[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

struct Damaged {};

class MappedFile {
public:
  explicit MappedFile(std::string const & path) {
    int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return;
    struct stat status {};
    if (::fstat(fd, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0) {
      void * const data =
          ::mmap(nullptr, static_cast<size_t>(status.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
      if (data != MAP_FAILED) {
        mData = static_cast<unsigned char const *>(data);
        mSize = static_cast<size_t>(status.st_size);
      }
    }
    ::close(fd);
  }
  ~MappedFile() {
    if (mData != nullptr) ::munmap(const_cast<unsigned char *>(mData), mSize);
  }
  MappedFile(MappedFile const &) = delete;
  MappedFile & operator=(MappedFile const &) = delete;

  unsigned char const * Data() const { return mData; }
  size_t Size() const { return mSize; }

private:
  unsigned char const * mData = nullptr;
  size_t mSize = 0;
};

uint16_t Read16(unsigned char const * at) { return static_cast<uint16_t>(at[0] | at[1] << 8); }
uint32_t Read32(unsigned char const * at) {
  return static_cast<uint32_t>(at[0]) | static_cast<uint32_t>(at[1]) << 8 |
         static_cast<uint32_t>(at[2]) << 16 | static_cast<uint32_t>(at[3]) << 24;
}
uint64_t Read64(unsigned char const * at) {
  return static_cast<uint64_t>(Read32(at)) | static_cast<uint64_t>(Read32(at + 4)) << 32;
}

class CompoundFile {
public:
  CompoundFile(unsigned char const * data, size_t size) : mData(data), mSize(size) {
    if (size < kHeaderBytes || std::memcmp(data, kSignature, sizeof kSignature) != 0)
      throw Damaged();
    uint16_t const major = Read16(data + 0x1A);
    uint16_t const sectorShift = Read16(data + 0x1E);
    if (Read16(data + 0x1C) != 0xFFFE ||
        !((major == 3 && sectorShift == 9) || (major == 4 && sectorShift == 12)))
      throw Damaged();
    mVersion3 = major == 3;
    mSectorBytes = size_t(1) << sectorShift;
    if (Read16(data + 0x20) != 6) throw Damaged();  // 64-byte mini sectors
    mMiniCutoff = Read32(data + 0x38);
    mSectorCount = size / mSectorBytes;  // the header's sector counts as one, so this bounds them
    ReadFat();
  }

  // The root's children, searched without the directory's ordering: an
  // exact name compare and a visited set make any tree, even a broken one,
  // a finite walk.
  bool FindRootStream(std::u16string const & name, uint64_t & start, uint64_t & size) {
    std::string const directory = ReadChain(Read32(mData + 0x30), false, UINT64_MAX);
    size_t const entries = directory.size() / kDirectoryEntryBytes;
    if (entries == 0) throw Damaged();
    auto const entry = [&](uint32_t id) {
      return reinterpret_cast<unsigned char const *>(directory.data()) +
             static_cast<size_t>(id) * kDirectoryEntryBytes;
    };
    if (entry(0)[0x42] != kRootObject) throw Damaged();
    mRootStart = Read32(entry(0) + 0x74);
    mRootSize = StreamSize(entry(0));

    std::vector<bool> visited(entries, false);
    std::vector<uint32_t> pending{Read32(entry(0) + 0x4C)};
    while (!pending.empty()) {
      uint32_t const id = pending.back();
      pending.pop_back();
      if (id == kNoStream) continue;
      if (id >= entries || visited[id]) throw Damaged();
      visited[id] = true;
      unsigned char const * const at = entry(id);
      size_t const nameBytes = Read16(at + 0x40);
      if (nameBytes >= 2 && nameBytes <= 64 && nameBytes % 2 == 0 &&
          nameBytes / 2 - 1 == name.size() && at[0x42] == kStreamObject) {
        bool same = true;
        for (size_t i = 0; i < name.size() && same; ++i) same = Read16(at + 2 * i) == name[i];
        if (same) {
          start = Read32(at + 0x74);
          size = StreamSize(at);
          return true;
        }
      }
      pending.push_back(Read32(at + 0x44));
      pending.push_back(Read32(at + 0x48));
    }
    return false;
  }

  std::string ReadStream(uint64_t start, uint64_t size) {
    if (size >= mMiniCutoff) return ReadChain(static_cast<uint32_t>(start), false, size);
    if (size == 0) return std::string();
    // Small streams lie in the mini stream, whose chain starts at the root.
    if (mMiniFat.empty()) ReadMiniFat();
    if (mRootSize > mSize) throw Damaged();
    std::vector<uint32_t> const miniStream = ChainSectors(static_cast<uint32_t>(mRootStart));
    std::string bytes;
    uint32_t sector = static_cast<uint32_t>(start);
    for (size_t steps = 0; bytes.size() < size; ++steps) {
      if (sector >= mMiniFat.size() || steps >= mMiniFat.size()) throw Damaged();
      size_t const offset = static_cast<size_t>(sector) * kMiniSectorBytes;
      size_t const inChain = offset / mSectorBytes;
      if (offset + kMiniSectorBytes > mRootSize || inChain >= miniStream.size()) throw Damaged();
      bytes.append(
          reinterpret_cast<char const *>(Sector(miniStream[inChain])) + offset % mSectorBytes,
          kMiniSectorBytes);
      sector = mMiniFat[sector];
    }
    bytes.resize(static_cast<size_t>(size));
    return bytes;
  }

private:
  uint64_t StreamSize(unsigned char const * entry) const {
    uint64_t const size = Read64(entry + 0x78);
    return mVersion3 ? size & 0xFFFFFFFF : size;
  }

  unsigned char const * Sector(uint32_t sector) const {
    if (sector > kMaxRegularSector || (static_cast<size_t>(sector) + 2) * mSectorBytes > mSize)
      throw Damaged();
    return mData + (static_cast<size_t>(sector) + 1) * mSectorBytes;
  }

  void ReadFat() {
    size_t const fatSectors = Read32(mData + 0x2C);
    if (fatSectors > mSectorCount) throw Damaged();
    std::vector<uint32_t> locations;
    for (size_t i = 0; i < kHeaderDifatEntries && locations.size() < fatSectors; ++i)
      locations.push_back(Read32(mData + 0x4C + 4 * i));
    size_t const perDifat = mSectorBytes / 4 - 1;
    uint32_t difat = Read32(mData + 0x44);
    for (size_t steps = 0; locations.size() < fatSectors; ++steps) {
      if (steps >= mSectorCount) throw Damaged();
      unsigned char const * const at = Sector(difat);
      for (size_t i = 0; i < perDifat && locations.size() < fatSectors; ++i)
        locations.push_back(Read32(at + 4 * i));
      difat = Read32(at + 4 * perDifat);
    }
    mFat.reserve(fatSectors * mSectorBytes / 4);
    for (uint32_t const location : locations) {
      unsigned char const * const at = Sector(location);
      for (size_t i = 0; i < mSectorBytes / 4; ++i) mFat.push_back(Read32(at + 4 * i));
    }
  }

  void ReadMiniFat() {
    std::string const table = ReadChain(Read32(mData + 0x3C), true, UINT64_MAX);
    mMiniFat.resize(table.size() / 4);
    for (size_t i = 0; i < mMiniFat.size(); ++i)
      mMiniFat[i] = Read32(reinterpret_cast<unsigned char const *>(table.data()) + 4 * i);
  }

  // The sectors of the chain from `start`. A chain has no more sectors than
  // the file, which also ends any cycle.
  std::vector<uint32_t> ChainSectors(uint32_t start) const {
    std::vector<uint32_t> sectors;
    for (uint32_t sector = start; sector != kEndOfChain; sector = mFat[sector]) {
      if (sector >= mFat.size() || sectors.size() >= mSectorCount) throw Damaged();
      sectors.push_back(sector);
    }
    return sectors;
  }

  // The bytes of the chain from `start`, cut to `limit`, which the chain
  // must reach; UINT64_MAX takes the whole chain. An empty chain is allowed
  // only where `mayBeEmpty`.
  std::string ReadChain(uint32_t start, bool mayBeEmpty, uint64_t limit) const {
    if (start == kEndOfChain && !mayBeEmpty && limit != 0) throw Damaged();
    if (limit != UINT64_MAX && limit > mSize) throw Damaged();
    std::string bytes;
    for (uint32_t const sector : ChainSectors(start)) {
      if (bytes.size() >= limit) break;
      bytes.append(reinterpret_cast<char const *>(Sector(sector)), mSectorBytes);
    }
    if (limit != UINT64_MAX) {
      if (bytes.size() < limit) throw Damaged();
      bytes.resize(static_cast<size_t>(limit));
    }
    return bytes;
  }

  unsigned char const * mData;
  size_t mSize;
  bool mVersion3 = true;
  size_t mSectorBytes = 512;
  uint32_t mMiniCutoff = 4096;
  size_t mSectorCount = 0;
  std::vector<uint32_t> mFat;
  std::vector<uint32_t> mMiniFat;
  uint64_t mRootStart = kEndOfChain;
  uint64_t mRootSize = 0;
};

}  // namespace

CompoundStreamRead ReadCompoundFileStream(std::string const & path, std::string const & name,
                                          size_t maxBytes, std::string & bytes) {
  std::u32string const wide = Utf8ToUtf32(name);
  std::u16string utf16;
  for (char32_t const code : wide) {
    if (code > 0xFFFF) {
      utf16 += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
      utf16 += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    } else {
      utf16 += static_cast<char16_t>(code);
    }
  }
  MappedFile const file(path);
  if (file.Data() == nullptr) return CompoundStreamRead::kUnreadable;
  try {
    CompoundFile compound(file.Data(), file.Size());
    uint64_t start = 0;
    uint64_t size = 0;
    // A name no entry can hold is absent, once the file is known to be one.
    if (utf16.empty() || utf16.size() > 31 || !compound.FindRootStream(utf16, start, size))
      return CompoundStreamRead::kAbsent;
    if (size > maxBytes) return CompoundStreamRead::kUnreadable;
    bytes = compound.ReadStream(start, size);
    return CompoundStreamRead::kRead;
  } catch (Damaged const &) {
    return CompoundStreamRead::kUnreadable;
  }
}

}  // namespace vx3
