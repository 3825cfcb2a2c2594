#pragma once
// The internal streams of a compiled help file that say what it holds:
// "#SYSTEM" (records: contents and index files, default topic, title...),
// "#IVB" (the help map: pairs of a number and an offset into "#STRINGS")
// and "#STRINGS" (zero-terminated topic names).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "help/ChmArchive.h"

struct ChmSystemInfo {
  std::string contentsFile;   // record 0, as stored ("toc.hhc")
  std::string indexFile;      // record 1
  std::string defaultTopic;   // record 2
  std::string title;          // record 3
  std::string defaultWindow;  // record 5
  std::uint32_t lcid = 0;     // record 4
};

// Parses "#SYSTEM". False for a stream too short for its version or with a
// record past its end; the records before it are kept.
bool ParseChmSystem(std::string_view bytes, ChmSystemInfo & info);

// Reads "#SYSTEM" from `archive`: NotFound without it, Format when damaged.
ChmError ReadChmSystem(ChmArchive const & archive, ChmSystemInfo & info);

struct ChmIdPair {
  std::uint32_t helpId;
  std::uint32_t stringOffset;
};

// Parses "#IVB": a 32-bit size and that many bytes of pairs. nullopt when
// the stream is shorter than its size says (or than the size itself).
std::optional<std::vector<ChmIdPair>> ParseChmIdMap(std::string_view bytes);

// The text at `offset` of "#STRINGS", up to its zero byte; nullopt for an
// offset past the stream or a text without its zero byte.
std::optional<std::string> ChmStringAt(std::string_view strings, std::uint32_t offset);

// "#STRINGS" texts are UTF-8 when they decode as such, else Windows-1252:
// the text as UTF-8 either way.
std::string ChmTextToUtf8(std::string_view text);
