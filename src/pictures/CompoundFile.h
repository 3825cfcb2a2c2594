#pragma once
// OLE2 compound files ("structured storage") on libgsf, as the art archive
// uses them: streams and storages under the root, read from a file, and a
// new file built in memory and then written in one piece, so that the file
// on disk is only ever replaced whole.

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
  // Opens the file; throws CompoundFileError if it cannot be read or is no
  // compound file.
  explicit CompoundFileReader(std::string const & path);
  // The same on bytes in memory, which must outlive the reader.
  explicit CompoundFileReader(std::string_view bytes);
  ~CompoundFileReader();
  CompoundFileReader(CompoundFileReader const &) = delete;
  CompoundFileReader & operator=(CompoundFileReader const &) = delete;

  // The stream `name` directly under the root; null if there is none (or it
  // is a storage).
  GsfPtr<_GsfInput> OpenStream(std::string const & name) const;
  // The whole stream; false if it is missing, longer than `maxBytes` or
  // cannot be read.
  bool ReadStream(std::string const & name, size_t maxBytes, std::string & bytes) const;

  _GsfInfile * Root() const { return mRoot.get(); }

private:
  void Open(_GsfInput * source, std::string const & what);

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
