// Whole ".vart" files from anywhere: ReadArtInfo gives an archive or null,
// every picture decodes or gives an invalid image, and a save into the file
// either succeeds with a readable archive or fails leaving the file's bytes
// as they were.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "pictures/ArtInfo.h"
#include "platform/MessageBoxes.h"
#include "utl/Exception.h"

namespace {

std::string const & ScratchFile() {
  static std::string const path = [] {
    char const * folder = std::getenv("TMPDIR");
    return std::string(folder != nullptr ? folder : "/tmp") + "/fuzz-vart-" +
           std::to_string(::getpid()) + ".vart";
  }();
  return path;
}

std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  SetFrameworkMessageBoxHandler([](wxString const &, UINT, UINT) { return IDOK; });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const & path = ScratchFile();
  std::string const bytes(reinterpret_cast<char const *>(data), size);
  std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), bytes.size());

  std::unique_ptr<ArtInfo const> const art(ArtInfo::ReadArtInfo(path));
  size_t collections = 0;
  if (art) {
    collections = art->GetCollections().size();
    int decoded = 0;
    for (size_t c = 0; c < collections && decoded < 64; ++c) {
      int const index = static_cast<int>(c);
      art->GetIcon(index);
      size_t const pictures = art->GetCollections()[c].pictures.size();
      for (size_t p = 0; p < pictures && decoded < 64; ++p, ++decoded)
        art->GetImage(index, static_cast<int>(p));
    }
  }

  bool saved = false;
  try {
    saved = ArtInfo().SaveToFile(path, {}, {}, {}, {});
  } catch (Exception const &) {}
  if (!saved) {
    if (Slurp(path) != bytes) __builtin_trap();
  } else {
    std::unique_ptr<ArtInfo const> const again(ArtInfo::ReadArtInfo(path));
    if (!again || again->GetCollections().size() != collections) __builtin_trap();
  }
  ::unlink(path.c_str());
  return 0;
}
