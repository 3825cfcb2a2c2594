#pragma once
// Where the parts of a property list's row lie: the gutter with the
// expander, the name cell, the divider and the value cell. Pure arithmetic
// on the row's rectangle (wxRect: right and bottom exclusive as x + width and
// y + height), so that drawing, hit tests and editors agree to the pixel.

#include <wx/gdicmn.h>

#include <cstdint>

namespace PropertyListGeometry {

constexpr int kGutterWidth = 16;       // the expander's column; the grid line stands at it
constexpr int kExpanderSize = 9;       // the expander box, square
constexpr int kExpanderLeft = 3;       // from the row's left
constexpr int kDetailsHeight = 64;     // the details pane under the rows
constexpr int kTextInset = 3;          // text from a cell's edges
constexpr int kRowPadding = 4;         // added to the lines' height of a row
constexpr int kMaxRowHeight = 0x7FFF;  // a row never grows past what a coordinate holds
constexpr std::uint32_t kGridColour = 0xC6C6C6;  // COLORREF, 0x00BBGGRR
// A press left of this x flips the category it selects.
constexpr int kExpanderHitLimit = kGutterWidth + 1;

// Rows whose name takes the whole row: categories and plain items without a
// value.
enum class NameSpan { Half, Whole };

// The value cell: from just right of the divider to the row's right, one
// pixel above the row's bottom grid line.
wxRect ValueRect(wxRect const & row);

// The expander box, vertically centred in the row.
wxRect ExpanderRect(wxRect const & row);

// The x of the vertical divider between name and value; for a whole-row
// name it stands on the row's last pixel.
int DividerX(wxRect const & row, NameSpan span);

// The name cell: from right of the gutter to the divider, above the bottom
// grid line.
wxRect NameRect(wxRect const & row, NameSpan span);

// The width a name is wrapped to in a row of `rowWidth` pixels. Negative for
// a whole-row name (its limit left lies right of its right): such a name is
// not wrapped at all.
int NameWrapWidth(int rowWidth, NameSpan span);

// The height of a row with `lines` lines of `lineHeight` pixels, held below
// kMaxRowHeight however many lines a name has.
int RowHeight(std::int64_t lines, int lineHeight);

}  // namespace PropertyListGeometry
