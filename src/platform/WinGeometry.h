#pragma once
// The Win32 geometry structures with Windows' layout, and the show commands
// and flags of a window placement. Coordinates are screen pixels; a RECT's
// right and bottom are exclusive.

#include "platform/WinTypes.h"

struct POINT {
  LONG x;
  LONG y;
};

struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};

struct WINDOWPLACEMENT {
  UINT length;
  UINT flags;
  UINT showCmd;
  POINT ptMinPosition;
  POINT ptMaxPosition;
  RECT rcNormalPosition;
};

static_assert(sizeof(POINT) == 8 && sizeof(RECT) == 16, "the Windows layout");
static_assert(sizeof(WINDOWPLACEMENT) == 44, "WINDOWPLACEMENT is 44 bytes, as its length says");

// Show commands (WINDOWPLACEMENT::showCmd).
constexpr UINT SW_HIDE = 0;
constexpr UINT SW_SHOWNORMAL = 1;
constexpr UINT SW_SHOWMINIMIZED = 2;
constexpr UINT SW_SHOWMAXIMIZED = 3;
constexpr UINT SW_SHOWNOACTIVATE = 4;
constexpr UINT SW_SHOW = 5;
constexpr UINT SW_MINIMIZE = 6;
constexpr UINT SW_SHOWMINNOACTIVE = 7;
constexpr UINT SW_SHOWNA = 8;
constexpr UINT SW_RESTORE = 9;
constexpr UINT SW_SHOWDEFAULT = 10;

// WINDOWPLACEMENT::flags.
constexpr UINT WPF_SETMINPOSITION = 1;
constexpr UINT WPF_RESTORETOMAXIMIZED = 2;
