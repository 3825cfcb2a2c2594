#pragma once
// A tool bar resource (type RT_TOOLBAR, 241): little-endian 16-bit words
//   version, image width, image height, item count, item ids...
// where an id of 0 is a separator. It sits beside the bitmap of the same
// number, a strip of the tool images in item order (separators take none).

#include <cstdint>
#include <string_view>
#include <vector>

struct ToolBarLayout {
  unsigned version = 0;
  unsigned width = 0;
  unsigned height = 0;
  std::vector<uint16_t> items;  // 0: separator
};

// Reads `bytes` into `layout`. False, and `layout` untouched, when they are
// no tool bar: an odd length, fewer than four words, or a count that runs
// past the data.
bool ParseToolBarResource(std::string_view bytes, ToolBarLayout & layout);
