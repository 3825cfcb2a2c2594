#pragma once
// The pop-up texts of a help project: a text file in the compiled help file
// with one entry per context help identifier,
//
//   .topic 1001
//   Type the name of the run here.
//
//   .topic 1002
//   ...
//
// The text of an entry is every line up to the next ".topic", without the
// blank lines around it. Entries named by a symbol (".topic IDH_NAME") need
// the project's map file, which is not compiled in: they are skipped.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

class PopupText {
public:
  static constexpr size_t MaxTextBytes = 16 * 1024;  // a longer entry is cut (at a character)
  static constexpr size_t MaxEntries = 100000;

  // Reads the file's bytes (UTF-8, else Windows-1252). Never fails; lines
  // that are not understood are skipped.
  static PopupText Parse(std::string_view bytes);

  // The text for `contextId` (UTF-8), none when the file has no entry.
  std::optional<std::string> Find(uint32_t contextId) const;

  size_t EntryCount() const { return m_texts.size(); }
  // Entries skipped: named by a symbol, numbered out of range, or past MaxEntries.
  size_t SkippedCount() const { return m_skipped; }

private:
  std::unordered_map<uint32_t, std::string> m_texts;
  size_t m_skipped = 0;
};
