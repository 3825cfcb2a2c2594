#pragma once
// One stream under the root of an OLE2 compound file, read straight from the
// file: the header, the allocation tables and the directory are mapped and
// walked only as far as the stream needs. libgsf builds the whole directory
// (sorted) on open, which costs milliseconds for an archive with thousands
// of pictures; readers of the art archive want one list or one picture.
//
// Every sector number, chain and size is checked against the file, so that a
// damaged or hostile file gives false, never a read outside it or an endless
// walk.

#include <cstddef>
#include <string>
#include <string_view>

namespace vx3 {

enum class CompoundStreamRead {
  kRead,        // `bytes` holds the stream
  kAbsent,      // a readable compound file without that stream
  kUnreadable,  // no file, no compound file, damaged, or longer than allowed
};

// Fills `bytes` with the stream `name` (UTF-8, compared exactly) directly
// under the root, if it is at most `maxBytes` long. When the result is
// kUnreadable, `why` (if given) says what is wrong, for a person: the
// system's reason, or what is damaged.
CompoundStreamRead ReadCompoundFileStream(std::string const & path, std::string const & name,
                                          size_t maxBytes, std::string & bytes,
                                          std::string * why = nullptr);

// Empty if `bytes` are a sound compound file: its header, allocation tables
// and directory tree, and the chain of every stream inside the file and as
// long as the stream. Otherwise what is wrong, for a person. libgsf is given
// only files that pass: it loses memory on some damaged directories.
std::string FindCompoundFileDamage(std::string_view bytes);
// The same for the file at `path`, or the system's reason if it cannot be
// read.
std::string FindCompoundFileDamageAt(std::string const & path);

}  // namespace vx3
