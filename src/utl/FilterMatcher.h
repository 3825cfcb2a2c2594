#pragma once
// The language of the filter boxes: which texts of a list stay visible.
//
//   pump valve        both "pump" and "valve" occur in the text (AND)
//   pump | valve      "pump" or "valve" occurs (OR of AND-groups; "|" binds
//                     loosest: "a b | c" is (a AND b) OR c)
//   "cold water"      one term with a blank in it
//   -test             "test" does not occur
//   -"dry run"        "dry run" does not occur
//   run*.csv  ?7      a term with "*" or "?" must match the whole text, as
//                     VxString::WildCardCompare(term, text, false) does
//   (empty filter)    every text
//
// Terms without wildcards are found as substrings without regard to case
// (full case folding, as VxStdString::ContainsNoCase). Terms are separated
// by white space (any Unicode white space) or "|" outside quotation marks.
// Quotation marks may also stand inside a term: ab"c d" is the one term
// "abc d". Inside quotation marks a doubled quotation mark ("") is a
// quotation mark of the text. Only the first "-" of a term excludes; "--x"
// excludes "-x". A "-" to be searched for is written in quotation marks.
//
// A filter that is not well formed is read leniently, never refused:
//   - a quotation mark that is not closed runs to the end of the filter;
//   - a "-" with no text after it, and "" (empty quotes), are ignored;
//   - empty alternatives ("a ||b", a "|" at either end) are ignored;
//   - a filter with no terms left matches every text.
// FindProblem gives the strict reading for those who must refuse such a
// filter (KarvinFilterValidator).

#include <string>
#include <vector>

class FilterMatcher {
public:
  enum class Problem {
    None,
    UnclosedQuote,     // a quotation mark that is not closed
    MinusWithoutText,  // "-" followed by white space, "|" or the end
    EmptyQuotes,       // "" with nothing between them
    EmptyAlternative,  // "|" with no term on one of its sides
  };

  explicit FilterMatcher(std::string const & filter);

  bool MatchString(std::string const & text) const;

  // The strict reading of `filter`: the last problem found, from left to
  // right, or None when the filter is well formed. The constructor reads
  // through the same parser.
  static Problem FindProblem(std::string const & filter);

private:
  struct Term {
    bool exclude = false;
    bool wildcard = false;
    std::string pattern;    // UTF-8, for wildcard terms
    std::u32string folded;  // fully case-folded, for substring terms
    bool foldedIsAscii = false;
    std::string foldedAscii;  // the same as bytes when it is all ASCII
  };
  using Alternative = std::vector<Term>;

  static std::vector<Alternative> Parse(std::string const & filter, Problem & lastProblem);

  std::vector<Alternative> mAlternatives;  // empty: everything matches
};
