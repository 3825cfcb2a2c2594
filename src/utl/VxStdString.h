#pragma once
// Free functions on UTF-8 text. Invalid UTF-8 sequences are skipped as if
// they were not there; nothing here throws.
//
// Case: "without regard to case" is Unicode full case folding, ICU's default
// (non-Turkic) folding, the same in every locale (see utl/CaseFolding.h):
// "STRASSE" equals "straße", "É" equals "é", "I" equals "i" but not "ı".
// Texts are not normalised: precomposed "é" and "e" + U+0301 differ.
//
// The locale arguments: the comparisons ignore them, so that an order or a
// lookup is the same for every user and sorting stays fast; ToLowerCase uses
// the locale's Boost.Locale converter when it has one; the grapheme cluster
// functions follow the Unicode rules, which do not depend on the language.

#include <cstddef>
#include <locale>
#include <string>

namespace VxStdString {

// Below, equal to or above zero; zero when the texts are equal without
// regard to case.
int CompareNoCase(std::string const & first, std::string const & second,
                  std::locale const & locale);

// Natural order for lists: "Run 9" before "Run 10".
// - A run of ASCII digits compares by its value, of any length; a number
//   sorts where a digit character would (after blank and "!", before
//   letters).
// - Other text compares by folded code points, as in CompareNoCase.
// - Texts equal so far are ordered by their leading zeros, at the first
//   number where they differ: fewer first ("7" before "07" before "007").
// - Then byte by byte, so that zero means the texts are identical: the
//   order is total and std::sort is safe with it ("A1" before "a1").
int CompareNumber(std::string const & first, std::string const & second,
                  std::locale const & locale);

// Whether `part` occurs in `text` without regard to case; an empty part
// always does. Folding may split a character: "ß" contains "s".
bool ContainsNoCase(std::string const & text, std::string const & part, std::locale const & locale);

// The text in lower case: through boost::locale::to_lower when the locale
// carries Boost.Locale's converter (language rules, Turkish "I" -> "ı"),
// otherwise ICU's lower-case mapping one code point at a time.
std::string ToLowerCase(std::string const & text, std::locale const & locale);

// Number of user-perceived characters (extended grapheme clusters): "e" +
// a combining accent, a flag, an emoji family joined by U+200D, and "\r\n"
// each count as one.
size_t GraphemeClusterCount(std::string const & text, std::locale const & locale);

// `count` user-perceived characters starting at the `first`; a range beyond
// the end is cut to what exists (possibly the empty text).
std::string GraphemeClusterSubString(std::string const & text, size_t first, size_t count,
                                     std::locale const & locale);

}  // namespace VxStdString
