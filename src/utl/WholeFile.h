#pragma once
// Reading a file that may come from elsewhere in one piece, bounded.

#include <cstddef>
#include <string>

namespace vx3 {

// Reads a whole regular file of at most `maxBytes`. False when nothing
// stands at `path`; throws Exception naming the file for every other failure
// (a folder or device, too large, unreadable).
bool ReadWholeFile(std::string const & path, size_t maxBytes, std::string & bytes);

}  // namespace vx3
