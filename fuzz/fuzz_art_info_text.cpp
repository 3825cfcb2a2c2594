// The stream "ArtInfo" from anywhere: reading either succeeds or throws a
// std::exception, never allocates beyond what the text describes, and what
// was read is written back so that reading it again gives the same text.
#include <cstdint>
#include <exception>
#include <sstream>
#include <string>

#include "pictures/ArtInfoText.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  ArtInfo art;
  try {
    art = vx3::ReadArtInfoText(text);
  } catch (std::exception const &) {
    return 0;
  }
  std::ostringstream first;
  vx3::WriteArtInfoText(art, first);
  std::ostringstream second;
  vx3::WriteArtInfoText(vx3::ReadArtInfoText(first.str()), second);
  if (first.str() != second.str()) __builtin_trap();
  return 0;
}
