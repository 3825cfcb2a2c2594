#pragma once
// PNG files built chunk by chunk (zlib for the image data, no libpng), so
// that readers are tested on bytes they did not write, damaged ones too; and
// a walker over the chunks of a written file.

#include <zlib.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;

inline void Put32(Bytes & out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8)
    out.push_back(static_cast<unsigned char>(value >> shift));
}

inline std::uint32_t Get32(unsigned char const * at) {
  return (std::uint32_t{at[0]} << 24) | (std::uint32_t{at[1]} << 16) | (at[2] << 8) | at[3];
}

class PngBuilder {
public:
  // IHDR of `width` x `height`; rows are added raw, without filter bytes.
  PngBuilder(std::uint32_t width, std::uint32_t height, int depth, int colorType,
             int interlace = 0) {
    Bytes header;
    Put32(header, width);
    Put32(header, height);
    header.insert(header.end(),
                  {static_cast<unsigned char>(depth), static_cast<unsigned char>(colorType), 0, 0,
                   static_cast<unsigned char>(interlace)});
    Chunk("IHDR", header);
  }
  PngBuilder & Chunk(std::string const & type, Bytes const & data) {
    Put32(out_, static_cast<std::uint32_t>(data.size()));
    std::size_t const start = out_.size();
    out_.insert(out_.end(), type.begin(), type.end());
    out_.insert(out_.end(), data.begin(), data.end());
    Put32(out_, static_cast<std::uint32_t>(
                    crc32(0, out_.data() + start, static_cast<uInt>(out_.size() - start))));
    return *this;
  }
  // The image data of `rows` (each given its filter byte 0) and IEND.
  Bytes Finish(std::vector<Bytes> const & rows) {
    Bytes raw;
    for (Bytes const & row : rows) {
      raw.push_back(0);
      raw.insert(raw.end(), row.begin(), row.end());
    }
    uLongf size = compressBound(static_cast<uLong>(raw.size()));
    Bytes packed(size);
    compress(packed.data(), &size, raw.data(), static_cast<uLong>(raw.size()));
    packed.resize(size);
    Chunk("IDAT", packed);
    Chunk("IEND", {});
    return out_;
  }

private:
  Bytes out_{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
};

inline Bytes ReadAll(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Chunk type to the data of its first occurrence, and the types in order.
struct PngChunks {
  std::map<std::string, Bytes> data;
  std::vector<std::string> order;
};

inline PngChunks WalkChunks(Bytes const & file) {
  PngChunks chunks;
  for (std::size_t at = 8; at + 12 <= file.size();) {
    std::uint32_t const length = Get32(&file[at]);
    std::string const type(file.begin() + static_cast<long>(at) + 4,
                           file.begin() + static_cast<long>(at) + 8);
    if (at + 12 + length > file.size()) break;
    chunks.order.push_back(type);
    chunks.data.emplace(type, Bytes(file.begin() + static_cast<long>(at) + 8,
                                    file.begin() + static_cast<long>(at + 8 + length)));
    at += 12 + length;
  }
  return chunks;
}
