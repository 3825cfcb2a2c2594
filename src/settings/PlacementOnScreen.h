#pragma once
// Keeping a restored window where a person can reach it. A placement saved
// on a monitor that is gone, or edited by hand, may lie off every screen;
// such a rectangle is moved onto the nearest screen's work area, and shrunk
// to it if it is larger.

#include <vector>

#include "platform/WinGeometry.h"

// Whether `rect` overlaps one of `workAreas` by at least `minimumOverlap`
// pixels each way (or by its whole width or height, when that is smaller),
// enough to grab the title bar.
bool VxIsOnAWorkArea(RECT const & rect, std::vector<RECT> const & workAreas,
                     int minimumOverlap = 48);

// `rect` itself when it is on a work area (see above) or there are no work
// areas; otherwise the rectangle moved into the work area nearest to it,
// keeping its size where it fits. An empty or inverted rectangle counts as
// one pixel wide or high.
RECT VxBringOntoWorkArea(RECT const & rect, std::vector<RECT> const & workAreas,
                         int minimumOverlap = 48);
