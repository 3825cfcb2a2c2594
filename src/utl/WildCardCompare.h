#pragma once
// Wildcard matching of UTF-8 text, as list "select matching" and find boxes
// use it.
//
//   *   any run of characters, also none
//   ?   exactly one character (one code point: "?" matches "é", "€", "😀")
//   everything else stands for itself; there is no escape character
//
// The whole text must match the pattern. `caseSensitive` false compares by
// Unicode simple case folding (one code point for one, so that "?" still
// counts one character: "É" matches "é", "ß" does not match "ss"). Invalid
// UTF-8 in either text is skipped.
//
// The time is linear in the text for each piece of the pattern between
// stars, never exponential: the pieces are placed leftmost, one after the
// other, which cannot miss a match because a star absorbs whatever lies
// between them.

#include "utl/basic_c_str.h"

namespace VxString {

bool WildCardCompare(basic_c_str<char> const & pattern, basic_c_str<char> const & text,
                     bool caseSensitive);

}  // namespace VxString
