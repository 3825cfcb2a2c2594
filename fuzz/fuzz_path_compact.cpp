// Any text as a path and any cell width: the compacted path is the path
// itself when it fits; otherwise it fits the width (unless it is "..."
// alone) and is either whole leading components, "..." and the whole last
// component, or the start of the last component and "...".
#include <cstdint>
#include <string>

#include "properties/PathCompact.h"
#include "utl/Utf.h"

namespace {

// Characters of differing widths, some of none, as a font's would be.
int Width(wxString const & text) {
  int total = 0;
  for (wchar_t const c : text) total += static_cast<int>((static_cast<uint32_t>(c) * 7U) % 11U);
  return total;
}

wxString LastComponent(wxString const & path) {
  size_t end = path.length();
  while (end > 0 && path[end - 1] == L'/') --end;
  size_t const separator = end == 0 ? wxString::npos : path.rfind(L'/', end - 1);
  return separator == wxString::npos ? path : path.Mid(separator + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size < 2) return 0;
  int const width = static_cast<int16_t>(data[0] | (data[1] << 8));
  wxString const path(
      vx3::Utf8ToWide(std::string(reinterpret_cast<char const *>(data) + 2, size - 2)));
  wxString const shown = CompactPath(path, width, &Width);
  if (path.empty() || Width(path) <= width) {
    if (shown != path) __builtin_trap();
    return 0;
  }
  if (shown != L"..." && Width(shown) > width) __builtin_trap();
  wxString const name = LastComponent(path);
  wxString const tail = L"/" + name;
  if (shown.EndsWith(tail) && shown.Left(shown.length() - tail.length()).EndsWith(L"...")) {
    // "<whole components>.../name": the start of the path, then the name.
    wxString const head = shown.Left(shown.length() - tail.length() - 3);
    if (!path.StartsWith(head) || (!head.empty() && !head.EndsWith(L"/"))) __builtin_trap();
  } else {
    // "nam...": the start of the last component, its end cut.
    if (!shown.EndsWith(L"...") || !name.StartsWith(shown.Left(shown.length() - 3)))
      __builtin_trap();
  }
  return 0;
}
