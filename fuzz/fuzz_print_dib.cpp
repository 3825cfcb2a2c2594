// Arbitrary blocks as DIBs printed with PrintDIB: the first byte picks the
// mode, the rest is the block with its true size. A header that lies about
// its rows or colours is refused with a code; whatever is accepted is
// stretched from inside the block only (each row of the part is read into a
// picture).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "printing/DibSurface.h"
#include "printing/PrintDIB.h"

namespace {

// An A4 printer at 600 units an inch that stretches into pictures and
// needs no display: PrintDIB never draws text.
class PictureDevice : public CDC {
public:
  int GetDeviceCaps(int index) const override {
    switch (index) {
    case HORZRES: return 4961;
    case VERTRES: return 7016;
    case LOGPIXELSX:
    case LOGPIXELSY: return 600;
    default: return 0;
    }
  }
  int StartDoc(DOCINFOW const &) override { return 1; }
  int StartPage() override { return 1; }
  int EndPage() override { return 1; }
  int EndDoc() override { return 1; }
  int AbortDoc() override { return 1; }
  int Escape(int escape, int, void const *, void *) override { return escape == NEWFRAME ? 1 : 0; }
  int SetStretchBltMode(int) override { return COLORONCOLOR; }
  int StretchDIBits(int, int, int, int, int x, int y, int width, int height, void const * bits, void const * info,
                    UINT, DWORD) override {
    // Only the part a band needs, and never more than a page's picture.
    if (static_cast<long long>(width) * height > (1LL << 24)) return height;
    DibSurface const part(info, bits, x, y, width, height);
    return part.IsOk() ? height : 0;
  }
  wxDC & GetDC() override { std::abort(); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 1) return 0;
  unsigned short const mode = data[0] % 4;
  HDIB dib = GlobalAlloc(size - 1);
  if (dib == nullptr) return 0;
  if (size > 1) std::memcpy(GlobalLock(dib), data + 1, size - 1);
  PictureDevice device;
  PrintDIB(dib, mode, 3, 3, &device, 100);
  GlobalFree(dib);
  return 0;
}
