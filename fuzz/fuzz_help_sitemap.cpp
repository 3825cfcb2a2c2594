// Contents and index files from anywhere: the tree stays within its limits,
// and the index built on it filters without leaving its rows.
#include <cstdint>
#include <string_view>

#include "help/HelpIndex.h"
#include "help/Sitemap.h"

namespace {

size_t Depth(std::vector<SitemapEntry> const & entries) {
  size_t deepest = 0;
  for (SitemapEntry const & entry : entries) deepest = std::max(deepest, 1 + Depth(entry.children));
  return deepest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const bytes(reinterpret_cast<char const *>(data), size);
  SitemapLimits const limits{6, 500};
  Sitemap const map = ParseSitemap(bytes, limits);
  if (map.entryCount > limits.maxEntries || Depth(map.entries) > limits.maxDepth) __builtin_trap();
  HelpIndex const index(map);
  if (index.Rows().size() != map.entryCount) __builtin_trap();
  // The first bytes typed as a filter.
  HelpIndexRange const range = index.Filter(bytes.substr(0, 3));
  if (range.first > range.last || range.last > index.Rows().size()) __builtin_trap();
  return 0;
}
