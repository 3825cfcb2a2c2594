#pragma once
// The contents (".hhc") and index (".hhk") files of a compiled help file:
// HTML lists of <OBJECT type="text/sitemap"> entries, each with "Name" and
// "Local" parameters, nested by <UL>. They are written by help authors'
// tools and often are not well-formed, so they are read with libxml2's
// forgiving HTML parser; whatever the file holds, the result is a tree of
// bounded depth and size.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct SitemapEntry {
  std::string name;  // the first "Name" (UTF-8)
  std::vector<std::string>
      locals;  // every "Local" in order: a topic may be named twice in an index
  std::vector<SitemapEntry> children;
};

struct SitemapLimits {
  size_t maxDepth = 32;        // deeper <UL> levels join the deepest one kept
  size_t maxEntries = 200000;  // entries past this are dropped
};

struct Sitemap {
  std::vector<SitemapEntry> entries;
  size_t entryCount = 0;   // entries in the whole tree
  bool truncated = false;  // entries were dropped or flattened by the limits
};

// Reads a sitemap from its bytes. The text is taken as UTF-8 when it is valid
// UTF-8, else as Windows-1252 (what help compilers wrote). Never fails: an
// unreadable file gives an empty sitemap.
Sitemap ParseSitemap(std::string_view bytes, SitemapLimits const & limits = {});
