#pragma once
// Reading a whole number back from an edit as the platform's text-to-int
// conversion did: leading blanks, an optional sign, then ASCII digits up to
// the first other character ("12ab" is 12, "1e5" is 1, "0x10" is 0, "-" and
// "" are 0). A value beyond int is held at INT_MAX or INT_MIN, which is how
// callers tell it was too large. No locale takes part.

#include <climits>

int TakeBackNumber(wchar_t const * text);

// True for the two values TakeBackNumber holds a too large number at.
inline bool IsSaturatedNumber(int value) { return value == INT_MAX || value == INT_MIN; }
