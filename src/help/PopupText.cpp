#include "help/PopupText.h"

#include <charconv>

#include "help/ChmSystemStreams.h"
#include "help/HelpText.h"

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trim(std::string_view line) {
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  return line;
}

// ".topic" followed by a blank or the end of the line.
bool IsTopicLine(std::string_view line, std::string_view & rest) {
  constexpr std::string_view keyword = ".topic";
  if (line.size() < keyword.size() ||
      !vx3::help::EqualsAsciiNoCase(line.substr(0, keyword.size()), keyword))
    return false;
  rest = line.substr(keyword.size());
  if (!rest.empty() && !IsBlank(rest.front())) return false;
  rest = Trim(rest);
  return true;
}

std::optional<uint32_t> ParseNumber(std::string_view text) {
  int base = 10;
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    text.remove_prefix(2);
    base = 16;
  }
  uint32_t value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Cuts `text` to at most `limit` bytes without splitting a UTF-8 sequence.
void CutAtCharacter(std::string & text, size_t limit) {
  if (text.size() <= limit) return;
  size_t at = limit;
  while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
  text.resize(at);
}

}  // namespace

PopupText PopupText::Parse(std::string_view bytes) {
  PopupText result;
  std::string const text = ChmTextToUtf8(bytes);
  std::string * current = nullptr;
  size_t pendingBlankLines = 0;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find('\n', at);
    if (end == std::string::npos) end = text.size();
    std::string_view const line = std::string_view(text).substr(at, end - at);
    at = end + 1;

    std::string_view rest;
    if (IsTopicLine(Trim(line), rest)) {
      current = nullptr;
      std::optional<uint32_t> const id = ParseNumber(rest);
      if (!id || *id == 0 || result.m_texts.size() >= MaxEntries) {
        ++result.m_skipped;
        continue;
      }
      current = &result.m_texts[*id];
      current->clear();  // a number given twice: the last entry wins
      pendingBlankLines = 0;
      continue;
    }
    if (current == nullptr) continue;
    std::string_view const content = Trim(line);
    if (content.empty()) {
      if (!current->empty()) ++pendingBlankLines;
      continue;
    }
    if (current->size() >= MaxTextBytes) continue;
    if (!current->empty()) current->append(pendingBlankLines > 0 ? "\n\n" : "\n");
    pendingBlankLines = 0;
    current->append(content);
    CutAtCharacter(*current, MaxTextBytes);
  }
  return result;
}

std::optional<std::string> PopupText::Find(uint32_t contextId) const {
  auto const found = m_texts.find(contextId);
  if (found == m_texts.end()) return std::nullopt;
  return found->second;
}
