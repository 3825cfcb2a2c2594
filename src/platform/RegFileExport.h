#pragma once
// Writes registry keys in the .reg text form (RegFile.h): the header of
// version 5, then each key depth first with its values in creation order
// and its sub-keys sorted. The file is UTF-8 with "\n" line ends; text that a
// quoted string cannot carry (line breaks, NULs, a missing terminator) is
// written as hex(1), and hex(1), hex(2) and hex(7) hold UTF-16LE, as Windows
// writes them.

#include <functional>
#include <string>
#include <vector>

#include "platform/RegistryHive.h"
#include "platform/WinReg.h"
#include "utl/ExceptionMessage.h"

namespace registry {

// Visits the key `path` below `root` and every key under it, depth first,
// sub-keys in sorted order, without recursion. `top` is the name the first
// key is shown by; a sub-key's name is its parent's, "\" and its own. A
// visitor that returns false stops the walk with ERROR_CANCELLED.
using KeyVisitor =
    std::function<bool(std::string const & name, std::vector<StoredValue> const & values)>;
LONG WalkKeyTree(HKEY root, std::wstring const & path, std::string const & top,
                 KeyVisitor const & visit);

// The key `path` below `root` with everything under it. False when the key
// cannot be read or a name holds a line break, which no .reg file can carry.
bool ExportRegFile(HKEY root, std::wstring const & path, std::string & text,
                   ExceptionMessage & error);

// Writes `text` to `file` atomically: a temporary file beside it, synced,
// then renamed over it. False (and no file changed) on failure.
bool SaveRegFile(std::string const & file, std::string const & text, ExceptionMessage & error);

}  // namespace registry
