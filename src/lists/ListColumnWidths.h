#pragma once
// The column widths a list keeps between runs, in the profile section
// "ListColumnWidths": the column count, then each width, separated by
// commas ("2,120,80" for two columns of 120 and 80 pixels).

#include <optional>
#include <string>
#include <vector>

// Widths to apply to a list of `columnCount` columns, read from a stored
// string (UTF-8, possibly damaged). Nothing when the stored count is not
// that of the list or cannot be read. A width that is not a number, or is
// negative, is left out (std::nullopt in its place: keep the column as it
// is); a huge one is cut to kMaxStoredColumnWidth. Fields beyond the count
// are ignored; missing ones keep their columns.
std::vector<std::optional<int>> ParseColumnWidths(std::string const & stored, int columnCount);

// The string to store for these widths.
std::string ComposeColumnWidths(std::vector<int> const & widths);

constexpr int kMaxStoredColumnWidth = 16384;
