#pragma once
// One device-independent bitmap on a printer's page.

#include "controls/CDC.h"
#include "pictures/DibBlock.h"

// PrintDIB's results besides 0.
constexpr unsigned short PRINT_DIB_NO_DIB = 20;
constexpr unsigned short PRINT_DIB_LOCK_FAILED =
    3;  // also: a block that does not hold what its header says
constexpr unsigned short PRINT_DIB_NO_DC = 6;
constexpr unsigned short PRINT_DIB_STRETCH_FAILED = 9;
constexpr unsigned short PRINT_DIB_NEWFRAME_FAILED = 15;

// Paints `dib` from `top` down, in `mode`:
//   1  best fit: the page's width, the height in proportion (the DIB's
//      pixels taken as square at the device's resolution);
//   3  scaled: `xScale` and `yScale` device units a pixel, centred across;
//   others stretched over the page's width and the height below `top`.
// In modes 1 and 3 the bottom is reckoned from 0, not from `top`: the
// picture is shorter by `top`. On a device that bands, the picture goes
// band by band; on others it is the one band and ends the page with
// NEWFRAME. 0 on success, else one of the codes above.
unsigned short PrintDIB(HDIB dib, unsigned short mode, unsigned short xScale, unsigned short yScale,
                        CDC * dc, int top);
