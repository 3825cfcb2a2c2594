#pragma once
// A DIB saved as a JPEG file (JFIF, quality 80) through libjpeg.

#include "pictures/DibBlock.h"

// Writes the picture of an uncompressed 8, 16 (5-5-5), 24 or 32-bit DIB with
// a 40-byte header to `path` (UTF-8), top row first. A resolution in both
// header fields becomes the JFIF density in dots per centimetre. 1 on
// success; 0 when the block does not hold what its header says, for other
// formats, or when libjpeg or the file fails, and then no file is left
// behind and an old one stays as it was.
int SaveDIBAsJPEG(HDIB dib, char const * path);
