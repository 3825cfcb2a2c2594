#pragma once
// RECT compared and printed in test expectations. Global, beside RECT, so
// that GoogleTest finds them by argument-dependent lookup.

#include <ostream>

#include "platform/WinGeometry.h"

inline bool operator==(RECT const & a, RECT const & b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

inline std::ostream & operator<<(std::ostream & out, RECT const & r) {
  return out << "{" << r.left << "," << r.top << "," << r.right << "," << r.bottom << "}";
}
