// Placement strings from the registry, which anyone may have edited: the
// parser never reads past the text, what it accepts writes back and parses
// to the same placement, and the rectangle can always be brought on screen.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "settings/PlacementOnScreen.h"
#include "settings/WindowPlacement.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const text(reinterpret_cast<char const *>(data), size);
  WINDOWPLACEMENT placement{};
  if (!ParseWindowPlacement(text.c_str(), placement)) return 0;
  if (placement.length != sizeof(WINDOWPLACEMENT)) __builtin_trap();
  std::string const written = WindowPlacementToString(placement);
  WINDOWPLACEMENT again{};
  if (!ParseWindowPlacement(written.c_str(), again)) __builtin_trap();
  if (std::memcmp(&again, &placement, sizeof placement) != 0) __builtin_trap();
  if (WindowPlacementToString(again) != written) __builtin_trap();

  std::vector<RECT> const areas{{0, 0, 1280, 1024}, {1280, -200, 3200, 880}};
  RECT const moved = VxBringOntoWorkArea(placement.rcNormalPosition, areas);
  if (!VxIsOnAWorkArea(moved, areas)) __builtin_trap();
  return 0;
}
