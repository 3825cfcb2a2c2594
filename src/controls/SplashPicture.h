#pragma once
// Splash pictures from files, which come from outside (a customization
// package, an installation): the header is checked before anything is
// decoded, so a picture that declares a huge size is refused instead of
// taking the memory it asks for.

#include <wx/bitmap.h>
#include <wx/image.h>

#include <cstddef>
#include <string>

// The largest side and area a splash picture may declare.
constexpr int kMaxSplashSide = 8192;
constexpr long long kMaxSplashPixels = 16LL * 1024 * 1024;

// The size a PNG or BMP header declares; false for anything else or for a
// header too short to tell.
bool ReadPictureHeaderSize(unsigned char const * data, size_t size, int & width, int & height);

// The picture in `data` (PNG or BMP), its header checked first; an invalid
// image and `problem` set to why when it is no such picture, too large or
// damaged.
wxImage DecodeSplashPicture(unsigned char const * data, size_t size, char const *& problem);

// The picture in `path` (PNG or BMP); an invalid bitmap, with the reason in
// the log, when the file is missing, no such picture, too large or damaged.
wxBitmap LoadSplashPicture(std::string const & path);
