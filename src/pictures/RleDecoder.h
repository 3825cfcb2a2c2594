#pragma once
// Run-length compressed DIB pixels (4 and 8 bits) unpacked into plain DIB
// rows, keeping the palette indices.

#include <cstddef>

// Decodes `size` bytes of `bitCount` (4 or 8) run-length data into `rows`:
// `height` rows of `stride` bytes, bottom row first as in the DIB. Pixels the
// data does not reach keep index 0; runs past the row's end or the last row
// and deltas out of the picture are clipped, so no byte outside `rows` is
// written. Gives false when the data ends before its end-of-bitmap mark or
// `bitCount` is neither 4 nor 8 (reaching past the last row counts as the
// end).
bool DecodeRle(unsigned char const * data, std::size_t size, unsigned bitCount, long width,
               long height, unsigned char * rows, std::size_t stride);
