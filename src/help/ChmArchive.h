#pragma once
// A compiled help file (CHM) opened for reading. The directory is read once
// at opening and kept as an own index of names; a file is extracted to
// memory on request (never to a temporary file). Names are as stored, with
// the leading "/" ("/#IVB", "/topic.htm"); a name not found as given is
// looked up again without regard to ASCII case.
//
// Files past the caps of ChmLimits are refused, so that a small hostile file
// cannot make the reader decompress gigabytes. An archive may be used from
// several threads; extraction is serialised.

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct mschm_decompressor;
struct mschmd_header;
struct mschmd_file;

enum class ChmError {
  None,
  Open,        // the file cannot be opened or read
  Signature,   // not a compiled help file
  Format,      // the directory or a length lies past the file, or is inconsistent
  Decompress,  // compressed data that cannot be decompressed
  TooLarge,    // past the caps of ChmLimits
  NoMemory,
  NotFound,  // no such name in the archive
};

// An English sentence for logs and error pages.
char const * ChmErrorText(ChmError error);

struct ChmLimits {
  // The most bytes one file may hold once extracted.
  std::uint64_t maxFileBytes = std::uint64_t{256} << 20;
  // The most bytes all compressed files together may declare.
  std::uint64_t maxArchiveBytes = std::uint64_t{2} << 30;
};

class ChmArchive {
public:
  // Opens the file at `path`; null with the reason in `error`.
  static std::unique_ptr<ChmArchive> Open(std::string const & path, ChmError & error,
                                          ChmLimits limits = {});
  // The same over bytes in memory (`path` is then only a label).
  static std::unique_ptr<ChmArchive> OpenBytes(std::string bytes, ChmError & error,
                                               ChmLimits limits = {});

  ChmArchive(ChmArchive const &) = delete;
  ChmArchive & operator=(ChmArchive const &) = delete;
  ~ChmArchive();

  std::string const & GetPath() const { return mPath; }
  bool Contains(std::string_view name) const { return Find(name) != nullptr; }
  // The length of the file once extracted; -1 when there is no such file.
  std::int64_t GetSize(std::string_view name) const;
  // Every name, system files ("::DataSpace/...") included, in stored order.
  std::vector<std::string> GetNames() const;
  // Extracts the file `name` into `bytes` (replaced). On failure `bytes` is empty.
  ChmError Extract(std::string_view name, std::string & bytes) const;

  struct System;  // the reader's input and output (ChmArchive.cpp)

private:
  ChmArchive() = default;
  static std::unique_ptr<ChmArchive> OpenWith(std::unique_ptr<ChmArchive> archive,
                                              ChmError & error);
  mschmd_file * Find(std::string_view name) const;

  std::string mPath;
  std::string mBytes;  // the file's bytes when opened from memory
  bool mInMemory = false;
  ChmLimits mLimits;
  std::unique_ptr<System> mSystem;
  mschm_decompressor * mReader = nullptr;
  mschmd_header * mHeader = nullptr;
  std::unordered_map<std::string, mschmd_file *> mByName;
  std::unordered_map<std::string, mschmd_file *> mByFoldedName;
  mutable std::mutex mExtracting;
};
