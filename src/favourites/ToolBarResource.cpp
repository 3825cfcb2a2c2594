#include "favourites/ToolBarResource.h"

#include <cstddef>
#include <utility>

namespace {

constexpr size_t kHeaderWords = 4;

uint16_t Word(std::string_view bytes, size_t index) {
  auto const low = static_cast<unsigned char>(bytes[2 * index]);
  auto const high = static_cast<unsigned char>(bytes[(2 * index) + 1]);
  return static_cast<uint16_t>(low | (high << 8U));
}

}  // namespace

bool ParseToolBarResource(std::string_view bytes, ToolBarLayout & layout) {
  if (bytes.size() % 2 != 0) return false;
  size_t const words = bytes.size() / 2;
  if (words < kHeaderWords) return false;
  size_t const count = Word(bytes, 3);
  if (count > words - kHeaderWords) return false;
  ToolBarLayout read;
  read.version = Word(bytes, 0);
  read.width = Word(bytes, 1);
  read.height = Word(bytes, 2);
  read.items.reserve(count);
  for (size_t i = 0; i < count; ++i) read.items.push_back(Word(bytes, kHeaderWords + i));
  layout = std::move(read);
  return true;
}
