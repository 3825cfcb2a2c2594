#include "datetime/DateFormatValidation.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include <wx/string.h>
#include <boost/format.hpp>

#include "platform/MessageBoxes.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace VxTimeUtl {

namespace {

constexpr std::array<std::string_view, 16> kItems{"yyyy", "yy", "MMM", "MM", "M",  "ddd",
                                                  "dd",   "d",  "HH",  "H",  "hh", "h",
                                                  "mm",   "ss", "fff", "tt"};

bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsItem(std::string const & token) {
  return std::find(kItems.begin(), kItems.end(), token) != kItems.end();
}

bool Contains(std::vector<std::string> const & tokens, char const * token) {
  return std::find(tokens.begin(), tokens.end(), token) != tokens.end();
}

// Tokens of a group are found by their first letter, whatever their length,
// so that unknown runs of the same letter count too.
size_t CountStartingWith(std::vector<std::string> const & tokens, char letter) {
  return static_cast<size_t>(std::count_if(tokens.begin(), tokens.end(), [letter](auto & t) {
    return !t.empty() && t.front() == letter;
  }));
}

std::string Translate(char const * id) { return vx3::TranslateText(id, std::locale()); }

// Step 2: letters there are none.
std::string NothingUsable(std::string const & format) {
  std::string const pattern = Translate(
      "The format given:\n%1%\nis not valid. The format can only contain the alternatives "
      "found using the button 'Show details'.");
  try {
    // The format is an argument, never part of the pattern: a "%" in it is text.
    return (boost::format(pattern) % vx3::SanitizeUtf8(format)).str();
  } catch (boost::io::format_error const &) {
    // A translation that broke its placeholder: the untranslated text.
    return pattern + "\n" + vx3::SanitizeUtf8(format);
  }
}

// Step 3: the groups that appear more than once, listed in a fixed order. The
// day rule is narrow on purpose: "ddd" (the weekday) may stand beside "d" or
// "dd", and three or more day tokens are not reported at all.
std::string RepeatedGroups(std::vector<std::string> const & tokens) {
  std::string list;
  auto add = [&list](char const * word) {
    if (!list.empty()) list += ", ";
    list += Translate(word);
  };
  if (CountStartingWith(tokens, 'y') >= 2) add("year");
  if (CountStartingWith(tokens, 'M') >= 2) add("month");
  if (CountStartingWith(tokens, 'd') == 2 && !Contains(tokens, "ddd")) add("day");
  if (CountStartingWith(tokens, 'h') + CountStartingWith(tokens, 'H') >= 2) add("hour");
  if (CountStartingWith(tokens, 'm') >= 2) add("minute");
  if (CountStartingWith(tokens, 's') >= 2) add("second");
  if (CountStartingWith(tokens, 'f') >= 2) add("millisecond");
  if (list.empty()) return {};
  return Translate(
             "Each format can only appear once in the format string. These appear more than "
             "once:\n") +
         list;
}

// Step 4: every token that is no item, once each, in byte order.
std::string UnknownItems(std::vector<std::string> const & tokens) {
  std::set<std::string> unknown;
  for (auto const & token : tokens)
    if (!IsItem(token)) unknown.insert(token);
  if (unknown.empty()) return {};
  std::string text = Translate("There are unknown formats in the format string. These are:\n");
  for (auto const & token : unknown) text += " " + token;
  return text;
}

}  // namespace

std::vector<std::string> TokenizeDateFormat(std::string const & format) {
  std::vector<std::string> tokens;
  tokens.reserve(16);  // a full format has at most eight items: no regrowth
  std::string token;
  char previous = ' ';
  size_t at = 0;
  while (at < format.size()) {
    char const c = format[at];
    if (at > 0 && c != previous && !token.empty()) {
      // A change ends the run; the same position gets one more turn, now
      // with itself as the previous character.
      tokens.push_back(std::move(token));
      token.clear();
    } else {
      if (IsAsciiLetter(c)) token += c;
      ++at;
    }
    previous = c;
  }
  if (!token.empty()) tokens.push_back(std::move(token));
  return tokens;
}

std::vector<std::string> FindDateFormatProblems(std::string const & format) {
  std::vector<std::string> problems;
  if (format.empty()) return problems;
  std::vector<std::string> const tokens = TokenizeDateFormat(format);
  if (tokens.empty()) problems.push_back(NothingUsable(format));
  if (std::string text = RepeatedGroups(tokens); !text.empty()) problems.push_back(std::move(text));
  if (std::string text = UnknownItems(tokens); !text.empty()) problems.push_back(std::move(text));
  if ((Contains(tokens, "h") || Contains(tokens, "hh")) && !Contains(tokens, "tt"))
    problems.push_back(
        Translate("To use format 'h' or 'hh' the date must contain a AM/PM item ('tt')."));
  return problems;
}

bool ValidateFormatString(std::string const & format) {
  std::vector<std::string> const problems = FindDateFormatProblems(format);
  for (auto const & text : problems) AfxMessageBox(wxString(vx3::Utf8ToWide(text)), MB_OK, 0);
  return problems.empty();
}

}  // namespace VxTimeUtl
