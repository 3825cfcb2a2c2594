#pragma once
// The keywords of a help file's index (".hhk"), as the Index tab lists them:
// keywords in order without regard to case, each followed by its
// sub-keywords, and filtered as the user types. A keyword matches when it
// starts with the typed text, compared case-folded; its sub-keywords come
// with it. A filter is two binary searches, whatever the size of the index.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "help/Sitemap.h"

struct HelpIndexRow {
  std::string text;                 // UTF-8, as the file names it
  std::vector<std::string> locals;  // the topics it leads to
  unsigned level = 0;               // 0 for a keyword, 1 and more for its sub-keywords
};

// A contiguous run of rows [first, last).
struct HelpIndexRange {
  size_t first = 0;
  size_t last = 0;
  size_t size() const { return last - first; }
  bool empty() const { return first == last; }
};

class HelpIndex {
public:
  HelpIndex() = default;
  explicit HelpIndex(Sitemap const & sitemap);

  std::vector<HelpIndexRow> const & Rows() const { return m_rows; }

  // The rows of the keywords that start with `typed` (UTF-8), with their
  // sub-keywords; all rows for an empty text.
  HelpIndexRange Filter(std::string_view typed) const;

private:
  void Add(SitemapEntry const & entry, unsigned level);

  std::vector<HelpIndexRow> m_rows;
  // One for each keyword (level 0), sorted: its folded text and its first row.
  struct Key {
    std::u32string folded;
    size_t row = 0;
  };
  std::vector<Key> m_keys;
};
