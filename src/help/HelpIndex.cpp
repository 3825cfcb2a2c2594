#include "help/HelpIndex.h"

#include <algorithm>

#include "utl/CaseFolding.h"

namespace {

std::u32string Folded(std::string_view text) {
  std::u32string folded;
  vx3::AppendFoldedFull(text, folded);
  return folded;
}

}  // namespace

HelpIndex::HelpIndex(Sitemap const & sitemap) {
  // Keywords are put in folded order (stable: equal keywords keep the file's
  // order); each keeps its sub-keywords in the file's order below it.
  std::vector<std::pair<std::u32string, SitemapEntry const *>> keywords;
  keywords.reserve(sitemap.entries.size());
  for (SitemapEntry const & entry : sitemap.entries)
    keywords.emplace_back(Folded(entry.name), &entry);
  std::stable_sort(keywords.begin(), keywords.end(),
                   [](auto const & a, auto const & b) { return a.first < b.first; });
  m_rows.reserve(sitemap.entryCount);
  m_keys.reserve(keywords.size());
  for (auto & [folded, entry] : keywords) {
    m_keys.push_back(Key{std::move(folded), m_rows.size()});
    Add(*entry, 0);
  }
}

void HelpIndex::Add(SitemapEntry const & entry, unsigned level) {
  m_rows.push_back(HelpIndexRow{entry.name, entry.locals, level});
  for (SitemapEntry const & child : entry.children) Add(child, level + 1);
}

HelpIndexRange HelpIndex::Filter(std::string_view typed) const {
  std::u32string const prefix = Folded(typed);
  if (prefix.empty()) return {0, m_rows.size()};
  auto const first = std::lower_bound(
      m_keys.begin(), m_keys.end(), prefix,
      [](Key const & key, std::u32string const & value) { return key.folded < value; });
  // Past the last key that starts with the prefix: the first that, cut to
  // the prefix's length, sorts after it.
  auto const last = std::upper_bound(first, m_keys.end(), prefix,
                                     [](std::u32string const & value, Key const & key) {
                                       return key.folded.compare(0, value.size(), value) > 0;
                                     });
  if (first == last) return {};
  size_t const endRow = last == m_keys.end() ? m_rows.size() : last->row;
  return {first->row, endRow};
}
