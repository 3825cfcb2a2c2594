#include "lists/ListFormatter.h"

namespace {

char const kLineEnd[] = "\r\n";

bool WritesHeadings(ListTableSource const & table, ListFormatter const & formatter) {
  return formatter.IncludesHeader() && table.ShowsHeader();
}

}  // namespace

wxString FormatListText(ListTableSource const & table, ListFormatter const & formatter) {
  wxString text;
  wxString const & title = formatter.GetTitle();
  if (!title.empty()) {
    text << title << kLineEnd << wxString(L'=', title.length()) << kLineEnd;
  }
  int const columns = table.ColumnCount();
  if (WritesHeadings(table, formatter)) {
    wxString underline;
    for (int column = 0; column < columns; ++column) {
      wxString const heading = table.Heading(column);
      if (column > 0) {
        text << L'\t';
        underline << L'\t';
      }
      text << heading;
      underline << wxString(L'-', heading.length());
    }
    text << kLineEnd << underline << kLineEnd;
  }
  int const count = formatter.GetCount();
  for (int n = 0; n < count; ++n) {
    int const row = formatter.GetRow(n);
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text << L'\t';
      text << table.CellText(row, column);
    }
    text << kLineEnd;
  }
  return text;
}

wxString FormatListHtml(ListTableSource const & table, ListFormatter const & formatter) {
  wxString html = "<table>";
  if (!formatter.GetTitle().empty()) html << "<caption>" << formatter.GetTitle() << "</caption>";
  int const columns = table.ColumnCount();
  if (WritesHeadings(table, formatter)) {
    html << "<thead><tr>";
    for (int column = 0; column < columns; ++column)
      html << "<th>" << table.Heading(column) << "</th>";
    html << "</tr></thead>";
  }
  html << "<tbody>";
  int const count = formatter.GetCount();
  for (int n = 0; n < count; ++n) {
    int const row = formatter.GetRow(n);
    html << "<tr>";
    for (int column = 0; column < columns; ++column)
      html << "<td>" << table.CellText(row, column) << "</td>";
    html << "</tr>";
  }
  html << "</tbody></table>";
  return html;
}
