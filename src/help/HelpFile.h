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

#include "help/ChmSystemStreams.h"
#include "help/HelpArchive.h"
#include "help/HelpIndex.h"
#include "help/HelpSearch.h"
#include "help/PopupText.h"
#include "help/Sitemap.h"

class HelpFile {
public:
  HelpFile(std::string path, std::unique_ptr<HelpArchive> archive);

  std::string const & Path() const { return m_path; }
  // The title of "#SYSTEM" (UTF-8), empty when it has none.
  std::string const & Title() const { return m_title; }
  // The default topic of "#SYSTEM" as an inner path, empty when it has none.
  std::string const & DefaultTopic() const { return m_defaultTopic; }
  // The window type of "#SYSTEM" that a path without ">" opens in.
  std::string const & DefaultWindow() const { return m_system.defaultWindow; }

  // The file's bytes; false when it is not there.
  bool Read(std::string const & innerPath, std::string & bytes);
  bool Contains(std::string const & innerPath) const { return m_archive->Contains(innerPath); }

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
  ChmSystemInfo m_system;
  std::string m_title;
  std::string m_defaultTopic;
  std::optional<Sitemap> m_contents;
  std::optional<Sitemap> m_indexMap;
  std::optional<HelpIndex> m_index;
  std::optional<std::vector<ChmIdPair>> m_numbers;  // empty when "#IVB" is missing or damaged
  std::string m_strings;
  std::map<std::string, PopupText> m_popups;
  std::optional<HelpSearchIndex> m_search;
  std::vector<SearchTopic> m_searchTopics;
};

// `name` as stored in "#SYSTEM" or a help path ("toc.hhc", "sub\\a.htm") as an
// inner path with one leading "/" and forward slashes; empty for no name.
std::string ChmInnerPath(std::string_view name);

// A topic named in a sitemap or link ("a.htm", "sub\\b.htm#part") as an inner
// path ("/a.htm", "/sub/b.htm") relative to the folder of `from`.
std::string ResolveHelpLink(std::string const & from, std::string const & link);
