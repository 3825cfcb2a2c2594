#pragma once
// The text form of a window placement, as kept in the registry: the ten
// numeric fields of a WINDOWPLACEMENT joined by commas, in the order flags,
// showCmd, ptMinPosition.x, .y, ptMaxPosition.x, .y, rcNormalPosition.left,
// .top, .right, .bottom ("0,1,-1,-1,-1,-1,10,20,810,620"). flags and showCmd
// are unsigned, the others signed 32-bit numbers; `length` is not written.

#include <string>

#include "platform/WinGeometry.h"

std::string WindowPlacementToString(WINDOWPLACEMENT const & placement);

// Sets `length` to 44 and reads the ten fields in order. True only when the
// text is exactly ten numbers: a missing or extra field, anything but an
// optional minus (signed fields only) and digits, or a number out of its
// field's range refuses the text. Blanks before a number are allowed, as
// hand-edited values carry them. Fields read before the one that failed stay
// written, so a caller that wants all or nothing parses into a copy.
bool ParseWindowPlacement(char const * text, WINDOWPLACEMENT & placement);
