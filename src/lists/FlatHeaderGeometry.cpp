#include "lists/FlatHeaderGeometry.h"

RECT HeadingTextRect(RECT item, int margin, bool pressed, bool sortColumn) {
  RECT text = item;
  if (pressed) {
    text.left += 1;
    text.top += 2;
    text.right += 1;
  }
  if (sortColumn) text.right -= 3 * margin;
  text.left += margin;
  text.right -= margin;
  return text;
}

std::vector<ArrowStroke> SortArrowStrokes(RECT item, int margin, bool ascending) {
  LONG const g = margin;
  LONG const r = item.right;
  LONG const b = item.bottom;
  if (ascending) {
    POINT const top{r - 2 * g, g - 1};
    POINT const tip{r - 3 * g / 2, b - g};
    return {{true, top, tip},
            {true, tip, {r - 5 * g / 2 - 2, b - g}},
            {false, {r - 5 * g / 2 - 1, b - g - 1}, {r - 2 * g, g - 2}}};
  }
  POINT const right{r - 3 * g / 2, g - 1};
  POINT const left{r - 5 * g / 2 - 1, g - 1};
  return {{true, right, {r - 2 * g - 1, b - g + 1}},
          {false, {r - 2 * g - 1, b - g}, left},
          {false, left, right}};
}

std::vector<int> ColumnEdges(std::vector<int> const & widthsInDisplayOrder) {
  std::vector<int> edges;
  int x = 0;
  for (int width : widthsInDisplayOrder) {
    x += width;
    edges.push_back(x);
  }
  return edges;
}
