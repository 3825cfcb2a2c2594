#include "lists/ListColumnWidths.h"

#include <algorithm>

#include <wx/string.h>

#include "utl/Utf.h"
#include "utl/VxString.h"

std::vector<std::optional<int>> ParseColumnWidths(std::string const & stored, int columnCount) {
  wxString rest = wxString::FromUTF8(vx3::SanitizeUtf8(stored));
  int count = 0;
  wxString const countField = VxString::SplitString(rest, L',');
  if (columnCount <= 0 || !VxString::ToInt(countField.wc_str(), count) || count != columnCount)
    return {};
  std::vector<std::optional<int>> widths(static_cast<size_t>(columnCount));
  for (auto & width : widths) {
    if (rest.empty()) break;
    wxString const field = VxString::SplitString(rest, L',');
    int value = 0;
    if (VxString::ToInt(field.wc_str(), value) && value >= 0)
      width = std::min(value, kMaxStoredColumnWidth);
  }
  return widths;
}

std::string ComposeColumnWidths(std::vector<int> const & widths) {
  std::string text = std::to_string(widths.size());
  for (int width : widths) text += "," + std::to_string(width);
  return text;
}
