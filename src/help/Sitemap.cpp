#include "help/Sitemap.h"

#include <libxml/HTMLparser.h>
#include <libxml/tree.h>

#include <cstring>
#include <memory>

#include "help/ChmSystemStreams.h"
#include "help/HelpText.h"

namespace {

constexpr size_t kMaxTreeDepth = 512;

bool NameIs(xmlNode const * node, char const * name) {
  return node->type == XML_ELEMENT_NODE &&
         xmlStrcasecmp(node->name, reinterpret_cast<xmlChar const *>(name)) == 0;
}

std::string Attribute(xmlNode * node, char const * name) {
  // HTML attributes are found without regard to case, as the parser lowers them.
  xmlChar * value = xmlGetProp(node, reinterpret_cast<xmlChar const *>(name));
  if (value == nullptr) return {};
  std::string text(reinterpret_cast<char const *>(value));
  xmlFree(value);
  return text;
}

class Builder {
public:
  Builder(SitemapLimits const & limits, Sitemap & map) : m_limits(limits), m_map(map) {}

  // Walks `node`'s children; entries found land in `level`. A <UL> opens the
  // level of the children of the last entry of `level` (or of `level` itself
  // when it has none yet); past the depth limit it adds to the same level.
  // The walk stops at kMaxTreeDepth elements deep, so that a hostile file
  // cannot exhaust the stack whatever the parser lets through.
  void Walk(xmlNode * node, std::vector<SitemapEntry> & level, size_t depth, size_t treeDepth = 0) {
    if (treeDepth >= kMaxTreeDepth) {
      m_map.truncated = true;
      return;
    }
    for (xmlNode * child = node->children; child != nullptr; child = child->next) {
      if (child->type != XML_ELEMENT_NODE) continue;
      if (NameIs(child, "object")) {
        AddObject(child, level);
      } else if (NameIs(child, "ul") || NameIs(child, "ol")) {
        if (depth + 1 >= m_limits.maxDepth || level.empty()) {
          if (depth + 1 >= m_limits.maxDepth) m_map.truncated = true;
          Walk(child, level, depth, treeDepth + 1);
        } else {
          Walk(child, level.back().children, depth + 1, treeDepth + 1);
        }
      } else {
        Walk(child, level, depth, treeDepth + 1);
      }
    }
  }

private:
  void AddObject(xmlNode * object, std::vector<SitemapEntry> & level) {
    if (!vx3::help::EqualsAsciiNoCase(Attribute(object, "type"), "text/sitemap")) return;
    SitemapEntry entry;
    bool named = false;
    for (xmlNode * param = object->children; param != nullptr; param = param->next) {
      if (!NameIs(param, "param")) continue;
      std::string const name = Attribute(param, "name");
      if (vx3::help::EqualsAsciiNoCase(name, "Name") && !named) {
        entry.name = Attribute(param, "value");
        named = true;
      } else if (vx3::help::EqualsAsciiNoCase(name, "Local")) {
        entry.locals.push_back(Attribute(param, "value"));
      }
    }
    if (!named && entry.locals.empty()) return;
    if (m_map.entryCount >= m_limits.maxEntries) {
      m_map.truncated = true;
      return;
    }
    ++m_map.entryCount;
    level.push_back(std::move(entry));
  }

  SitemapLimits const & m_limits;
  Sitemap & m_map;
};

struct DocumentDeleter {
  void operator()(xmlDoc * document) const { xmlFreeDoc(document); }
};

}  // namespace

Sitemap ParseSitemap(std::string_view bytes, SitemapLimits const & limits) {
  Sitemap map;
  if (bytes.empty() || bytes.size() > static_cast<size_t>(INT32_MAX)) return map;
  std::string const text = ChmTextToUtf8(bytes);
  int const options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                      HTML_PARSE_NONET | HTML_PARSE_NOIMPLIED;
  std::unique_ptr<xmlDoc, DocumentDeleter> document(
      htmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, "UTF-8", options));
  if (!document) return map;
  Builder builder(limits, map);
  builder.Walk(reinterpret_cast<xmlNode *>(document.get()), map.entries, 0);
  return map;
}
