#pragma once
// Builds small ZIP packages for the tests with libzip, entry by entry, in
// the order given.
#include <zip.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace frame_test {

using ZipEntries = std::vector<std::pair<std::string, std::string>>;

inline void WriteBytes(std::string const & path, std::string const & bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline std::string ReadBytes(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

// Writes the package to `path` (deflated entries) and returns its bytes.
inline std::string WriteZip(std::string const & path, ZipEntries const & entries) {
  int error = 0;
  zip_t * archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (archive == nullptr) throw std::runtime_error("zip_open failed");
  for (auto const & [name, bytes] : entries) {
    // libzip reads the buffer at zip_close: a heap copy that libzip frees.
    void * copy = std::malloc(bytes.size() + 1);
    // NOLINTNEXTLINE(bugprone-not-null-terminated-result): entry bytes, not text.
    std::memcpy(copy, bytes.data(), bytes.size());
    zip_source_t * source = zip_source_buffer(archive, copy, bytes.size(), 1);
    zip_int64_t const index = zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) throw std::runtime_error("zip_file_add failed: " + name);
    zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 9);
  }
  if (zip_close(archive) != 0) throw std::runtime_error("zip_close failed");
  return ReadBytes(path);
}

}  // namespace frame_test
