#include "help/ChmArchive.h"

#include <fcntl.h>
#include <mspack.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// The name under which the reader opens the bytes of an archive held in
// memory, and the one it extracts to: told apart by address, not by text.
char const kMemorySource[] = "<memory>";
char const kMemoryTarget[] = "<extracted>";

struct Handle {
  mspack_file base;  // first: the reader's handle points here
  int fd = -1;
  std::string_view memory;  // source in memory
  std::string * sink = nullptr;
  std::uint64_t sinkCap = 0;
  bool * overflow = nullptr;
  off_t pos = 0;
  // Read-ahead of a file on disk: the reader asks for many small pieces.
  std::unique_ptr<char[]> ahead;
  off_t aheadStart = 0;
  std::size_t aheadLength = 0;
};

constexpr std::size_t kReadAhead = 64 * 1024;

ssize_t ReadAt(int fd, void * buffer, std::size_t bytes, off_t at) {
  ssize_t n = 0;
  do {
    n = ::pread(fd, buffer, bytes, at);
  } while (n < 0 && errno == EINTR);
  return n;
}

Handle * HandleOf(mspack_file * file) { return reinterpret_cast<Handle *>(file); }

std::string Folded(std::string_view name) {
  std::string folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), [](unsigned char c) {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  });
  return folded;
}

ChmError FromReader(int code) {
  switch (code) {
    case MSPACK_ERR_OK: return ChmError::None;
    case MSPACK_ERR_OPEN:
    case MSPACK_ERR_READ:
    case MSPACK_ERR_SEEK: return ChmError::Open;
    case MSPACK_ERR_SIGNATURE: return ChmError::Signature;
    case MSPACK_ERR_NOMEMORY: return ChmError::NoMemory;
    case MSPACK_ERR_DECRUNCH:
    case MSPACK_ERR_CHECKSUM: return ChmError::Decompress;
    case MSPACK_ERR_WRITE: return ChmError::TooLarge;  // only the capped sink refuses writes
    default: return ChmError::Format;
  }
}

}  // namespace

struct ChmArchive::System {
  mspack_system base;  // first: the reader calls back with a pointer to it
  ChmArchive * archive = nullptr;
  // The extraction under way: where its bytes go and how many may come.
  std::string * sink = nullptr;
  std::uint64_t sinkCap = 0;
  bool overflow = false;

  static System * Of(mspack_system * self) { return reinterpret_cast<System *>(self); }

  static mspack_file * OpenFile(mspack_system * self, char const * name, int mode) {
    System * const system = Of(self);
    auto handle = std::make_unique<Handle>();
    if (mode == MSPACK_SYS_OPEN_WRITE && name == kMemoryTarget && system->sink != nullptr) {
      handle->sink = system->sink;
      handle->sinkCap = system->sinkCap;
      handle->overflow = &system->overflow;
    } else if (mode != MSPACK_SYS_OPEN_READ) {
      return nullptr;  // nothing is ever written to disk
    } else if (name == kMemorySource) {
      handle->memory = system->archive->mBytes;
    } else {
      handle->fd = ::open(name, O_RDONLY | O_CLOEXEC);
      if (handle->fd < 0) return nullptr;
    }
    return &handle.release()->base;
  }

  static void Close(mspack_file * file) {
    Handle * const handle = HandleOf(file);
    if (handle == nullptr) return;
    if (handle->fd >= 0) ::close(handle->fd);
    delete handle;
  }

  static int Read(mspack_file * file, void * buffer, int bytes) {
    Handle * const handle = HandleOf(file);
    if (handle == nullptr || bytes < 0 || handle->sink != nullptr) return -1;
    if (handle->fd < 0) {
      auto const size = static_cast<off_t>(handle->memory.size());
      if (handle->pos >= size) return 0;
      auto const n = static_cast<int>(std::min<off_t>(bytes, size - handle->pos));
      std::memcpy(buffer, handle->memory.data() + handle->pos, static_cast<std::size_t>(n));
      handle->pos += n;
      return n;
    }
    auto const wanted = static_cast<std::size_t>(bytes);
    if (wanted >= kReadAhead) {
      ssize_t const n = ReadAt(handle->fd, buffer, wanted, handle->pos);
      if (n < 0) return -1;
      handle->pos += n;
      return static_cast<int>(n);
    }
    bool const inside = handle->ahead && handle->pos >= handle->aheadStart &&
                        handle->pos + static_cast<off_t>(wanted) <=
                            handle->aheadStart + static_cast<off_t>(handle->aheadLength);
    if (!inside) {
      if (!handle->ahead) handle->ahead = std::make_unique<char[]>(kReadAhead);
      ssize_t const n = ReadAt(handle->fd, handle->ahead.get(), kReadAhead, handle->pos);
      if (n < 0) return -1;
      handle->aheadStart = handle->pos;
      handle->aheadLength = static_cast<std::size_t>(n);
    }
    auto const skip = static_cast<std::size_t>(handle->pos - handle->aheadStart);
    std::size_t const n = std::min(wanted, handle->aheadLength - skip);
    std::memcpy(buffer, handle->ahead.get() + skip, n);
    handle->pos += static_cast<off_t>(n);
    return static_cast<int>(n);
  }

  static int Write(mspack_file * file, void * buffer, int bytes) {
    Handle * const handle = HandleOf(file);
    if (handle == nullptr || handle->sink == nullptr || bytes < 0) return -1;
    if (handle->sink->size() + static_cast<std::uint64_t>(bytes) > handle->sinkCap) {
      *handle->overflow = true;
      return -1;
    }
    handle->sink->append(static_cast<char const *>(buffer), static_cast<std::size_t>(bytes));
    return bytes;
  }

  static int Seek(mspack_file * file, off_t offset, int mode) {
    Handle * const handle = HandleOf(file);
    if (handle == nullptr || handle->sink != nullptr) return -1;
    off_t base = 0;
    switch (mode) {
      case MSPACK_SYS_SEEK_START: break;
      case MSPACK_SYS_SEEK_CUR: base = handle->pos; break;
      case MSPACK_SYS_SEEK_END:
        if (handle->fd < 0) {
          base = static_cast<off_t>(handle->memory.size());
        } else {
          struct stat info {};
          if (::fstat(handle->fd, &info) != 0) return -1;
          base = info.st_size;
        }
        break;
      default: return -1;
    }
    if (offset < 0 && base < -offset) return -1;
    handle->pos = base + offset;
    return 0;
  }

  static off_t Tell(mspack_file * file) {
    Handle * const handle = HandleOf(file);
    return handle == nullptr ? -1 : handle->pos;
  }

  static void Message(mspack_file *, char const *, ...) {}  // failures come back as codes
  static void * Alloc(mspack_system *, std::size_t bytes) { return std::malloc(bytes); }
  static void Free(void * memory) { std::free(memory); }
  static void Copy(void * from, void * to, std::size_t bytes) { std::memmove(to, from, bytes); }

  System() {
    base.open = &OpenFile;
    base.close = &Close;
    base.read = &Read;
    base.write = &Write;
    base.seek = &Seek;
    base.tell = &Tell;
    base.message = &Message;
    base.alloc = &Alloc;
    base.free = &Free;
    base.copy = &Copy;
    base.null_ptr = nullptr;
  }
};

char const * ChmErrorText(ChmError error) {
  switch (error) {
    case ChmError::None: return "no error";
    case ChmError::Open: return "the file cannot be opened or read";
    case ChmError::Signature: return "the file is not a compiled help file";
    case ChmError::Format: return "the compiled help file is damaged";
    case ChmError::Decompress: return "compressed data in the compiled help file is damaged";
    case ChmError::TooLarge: return "a file in the compiled help file is too large";
    case ChmError::NoMemory: return "not enough memory";
    case ChmError::NotFound: return "no such file in the compiled help file";
  }
  return "unknown error";
}

std::unique_ptr<ChmArchive> ChmArchive::Open(std::string const & path, ChmError & error,
                                             ChmLimits limits) {
  std::unique_ptr<ChmArchive> archive(new ChmArchive);
  archive->mPath = path;
  archive->mLimits = limits;
  return OpenWith(std::move(archive), error);
}

std::unique_ptr<ChmArchive> ChmArchive::OpenBytes(std::string bytes, ChmError & error,
                                                  ChmLimits limits) {
  std::unique_ptr<ChmArchive> archive(new ChmArchive);
  archive->mPath = kMemorySource;
  archive->mInMemory = true;
  archive->mBytes = std::move(bytes);
  archive->mLimits = limits;
  return OpenWith(std::move(archive), error);
}

std::unique_ptr<ChmArchive> ChmArchive::OpenWith(std::unique_ptr<ChmArchive> archive,
                                                 ChmError & error) {
  archive->mSystem = std::make_unique<System>();
  archive->mSystem->archive = archive.get();
  archive->mReader = mspack_create_chm_decompressor(&archive->mSystem->base);
  if (archive->mReader == nullptr) {
    error = ChmError::NoMemory;
    return nullptr;
  }
  // The full open: the quick one misses the reset table of some writers'
  // files, after which nothing compressed can be extracted.
  char const * const name = archive->mInMemory ? kMemorySource : archive->mPath.c_str();
  archive->mHeader = archive->mReader->open(archive->mReader, name);
  if (archive->mHeader == nullptr) {
    error = FromReader(archive->mReader->last_error(archive->mReader));
    if (error == ChmError::None) error = ChmError::Format;
    return nullptr;
  }
  std::uint64_t compressed = 0;
  for (mschmd_file * list : {archive->mHeader->files, archive->mHeader->sysfiles}) {
    for (mschmd_file * f = list; f != nullptr; f = f->next) {
      if (f->filename == nullptr || f->length < 0 || f->offset < 0) {
        error = ChmError::Format;
        return nullptr;
      }
      if (f->section != nullptr && f->section->id == 1)
        compressed += static_cast<std::uint64_t>(f->length);
      archive->mByName.emplace(f->filename, f);
      archive->mByFoldedName.emplace(Folded(f->filename), f);
    }
  }
  if (compressed > archive->mLimits.maxArchiveBytes) {
    error = ChmError::TooLarge;
    return nullptr;
  }
  error = ChmError::None;
  return archive;
}

ChmArchive::~ChmArchive() {
  if (mReader != nullptr) {
    if (mHeader != nullptr) mReader->close(mReader, mHeader);
    mspack_destroy_chm_decompressor(mReader);
  }
}

mschmd_file * ChmArchive::Find(std::string_view name) const {
  auto const exact = mByName.find(std::string(name));
  if (exact != mByName.end()) return exact->second;
  auto const folded = mByFoldedName.find(Folded(name));
  return folded == mByFoldedName.end() ? nullptr : folded->second;
}

std::int64_t ChmArchive::GetSize(std::string_view name) const {
  mschmd_file const * const file = Find(name);
  return file == nullptr ? -1 : static_cast<std::int64_t>(file->length);
}

std::vector<std::string> ChmArchive::GetNames() const {
  std::vector<std::string> names;
  for (mschmd_file * list : {mHeader->sysfiles, mHeader->files})
    for (mschmd_file * f = list; f != nullptr; f = f->next) names.emplace_back(f->filename);
  return names;
}

ChmError ChmArchive::Extract(std::string_view name, std::string & bytes) const {
  bytes.clear();
  mschmd_file * const file = Find(name);
  if (file == nullptr) return ChmError::NotFound;
  auto const length = static_cast<std::uint64_t>(file->length);
  if (length > mLimits.maxFileBytes) return ChmError::TooLarge;
  if (length == 0) return ChmError::None;
  if (file->section == nullptr) return ChmError::Format;
  if (file->section->id == 0) {
    // Stored bytes must lie inside the file; the reader would read short.
    auto const start =
        static_cast<std::uint64_t>(mHeader->sec0.offset) + static_cast<std::uint64_t>(file->offset);
    auto const fileLength = static_cast<std::uint64_t>(mHeader->length);
    if (start > fileLength || length > fileLength - start) return ChmError::Format;
  }
  std::lock_guard<std::mutex> const lock(mExtracting);
  try {
    bytes.reserve(static_cast<std::size_t>(length));
  } catch (std::bad_alloc const &) {
    return ChmError::NoMemory;
  }
  mSystem->sink = &bytes;
  mSystem->sinkCap = length;
  mSystem->overflow = false;
  int const code = mReader->extract(mReader, file, kMemoryTarget);
  mSystem->sink = nullptr;
  ChmError result = FromReader(code);
  if (result == ChmError::TooLarge && !mSystem->overflow) result = ChmError::Format;
  if (result == ChmError::None && bytes.size() != length) result = ChmError::Format;
  if (result != ChmError::None) bytes.clear();
  return result;
}
