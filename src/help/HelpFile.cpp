#include "help/HelpFile.h"

#include <unordered_set>

namespace {

void CollectLocals(std::vector<SitemapEntry> const & entries, std::vector<std::string> & locals) {
  for (SitemapEntry const & entry : entries) {
    locals.insert(locals.end(), entry.locals.begin(), entry.locals.end());
    CollectLocals(entry.children, locals);
  }
}

}  // namespace

std::string ChmInnerPath(std::string_view name) {
  std::string path;
  path.reserve(name.size() + 1);
  for (char const c : name) path.push_back(c == '\\' ? '/' : c);
  size_t slashes = 0;
  while (slashes < path.size() && path[slashes] == '/') ++slashes;
  if (slashes == path.size()) return {};
  return "/" + path.substr(slashes);
}

std::string ResolveHelpLink(std::string const & from, std::string const & link) {
  std::string target = link.substr(0, link.find_first_of("#?"));
  for (char & c : target)
    if (c == '\\') c = '/';
  if (target.empty()) return from;
  std::vector<std::string> parts;
  if (target.front() != '/') {
    // Relative: from the folder of `from`.
    size_t const slash = from.rfind('/');
    std::string const folder = slash == std::string::npos ? std::string() : from.substr(0, slash);
    target = folder + "/" + target;
  }
  size_t at = 0;
  while (at <= target.size()) {
    size_t end = target.find('/', at);
    if (end == std::string::npos) end = target.size();
    std::string const part = target.substr(at, end - at);
    at = end + 1;
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();  // never above the file's root
      continue;
    }
    parts.push_back(part);
  }
  std::string path;
  for (std::string const & part : parts) path += "/" + part;
  return path.empty() ? "/" : path;
}

HelpFile::HelpFile(std::string path, std::unique_ptr<HelpArchive> archive)
    : m_path(std::move(path)), m_archive(std::move(archive)) {
  std::string bytes;
  // A damaged stream keeps the records before the damage.
  if (m_archive->Read("/#SYSTEM", bytes)) ParseChmSystem(bytes, m_system);
  m_title = ChmTextToUtf8(m_system.title);
  m_defaultTopic = ChmInnerPath(m_system.defaultTopic);
}

bool HelpFile::Read(std::string const & innerPath, std::string & bytes) {
  return m_archive->Read(innerPath, bytes);
}

Sitemap const & HelpFile::Contents() {
  if (!m_contents) {
    std::string bytes;
    if (!m_system.contentsFile.empty()) m_archive->Read(ChmInnerPath(m_system.contentsFile), bytes);
    m_contents = ParseSitemap(bytes);
  }
  return *m_contents;
}

HelpIndex const & HelpFile::Index() {
  if (!m_index) {
    std::string bytes;
    if (!m_system.indexFile.empty()) m_archive->Read(ChmInnerPath(m_system.indexFile), bytes);
    m_indexMap = ParseSitemap(bytes);
    m_index.emplace(*m_indexMap);
  }
  return *m_index;
}

std::optional<std::string> HelpFile::TopicOfNumber(uint32_t number) {
  if (!m_numbers) {
    std::string bytes;
    m_archive->Read("/#IVB", bytes);
    m_numbers = ParseChmIdMap(bytes).value_or(std::vector<ChmIdPair>());
    m_archive->Read("/#STRINGS", m_strings);
  }
  for (ChmIdPair const & pair : *m_numbers) {
    if (pair.helpId != number) continue;
    std::optional<std::string> const topic = ChmStringAt(m_strings, pair.stringOffset);
    if (!topic || topic->empty()) return std::nullopt;
    return ResolveHelpLink("/", ChmTextToUtf8(*topic));
  }
  return std::nullopt;
}

PopupText const & HelpFile::Popups(std::string const & innerPath) {
  auto found = m_popups.find(innerPath);
  if (found == m_popups.end()) {
    std::string bytes;
    m_archive->Read(innerPath, bytes);
    found = m_popups.emplace(innerPath, PopupText::Parse(bytes)).first;
  }
  return found->second;
}

std::vector<HelpFile::SearchTopic> const & HelpFile::SearchTopics() {
  BuildSearch();
  return m_searchTopics;
}

HelpSearchIndex const & HelpFile::SearchIndex() {
  BuildSearch();
  return *m_search;
}

void HelpFile::BuildSearch() {
  if (m_search) return;
  m_search.emplace();
  std::vector<std::string> locals;
  if (!m_defaultTopic.empty()) locals.push_back(m_defaultTopic);
  CollectLocals(Contents().entries, locals);
  Index();
  CollectLocals(m_indexMap->entries, locals);
  std::unordered_set<std::string> seen;
  std::string bytes;
  for (std::string const & local : locals) {
    std::string const path = ResolveHelpLink("/", local);
    if (!seen.insert(path).second || !m_archive->Read(path, bytes)) continue;
    HelpTopicText const text = ExtractHelpTopicText(bytes);
    auto const number = static_cast<uint32_t>(m_searchTopics.size());
    m_searchTopics.push_back(SearchTopic{path, text.title.empty() ? path : text.title});
    m_search->AddTopic(number, text.title + " " + text.text);
  }
  m_search->Finish();
}
