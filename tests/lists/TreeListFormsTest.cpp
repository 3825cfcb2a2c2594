// The tree list's text and HTML forms and its frame arithmetic, without
// windows: what a spreadsheet receives, and where columns and the sideways
// bar end up.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lists/TreeListClipFormat.h"
#include "lists/TreeListGeometry.h"

namespace {

// Rows given as records ("|" stands for the separator) and nesting.
class Rows : public TreeListClipRows {
public:
  struct Row {
    std::wstring record;
    bool child;
  };
  explicit Rows(std::vector<Row> rows) : mRows(std::move(rows)) {
    for (Row & row : mRows)
      for (wchar_t & c : row.record)
        if (c == L'|') c = L'\u00B6';
  }
  bool Next(TreeListClipRow & row) override {
    if (mAt == mRows.size()) return false;
    row.record = mRows[mAt].record;
    row.isChild = mRows[mAt++].child;
    return true;
  }

private:
  std::vector<Row> mRows;
  size_t mAt = 0;
};

std::vector<wxString> const kHeadings{"Series", "Run", "Value"};

TEST(TreeListCell, ReadsTheFieldBetweenSeparators) {
  struct Case {
    std::wstring record;
    int column;
    std::wstring cell;
  };
  for (Case const & c : std::vector<Case>{{L"a\u00B6b\u00B6c", 1, L"b"},
                                          {L"a\u00B6b\u00B6c", 2, L"c"},
                                          {L"a\u00B6b", 5, L""},
                                          {L"\u00B6x", 0, L""},
                                          {L"\u00B6x", 1, L"x"},
                                          {L"a", -1, L""}}) {
    EXPECT_EQ(TreeListCell(c.record, L'\u00B6', c.column), c.cell) << c.column;
  }
}

TEST(TreeListText, JoinsCellsByTabsAndTrimsBothEnds) {
  struct Case {
    char const * name;
    std::vector<wxString> const * headings;
    int columns;
    std::vector<Rows::Row> rows;
    wxString text;
  };
  std::vector<wxString> const emptyFirst{"", "Run"};
  std::vector<Case> const cases{
      {"empty tree: the heading line alone", &kHeadings, 3, {}, "Series\tRun\tValue"},
      {"rows in order, missing cells empty, extra fields left out",
       &kHeadings,
       3,
       {{L"S1|Run 1|2.5|extra", false}, {L"child", true}, {L"S2||7", false}},
       "Series\tRun\tValue\r\nS1\tRun 1\t2.5\r\nchild\t\t\r\nS2\t\t7"},
      {"no heading line; trailing empty cells trimmed at the end only",
       nullptr,
       2,
       {{L"a", false}, {L"b", false}},
       "a\t\r\nb"},
      {"an empty first heading loses its tab", &emptyFirst, 2, {{L"x|y", false}}, "Run\r\nx\ty"},
      {"nothing at all", nullptr, 2, {{L"", false}}, ""},
  };
  for (Case const & c : cases) {
    Rows rows(c.rows);
    EXPECT_EQ(FormatTreeListText(c.headings, c.columns, rows), c.text) << c.name;
  }
}

TEST(TreeListText, CutsHeadingsAt2000Characters) {
  std::vector<wxString> const headings{wxString(L'h', 2500), "B"};
  Rows rows({});
  EXPECT_EQ(FormatTreeListText(&headings, 2, rows), wxString(L'h', 2000) + "\tB");
}

TEST(TreeListHtml, BothFormsAreExact) {
  std::vector<Rows::Row> const records{{L"S1|5 \u00B5l|<b>&", false}, {L"R1|x", true}};
  {
    Rows rows(records);
    EXPECT_EQ(FormatTreeListHtml("Series", kHeadings, rows),
              "<table><caption>Series</caption><thead><tr><th>Series</th><th>Run</th>"
              "<th>Value</th></tr></thead><tbody>"
              "<tr><td>S1</td><td>5 \xC2\xB5l</td><td><b>&</td></tr>"
              "<tr><td>&nbsp;R1</td><td>&nbsp;x</td><td>&nbsp;</td></tr>"
              "</tbody></table>");
  }
  {
    Rows rows({});
    EXPECT_EQ(FormatTreeListHtml(nullptr, {}, rows),
              "<table><thead><tr></tr></thead><tbody></tbody></table>");
  }
  {
    Rows rows(records);
    EXPECT_EQ(FormatTreeListRowsHtml(2, rows),
              "<table><tbody><tr><td>S1</td><td>5 \xC2\xB5l</td></tr>"
              "<tr><td>R1</td><td>x</td></tr></tbody></table>");
  }
}

TEST(TreeListGeometry, StretchWidthCoversTheColumnsInWholeClientWidths) {
  struct Case {
    int columns, client, width;
  };
  for (Case const & c :
       std::vector<Case>{{0, 100, 100}, {250, 100, 300}, {300, 100, 400}, {50, 0, 0}})
    EXPECT_EQ(StretchWidth(c.columns, c.client), c.width) << c.columns << " " << c.client;
}

TEST(TreeListGeometry, SidewaysStepsFollowTheTable) {
  // Columns 500 wide over a client 200 wide: limit 301, right end 300.
  int const limit = SidewaysScrollLimit(500, 200);
  ASSERT_EQ(limit, 301);
  struct Case {
    UINT code;
    int position, thumb, target;
  };
  std::vector<Case> const cases{
      {SB_LINELEFT, 4, 0, 0},        {SB_LINELEFT, 20, 0, 14},     {SB_LINERIGHT, 20, 0, 26},
      {SB_LINERIGHT, 298, 0, 300},   {SB_PAGELEFT, 150, 0, 0},     {SB_PAGERIGHT, 50, 0, 250},
      {SB_PAGERIGHT, 150, 0, 300},   {SB_THUMBTRACK, 50, 0, 0},    {SB_THUMBTRACK, 50, 1, 6},
      {SB_THUMBPOSITION, 0, 12, 18}, {SB_THUMBTRACK, 0, 299, 300}, {SB_LEFT, 120, 0, 0},
      {SB_RIGHT, 0, 0, 300},         {SB_ENDSCROLL, 42, 0, 42},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(SidewaysScrollTarget(c.code, c.position, c.thumb, limit, 200), c.target)
        << "code " << c.code << " from " << c.position;
  }
  EXPECT_EQ(SidewaysScrollLimit(150, 200), 0);  // the columns fit: the bar cannot move
}

TEST(TreeListGeometry, NarrowedColumnsKeepTheRightEdgeOnlyAtTheRightEnd) {
  struct Case {
    char const * name;
    int oldColumns, columns, position, limit, client, offset;
  };
  std::vector<Case> const cases{
      {"narrowed at the right end", 600, 580, 380, 381, 200, -380},
      {"narrowed past the right end (clamped)", 600, 580, 381, 381, 200, -380},
      {"narrowed in the middle", 600, 580, 100, 381, 200, -100},
      {"widened at the right end", 580, 600, 380, 381, 200, -100},
      {"narrowed until the columns fit", 600, 180, 380, 381, 200, -100},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(OffsetAfterColumnChange(-100, c.oldColumns, c.columns, c.position, c.limit, c.client),
              c.offset)
        << c.name;
  }
}

TEST(TreeListGeometry, AutoSizeSharesTheChangeInProportion) {
  struct Case {
    char const * name;
    int stored, client;
    std::vector<int> widths;
    bool walked;
    int storedAfter;
    std::vector<int> after;
  };
  // The vertical bar is 15 wide: the room is client - 19.
  std::vector<Case> const cases{
      {"off", -1, 900, {100, 100}, false, -1, {100, 100}},
      {"a change under 10 is ignored", 400, 409, {100, 100}, false, 400, {100, 100}},
      {"growing", 400, 460, {100, 100, 100}, true, 460, {120, 120, 120}},
      {"growing columns already wider than the room", 300, 400, {200, 200}, false, 400, {200, 200}},
      {"shrinking columns narrower than the room", 460, 400, {180, 180}, false, 400, {180, 180}},
      {"shrinking", 500, 400, {200, 200}, true, 400, {150, 150}},
      {"a column is not cut to 15 or less; the last takes the rest",
       400,
       300,
       {20, 300},
       true,
       300,
       {20, 206}},
      {"zero widths take no share", 100, 300, {0, 0}, true, 300, {0, 200}},
  };
  for (Case const & c : cases) {
    int stored = c.stored;
    std::vector<int> widths = c.widths;
    EXPECT_EQ(AutoSizeColumns(stored, c.client, 15, widths), c.walked) << c.name;
    EXPECT_EQ(stored, c.storedAfter) << c.name;
    EXPECT_EQ(widths, c.after) << c.name;
  }
}

}  // namespace
