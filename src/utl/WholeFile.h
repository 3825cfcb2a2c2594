#pragma once
// Reading a file that may come from elsewhere in one piece, bounded.

#include <cstddef>
#include <string>

namespace vx3 {

// Reads a whole regular file of at most `maxBytes`. False when nothing
// stands at `path`; throws Exception naming the file for every other failure
// (a folder or device, too large, unreadable).
bool ReadWholeFile(std::string const & path, size_t maxBytes, std::string & bytes);

// Appends the whole file at `path` to `bytes`, unbounded; 0, or the errno
// of the failure (for callers that word the reason themselves).
int ReadFileBytes(std::string const & path, std::string & bytes);

}  // namespace vx3
