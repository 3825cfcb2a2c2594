#pragma once
// The flat header's geometry, from its one size, the margin: where a
// heading's text goes and the strokes of the sort arrow. Rectangles have
// exclusive right and bottom edges, as the header's items do.

#include <vector>

#include "platform/WinGeometry.h"

struct ArrowStroke {
  bool highlight;  // highlight pen, else shadow pen
  POINT from;
  POINT to;
};

// The text rectangle of an item: one right and two down when pressed (the
// right edge moves with it), room for the arrow on the sort column, the
// margin on both sides.
RECT HeadingTextRect(RECT item, int margin, bool pressed, bool sortColumn);

// The three strokes of the arrow in `item`: pointing down for ascending,
// up for descending.
std::vector<ArrowStroke> SortArrowStrokes(RECT item, int margin, bool ascending);

// The x positions of the column edges of a header whose items, in display
// order, have these widths.
std::vector<int> ColumnEdges(std::vector<int> const & widthsInDisplayOrder);
