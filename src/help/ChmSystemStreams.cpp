#include "help/ChmSystemStreams.h"

namespace {

std::uint32_t Le16(std::string_view b, std::size_t at) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(b[at])) |
         (static_cast<std::uint32_t>(static_cast<unsigned char>(b[at + 1])) << 8);
}
std::uint32_t Le32(std::string_view b, std::size_t at) {
  return Le16(b, at) | (Le16(b, at + 2) << 16);
}

// A text record: up to its first zero byte, or all of it.
std::string RecordText(std::string_view data) {
  auto const end = data.find('\0');
  return std::string(end == std::string_view::npos ? data : data.substr(0, end));
}

bool IsUtf8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    auto const c = static_cast<unsigned char>(text[i]);
    std::size_t extra = 0;
    std::uint32_t min = 0;
    if (c < 0x80) {
      ++i;
      continue;
    }
    if ((c & 0xE0) == 0xC0) {
      extra = 1;
      min = 0x80;
    } else if ((c & 0xF0) == 0xE0) {
      extra = 2;
      min = 0x800;
    } else if ((c & 0xF8) == 0xF0) {
      extra = 3;
      min = 0x10000;
    } else {
      return false;
    }
    if (i + extra >= text.size()) return false;
    std::uint32_t cp = c & (0x3FU >> extra);
    for (std::size_t k = 1; k <= extra; ++k) {
      auto const d = static_cast<unsigned char>(text[i + k]);
      if ((d & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (d & 0x3F);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return false;
    i += extra + 1;
  }
  return true;
}

void AppendUtf8(std::string & out, std::uint32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

// Windows-1252 from 0x80 to 0x9F; the five unassigned codes stay as C1 controls.
constexpr std::uint16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

bool ParseChmSystem(std::string_view bytes, ChmSystemInfo & info) {
  if (bytes.size() < 4) return false;
  std::size_t at = 4;  // behind the version
  while (at < bytes.size()) {
    if (bytes.size() - at < 4) return false;
    std::uint32_t const code = Le16(bytes, at);
    std::uint32_t const length = Le16(bytes, at + 2);
    at += 4;
    if (length > bytes.size() - at) return false;
    std::string_view const data = bytes.substr(at, length);
    at += length;
    switch (code) {
      case 0: info.contentsFile = RecordText(data); break;
      case 1: info.indexFile = RecordText(data); break;
      case 2: info.defaultTopic = RecordText(data); break;
      case 3: info.title = RecordText(data); break;
      case 4:
        if (data.size() >= 4) info.lcid = Le32(data, 0);
        break;
      case 5: info.defaultWindow = RecordText(data); break;
      default: break;  // records this reader has no use for
    }
  }
  return true;
}

ChmError ReadChmSystem(ChmArchive const & archive, ChmSystemInfo & info) {
  std::string bytes;
  ChmError const error = archive.Extract("/#SYSTEM", bytes);
  if (error != ChmError::None) return error;
  return ParseChmSystem(bytes, info) ? ChmError::None : ChmError::Format;
}

std::optional<std::vector<ChmIdPair>> ParseChmIdMap(std::string_view bytes) {
  if (bytes.size() < 4) return std::nullopt;
  std::uint32_t const size = Le32(bytes, 0);
  if (size > bytes.size() - 4) return std::nullopt;
  std::vector<ChmIdPair> pairs;
  pairs.reserve(size / 8);
  for (std::size_t at = 4; at + 8 <= 4 + std::size_t{size}; at += 8)
    pairs.push_back({Le32(bytes, at), Le32(bytes, at + 4)});
  return pairs;
}

std::optional<std::string> ChmStringAt(std::string_view strings, std::uint32_t offset) {
  if (offset >= strings.size()) return std::nullopt;
  auto const end = strings.find('\0', offset);
  if (end == std::string_view::npos) return std::nullopt;
  return std::string(strings.substr(offset, end - offset));
}

std::string ChmTextToUtf8(std::string_view text) {
  if (IsUtf8(text)) return std::string(text);
  std::string out;
  out.reserve(text.size() * 2);
  for (char ch : text) {
    auto const c = static_cast<unsigned char>(ch);
    if (c < 0x80) {
      out.push_back(ch);
    } else if (c < 0xA0) {
      AppendUtf8(out, kCp1252High[c - 0x80]);
    } else {
      AppendUtf8(out, c);
    }
  }
  return out;
}
