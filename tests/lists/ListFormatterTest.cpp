// A list's rows as text and HTML: what a spreadsheet receives when the user
// copies rows.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "lists/ListFormatter.h"

namespace {

class Table : public ListTableSource {
public:
  std::vector<wxString> headings;
  std::vector<std::vector<wxString>> rows;
  bool header = true;

  int ColumnCount() const override { return static_cast<int>(headings.size()); }
  wxString Heading(int column) const override { return headings.at(static_cast<size_t>(column)); }
  bool ShowsHeader() const override { return header; }
  wxString CellText(int row, int column) const override {
    return rows.at(static_cast<size_t>(row)).at(static_cast<size_t>(column));
  }
};

Table RunTable() {
  Table table;
  table.headings = {"Run", "", L"\u00d6l"};
  table.rows = {{"Run 1", "a", "x"}, {"Run 2", "b&c", "<y>"}, {"Run 3", "", "z"}};
  return table;
}

TEST(ListFormatter, AllItemsTextHasTitleHeadingsAndEveryRow) {
  Table const table = RunTable();
  wxString const text = FormatListText(table, AllItemsFormatter(L"R\u00e9s", 3));
  EXPECT_EQ(text,
            L"R\u00e9s\r\n===\r\n"
            L"Run\t\t\u00d6l\r\n---\t\t--\r\n"
            "Run 1\ta\tx\r\nRun 2\tb&c\t<y>\r\nRun 3\t\tz\r\n");
}

TEST(ListFormatter, HeadingsAndTitleFollowTheirRules) {
  struct Case {
    char const * name;
    wxString title;
    bool header;
    wxString expected;
  };
  Case const cases[] = {
      {"no title", "", true, L"Run\t\t\u00d6l\r\n---\t\t--\r\nRun 1\ta\tx\r\n"},
      {"list without header row", "T", false, "T\r\n=\r\nRun 1\ta\tx\r\n"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    Table table = RunTable();
    table.header = c.header;
    EXPECT_EQ(FormatListText(table, AllItemsFormatter(c.title, 1)), c.expected);
  }
}

TEST(ListFormatter, SelectedItemsWriteTheirRowsInTheGivenOrderWithoutHeadings) {
  Table const table = RunTable();
  std::vector<int> const rows{2, 0};
  SelectedItemsFormatter const formatter(rows);
  EXPECT_EQ(FormatListText(table, formatter), "Run 3\t\tz\r\nRun 1\ta\tx\r\n");
  EXPECT_EQ(FormatListHtml(table, formatter),
            "<table><tbody><tr><td>Run 3</td><td></td><td>z</td></tr>"
            "<tr><td>Run 1</td><td>a</td><td>x</td></tr></tbody></table>");
  std::vector<int> const none;
  EXPECT_EQ(FormatListText(table, SelectedItemsFormatter(none)), "");
}

TEST(ListFormatter, HtmlHasCaptionAndHeadAndLeavesMarkupAsItStands) {
  Table const table = RunTable();
  EXPECT_EQ(FormatListHtml(table, AllItemsFormatter("<i>T</i>", 2)),
            L"<table><caption><i>T</i></caption>"
            L"<thead><tr><th>Run</th><th></th><th>\u00d6l</th></tr></thead>"
            L"<tbody><tr><td>Run 1</td><td>a</td><td>x</td></tr>"
            L"<tr><td>Run 2</td><td>b&c</td><td><y></td></tr></tbody></table>");
}

}  // namespace
