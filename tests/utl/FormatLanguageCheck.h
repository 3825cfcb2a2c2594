#pragma once
// An independent reading of a date format in the applications' format
// language, for tests and fuzz targets: items are runs of one repeated ASCII
// letter, everything else separates them.

#include <set>
#include <string>
#include <vector>

namespace format_language {

inline std::vector<std::string> Items(std::string const & format) {
  std::vector<std::string> items;
  for (size_t at = 0, end; at < format.size(); at = end) {
    char const c = format[at];
    for (end = at + 1; end < format.size() && format[end] == c;) ++end;
    bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (letter) items.push_back(format.substr(at, end - at));
  }
  return items;
}

// "ddd" (the weekday) is a group of its own; "HH" and "hh" are one.
inline char GroupOf(std::string const & item) {
  return item == "ddd" ? 'w' : item[0] == 'H' ? 'h' : item[0];
}

inline bool IsDateItem(std::string const & item) {
  return std::string("yMdw").find(GroupOf(item)) != std::string::npos;
}

// What an application would object to in `format`, or "": unknown items, a
// group twice, a twelve-hour clock without "tt".
inline std::string Problems(std::string const & format) {
  static std::set<std::string> const known = {"yyyy", "yy", "MMM", "MM", "M",  "ddd", "dd",  "d",
                                              "HH",   "H",  "hh",  "h",  "mm", "ss",  "fff", "tt"};
  std::string problems;
  std::set<char> groups;
  bool twelveHour = false, marker = false;
  for (std::string const & item : Items(format)) {
    if (known.count(item) == 0) problems += "unknown '" + item + "' ";
    if (!groups.insert(GroupOf(item)).second) problems += "repeated '" + item + "' ";
    twelveHour = twelveHour || item[0] == 'h';
    marker = marker || item == "tt";
  }
  return twelveHour && !marker ? problems + "hh without tt" : problems;
}

}  // namespace format_language
