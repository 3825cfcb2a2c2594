// Rows from anywhere through the tree list's text and HTML forms, checked
// against a plain model: the first byte gives the column count (0 to 7)
// and marks rows as children; the rest splits into records at NUL, 0x01
// standing for the column divider, other bytes taken as code points. Every
// cell must be the model's field, the text the model's join trimmed of
// "\r\n\t", and each HTML form the model's rows of cells.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "lists/TreeListClipFormat.h"

namespace {

class Records : public TreeListClipRows {
public:
  Records(std::vector<std::wstring> const & records, bool children)
      : mRecords(records), mChildren(children) {}
  bool Next(TreeListClipRow & row) override {
    if (mAt == mRecords.size()) return false;
    row.record = mRecords[mAt++];
    row.isChild = mChildren;
    return true;
  }

private:
  std::vector<std::wstring> const & mRecords;
  bool mChildren;
  size_t mAt = 0;
};

// The field `column` of `record` by a plain split.
std::wstring Field(std::wstring const & record, int column) {
  std::vector<std::wstring> fields(1);
  for (wchar_t const c : record) {
    if (c == L'\u00B6') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return static_cast<size_t>(column) < fields.size() ? fields[static_cast<size_t>(column)] : L"";
}

// UTF-8 of code points below 0x100, as the input gives them.
std::string Utf8(std::wstring const & text) {
  std::string out;
  for (wchar_t const c : text) {
    auto const code = static_cast<unsigned>(c);
    if (code < 0x80) {
      out += static_cast<char>(code);
    } else {
      out += static_cast<char>(0xC0 | (code >> 6));
      out += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  int const columns = data[0] & 0x07;
  bool const children = (data[0] & 0x08) != 0;
  std::vector<std::wstring> records(1);
  for (size_t k = 1; k < size; ++k) {
    if (data[k] == 0) {
      records.emplace_back();
    } else {
      records.back() += data[k] == 1 ? L'\u00B6' : static_cast<wchar_t>(data[k]);
    }
  }

  std::wstring model;
  std::string htmlModel = "<table><tbody>";
  std::string nestedModel = "<table><thead><tr>";
  for (int column = 0; column < columns; ++column) nestedModel += "<th>h</th>";
  nestedModel += "</tr></thead><tbody>";
  for (size_t row = 0; row < records.size(); ++row) {
    if (row > 0) model += L"\r\n";
    htmlModel += "<tr>";
    nestedModel += "<tr>";
    for (int column = 0; column < columns; ++column) {
      std::wstring const cell = Field(records[row], column);
      if (std::wstring(TreeListCell(records[row], L'\u00B6', column)) != cell) std::abort();
      if (column > 0) model += L'\t';
      model += cell;
      htmlModel += "<td>" + Utf8(cell) + "</td>";
      nestedModel += (children ? "<td>&nbsp;" : "<td>") + Utf8(cell) + "</td>";
    }
    htmlModel += "</tr>";
    nestedModel += "</tr>";
  }
  htmlModel += "</tbody></table>";
  nestedModel += "</tbody></table>";
  size_t const begin = model.find_first_not_of(L"\r\n\t");
  model = begin == std::wstring::npos
              ? std::wstring()
              : model.substr(begin, model.find_last_not_of(L"\r\n\t") + 1 - begin);
  Records textRows(records, children);
  if (FormatTreeListText(nullptr, columns, textRows).ToStdWstring() != model) std::abort();

  Records htmlRows(records, children);
  if (FormatTreeListRowsHtml(columns, htmlRows) != htmlModel) std::abort();
  std::vector<wxString> const headings(static_cast<size_t>(columns), "h");
  Records nestedRows(records, children);
  if (FormatTreeListHtml(nullptr, headings, nestedRows) != nestedModel) std::abort();
  return 0;
}
