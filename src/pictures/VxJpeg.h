#pragma once
// A JPEG from a stream or a resource, decoded for display.
//
// The picture is kept as a top-down 24-bit DIB; the bitmap for the screen is
// made from it on first use, so that decoding needs no display.

#include <iosfwd>
#include <string>

#include <wx/bitmap.h>

#include "pictures/DibBlock.h"

class VxJpeg {
public:
  // The raw bytes of resource `resourceId` of type RT_RCDATA in the current
  // resource module.
  explicit VxJpeg(unsigned int resourceId);
  explicit VxJpeg(std::istream & stream);
  ~VxJpeg();
  VxJpeg(VxJpeg const &) = delete;
  VxJpeg & operator=(VxJpeg const &) = delete;

  // Invalid when decoding failed.
  wxBitmap const & GetBitMap();
  // Empty when all went well; otherwise libjpeg's messages, a line each.
  std::string const & GetErrorMessage() const { return errorMessage_; }
  void AddDecompressMessage(char const * message);
  // The decoded DIB: 40-byte header with a negative height, 24 bits, rows
  // blue-green-red padded to 4 bytes; null when decoding failed.
  HDIB GetDIB() const { return dib_; }

private:
  bool ReadJpeg(std::istream * stream);

  std::string errorMessage_;
  HDIB dib_ = nullptr;
  wxBitmap bitmap_;
};
