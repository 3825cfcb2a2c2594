#pragma once
// The arithmetic of a list's column widths, apart from the control: widths
// that follow the window as it is resized, widths by percent of the client
// width, and which column a point lies in.

#include <optional>
#include <vector>

// The widths after the client width changed by `change` pixels, spread over
// the columns in proportion to their widths: the remainder moves on to the
// later columns, the last column takes what is left. A column is only
// changed to a width of 2 or more (the last: above 1); otherwise it keeps
// its width although its share was taken from the change, as the list
// always did. Nothing for columns whose widths add up to 0 or less.
std::vector<int> SpreadWidthChange(std::vector<int> const & widths, int change);

// Whether a change of `change` pixels to a client now `clientWidth` wide
// resizes the columns: they never grow while they already overflow the
// client less a vertical scroll bar and 4 pixels.
bool ColumnsMayGrow(std::vector<int> const & widths, int change, int clientWidth,
                    int scrollBarWidth);

// Widths of `count` columns laid out by percent of `clientWidth` less a
// scroll bar (plus 4): each but the last gets its percent (truncated, in
// single precision); the last takes what remains less 4. Only count - 1
// percents are read.
std::vector<int> PercentColumnWidths(int clientWidth, int scrollBarWidth, float const * percents,
                                     int count);

// The column (by index) whose span from `rowLeft` holds x, the right edge
// included; -1 for none.
int ColumnAtX(std::vector<int> const & widths, int rowLeft, int x);
