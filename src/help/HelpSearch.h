#pragma once
// The Search tab's word index: every word of every topic's text, case-folded,
// with the topics it occurs in. It is built from the topics themselves the
// first time the user searches (a few thousand topics take well under a
// second), so the file's own full-text index is not needed.
//
// A query is words; a topic is found when it holds all of them. A word that
// ends in "*" matches every word it begins.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct HelpTopicText {
  std::string title;  // UTF-8; the <title> of the page, else its path
  std::string text;   // the words of the page, UTF-8
};

// The title and text of an HTML page (UTF-8 or Windows-1252) through
// libxml2's HTML parser; scripts and styles are left out.
HelpTopicText ExtractHelpTopicText(std::string_view html);

// The words of `text` (UTF-8), case-folded, in order: runs of letters and
// digits.
std::vector<std::string> SplitHelpWords(std::string_view text);

class HelpSearchIndex {
public:
  static constexpr size_t MaxWordBytes = 64;  // longer runs are not words anyone searches for

  // Adds topic number `topic` (numbers given in rising order, from 0).
  void AddTopic(uint32_t topic, std::string_view text);
  // Puts the words in order; call once after the last AddTopic.
  void Finish();

  // The topics that hold every word of `query`, in rising order.
  std::vector<uint32_t> Find(std::string_view query) const;

  size_t WordCount() const { return m_words.size(); }

private:
  struct Word {
    std::string folded;
    std::vector<uint32_t> topics;  // rising, each once
  };
  std::vector<uint32_t> TopicsOf(std::string const & word, bool prefix) const;

  std::vector<Word> m_words;                            // sorted by `folded` once finished
  std::unordered_map<std::string, size_t> m_positions;  // while adding: word -> its place
  bool m_finished = false;
};
