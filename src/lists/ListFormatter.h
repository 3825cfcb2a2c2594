#pragma once
// What a list writes out as text or HTML (to a string or the clipboard):
// which rows, under which title, with or without the column headings.

#include <vector>

#include <wx/string.h>

class ListFormatter {
public:
  ListFormatter(wxString const & title, bool includeHeader)
      : mTitle(title), mIncludeHeader(includeHeader) {}
  virtual ~ListFormatter() = default;

  // Number of lines to write, and the list row of line n.
  virtual int GetCount() const = 0;
  virtual int GetRow(int n) const = 0;

  wxString const & GetTitle() const { return mTitle; }
  bool IncludesHeader() const { return mIncludeHeader; }

private:
  wxString mTitle;
  bool mIncludeHeader;
};

// Every row in order, with the headings.
class AllItemsFormatter : public ListFormatter {
public:
  AllItemsFormatter(wxString const & title, int count)
      : ListFormatter(title, true), mCount(count) {}
  int GetCount() const override { return mCount; }
  int GetRow(int n) const override { return n; }

private:
  int mCount;
};

// The given rows, without title or headings. The vector is not copied: it
// must outlive the formatter.
class SelectedItemsFormatter : public ListFormatter {
public:
  explicit SelectedItemsFormatter(std::vector<int> const & rows)
      : ListFormatter(wxString(), false), mRows(rows) {}
  int GetCount() const override { return static_cast<int>(mRows.size()); }
  int GetRow(int n) const override { return mRows[static_cast<size_t>(n)]; }

private:
  std::vector<int> const & mRows;
};

// The cells and headings a list offers its writers.
class ListTableSource {
public:
  virtual ~ListTableSource() = default;
  virtual int ColumnCount() const = 0;
  virtual wxString Heading(int column) const = 0;
  // False for a list without a header row: no headings are written then.
  virtual bool ShowsHeader() const = 0;
  virtual wxString CellText(int row, int column) const = 0;
};

// Lines end in "\r\n", cells are separated by tabs; a title is underlined
// with "=", headings with "-", one for each character.
wxString FormatListText(ListTableSource const & table, ListFormatter const & formatter);

// A bare <table>: an optional <caption>, a <thead> under the same rule as
// the text's headings, then a <tbody>. Cells go in as they stand.
wxString FormatListHtml(ListTableSource const & table, ListFormatter const & formatter);
