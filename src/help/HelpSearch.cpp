#include "help/HelpSearch.h"

#include <libxml/HTMLparser.h>
#include <libxml/tree.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <memory>

#include "help/ChmSystemStreams.h"
#include "help/HelpText.h"
#include "utl/CaseFolding.h"
#include "utl/Utf.h"

namespace {

constexpr size_t kMaxTreeDepth = 512;

struct DocumentDeleter {
  void operator()(xmlDoc * document) const { xmlFreeDoc(document); }
};

bool IsElement(xmlNode const * node, char const * name) {
  return node->type == XML_ELEMENT_NODE &&
         xmlStrcasecmp(node->name, reinterpret_cast<xmlChar const *>(name)) == 0;
}

void CollectText(xmlNode * node, HelpTopicText & topic, size_t depth) {
  if (depth >= kMaxTreeDepth) return;
  for (xmlNode * child = node->children; child != nullptr; child = child->next) {
    if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
      if (child->content == nullptr) continue;
      if (!topic.text.empty()) topic.text.push_back(' ');
      topic.text.append(reinterpret_cast<char const *>(child->content));
    } else if (child->type == XML_ELEMENT_NODE) {
      if (IsElement(child, "script") || IsElement(child, "style")) continue;
      if (IsElement(child, "title")) {
        if (topic.title.empty() && child->children != nullptr) {
          xmlChar * title = xmlNodeGetContent(child);
          if (title != nullptr) {
            topic.title = reinterpret_cast<char const *>(title);
            xmlFree(title);
          }
        }
        continue;
      }
      CollectText(child, topic, depth + 1);
    }
  }
}

bool IsWordCode(char32_t code) {
  if (code < 0x80) return (code >= '0' && code <= '9') || (code >= 'a' && code <= 'z');
  return u_isalnum(static_cast<UChar32>(code)) != 0 ||
         u_charType(static_cast<UChar32>(code)) == U_NON_SPACING_MARK;
}

}  // namespace

HelpTopicText ExtractHelpTopicText(std::string_view html) {
  HelpTopicText topic;
  if (html.empty() || html.size() > static_cast<size_t>(INT32_MAX)) return topic;
  std::string const text = ChmTextToUtf8(html);
  int const options =
      HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET;
  std::unique_ptr<xmlDoc, DocumentDeleter> document(
      htmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, "UTF-8", options));
  if (!document) return topic;
  CollectText(reinterpret_cast<xmlNode *>(document.get()), topic, 0);
  return topic;
}

std::vector<std::string> SplitHelpWords(std::string_view text) {
  std::u32string folded;
  vx3::AppendFoldedFull(text, folded);
  std::vector<std::string> words;
  std::string word;
  for (size_t i = 0; i <= folded.size(); ++i) {
    if (i < folded.size() && IsWordCode(folded[i])) {
      vx3::AppendUtf8(folded[i], word);
      continue;
    }
    if (!word.empty()) words.push_back(std::move(word));
    word.clear();
  }
  return words;
}

void HelpSearchIndex::AddTopic(uint32_t topic, std::string_view text) {
  if (m_finished) {  // more topics after Finish: the positions are found again
    m_positions.clear();
    for (size_t i = 0; i < m_words.size(); ++i) m_positions.emplace(m_words[i].folded, i);
    m_finished = false;
  }
  for (std::string & word : SplitHelpWords(text)) {
    if (word.size() > MaxWordBytes) continue;
    auto const [found, added] = m_positions.emplace(word, m_words.size());
    if (added) m_words.push_back(Word{std::move(word), {}});
    std::vector<uint32_t> & topics = m_words[found->second].topics;
    if (topics.empty() || topics.back() != topic) topics.push_back(topic);
  }
}

void HelpSearchIndex::Finish() {
  std::sort(m_words.begin(), m_words.end(),
            [](Word const & a, Word const & b) { return a.folded < b.folded; });
  m_positions.clear();
  m_finished = true;
}

std::vector<uint32_t> HelpSearchIndex::TopicsOf(std::string const & word, bool prefix) const {
  auto first =
      std::lower_bound(m_words.begin(), m_words.end(), word,
                       [](Word const & w, std::string const & value) { return w.folded < value; });
  if (!prefix) {
    if (first == m_words.end() || first->folded != word) return {};
    return first->topics;
  }
  std::vector<uint32_t> topics;
  for (auto at = first; at != m_words.end() && at->folded.compare(0, word.size(), word) == 0;
       ++at) {
    std::vector<uint32_t> merged;
    merged.reserve(topics.size() + at->topics.size());
    std::set_union(topics.begin(), topics.end(), at->topics.begin(), at->topics.end(),
                   std::back_inserter(merged));
    topics.swap(merged);
  }
  return topics;
}

std::vector<uint32_t> HelpSearchIndex::Find(std::string_view query) const {
  if (!m_finished) return {};
  std::vector<uint32_t> result;
  bool first = true;
  size_t at = 0;
  // Each blank-separated part of the query; a "*" at its end asks for a prefix.
  while (at < query.size()) {
    size_t end = query.find_first_of(" \t\r\n", at);
    if (end == std::string_view::npos) end = query.size();
    std::string_view part = query.substr(at, end - at);
    at = end + 1;
    bool const prefix = !part.empty() && part.back() == '*';
    if (prefix) part.remove_suffix(1);
    std::vector<std::string> const words = SplitHelpWords(part);
    for (size_t i = 0; i < words.size(); ++i) {
      std::vector<uint32_t> topics = TopicsOf(words[i], prefix && i + 1 == words.size());
      if (first) {
        result = std::move(topics);
        first = false;
      } else {
        std::vector<uint32_t> both;
        std::set_intersection(result.begin(), result.end(), topics.begin(), topics.end(),
                              std::back_inserter(both));
        result.swap(both);
      }
      if (result.empty()) return result;
    }
  }
  return result;
}
