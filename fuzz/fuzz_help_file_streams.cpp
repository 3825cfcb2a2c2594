// A help file whose "#SYSTEM", "#IVB" and "#STRINGS" come from anywhere: the
// help window reads its settings, contents, index, numbers and search
// without crashing. The input is split in three at its first two 0xFF 0xFE
// pairs.
#include <cstdint>
#include <map>
#include <string>

#include "help/HelpFile.h"

namespace {

class FuzzArchive : public HelpArchive {
public:
  explicit FuzzArchive(std::map<std::string, std::string> files) : m_files(std::move(files)) {}
  bool Read(std::string const & name, std::string & bytes) override {
    auto const found = m_files.find(name);
    if (found == m_files.end()) return false;
    bytes = found->second;
    return true;
  }
  bool Contains(std::string const & name) const override { return m_files.count(name) != 0; }

private:
  std::map<std::string, std::string> m_files;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::string parts[3];
  size_t at = 0;
  for (int i = 0; i < 3; ++i) {
    size_t const end = i < 2 ? input.find("\xff\xfe", at) : std::string::npos;
    parts[i] = input.substr(at, end == std::string::npos ? std::string::npos : end - at);
    if (end == std::string::npos) break;
    at = end + 2;
  }
  std::map<std::string, std::string> files{
      {"/#SYSTEM", parts[0]},
      {"/#IVB", parts[1]},
      {"/#STRINGS", parts[2]},
      // Whatever "#SYSTEM" names as contents, index or default topic may be one of these.
      {"/toc.hhc", "<ul><li><object type=\"text/sitemap\"><param name=\"Local\" value=\"a.htm\">"},
      {"/a.htm", "<title>A</title>words"}};
  HelpFile file("fuzz.chm", std::make_unique<FuzzArchive>(std::move(files)));
  for (uint32_t number = 0; number < 8; ++number) {
    std::optional<std::string> const topic = file.TopicOfNumber(number);
    if (topic && (topic->empty() || topic->front() != '/')) __builtin_trap();
  }
  file.Contents();
  file.Index();
  file.SearchIndex().Find("words");
  return 0;
}
