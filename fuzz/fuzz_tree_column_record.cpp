// Column writes on the column tree's record, checked against a model that
// keeps the columns as a list: the first byte of each step is the column
// (low 4 bits) and the text length (high 4 bits), then the text (bytes
// made printable). The record must always read back what the
// model holds, save for the one known merge (an empty column 0 with a
// write to column 1), which the model follows too.
#include <cstdint>
#include <string>
#include <vector>

#include "lists/VxTreeCtrlExItemData.h"

namespace {

std::vector<std::wstring> Split(std::wstring const & text) {
  std::vector<std::wstring> columns(1);
  for (wchar_t const c : text) {
    if (c == ItemData::kSeparator)
      columns.emplace_back();
    else
      columns.back().push_back(c);
  }
  return columns;
}

// The rules written out on a list of columns.
void ModelWrite(std::vector<std::wstring> & columns, std::size_t column,
                std::wstring const & value) {
  if (columns.size() <= column) {
    while (columns.size() < column) columns.emplace_back();
    // Padding: the value goes after `column` dividers, into a new column.
    columns.push_back(value);
    return;
  }
  if (column == 1 && columns[0].empty()) {
    columns.erase(columns.begin());  // the leading divider goes
    columns[0] = value;
    return;
  }
  columns[column] = value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  ItemData record;
  std::vector<std::wstring> model(1);
  std::size_t at = 0;
  while (at < size) {
    std::size_t const column = data[at] & 0x0F;
    std::size_t const length = data[at] >> 4;
    ++at;
    std::wstring value;
    for (std::size_t k = 0; k < length && at < size; ++k, ++at)
      value.push_back(static_cast<wchar_t>(0x20 + data[at] % 0x5F));
    record.SetColumnText(static_cast<int>(column), value);
    ModelWrite(model, column, value);
    if (Split(record.text) != model) __builtin_trap();
    for (std::size_t c = 0; c < 17; ++c) {
      std::wstring const expected = c < model.size() ? model[c] : std::wstring();
      if (record.GetColumnText(static_cast<int>(c)) != expected) __builtin_trap();
    }
  }
  return 0;
}
