#pragma once
// One open compiled help file and what the help window reads from it, each
// part on first use and then kept: the "#SYSTEM" settings, the contents and
// the index, the numbers of "#IVB" with their topics in "#STRINGS", the
// pop-up texts and the search index.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "help/ChmSystemFile.h"
#include "help/HelpArchive.h"
#include "help/HelpIndex.h"
#include "help/HelpSearch.h"
#include "help/PopupText.h"
#include "help/Sitemap.h"

// The pairs of "#IVB": a 32-bit size, then pairs of a help number and an
// offset into "#STRINGS", in the file's order.
struct HelpNumberMap {
  std::vector<std::pair<uint32_t, uint32_t>> pairs;
  bool damaged = false;  // the size ran past the stream, or was no multiple of 8
};
HelpNumberMap ParseHelpNumberMap(std::string const & bytes);

// The zero-terminated text at `offset` in "#STRINGS" (UTF-8, else
// Windows-1252); none past the end or without its zero.
std::optional<std::string> HelpStringAt(std::string const & strings, uint32_t offset);

class HelpFile {
public:
  HelpFile(std::string path, std::unique_ptr<HelpArchive> archive);

  std::string const & Path() const { return m_path; }
  ChmSystemFile const & System() const { return m_system; }

  // The file's bytes; false when it is not there.
  bool Read(std::string const & innerPath, std::string & bytes);

  Sitemap const & Contents();
  HelpIndex const & Index();
  // The topic of help number `number` (an inner path with a leading "/").
  std::optional<std::string> TopicOfNumber(uint32_t number);
  PopupText const & Popups(std::string const & innerPath);

  // The topics the search runs over (the pages of the contents and index,
  // in that order, each once) and their word index.
  struct SearchTopic {
    std::string path;
    std::string title;
  };
  std::vector<SearchTopic> const & SearchTopics();
  HelpSearchIndex const & SearchIndex();

private:
  void BuildSearch();

  std::string m_path;
  std::unique_ptr<HelpArchive> m_archive;
  ChmSystemFile m_system;
  std::optional<Sitemap> m_contents;
  std::optional<Sitemap> m_indexMap;
  std::optional<HelpIndex> m_index;
  std::optional<HelpNumberMap> m_numbers;
  std::string m_strings;
  std::map<std::string, PopupText> m_popups;
  std::optional<HelpSearchIndex> m_search;
  std::vector<SearchTopic> m_searchTopics;
};

// A topic named in a sitemap or link ("a.htm", "sub\\b.htm#part") as an inner
// path ("/a.htm", "/sub/b.htm") relative to the folder of `from`.
std::string ResolveHelpLink(std::string const & from, std::string const & link);
