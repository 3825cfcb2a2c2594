#include "lists/VxTreeCtrlExSort.h"

#include <algorithm>
#include <climits>
#include <cwctype>

namespace {

wchar_t Lowered(wchar_t c) {
  if (c < 0x80) return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
  return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
}

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// The value of the digit run at the start of `digits`, held at INT_MAX as a
// Windows C library holds it.
int DigitRunValue(std::wstring_view digits) {
  long long value = 0;
  for (wchar_t const c : digits) {
    if (!IsDigit(c)) break;
    value = value * 10 + (c - L'0');
    if (value > INT_MAX) return INT_MAX;
  }
  return static_cast<int>(value);
}

}  // namespace

int CompareNoCaseDifference(std::wstring_view a, std::wstring_view b) {
  std::size_t const common = std::min(a.size(), b.size());
  for (std::size_t k = 0; k < common; ++k) {
    if (a[k] == b[k]) continue;
    int const difference = static_cast<int>(Lowered(a[k])) - static_cast<int>(Lowered(b[k]));
    if (difference != 0) return difference;
  }
  // A shorter text ends in its terminator, character 0.
  if (a.size() > common) return static_cast<int>(Lowered(a[common]));
  if (b.size() > common) return -static_cast<int>(Lowered(b[common]));
  return 0;
}

TreeSortKey MakeSortKey(ItemData const & record, int column) {
  TreeSortKey key;
  key.hasChildren = record.hasChildren;
  key.priority = record.priority;
  key.text = record.ColumnView(column);
  while (key.digit < key.text.size() && !IsDigit(key.text[key.digit])) ++key.digit;
  key.number = DigitRunValue(key.text.substr(key.digit));
  return key;
}

int CompareSortKeys(TreeSortKey const & a, TreeSortKey const & b, TreeSortInfo const & info) {
  if (info.groupsFirst && (a.hasChildren != 0) != (b.hasChildren != 0))
    return a.hasChildren != 0 ? -1 : 1;
  if (a.priority != b.priority) return a.priority > b.priority ? -1 : 1;
  int result = 0;
  if ((a.digit == a.text.size() && b.digit == b.text.size()) ||
      a.text.substr(0, a.digit) != b.text.substr(0, b.digit))
    result = CompareNoCaseDifference(a.text, b.text);
  else
    result = a.number > b.number   ? 1
             : a.number < b.number ? -1
                                   : CompareNoCaseDifference(a.text, b.text);
  if (!info.ascending && (result == 1 || result == -1)) result = -result;
  return result;
}

int CompareItemData(ItemData const & a, ItemData const & b, TreeSortInfo const & info) {
  if (info.groupsFirst && (a.hasChildren != 0) != (b.hasChildren != 0))
    return a.hasChildren != 0 ? -1 : 1;
  if (a.priority != b.priority) return a.priority > b.priority ? -1 : 1;
  std::wstring_view const t1 = a.ColumnView(info.column);
  std::wstring_view const t2 = b.ColumnView(info.column);
  std::size_t digit1 = 0;
  while (digit1 < t1.size() && !IsDigit(t1[digit1])) ++digit1;
  std::size_t digit2 = 0;
  while (digit2 < t2.size() && !IsDigit(t2[digit2])) ++digit2;
  int result = 0;
  if (digit1 == t1.size() && digit2 == t2.size()) {
    result = CompareNoCaseDifference(t1, t2);
  } else if (t1.substr(0, digit1) != t2.substr(0, digit2)) {
    result = CompareNoCaseDifference(t1, t2);
  } else {
    int const n1 = DigitRunValue(t1.substr(digit1));
    int const n2 = DigitRunValue(t2.substr(digit2));
    result = n1 > n2 ? 1 : n1 < n2 ? -1 : CompareNoCaseDifference(t1, t2);
  }
  if (!info.ascending && (result == 1 || result == -1)) result = -result;
  return result;
}
