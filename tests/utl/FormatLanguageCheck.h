#pragma once
// An independent reading of a date format in the applications' format
// language, for tests and fuzz targets: the items are runs of one repeated
// ASCII letter, everything else separates them.

#include <set>
#include <string>
#include <vector>

namespace format_language {

inline std::vector<std::string> Items(std::string const & format) {
  std::vector<std::string> items;
  for (size_t at = 0; at < format.size();) {
    char const c = format[at];
    bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    size_t end = at + 1;
    if (letter) {
      while (end < format.size() && format[end] == c) ++end;
      items.push_back(format.substr(at, end - at));
    }
    at = end;
  }
  return items;
}

inline bool IsKnownItem(std::string const & item) {
  static std::set<std::string> const known = {"yyyy", "yy", "MMM", "MM", "M", "ddd",
                                              "dd",   "d",  "HH",  "H",  "hh", "h",
                                              "mm",   "ss", "fff", "tt"};
  return known.count(item) > 0;
}

// The group an item belongs to, by which an application finds repeats:
// "ddd" (the weekday) is a group of its own, "HH" and "hh" are one.
inline char GroupOf(std::string const & item) {
  if (item == "ddd") return 'w';
  return item[0] == 'H' ? 'h' : item[0];
}

inline bool IsDateItem(std::string const & item) {
  char const group = GroupOf(item);
  return group == 'y' || group == 'M' || group == 'd' || group == 'w';
}

// What is wrong with `format`, or "" if nothing: unknown items, a group
// twice, a twelve-hour item without "tt".
inline std::string Problems(std::string const & format) {
  std::string problems;
  std::set<char> groups;
  bool twelveHour = false;
  bool marker = false;
  for (std::string const & item : Items(format)) {
    if (!IsKnownItem(item)) problems += "unknown item '" + item + "'; ";
    if (!groups.insert(GroupOf(item)).second) problems += "repeated '" + item + "'; ";
    twelveHour = twelveHour || item[0] == 'h';
    marker = marker || item == "tt";
  }
  if (twelveHour && !marker) problems += "twelve-hour clock without tt; ";
  return problems;
}

}  // namespace format_language
