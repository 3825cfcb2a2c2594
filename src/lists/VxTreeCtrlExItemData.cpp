#include "lists/VxTreeCtrlExItemData.h"

#include <algorithm>

namespace {

// Where column `column` starts: after its divider (0 for column 0), or npos
// when the text has fewer dividers.
std::size_t ColumnStart(std::wstring_view text, wchar_t separator, int column) {
  std::size_t start = 0;
  for (int k = 0; k < column; ++k) {
    std::size_t const at = text.find(separator, start);
    if (at == std::wstring_view::npos) return std::wstring_view::npos;
    start = at + 1;
  }
  return start;
}

}  // namespace

std::wstring_view ItemData::ColumnView(int column) const {
  if (column < 0) return {};
  std::wstring_view const all(text);
  std::size_t const start = ColumnStart(all, separator, column);
  if (start == std::wstring_view::npos) return {};
  std::size_t end = all.find(separator, start);
  if (end == std::wstring_view::npos) end = all.size();
  return all.substr(start, end - start);
}

void ItemData::SetColumnText(int column, std::wstring_view value) {
  if (column < 0) return;
  std::size_t const start = ColumnStart(text, separator, column);
  if (start == std::wstring::npos) {
    auto const present = static_cast<int>(std::count(text.begin(), text.end(), separator));
    text.append(static_cast<std::size_t>(column - present), separator);
    text.append(value);
    return;
  }
  std::size_t end = text.find(separator, start);
  if (end == std::wstring::npos) end = text.size();
  // Column 1 behind a divider at the very start: the divider goes too.
  std::size_t const keep = start == 1 && column == 1 ? 0 : start;
  text = text.substr(0, keep).append(value).append(text, end, std::wstring::npos);
}
