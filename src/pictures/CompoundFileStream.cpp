#include "pictures/CompoundFileStream.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <vector>

#include "utl/ExceptionMessage.h"
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
// Every writer uses this cutoff; libgsf sizes its mini-stream buffers by the
// header's value, so another one is refused rather than trusted.
constexpr uint32_t kMiniStreamCutoff = 4096;
constexpr uint8_t kStorageObject = 1;
constexpr uint8_t kStreamObject = 2;
constexpr uint8_t kRootObject = 5;
constexpr unsigned char kSignature[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

// What is wrong with a file, said for a person.
struct Damaged {
  ExceptionMessage why;
};

Damaged BadHeader() {
  return {ExceptionMessage::translate("the header is no valid compound-file header")};
}
Damaged BadDirectory() { return {ExceptionMessage::translate("the directory is damaged")}; }
Damaged BrokenChain(uint32_t start) {
  return {ExceptionMessage::translate("the sector chain that starts at sector {1} is broken") %
          std::to_string(start)};
}

class MappedFile {
public:
  explicit MappedFile(std::string const & path) {
    int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
      mError = errno;
      return;
    }
    struct stat status {};
    if (::fstat(fd, &status) != 0) {
      mError = errno;
    } else if (!S_ISREG(status.st_mode)) {
      mError = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    } else if (status.st_size > 0) {
      void * const data =
          ::mmap(nullptr, static_cast<size_t>(status.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
      if (data != MAP_FAILED) {
        mData = static_cast<unsigned char const *>(data);
        mSize = static_cast<size_t>(status.st_size);
      } else {
        mError = errno;
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
  // The system's reason when the file could not be mapped; 0 for an empty
  // file.
  int Error() const { return mError; }

private:
  unsigned char const * mData = nullptr;
  size_t mSize = 0;
  int mError = 0;
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
    if (size < sizeof kSignature || std::memcmp(data, kSignature, sizeof kSignature) != 0)
      throw Damaged{ExceptionMessage::translate("it is no compound file")};
    if (size < kHeaderBytes)
      throw Damaged{ExceptionMessage::translate("it ends inside its header")};
    uint16_t const major = Read16(data + 0x1A);
    uint16_t const sectorShift = Read16(data + 0x1E);
    if (Read16(data + 0x1C) != 0xFFFE ||
        !((major == 3 && sectorShift == 9) || (major == 4 && sectorShift == 12)))
      throw BadHeader();
    mVersion3 = major == 3;
    mSectorBytes = size_t(1) << sectorShift;
    // 64-byte mini sectors, and the one cutoff between mini and regular streams.
    if (Read16(data + 0x20) != 6 || Read32(data + 0x38) != kMiniStreamCutoff) throw BadHeader();
    mSectorCount = size / mSectorBytes;  // the header's sector counts as one, so this bounds them
    ReadFat();
  }

  // The root's children, searched without the directory's ordering: an
  // exact name compare and a visited set make any tree, even a broken one,
  // a finite walk.
  bool FindRootStream(std::u16string const & name, uint64_t & start, uint64_t & size) {
    ReadDirectory();
    std::vector<bool> visited(mEntries, false);
    std::vector<uint32_t> pending{Read32(Entry(0) + 0x4C)};
    while (!pending.empty()) {
      uint32_t const id = pending.back();
      pending.pop_back();
      if (id == kNoStream) continue;
      if (id >= mEntries || visited[id]) throw BadDirectory();
      visited[id] = true;
      unsigned char const * const at = Entry(id);
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

  // Every entry below the root, each reached once, with each stream's
  // chain inside the file and long enough for its size; the root has no
  // siblings. What libgsf is given must pass this.
  void CheckWhole() {
    ReadDirectory();
    unsigned char const * const root = Entry(0);
    if (Read32(root + 0x44) != kNoStream || Read32(root + 0x48) != kNoStream) throw BadDirectory();
    std::vector<bool> visited(mEntries, false);
    visited[0] = true;
    std::vector<uint32_t> pending{Read32(root + 0x4C)};
    while (!pending.empty()) {
      uint32_t const id = pending.back();
      pending.pop_back();
      if (id == kNoStream) continue;
      if (id >= mEntries || visited[id]) throw BadDirectory();
      visited[id] = true;
      unsigned char const * const at = Entry(id);
      size_t const nameBytes = Read16(at + 0x40);
      if (nameBytes < 2 || nameBytes > 64 || nameBytes % 2 != 0) throw BadDirectory();
      if (at[0x42] == kStreamObject) {
        if (Read32(at + 0x4C) != kNoStream) throw BadDirectory();
        ClaimStream(Read32(at + 0x74), StreamSize(at));
      } else if (at[0x42] == kStorageObject) {
        pending.push_back(Read32(at + 0x4C));
      } else {
        throw BadDirectory();
      }
      pending.push_back(Read32(at + 0x44));
      pending.push_back(Read32(at + 0x48));
    }
  }

  // Checks the chain of a stream as ReadStream would read it, and claims its
  // sectors: a sector claimed twice is damage, which also keeps the whole
  // check linear in the file's size.
  void ClaimStream(uint32_t start, uint64_t size) {
    if (size >= kMiniStreamCutoff) {
      if (size > mSize) throw BrokenChain(start);
      if (mClaimed.empty()) mClaimed.resize(mFat.size(), false);
      uint64_t covered = 0;
      for (uint32_t sector = start; sector != kEndOfChain; sector = mFat[sector]) {
        if (sector >= mFat.size() || mClaimed[sector]) throw BrokenChain(start);
        mClaimed[sector] = true;
        Sector(sector);
        covered += mSectorBytes;
      }
      if (covered < size) throw BrokenChain(start);
      return;
    }
    if (size == 0) return;
    if (mMiniFat.empty()) ReadMiniFat();
    if (mMiniClaimed.empty()) mMiniClaimed.resize(mMiniFat.size(), false);
    uint32_t sector = start;
    for (uint64_t covered = 0; covered < size; covered += kMiniSectorBytes) {
      if (sector >= mMiniFat.size() || mMiniClaimed[sector])
        throw Damaged{ExceptionMessage::translate(
                          "the mini-sector chain that starts at mini sector {1} is broken") %
                      std::to_string(start)};
      mMiniClaimed[sector] = true;
      sector = mMiniFat[sector];
    }
    ReadStream(start, size);  // under 4096 bytes: the mini stream's bounds checked there
  }

  std::string ReadStream(uint64_t start, uint64_t size) {
    if (size >= kMiniStreamCutoff) return ReadChain(static_cast<uint32_t>(start), false, size);
    if (size == 0) return std::string();
    // Small streams lie in the mini stream, whose chain starts at the root.
    if (mMiniFat.empty()) ReadMiniFat();
    if (mRootSize > mSize)
      throw Damaged{ExceptionMessage::translate("the mini stream is longer than the file")};
    if (mMiniStream.empty()) mMiniStream = ChainSectors(static_cast<uint32_t>(mRootStart));
    std::string bytes;
    // A mini chain that comes back to a sector would repeat bytes.
    std::vector<uint32_t> visited;  // at most 64: the stream is under 4096 bytes
    uint32_t sector = static_cast<uint32_t>(start);
    while (bytes.size() < size) {
      if (sector >= mMiniFat.size() ||
          std::find(visited.begin(), visited.end(), sector) != visited.end())
        throw Damaged{ExceptionMessage::translate(
                          "the mini-sector chain that starts at mini sector {1} is broken") %
                      std::to_string(start)};
      size_t const offset = static_cast<size_t>(sector) * kMiniSectorBytes;
      size_t const inChain = offset / mSectorBytes;
      if (offset + kMiniSectorBytes > mRootSize || inChain >= mMiniStream.size())
        throw Damaged{ExceptionMessage::translate("mini sector {1} lies outside the mini stream") %
                      std::to_string(sector)};
      bytes.append(
          reinterpret_cast<char const *>(Sector(mMiniStream[inChain])) + offset % mSectorBytes,
          kMiniSectorBytes);
      visited.push_back(sector);
      sector = mMiniFat[sector];
    }
    bytes.resize(static_cast<size_t>(size));
    return bytes;
  }

private:
  void ReadDirectory() {
    if (!mDirectory.empty()) return;
    mDirectory = ReadChain(Read32(mData + 0x30), false, UINT64_MAX);
    mEntries = mDirectory.size() / kDirectoryEntryBytes;
    if (mEntries == 0 || Entry(0)[0x42] != kRootObject) throw BadDirectory();
    mRootStart = Read32(Entry(0) + 0x74);
    mRootSize = StreamSize(Entry(0));
  }

  unsigned char const * Entry(uint32_t id) const {
    return reinterpret_cast<unsigned char const *>(mDirectory.data()) +
           static_cast<size_t>(id) * kDirectoryEntryBytes;
  }

  uint64_t StreamSize(unsigned char const * entry) const {
    uint64_t const size = Read64(entry + 0x78);
    return mVersion3 ? size & 0xFFFFFFFF : size;
  }

  unsigned char const * Sector(uint32_t sector) const {
    if (sector > kMaxRegularSector || (static_cast<size_t>(sector) + 2) * mSectorBytes > mSize)
      throw Damaged{ExceptionMessage::translate("sector {1} lies past the end of the file") %
                    std::to_string(sector)};
    return mData + (static_cast<size_t>(sector) + 1) * mSectorBytes;
  }

  void ReadFat() {
    size_t const fatSectors = Read32(mData + 0x2C);
    if (fatSectors > mSectorCount) throw BadHeader();
    std::vector<uint32_t> locations;
    for (size_t i = 0; i < kHeaderDifatEntries && locations.size() < fatSectors; ++i)
      locations.push_back(Read32(mData + 0x4C + 4 * i));
    size_t const perDifat = mSectorBytes / 4 - 1;
    uint32_t difat = Read32(mData + 0x44);
    for (size_t steps = 0; locations.size() < fatSectors; ++steps) {
      if (steps >= mSectorCount) throw BrokenChain(Read32(mData + 0x44));
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
      if (sector >= mFat.size() || sectors.size() >= mSectorCount) throw BrokenChain(start);
      sectors.push_back(sector);
    }
    return sectors;
  }

  // The bytes of the chain from `start`, cut to `limit`, which the chain
  // must reach; UINT64_MAX takes the whole chain. An empty chain is allowed
  // only where `mayBeEmpty`.
  std::string ReadChain(uint32_t start, bool mayBeEmpty, uint64_t limit) const {
    if ((start == kEndOfChain && !mayBeEmpty && limit != 0) ||
        (limit != UINT64_MAX && limit > mSize))
      throw BrokenChain(start);
    std::string bytes;
    for (uint32_t const sector : ChainSectors(start)) {
      if (bytes.size() >= limit) break;
      bytes.append(reinterpret_cast<char const *>(Sector(sector)), mSectorBytes);
    }
    if (limit != UINT64_MAX) {
      if (bytes.size() < limit) throw BrokenChain(start);
      bytes.resize(static_cast<size_t>(limit));
    }
    return bytes;
  }

  unsigned char const * mData;
  size_t mSize;
  bool mVersion3 = true;
  size_t mSectorBytes = 512;
  size_t mSectorCount = 0;
  std::vector<uint32_t> mFat;
  std::vector<uint32_t> mMiniFat;
  std::vector<uint32_t> mMiniStream;
  std::vector<bool> mClaimed;
  std::vector<bool> mMiniClaimed;
  std::string mDirectory;
  size_t mEntries = 0;
  uint64_t mRootStart = kEndOfChain;
  uint64_t mRootSize = 0;
};

}  // namespace

std::string FindCompoundFileDamage(std::string_view bytes) {
  try {
    CompoundFile(reinterpret_cast<unsigned char const *>(bytes.data()), bytes.size()).CheckWhole();
    return std::string();
  } catch (Damaged const & damage) {
    return damage.why.ToString(std::locale());
  }
}

std::string FindCompoundFileDamageAt(std::string const & path) {
  MappedFile const file(path);
  if (file.Data() == nullptr)
    return file.Error() != 0 ? std::strerror(file.Error())
                             : ExceptionMessage::translate("it is empty").ToString(std::locale());
  return FindCompoundFileDamage(
      std::string_view(reinterpret_cast<char const *>(file.Data()), file.Size()));
}

CompoundStreamRead ReadCompoundFileStream(std::string const & path, std::string const & name,
                                          size_t maxBytes, std::string & bytes, std::string * why) {
  auto const unreadable = [why](std::string const & reason) {
    if (why != nullptr) *why = reason;
    return CompoundStreamRead::kUnreadable;
  };
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
  if (file.Data() == nullptr)
    return unreadable(file.Error() != 0
                          ? std::strerror(file.Error())
                          : ExceptionMessage::translate("it is empty").ToString(std::locale()));
  try {
    CompoundFile compound(file.Data(), file.Size());
    uint64_t start = 0;
    uint64_t size = 0;
    // A name no entry can hold is absent, once the file is known to be one.
    if (utf16.empty() || utf16.size() > 31 || !compound.FindRootStream(utf16, start, size))
      return CompoundStreamRead::kAbsent;
    if (size > maxBytes)
      return unreadable(
          (ExceptionMessage::translate("the stream {1} is longer than the {2} bytes allowed") %
           name % std::to_string(maxBytes))
              .ToString(std::locale()));
    bytes = compound.ReadStream(start, size);
    return CompoundStreamRead::kRead;
  } catch (Damaged const & damage) {
    return unreadable(damage.why.ToString(std::locale()));
  }
}

}  // namespace vx3
