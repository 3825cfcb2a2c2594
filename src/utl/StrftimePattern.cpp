#include "utl/StrftimePattern.h"

#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include "utl/Utf.h"

namespace VxTimeUtl {

namespace {

constexpr int kMaxNesting = 4;
// Composites that name each other many times over would grow without bound;
// beyond this many pattern characters read, the rest is ignored.
constexpr size_t kMaxWork = 1 << 16;

enum class Group { None, Year, Month, Day, Weekday, Hour, Minute, Second, Marker };

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

Group GroupOf(std::string const & item) {
  switch (item.empty() ? '\0' : item[0]) {
    case 'y': return Group::Year;
    case 'M': return Group::Month;
    case 'd': return item == "ddd" ? Group::Weekday : Group::Day;
    case 'H':
    case 'h': return Group::Hour;
    case 'm': return Group::Minute;
    case 's': return Group::Second;
    case 't': return Group::Marker;
    default: return Group::None;
  }
}

bool InPart(Group group, PatternPart part) {
  bool const date = group == Group::Year || group == Group::Month || group == Group::Day ||
                    group == Group::Weekday;
  switch (part) {
    case PatternPart::Date: return date;
    case PatternPart::Time: return !date;
    default: return true;
  }
}

// The pattern as literal texts and elements: literals[i] stands before
// elements[i], and the last literal after the last element. An element is an
// item of the format language, or something that will be dropped (empty).
struct Parsed {
  std::vector<std::string> literals{std::string()};
  std::vector<std::string> elements;
  size_t work = 0;

  void Add(std::string item) {
    elements.push_back(std::move(item));
    literals.emplace_back();
  }
};

char const * FixedComposite(char conversion) {
  switch (conversion) {
    case 'D': return "%m/%d/%y";
    case 'F': return "%Y-%m-%d";
    case 'T': return "%H:%M:%S";
    case 'R': return "%H:%M";
    default: return nullptr;
  }
}

std::string const * LocaleComposite(char conversion, StrftimeComposites const & composites) {
  switch (conversion) {
    case 'x': return &composites.date;
    case 'X': return &composites.time;
    case 'r': return &composites.ampmTime;
    case 'c': return &composites.dateAndTime;
    default: return nullptr;
  }
}

// The item of one conversion; `pad` is the last padding flag given, or '\0'.
std::string ItemOf(char conversion, char pad) {
  bool const unpadded = pad == '-' || pad == '_';
  bool const zeroPadded = pad == '0';
  switch (conversion) {
    case 'Y': return "yyyy";
    case 'y': return "yy";
    case 'm': return unpadded ? "M" : "MM";
    case 'd': return unpadded ? "d" : "dd";
    case 'e': return zeroPadded ? "dd" : "d";
    case 'b':
    case 'h':
    case 'B': return "MMM";
    case 'a':
    case 'A': return "ddd";
    case 'H': return unpadded ? "H" : "HH";
    case 'k': return zeroPadded ? "HH" : "H";
    case 'I': return unpadded ? "h" : "hh";
    case 'l': return zeroPadded ? "hh" : "h";
    case 'M': return "mm";
    case 'S': return "ss";
    case 'p':
    case 'P': return "tt";
    default: return std::string();
  }
}

void Parse(std::string_view pattern, StrftimeComposites const & composites, int depth,
           Parsed & parsed) {
  size_t at = 0;
  while (at < pattern.size() && parsed.work++ < kMaxWork) {
    char const c = pattern[at];
    if (IsAsciiLetter(c)) {
      while (at < pattern.size() && IsAsciiLetter(pattern[at])) ++at;
      parsed.Add(std::string());
      continue;
    }
    ++at;
    if (c != '%') {
      parsed.literals.back() += c;
      continue;
    }
    char pad = '\0';
    for (; at < pattern.size() && std::strchr("_-0^#", pattern[at]) != nullptr; ++at) {
      if (pattern[at] != '^' && pattern[at] != '#') pad = pattern[at];
    }
    while (at < pattern.size() && pattern[at] >= '0' && pattern[at] <= '9') ++at;
    if (at < pattern.size() && (pattern[at] == 'E' || pattern[at] == 'O')) ++at;
    if (at == pattern.size() || (pattern[at] & 0x80) != 0) {
      // Cut off at the end, or followed by a character beyond ASCII, which
      // stays text: a conversion to drop.
      parsed.Add(std::string());
      continue;
    }
    char const conversion = pattern[at++];
    if (conversion == '%') {
      parsed.literals.back() += '%';
    } else if (conversion == 'n' || conversion == 't') {
      parsed.literals.back() += ' ';
    } else if (char const * fixed = FixedComposite(conversion)) {
      Parse(fixed, composites, depth + 1, parsed);
    } else if (std::string const * composite = LocaleComposite(conversion, composites)) {
      if (depth < kMaxNesting) {
        Parse(*composite, composites, depth + 1, parsed);
      } else {
        parsed.Add(std::string());
      }
    } else {
      parsed.Add(ItemOf(conversion, pad));
    }
  }
}

size_t FindBlank(std::string const & text) {
  for (size_t i = 0; i < text.size(); ++i) {
    if (IsBlank(text[i])) return i;
  }
  return std::string::npos;
}

size_t FindLastBlank(std::string const & text) {
  for (size_t i = text.size(); i > 0; --i) {
    if (IsBlank(text[i - 1])) return i - 1;
  }
  return std::string::npos;
}

// List separators never belong to an item: at an end of the result they go.
std::string TrimListSeparators(std::string text) {
  while (!text.empty() && (text.back() == ',' || text.back() == ';')) text.pop_back();
  while (!text.empty() && (text.front() == ',' || text.front() == ';')) text.erase(0, 1);
  return text;
}

// The text before a kept item whose predecessors were all dropped: only what
// is glued to the item after the last blank ("(" of "%Z (%a)").
std::string LeadingJoin(std::string const & before) {
  size_t const blank = FindLastBlank(before);
  return blank == std::string::npos ? std::string() : TrimListSeparators(before.substr(blank + 1));
}

// The text after a kept item whose successors were all dropped: only what is
// glued to the item before the first blank ("日" of "%d日 %H").
std::string TrailingJoin(std::string const & after) {
  size_t const blank = FindBlank(after);
  return blank == std::string::npos ? std::string() : TrimListSeparators(after.substr(0, blank));
}

// The text between two kept items with dropped ones between them: `left`
// follows the first kept item, `right` precedes the second.
std::string MiddleJoin(std::string const & left, std::string const & right) {
  size_t const leftBlank = FindBlank(left);
  size_t const rightBlank = FindLastBlank(right);
  if (leftBlank == std::string::npos && rightBlank == std::string::npos) {
    return left.empty() ? right : left;
  }
  std::string joined;
  if (leftBlank != std::string::npos) {
    size_t end = leftBlank;
    while (end < left.size() && IsBlank(left[end])) ++end;
    joined = left.substr(0, end);
  }
  if (rightBlank != std::string::npos) {
    size_t start = rightBlank;
    if (joined.empty()) {
      while (start > 0 && IsBlank(right[start - 1])) --start;
    } else {
      ++start;  // `left` gave the blank already
    }
    joined += right.substr(start);
  }
  return joined;
}

void AppendItem(std::string const & item, std::string & out) {
  // "MMM" then "MM" would read as one unknown "MMMMM".
  if (!out.empty() && out.back() == item[0]) out += ' ';
  out += item;
}

}  // namespace

std::string FromStrftimePattern(std::string const & pattern, PatternPart part,
                                StrftimeComposites const & composites) {
  // Invalid sequences go before parsing: removed later, they could join two
  // items into one.
  StrftimeComposites clean;
  clean.date = vx3::SanitizeUtf8(composites.date);
  clean.time = vx3::SanitizeUtf8(composites.time);
  clean.ampmTime = vx3::SanitizeUtf8(composites.ampmTime);
  clean.dateAndTime = vx3::SanitizeUtf8(composites.dateAndTime);
  Parsed parsed;
  Parse(vx3::SanitizeUtf8(pattern), clean, 0, parsed);

  std::vector<size_t> kept;
  bool seen[static_cast<int>(Group::Marker) + 1] = {};
  bool twelveHour = false;
  for (size_t i = 0; i < parsed.elements.size(); ++i) {
    std::string const & item = parsed.elements[i];
    Group const group = GroupOf(item);
    if (group == Group::None || !InPart(group, part) || seen[static_cast<int>(group)]) continue;
    seen[static_cast<int>(group)] = true;
    twelveHour = twelveHour || item[0] == 'h';
    kept.push_back(i);
  }
  if (kept.empty()) return std::string();

  std::vector<std::string> const & literals = parsed.literals;
  std::string out = kept.front() == 0 ? literals[0] : LeadingJoin(literals[kept.front()]);
  for (size_t k = 0; k < kept.size(); ++k) {
    size_t const index = kept[k];
    AppendItem(parsed.elements[index], out);
    if (k + 1 < kept.size()) {
      size_t const next = kept[k + 1];
      out += next == index + 1 ? literals[next] : MiddleJoin(literals[index + 1], literals[next]);
    } else {
      bool const last = index + 1 == parsed.elements.size();
      out += last ? literals[index + 1] : TrailingJoin(literals[index + 1]);
    }
  }
  if (twelveHour && !seen[static_cast<int>(Group::Marker)]) out += " tt";

  size_t first = 0;
  size_t end = out.size();
  while (first < end && IsBlank(out[first])) ++first;
  while (end > first && IsBlank(out[end - 1])) --end;
  return out.substr(first, end - first);
}

}  // namespace VxTimeUtl
