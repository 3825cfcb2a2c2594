#pragma once
// The record behind each row of the column tree: flags, colour, sort rank
// and all column texts in one string, the columns divided by U+00B6.
//
// Column n is the text between the n-th and the n+1-th divider. Writing a
// column past the last divider pads with dividers first. A column 1 whose
// divider stands at the very start (column 0 empty) is written without that
// divider, so the write merges it into column 0: applications have relied
// on that, so it stays.

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/WinGdi.h"

struct ItemData {
  static constexpr wchar_t kSeparator = 0x00B6;
  static constexpr int kDefaultPriority = 1000;

  bool group = false;
  uint64_t userData = 0;
  bool bold = false;
  COLORREF colour = 0;  // the tree starts it at the window text colour
  int hasChildren = 0;
  int priority = kDefaultPriority;
  std::wstring text;
  wchar_t separator = kSeparator;

  // Empty when the text has fewer than `column` dividers (or column < 0).
  std::wstring_view ColumnView(int column) const;
  std::wstring GetColumnText(int column) const { return std::wstring(ColumnView(column)); }
  // The caller has refused texts that hold the divider (HoldsSeparator).
  void SetColumnText(int column, std::wstring_view value);
  static bool HoldsSeparator(std::wstring_view value) {
    return value.find(kSeparator) != std::wstring_view::npos;
  }
};
