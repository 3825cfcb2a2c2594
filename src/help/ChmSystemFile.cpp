#include "help/ChmSystemFile.h"

#include <cstdint>

#include "help/HelpText.h"

namespace {

uint32_t ReadLittleEndian(std::string_view bytes, size_t at, size_t width) {
  uint32_t value = 0;
  for (size_t i = 0; i < width; ++i)
    value |= static_cast<uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return value;
}

// A record's text up to its first zero byte.
std::string RecordText(std::string_view data) {
  size_t const zero = data.find('\0');
  return vx3::help::HelpTextToUtf8(data.substr(0, zero));
}

}  // namespace

ChmSystemFile ParseChmSystemFile(std::string_view bytes) {
  ChmSystemFile system;
  if (bytes.size() < 4) {
    system.damaged = true;
    return system;
  }
  system.version = ReadLittleEndian(bytes, 0, 4);
  size_t at = 4;
  while (at < bytes.size()) {
    if (bytes.size() - at < 4) {
      system.damaged = true;
      break;
    }
    uint32_t const code = ReadLittleEndian(bytes, at, 2);
    size_t const length = ReadLittleEndian(bytes, at + 2, 2);
    at += 4;
    if (length > bytes.size() - at) {
      system.damaged = true;
      break;
    }
    std::string_view const data = bytes.substr(at, length);
    at += length;
    switch (code) {
      case ChmSystemFile::ContentsFile: system.contentsFile = ChmInnerPath(RecordText(data)); break;
      case ChmSystemFile::IndexFile: system.indexFile = ChmInnerPath(RecordText(data)); break;
      case ChmSystemFile::DefaultTopic: system.defaultTopic = ChmInnerPath(RecordText(data)); break;
      case ChmSystemFile::Title: system.title = RecordText(data); break;
      case ChmSystemFile::DefaultWindow: system.defaultWindow = RecordText(data); break;
      case ChmSystemFile::CompiledFile: system.compiledFile = RecordText(data); break;
      default: break;  // the others (language, font, full-text flags) are not used
    }
  }
  return system;
}

std::string ChmInnerPath(std::string_view name) {
  std::string path;
  path.reserve(name.size() + 1);
  for (char const c : name) path.push_back(c == '\\' ? '/' : c);
  size_t slashes = 0;
  while (slashes < path.size() && path[slashes] == '/') ++slashes;
  if (path.empty() || slashes == path.size()) return {};
  return "/" + path.substr(slashes);
}
