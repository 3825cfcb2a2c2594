#include "lists/TreeListClipFormat.h"

#include <algorithm>

#include "utl/Utf.h"

namespace {

// Walks the cells of one record from column 0 on.
class CellCutter {
public:
  CellCutter(std::wstring_view record, wchar_t separator) : mRest(record), mSeparator(separator) {}

  std::wstring_view Next() {
    if (mDone) return {};
    size_t const end = mRest.find(mSeparator);
    if (end == std::wstring_view::npos) {
      mDone = true;
      return mRest;
    }
    std::wstring_view const cell = mRest.substr(0, end);
    mRest.remove_prefix(end + 1);
    return cell;
  }

private:
  std::wstring_view mRest;
  wchar_t mSeparator;
  bool mDone = false;
};

void AppendWideAsUtf8(std::wstring_view text, std::string & out) {
  for (wchar_t const c : text) {
    if (static_cast<unsigned>(c) < 0x80) {
      out.push_back(static_cast<char>(c));
    } else {
      auto const code = static_cast<char32_t>(c);
      bool const scalar = code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
      vx3::AppendUtf8(scalar ? code : char32_t{0xFFFD}, out);
    }
  }
}

void AppendWideAsUtf8(wxString const & text, std::string & out) {
  AppendWideAsUtf8(std::wstring_view(text.wc_str(), text.length()), out);
}

std::wstring_view View(wxString const & text) { return {text.wc_str(), text.length()}; }

void AppendRowCells(TreeListClipRow const & row, int columns, char const * cellStart,
                    std::string & html) {
  CellCutter cells(row.record, row.separator);
  for (int column = 0; column < columns; ++column) {
    html += cellStart;
    AppendWideAsUtf8(cells.Next(), html);
    html += "</td>";
  }
}

}  // namespace

std::wstring_view TreeListCell(std::wstring_view record, wchar_t separator, int column) {
  if (column < 0) return {};
  CellCutter cells(record, separator);
  std::wstring_view cell = cells.Next();
  for (int n = 0; n < column; ++n) cell = cells.Next();
  return cell;
}

wxString FormatTreeListText(std::vector<wxString> const * headings, int columns,
                            TreeListClipRows & rows) {
  // Built in the result itself and trimmed in place: the text of a large
  // tree is never copied whole.
  wxString text;
  auto const append = [&text](std::wstring_view part) { text.append(part.data(), part.size()); };
  if (headings != nullptr) {
    for (size_t column = 0; column < headings->size(); ++column) {
      if (column > 0) text += L'\t';
      append(View((*headings)[column]).substr(0, kTreeListHeadingLimit));
    }
    text += L"\r\n";
  }
  TreeListClipRow row;
  bool first = true;
  while (rows.Next(row)) {
    if (!first) text += L"\r\n";
    first = false;
    CellCutter cells(row.record, row.separator);
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text += L'\t';
      append(cells.Next());
    }
  }
  size_t const begin = text.find_first_not_of(L"\r\n\t");
  if (begin == wxString::npos) return {};
  text.erase(text.find_last_not_of(L"\r\n\t") + 1);
  text.erase(0, begin);
  return text;
}

std::string FormatTreeListHtml(char const * title, std::vector<wxString> const & headings,
                               TreeListClipRows & rows) {
  std::string html = "<table>";
  if (title != nullptr) {
    html += "<caption>";
    html += title;
    html += "</caption>";
  }
  html += "<thead><tr>";
  for (wxString const & heading : headings) {
    html += "<th>";
    AppendWideAsUtf8(heading, html);
    html += "</th>";
  }
  html += "</tr></thead><tbody>";
  int const columns = static_cast<int>(headings.size());
  TreeListClipRow row;
  while (rows.Next(row)) {
    html += "<tr>";
    AppendRowCells(row, columns, row.isChild ? "<td>&nbsp;" : "<td>", html);
    html += "</tr>";
  }
  html += "</tbody></table>";
  return html;
}

std::string FormatTreeListRowsHtml(int columns, TreeListClipRows & rows) {
  std::string html = "<table><tbody>";
  TreeListClipRow row;
  while (rows.Next(row)) {
    html += "<tr>";
    AppendRowCells(row, columns, "<td>", html);
    html += "</tr>";
  }
  html += "</tbody></table>";
  return html;
}
