#pragma once
// A compiled help file's files held in memory, for tests of what reads them.
#include <map>
#include <memory>
#include <string>

#include "help/HelpArchive.h"

class MemoryHelpArchive : public HelpArchive {
public:
  explicit MemoryHelpArchive(std::map<std::string, std::string> files)
      : m_files(std::move(files)) {}

  bool Read(std::string const & name, std::string & bytes) override {
    ++reads[name];
    auto const found = m_files.find(name);
    if (found == m_files.end()) return false;
    bytes = found->second;
    return true;
  }

  bool Contains(std::string const & name) const override { return m_files.count(name) != 0; }

  std::map<std::string, int> reads;

private:
  std::map<std::string, std::string> m_files;
};

// "#SYSTEM" with the contents, index and default topic given.
inline std::string SystemStream(std::string const & contents, std::string const & index,
                                std::string const & defaultTopic, std::string const & title,
                                std::string const & defaultWindow = std::string()) {
  std::string bytes("\x03\x00\x00\x00", 4);
  auto record = [&bytes](int code, std::string text) {
    text.push_back('\0');
    bytes.push_back(static_cast<char>(code));
    bytes.push_back('\0');
    bytes.push_back(static_cast<char>(text.size() & 0xFF));
    bytes.push_back(static_cast<char>(text.size() >> 8));
    bytes += text;
  };
  record(0, contents);
  record(1, index);
  record(2, defaultTopic);
  record(3, title);
  if (!defaultWindow.empty()) record(5, defaultWindow);
  return bytes;
}

// "#IVB" and "#STRINGS" for number -> topic pairs.
inline void AddNumberMap(std::map<std::string, std::string> & files,
                         std::map<uint32_t, std::string> const & topics) {
  std::string ivb;
  std::string strings(1, '\0');
  auto put = [&ivb](uint32_t value) {
    for (int i = 0; i < 4; ++i) ivb.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
  };
  put(static_cast<uint32_t>(topics.size() * 8));
  for (auto const & [number, topic] : topics) {
    put(number);
    put(static_cast<uint32_t>(strings.size()));
    strings += topic;
    strings.push_back('\0');
  }
  files["/#IVB"] = ivb;
  files["/#STRINGS"] = strings;
}
