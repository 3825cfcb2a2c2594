// DIB blocks from anywhere, as DIBToDDB and SaveDIB meet them: a block whose
// header lies is refused without a read outside it (AddressSanitizer checks
// the block, which is sized exactly), and a picture that is made has the
// header's size.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "pictures/DibBitmap.h"
#include "pictures/DibFile.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  HDIB const dib = GlobalAlloc(size);
  if (dib == nullptr) return 0;
  if (size != 0) std::memcpy(GlobalLock(dib), data, size);
  wxImage const image = DibToImage(dib);
  if (image.IsOk()) {
    std::uint32_t headerSize = 0;
    std::memcpy(&headerSize, data, sizeof headerSize);
    long long width = 0, height = 0;
    if (headerSize == sizeof(BITMAPCOREHEADER)) {
      BITMAPCOREHEADER core{};
      std::memcpy(&core, data, sizeof core);
      width = core.bcWidth;
      height = core.bcHeight;
    } else {
      BITMAPINFOHEADER info{};
      std::memcpy(&info, data, sizeof info);
      width = info.biWidth;
      height = info.biHeight < 0 ? -static_cast<long long>(info.biHeight) : info.biHeight;
    }
    if (image.GetWidth() != width || image.GetHeight() != height) std::abort();
  }
  std::ostringstream file;
  SaveDIB(dib, file);
  if (file.str().size() > size + sizeof(BITMAPFILEHEADER)) std::abort();
  GlobalFree(dib);
  return 0;
}
