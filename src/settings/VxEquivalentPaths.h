#pragma once
// Whether two paths name the same item.

#include "utl/basic_c_str.h"

// When both exist, they are the same item if they are the same file on the
// same device (st_dev and st_ino after following links), so hard links,
// links and different spellings of a path all compare equal. When neither
// exists, the paths are compared as text after making them absolute (from the
// working folder) and dropping ".", "..", doubled and trailing separators;
// this is case-sensitive, as Linux file names are. When only one exists, or
// either is empty, the result is false.
bool VxEquivalentPaths(basic_c_str<char> const & a, basic_c_str<char> const & b);
