// Audit-trail files from anywhere: loading and verifying them ends in an
// Exception or a verified trail, never a crash, and a refused file is never
// written over.
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>

#include "utl/AuditTrail.h"
#include "utl/Exception.h"

namespace {

std::string gFolder;

std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  char const * tmp = getenv("TMPDIR");
  std::string pattern = std::string(tmp != nullptr ? tmp : "/tmp") + "/fuzz-audit-XXXXXX";
  if (mkdtemp(&pattern[0]) == nullptr) __builtin_trap();
  gFolder = pattern;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const path = gFolder + "/trail.xml";
  std::string const input(reinterpret_cast<char const *>(data), size);
  {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << input;
  }
  bool refused = false;
  {
    AuditTrail trail(path.c_str(), nullptr, gFolder + "/keys");
    try {
      trail.BeginSessionAndVerifySignature();
    } catch (Exception const &) {
      refused = true;
    }
    if (refused) {
      try {
        trail.Save();
        __builtin_trap();  // a refused trail was saved
      } catch (Exception const &) {}
    }
  }
  if (refused && Slurp(path) != input) __builtin_trap();
  unlink(path.c_str());
  return 0;
}
