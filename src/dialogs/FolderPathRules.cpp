#include "dialogs/FolderPathRules.h"

#include <cstdio>

#include "utl/Utf.h"

namespace FolderPathRules {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

std::string Trimmed(std::string const & text) {
  size_t first = 0;
  size_t last = text.size();
  while (first < last && IsBlank(text[first])) ++first;
  while (last > first && IsBlank(text[last - 1])) --last;
  return text.substr(first, last - first);
}

std::string Joined(std::string const & folder, std::string const & rest) {
  if (rest.empty()) return folder;
  if (folder.empty() || folder.back() == '/') return folder + rest;
  return folder + "/" + rest;
}

}  // namespace

bool HasDoubleSeparator(std::string const & path) { return path.find("//") != std::string::npos; }

std::string CutTrailingSeparator(std::string path) {
  if (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string WithTrailingSeparator(std::string path) {
  if (!path.empty() && path.back() != '/') path += '/';
  return path;
}

std::string ResolveTypedFolder(std::string const & typed, std::string const & currentFolder,
                               std::string const & home) {
  std::string path = Trimmed(typed);
  if (path.empty()) return path;
  if (path[0] == '/') return path;
  if (path == "~") return home;
  if (path.compare(0, 2, "~/") == 0) return Joined(home, path.substr(2));
  return Joined(currentFolder, path);
}

std::string DisplayablePath(std::string const & path) {
  std::string shown;
  shown.reserve(path.size());
  for (size_t at = 0; at < path.size();) {
    char32_t const code = vx3::DecodeUtf8(path, at);
    if (code == vx3::kInvalidCodePoint) {
      vx3::AppendUtf8(0xFFFD, shown);
    } else if (code == '\n') {
      shown += "\\n";
    } else if (code == '\t') {
      shown += "\\t";
    } else if (code == '\r') {
      shown += "\\r";
    } else if (code < 0x20 || code == 0x7F || (code >= 0x80 && code < 0xA0)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(code));
      shown += escape;
    } else {
      vx3::AppendUtf8(code, shown);
    }
  }
  return shown;
}

std::vector<std::string> SplitFolderList(std::string const & list) {
  std::vector<std::string> folders;
  size_t start = 0;
  while (start <= list.size()) {
    size_t end = list.find(';', start);
    if (end == std::string::npos) end = list.size();
    std::string piece = Trimmed(list.substr(start, end - start));
    if (!piece.empty()) folders.push_back(std::move(piece));
    start = end + 1;
  }
  return folders;
}

std::string JoinFolderList(std::vector<std::string> const & folders) {
  std::string list;
  for (std::string const & folder : folders) {
    if (folder.empty()) continue;
    list += folder;
    list += ';';
  }
  return list;
}

bool FitsFolderList(std::string const & folder) {
  return folder.find(';') == std::string::npos && Trimmed(folder) == folder;
}

}  // namespace FolderPathRules
