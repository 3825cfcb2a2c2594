// Arbitrary blocks as DIBs written to PNG: the first byte picks alpha and
// interlacing, the rest is the block with its true size. A write succeeds
// with a file or fails with a text and leaves no file.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "pictures/PngCoder.h"

namespace {

std::wstring const & ScratchFile() {
  static std::wstring const path = [] {
    char const * folder = std::getenv("TMPDIR");
    std::string const name = std::string(folder != nullptr ? folder : "/tmp") + "/fuzz-dib-" +
                             std::to_string(::getpid()) + ".png";
    return std::wstring(name.begin(), name.end());
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  // A DIB size of 0 means "size unknown", which trusts the block: the
  // block must have at least one byte.
  if (size < 2) return 0;
  // A small picture is enough to reach every step; huge ones only take time.
  if (size >= 13) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::memcpy(&width, data + 5, sizeof width);
    std::memcpy(&height, data + 9, sizeof height);
    if (std::llabs(static_cast<long long>(width) * height) > 1 << 20) return 0;
  }
  VxPngInfo * const info = VxPngCreate(VX_PNG_DIB_TO_PNG);
  info->write.alpha = (data[0] & 1) != 0;
  info->write.interlaced = (data[0] & 2) != 0;
  info->write.dib = data + 1;
  info->write.dibSize = size - 1;
  VxPngSetOutputFile(info, ScratchFile().c_str());
  std::string const path(ScratchFile().begin(), ScratchFile().end());
  int const code = VxDibToPng(info);
  bool const written = ::access(path.c_str(), F_OK) == 0;
  if ((code == VX_PNG_OK) != written || (code != VX_PNG_OK && info->errorText[0] == 0))
    std::abort();
  ::unlink(path.c_str());
  VxPngFree(info);
  return 0;
}
