#pragma once
// OLE2 compound files ("structured storage") on libgsf, as the art archive
// saves them: the old file opened to copy its streams and storages, and a new
// file built in memory and then written in one piece, so that the file on
// disk is only ever replaced whole. Readers that want one stream use
// CompoundFileStream.h, which does not build the whole directory.

#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

struct _GsfInfile;
struct _GsfInput;
struct _GsfOutfile;
struct _GsfOutput;

namespace vx3 {

// Drops a reference to a gsf object.
struct GsfUnref {
  void operator()(void * object) const;
};
template <typename T>
using GsfPtr = std::unique_ptr<T, GsfUnref>;

// Stream names are at most 31 UTF-16 code units and not empty.
constexpr size_t kMaxStreamNameUnits = 31;
bool IsValidStreamName(std::string_view utf8Name);

class CompoundFileError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

class CompoundFileReader {
public:
  // Opens the file; throws CompoundFileError, naming the file and the reason,
  // if it cannot be read or is no sound compound file (FindCompoundFileDamage
  // in CompoundFileStream.h): a damaged file never reaches libgsf.
  explicit CompoundFileReader(std::string const & path);
  // The same on bytes in memory, which must outlive the reader.
  explicit CompoundFileReader(std::string_view bytes);
  ~CompoundFileReader();
  CompoundFileReader(CompoundFileReader const &) = delete;
  CompoundFileReader & operator=(CompoundFileReader const &) = delete;

  // Whether the root lists an entry of that name, readable or not.
  bool Lists(std::string const & name) const;

  _GsfInfile * Root() const { return mRoot.get(); }

private:
  void Open(std::string_view bytes, std::string const & what);

  std::string mBytes;  // the file's, which libgsf reads in place
  GsfPtr<_GsfInfile> mRoot;
};

class CompoundFileWriter {
public:
  CompoundFileWriter();
  ~CompoundFileWriter();
  CompoundFileWriter(CompoundFileWriter const &) = delete;
  CompoundFileWriter & operator=(CompoundFileWriter const &) = delete;

  // A new stream under the root; write it, then close it with
  // gsf_output_close before the next one. Throws CompoundFileError if the
  // name is invalid.
  GsfPtr<_GsfOutput> CreateStream(std::string const & name);
  void AddStream(std::string const & name, std::string_view bytes);
  // Copies every stream and storage under the root of `source` except the
  // root entries named in `except`.
  void CopyFrom(CompoundFileReader const & source, std::set<std::string> const & except);
  // Closes the file and gives its bytes.
  std::string Finish();

private:
  GsfPtr<_GsfOutput> mMemory;
  GsfPtr<_GsfOutfile> mRoot;
};

}  // namespace vx3
