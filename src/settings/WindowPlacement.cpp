#include "settings/WindowPlacement.h"

#include <boost/format.hpp>

#include <cstdint>
#include <limits>

namespace {

// Reads one field at `text` and moves past it. Accepts blanks, then a minus
// only when `minimum` is negative, then at least one digit; the value must lie
// in [minimum, maximum].
bool ReadField(char const *& text, int64_t minimum, int64_t maximum, int64_t & value) {
  while (*text == ' ' || *text == '\t') ++text;
  bool const negative = *text == '-';
  if (negative) {
    if (minimum >= 0) return false;
    ++text;
  }
  if (*text < '0' || *text > '9') return false;
  int64_t magnitude = 0;
  for (; *text >= '0' && *text <= '9'; ++text) {
    magnitude = magnitude * 10 + (*text - '0');
    // Stop before the value can overflow; anything this large is refused.
    if (magnitude > maximum + 1) return false;
  }
  value = negative ? -magnitude : magnitude;
  return value >= minimum && value <= maximum;
}

}  // namespace

std::string WindowPlacementToString(WINDOWPLACEMENT const & placement) {
  return (boost::format("%1%,%2%,%3%,%4%,%5%,%6%,%7%,%8%,%9%,%10%") % placement.flags %
          placement.showCmd % placement.ptMinPosition.x % placement.ptMinPosition.y %
          placement.ptMaxPosition.x % placement.ptMaxPosition.y % placement.rcNormalPosition.left %
          placement.rcNormalPosition.top % placement.rcNormalPosition.right %
          placement.rcNormalPosition.bottom)
      .str();
}

bool ParseWindowPlacement(char const * text, WINDOWPLACEMENT & placement) {
  placement.length = sizeof(WINDOWPLACEMENT);
  if (text == nullptr) return false;
  constexpr int64_t uintMax = std::numeric_limits<UINT>::max();
  constexpr int64_t longMin = std::numeric_limits<LONG>::min();
  constexpr int64_t longMax = std::numeric_limits<LONG>::max();
  UINT * const unsignedFields[] = {&placement.flags, &placement.showCmd};
  LONG * const signedFields[] = {
      &placement.ptMinPosition.x,        &placement.ptMinPosition.y,
      &placement.ptMaxPosition.x,        &placement.ptMaxPosition.y,
      &placement.rcNormalPosition.left,  &placement.rcNormalPosition.top,
      &placement.rcNormalPosition.right, &placement.rcNormalPosition.bottom};

  int64_t value = 0;
  for (size_t index = 0; index < 10; ++index) {
    if (index > 0 && *text++ != ',') return false;
    if (index < 2) {
      if (!ReadField(text, 0, uintMax, value)) return false;
      *unsignedFields[index] = static_cast<UINT>(value);
    } else {
      if (!ReadField(text, longMin, longMax, value)) return false;
      *signedFields[index - 2] = static_cast<LONG>(value);
    }
  }
  return *text == '\0';
}
