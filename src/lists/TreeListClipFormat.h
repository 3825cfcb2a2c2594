#pragma once
// The text and HTML forms of a tree list's rows, as the clipboard and the
// export functions write them. They read each row's record, the one string
// that holds all of an item's column texts divided by a separator, and cut
// it into cells in one pass, so that a large tree costs no more than
// joining the same cells from a table.
//
// Text: cells joined by tabs, rows by "\r\n", an optional heading line
// first; then "\r\n\t" characters are trimmed from both ends (so an empty
// tree gives its heading line without a line end, and an empty first
// heading or last cell loses its tab).
//
// HTML: a bare <table> in UTF-8, nothing escaped (the clipboard's readers
// take the cells as they stand). With headings: an optional <caption>, a
// <thead>, and the cells of an item that has a parent start with "&nbsp;",
// which shows the nesting; without headings: plain rows only.

#include <string>
#include <string_view>
#include <vector>

#include <wx/string.h>

// One row as the forms read it.
struct TreeListClipRow {
  std::wstring_view record;  // all column texts, divided by `separator`
  wchar_t separator = L'\u00B6';
  bool isChild = false;  // the item has a parent
};

// The rows in the order they are written.
class TreeListClipRows {
public:
  virtual ~TreeListClipRows() = default;
  // The next row; false after the last. The record stays valid until the
  // next call.
  virtual bool Next(TreeListClipRow & row) = 0;
};

// A heading is read up to this many characters in the text form.
constexpr size_t kTreeListHeadingLimit = 2000;

// Cell `column` of a record: the text between the column-th and the next
// separator; empty when the record has fewer separators.
std::wstring_view TreeListCell(std::wstring_view record, wchar_t separator, int column);

// The text form of `columns` cells a row; `headings` null leaves out the
// heading line.
wxString FormatTreeListText(std::vector<wxString> const * headings, int columns,
                            TreeListClipRows & rows);

// The HTML form with headings (each heading is a column) and, when `title`
// is not null, a caption: children's cells carry the nesting mark.
std::string FormatTreeListHtml(char const * title, std::vector<wxString> const & headings,
                               TreeListClipRows & rows);

// The HTML form of `columns` cells a row without headings or nesting mark.
std::string FormatTreeListRowsHtml(int columns, TreeListClipRows & rows);
