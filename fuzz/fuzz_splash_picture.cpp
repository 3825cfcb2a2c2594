// Splash pictures from anywhere: a picture comes back exactly as large as
// its header declares, or none with a reason; nothing larger than a splash
// may be is ever decoded.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <wx/init.h>

#include "controls/SplashPicture.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  static wxInitializer const wx;  // the pictures are read by wx's image readers
  char const * problem = nullptr;
  wxImage const image = DecodeSplashPicture(data, size, problem);
  if (!image.IsOk()) {
    if (problem == nullptr) std::abort();
    return 0;
  }
  int width = 0;
  int height = 0;
  if (!ReadPictureHeaderSize(data, size, width, height) || image.GetWidth() != width ||
      image.GetHeight() != height || static_cast<long long>(width) * height > kMaxSplashPixels)
    std::abort();
  return 0;
}
