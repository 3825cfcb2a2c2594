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
// Never exponential: the pieces of the pattern between stars are placed
// leftmost, one after the other, which cannot miss a match because a star
// absorbs whatever lies between them. A piece is found in time linear in
// the text (Knuth-Morris-Pratt), except a long piece that holds "?", which
// may cost up to its length for each text character.

#include "utl/basic_c_str.h"

namespace VxString {

bool WildCardCompare(basic_c_str<char> const & pattern, basic_c_str<char> const & text,
                     bool caseSensitive);

}  // namespace VxString
