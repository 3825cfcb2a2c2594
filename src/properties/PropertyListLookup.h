#pragma once
// Type-ahead in a property list: the row a typed letter moves to.

#include <vector>

class PropertyItem;

// The first row after `selected` (from the top when `selected` is the last
// row or none) whose name starts with `key`, compared by Unicode case
// folding; the search wraps once to the rows before. -1 when no name
// starts with it (a name without a letter is never found).
int FindPropertyRowByLetter(std::vector<PropertyItem *> const & rows, int selected, wchar_t key);
