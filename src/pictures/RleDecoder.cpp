#include "pictures/RleDecoder.h"

namespace {

class RleTarget {
public:
  RleTarget(unsigned bitCount, long width, long height, unsigned char * rows, std::size_t stride)
      : bitCount_(bitCount), width_(width), height_(height), rows_(rows), stride_(stride) {}

  // Writes one index at the cursor and moves on; nothing outside the picture.
  void Put(unsigned index) {
    if (x_ >= 0 && x_ < width_ && y_ >= 0 && y_ < height_) {
      unsigned char * const row = rows_ + stride_ * static_cast<std::size_t>(y_);
      if (bitCount_ == 8) {
        row[x_] = static_cast<unsigned char>(index);
      } else {
        unsigned char & pair = row[x_ / 2];
        pair = (x_ % 2 == 0) ? static_cast<unsigned char>((pair & 0x0F) | (index << 4))
                             : static_cast<unsigned char>((pair & 0xF0) | (index & 0x0F));
      }
    }
    ++x_;
  }
  void NextLine() {
    x_ = 0;
    ++y_;
  }
  void Move(unsigned dx, unsigned dy) {
    x_ += dx;
    y_ += dy;
  }
  // Past the last row nothing more can be written.
  bool Done() const { return y_ >= height_; }
  // A run never writes further than the row's end: stops hostile lengths early.
  bool RowFull() const { return x_ >= width_; }

private:
  unsigned bitCount_;
  long width_;
  long height_;
  unsigned char * rows_;
  std::size_t stride_;
  long x_ = 0;
  long y_ = 0;
};

}  // namespace

bool DecodeRle(unsigned char const * data, std::size_t size, unsigned bitCount, long width,
               long height, unsigned char * rows, std::size_t stride) {
  if (bitCount != 4 && bitCount != 8) return false;
  RleTarget target(bitCount, width, height, rows, stride);
  std::size_t at = 0;
  while (at + 2 <= size) {
    unsigned const count = data[at];
    unsigned const value = data[at + 1];
    at += 2;
    if (count > 0) {
      for (unsigned i = 0; i < count && !target.RowFull(); ++i)
        target.Put(bitCount == 8 ? value : (i % 2 == 0 ? value >> 4 : value & 0x0F));
      continue;
    }
    switch (value) {
      case 0: target.NextLine(); break;
      case 1: return true;
      case 2:
        if (at + 2 > size) return false;
        target.Move(data[at], data[at + 1]);
        at += 2;
        break;
      default: {
        // Absolute mode: `value` literal indices, padded to a 16-bit boundary.
        std::size_t const bytes = bitCount == 8 ? value : (value + 1) / 2;
        if (at + bytes > size) return false;
        for (unsigned i = 0; i < value; ++i) {
          unsigned const byte = data[at + (bitCount == 8 ? i : i / 2)];
          target.Put(bitCount == 8 ? byte : (i % 2 == 0 ? byte >> 4 : byte & 0x0F));
        }
        at += (bytes + 1) / 2 * 2;
        break;
      }
    }
    if (target.Done()) return true;
  }
  return false;
}
