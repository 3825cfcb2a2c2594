#pragma once
// The drawing vocabulary of Windows that the library's colour and font code
// is written in: COLORREF (0x00BBGGRR, the layout of wxColour::GetRGB) and
// the logical font description with its weights and pitch/family bits.

#include <cstdint>

#include "platform/WinTypes.h"

using COLORREF = DWORD;

constexpr COLORREF RGB(BYTE r, BYTE g, BYTE b) {
  return COLORREF(r) | (COLORREF(g) << 8) | (COLORREF(b) << 16);
}
constexpr BYTE GetRValue(COLORREF color) { return BYTE(color & 0xFF); }
constexpr BYTE GetGValue(COLORREF color) { return BYTE((color >> 8) & 0xFF); }
constexpr BYTE GetBValue(COLORREF color) { return BYTE((color >> 16) & 0xFF); }

constexpr int LF_FACESIZE = 32;

struct LOGFONTW {
  LONG lfHeight;  // negative: character height in pixels; 0: the toolkit's default
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  WCHAR lfFaceName[LF_FACESIZE];
};

constexpr LONG FW_LIGHT = 300;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;

constexpr BYTE DEFAULT_PITCH = 0;
constexpr BYTE FIXED_PITCH = 1;
constexpr BYTE VARIABLE_PITCH = 2;
constexpr BYTE FF_DONTCARE = 0x00;
constexpr BYTE FF_ROMAN = 0x10;
constexpr BYTE FF_SWISS = 0x20;
constexpr BYTE FF_MODERN = 0x30;
constexpr BYTE FF_SCRIPT = 0x40;
constexpr BYTE FF_DECORATIVE = 0x50;

static_assert(RGB(0x12, 0x34, 0x56) == 0x563412, "COLORREF is 0x00BBGGRR");
