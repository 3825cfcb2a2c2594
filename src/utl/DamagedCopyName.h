#pragma once
// Where a damaged file of the user's is kept when a new one takes its place:
// beside it, under a name that says so and when, never over an earlier copy.

#include <string>

namespace vx3 {

// A free "<path>.damaged-<UTC time>[-n]" name (time as 20261124T203000Z).
std::string DamagedCopyName(std::string const & path);

}  // namespace vx3
