#pragma once
// The geometry and stepping rules the in-place editors share, apart from
// any window so that they can be checked alone.

#include "platform/WinGeometry.h"

class wxWindow;

namespace PropertyInPlaceLayout {

constexpr int kInset = 3;

// The height of "DummyText" in the font of `window`.
int TextHeight(wxWindow const & window);

// A one-line edit `textHeight` high, centred in `cell`, `kInset` in from
// the left and from `right` (the cell's right less anything beside it).
RECT EditRect(RECT const & cell, int textHeight, int reservedRight = 0);

// The drop list's height: min(8, count) rows + 2, or 100 when empty.
int DropListHeight(int count, int rowHeight);

// The index kInPlaceListStep moves to: up when `up` and above 0, else down
// when a next entry exists; `current` otherwise.
int StepIndex(int current, int count, bool up);

// The index a double click moves to: the next, wrapping to 0; `current`
// when there are fewer than two entries.
int CycleIndex(int current, int count);

}  // namespace PropertyInPlaceLayout
