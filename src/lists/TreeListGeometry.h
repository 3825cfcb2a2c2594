#pragma once
// The arithmetic of the tree list's frame, without windows: the header's
// stretched width, the sideways scroll bar's positions (with the scroll
// bar semantics the tree list was designed on: a limit of max - (page - 1),
// of which the steps reach limit - 1), the right-edge rule while a column
// narrows, and the automatic column sizing on a resize.

#include <vector>

#include "platform/WinTypes.h"
#include "platform/commctrl/VirtualKeys.h"

// The horizontal names of the scroll codes.
constexpr UINT SB_LINELEFT = SB_LINEUP;
constexpr UINT SB_LINERIGHT = SB_LINEDOWN;
constexpr UINT SB_PAGELEFT = SB_PAGEUP;
constexpr UINT SB_PAGERIGHT = SB_PAGEDOWN;
constexpr UINT SB_LEFT = SB_TOP;
constexpr UINT SB_RIGHT = SB_BOTTOM;

// The header is made as wide as whole multiples of the tree's client
// width that cover the columns: (columns / client + 1) * client; 0 for a
// client width of 0.
int StretchWidth(int columnsWidth, int clientWidth);

// The sideways bar's steps, in pixels.
constexpr int kSidewaysLineStep = 6;

// The highest position of a bar with range 0..max and that page:
// max - (page - 1), at least 0.
int SidewaysScrollLimit(int max, int page);

// The position a WM_HSCROLL code asks for, from the present position, the
// thumb's (for SB_THUMBPOSITION and SB_THUMBTRACK), the limit and the
// tree's client width (a page). Lines are 6 pixels; the thumb snaps to the
// next multiple of 6; the right end is limit - 1. Unknown codes keep the
// position.
int SidewaysScrollTarget(UINT code, int position, int thumb, int limit, int pageWidth);

// After a column changed width: when the columns got narrower while the bar
// stands at its right end (limit - 1 or beyond) and the columns are still
// wider than the tree, the offset that keeps the columns' right edge at the
// tree's right edge (client width - columns width); else `offset`.
int OffsetAfterColumnChange(int offset, int oldColumnsWidth, int columnsWidth, int position,
                            int limit, int clientWidth);

// The automatic column sizing on WM_SIZE. `storedWidth` is the client width
// at the last sizing (below 1: off); `clientWidth` the new one. Changes of
// less than 10 pixels are ignored; a growth when the columns already fill
// more than the room (client width less the vertical bar and 4), or a
// shrink when they fill less, changes nothing but the stored width. Else
// the change is shared out in proportion to the widths, each share
// truncated twice; a column is set only when it ends wider than 15 pixels
// or grew; the last column takes what is left. True when the widths were
// walked (the caller then applies them with redraw off).
bool AutoSizeColumns(int & storedWidth, int clientWidth, int verticalBarWidth,
                     std::vector<int> & widths);
