#pragma once
// A device context to print on, in the vocabulary of Windows printing: the
// device's capabilities, the document and page brackets, escapes and the
// stretching of device-independent bitmaps, with Windows' numbers and
// results. What is drawn goes through a wxDC in device units. The page
// device of src/printing is the real one; tests derive devices that record
// or band.

#include "platform/WinTypes.h"

class wxDC;
class wxFont;
class wxString;

// GetDeviceCaps indexes.
constexpr int TECHNOLOGY = 2;
constexpr int HORZSIZE = 4;  // millimetres
constexpr int VERTSIZE = 6;
constexpr int HORZRES = 8;  // printable width in device units
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int PLANES = 14;
constexpr int NUMCOLORS = 24;
constexpr int RASTERCAPS = 38;
constexpr int LOGPIXELSX = 88;  // device units an inch
constexpr int LOGPIXELSY = 90;
constexpr int PHYSICALWIDTH = 110;
constexpr int PHYSICALHEIGHT = 111;
constexpr int PHYSICALOFFSETX = 112;
constexpr int PHYSICALOFFSETY = 113;

constexpr int DT_RASPRINTER = 2;
constexpr int RC_BANDING = 0x0002;
constexpr int RC_BITBLT = 0x0001;
constexpr int RC_STRETCHDIB = 0x2000;

// Escapes.
constexpr int NEWFRAME = 1;
constexpr int NEXTBAND = 3;
constexpr int QUERYESCSUPPORT = 8;
constexpr int GETSETCOPYCOUNT = 17;
constexpr int BANDINFO = 24;

// StretchDIBits.
constexpr int COLORONCOLOR = 3;
constexpr int HALFTONE = 4;
constexpr UINT DIB_RGB_COLORS = 0;
constexpr DWORD SRCCOPY = 0x00CC0020;

// The failure of the document and page calls.
constexpr int SP_ERROR = -1;

struct DOCINFOW {
  int cbSize;
  wchar_t const * lpszDocName;
  wchar_t const * lpszOutput;  // null: the device's own output
  wchar_t const * lpszDatatype;
  DWORD fwType;
};

// What Escape(BANDINFO) fills in.
struct BANDINFOSTRUCT {
  BOOL fGraphicsFlag;
  BOOL fTextFlag;
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};

class CDC {
public:
  CDC() = default;
  CDC(CDC const &) = delete;
  CDC & operator=(CDC const &) = delete;
  virtual ~CDC();

  virtual int GetDeviceCaps(int index) const = 0;

  // Above 0 on success, SP_ERROR (or another value of 0 and below) on
  // failure.
  virtual int StartDoc(DOCINFOW const & info) = 0;
  virtual int StartPage() = 0;
  virtual int EndPage() = 0;
  virtual int EndDoc() = 0;
  virtual int AbortDoc() = 0;

  // `in` and `out` as the escape defines them; 0 for an escape the device
  // does not know, below 0 for a failure.
  virtual int Escape(int escape, int inSize, void const * in, void * out) = 0;

  // The former mode.
  virtual int SetStretchBltMode(int mode) = 0;
  // Stretches the source rectangle of a DIB (its BITMAPINFOHEADER and
  // colour table at `bitmapInfo`, the rows at `bits`) onto the destination
  // rectangle. For a bottom-up DIB the source's y counts from the last row,
  // as on Windows. The number of rows copied, 0 on failure.
  virtual int StretchDIBits(int x, int y, int width, int height, int xSource, int ySource,
                            int sourceWidth, int sourceHeight, void const * bits,
                            void const * bitmapInfo, UINT usage, DWORD rop) = 0;

  // Where text and drawings go, in device units: the open page, or a
  // surface that only measures when no page is open. Never null.
  virtual wxDC & GetDC() = 0;

  // A font whose em is `decipoints` tenths of a point on this device (as
  // CreatePointFont makes it): the size is converted from the device's
  // LOGPIXELSY to the resolution the drawing surface takes point sizes at.
  wxFont CreatePointFont(int decipoints, wxString const & face);
};
