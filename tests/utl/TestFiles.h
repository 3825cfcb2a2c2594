#pragma once
// Files in the test's own TMPDIR, read and written whole.

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "utl/Paths.h"

inline std::string Temp(std::string const & name) {
  return VxPathAppend(std::getenv("TMPDIR"), name);
}

inline std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void Spit(std::string const & path, std::string const & bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}
