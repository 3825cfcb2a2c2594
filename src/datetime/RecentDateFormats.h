#pragma once
// The date formats a user gave last, newest first, kept under the
// application's registry key in "DateTimeDefaults", value "Settings": the
// formats joined by ";". At most kMaxRecentDateFormats are kept.

#include <cstddef>
#include <string>
#include <vector>

namespace VxTimeUtl {

constexpr size_t kMaxRecentDateFormats = 9;

// The stored list; empty without an application key, without the key or
// value, or when the value is no text.
std::vector<std::string> ReadRecentDateFormats();

// Stores `formats` (the first kMaxRecentDateFormats of them). Nothing is
// stored without an application key, or when a format holds the separator
// ";" (it could not be read back as one format).
void WriteRecentDateFormats(std::vector<std::string> const & formats);

// Puts `format` first in `formats`, removing it where it stood before and
// cutting the list to kMaxRecentDateFormats. False, and the list untouched,
// when it is first already: then there is nothing to store.
bool MoveToFront(std::vector<std::string> & formats, std::string const & format);

}  // namespace VxTimeUtl
