// Typed folders and stored folder lists from anywhere: a displayable path is
// valid UTF-8 in one line, a resolved folder is absolute, cutting the
// trailing separator never empties a path, and a list written from what was
// read reads back the same.
#include <cstdint>
#include <string>
#include <vector>

#include "dialogs/FolderPathRules.h"
#include "utl/Utf.h"

using namespace FolderPathRules;

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);

  std::string const shown = DisplayablePath(input);
  if (vx3::SanitizeUtf8(shown) != shown) __builtin_trap();
  for (char c : shown) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) __builtin_trap();
  }

  std::string const resolved = ResolveTypedFolder(input, "/work", "/home/user");
  if (!resolved.empty() && resolved[0] != '/') __builtin_trap();
  if (!input.empty() && CutTrailingSeparator(input).empty()) __builtin_trap();
  std::string const ended = WithTrailingSeparator(input);
  if (!input.empty() && (ended.back() != '/' || CutTrailingSeparator(ended).size() > input.size()))
    __builtin_trap();
  if (HasDoubleSeparator(input) != (input.find("//") != std::string::npos)) __builtin_trap();

  std::vector<std::string> const folders = SplitFolderList(input);
  for (std::string const & folder : folders) {
    if (folder.empty() || !FitsFolderList(folder)) __builtin_trap();
  }
  std::string const list = JoinFolderList(folders);
  if (SplitFolderList(list) != folders) __builtin_trap();
  if (!list.empty() && list.back() != ';') __builtin_trap();
  return 0;
}
