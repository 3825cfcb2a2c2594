#pragma once
// The character format block of rich edit controls, with the Windows layout
// (116 bytes) so that code that fills it field by field and masks it keeps
// its arithmetic. The face name is UTF-16, as on Windows.

#include <cstddef>

#include "platform/WinGdi.h"
#include "platform/WinTypes.h"

struct _charformat2w {
  UINT cbSize;
  DWORD dwMask;
  DWORD dwEffects;
  LONG yHeight;  // twips (1/20 point)
  LONG yOffset;
  COLORREF crTextColor;
  BYTE bCharSet;
  BYTE bPitchAndFamily;
  char16_t szFaceName[LF_FACESIZE];
  WORD wWeight;
  short sSpacing;
  COLORREF crBackColor;
  DWORD lcid;
  DWORD dwReserved;
  short sStyle;
  WORD wKerning;
  BYTE bUnderlineType;
  BYTE bAnimation;
  BYTE bRevAuthor;
  BYTE bUnderlineColor;
};
using CHARFORMAT2W = _charformat2w;
// The rich edit classes hand the block out under the older name.
using _charformatw = _charformat2w;

static_assert(sizeof(CHARFORMAT2W) == 116, "CHARFORMAT2W keeps its Windows size");
static_assert(offsetof(CHARFORMAT2W, szFaceName) == 26, "the face name follows the char set");
static_assert(offsetof(CHARFORMAT2W, crBackColor) == 96, "the back colour is DWORD-aligned");

// dwMask: which fields are valid.
constexpr DWORD CFM_BOLD = 0x00000001;
constexpr DWORD CFM_ITALIC = 0x00000002;
constexpr DWORD CFM_UNDERLINE = 0x00000004;
constexpr DWORD CFM_STRIKEOUT = 0x00000008;
constexpr DWORD CFM_PROTECTED = 0x00000010;
constexpr DWORD CFM_CHARSET = 0x08000000;
constexpr DWORD CFM_OFFSET = 0x10000000;
constexpr DWORD CFM_FACE = 0x20000000;
constexpr DWORD CFM_COLOR = 0x40000000;
constexpr DWORD CFM_SIZE = 0x80000000;
// The mask of the basic block: every field above.
constexpr DWORD CFM_ALL = 0xF800001F;

// dwEffects
constexpr DWORD CFE_BOLD = 0x00000001;
constexpr DWORD CFE_ITALIC = 0x00000002;
constexpr DWORD CFE_UNDERLINE = 0x00000004;
constexpr DWORD CFE_STRIKEOUT = 0x00000008;
constexpr DWORD CFE_PROTECTED = 0x00000010;
constexpr DWORD CFE_AUTOCOLOR = 0x40000000;

// Stream formats of EM_STREAMIN / EM_STREAMOUT.
constexpr DWORD SF_TEXT = 0x0001;
constexpr DWORD SF_RTF = 0x0002;
constexpr DWORD SF_UNICODE = 0x0010;
constexpr DWORD SFF_SELECTION = 0x8000;
