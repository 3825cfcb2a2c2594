#pragma once
// The stream "ArtInfo" of an art archive: a Boost.Serialization text archive
// of one ArtInfo. Windows builds of the family read archives up to version
// 11 (Boost 1.56), so the text is written with the header of version 11; the
// tokens of these classes are the same in every later version, so texts of
// version 11 and later are read.
//
// Text from a file is checked against the grammar of these classes before
// Boost reads it: every count and string length must be backed by the bytes
// that follow and stay within the limits below, so that hostile text never
// makes Boost allocate more than the text could describe.

#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <string_view>

#include "pictures/ArtInfo.h"

namespace vx3 {

// The archive version written into the header.
constexpr unsigned int kArtInfoWriteVersion = 11;
// The oldest version read.
constexpr unsigned int kArtInfoMinimumVersion = 11;

// What an "ArtInfo" text may describe at most.
struct ArtInfoTextLimits {
  static constexpr size_t kMaxTextBytes = 16u << 20;
  static constexpr size_t kMaxCollections = 10000;
  static constexpr size_t kMaxPicturesPerCollection = 100000;
  static constexpr size_t kMaxPictures = 1000000;
  static constexpr size_t kMaxStringBytes = 65536;
};

// A text that is no readable "ArtInfo" archive.
class ArtInfoTextError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// Writes the archive of `art` to `out` (in the classic locale).
void WriteArtInfoText(ArtInfo const & art, std::ostream & out);

// The object that `text` describes. Throws ArtInfoTextError (or a Boost
// archive_exception, both std::exception) if it is no archive of version 11
// or later, breaks the grammar or exceeds the limits.
ArtInfo ReadArtInfoText(std::string_view text);

}  // namespace vx3
