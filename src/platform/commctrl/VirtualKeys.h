#pragma once
// Keys, mouse-button flags and scroll codes as the Windows controls' message
// handlers receive them, with Windows' values, and the translation from wx's
// key codes.

#include "platform/WinTypes.h"

// Virtual keys.
constexpr UINT VK_LBUTTON = 0x01;
constexpr UINT VK_RBUTTON = 0x02;
constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_SHIFT = 0x10;
constexpr UINT VK_CONTROL = 0x11;
constexpr UINT VK_MENU = 0x12;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_INSERT = 0x2D;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_MULTIPLY = 0x6A;
constexpr UINT VK_ADD = 0x6B;
constexpr UINT VK_SUBTRACT = 0x6D;
constexpr UINT VK_F2 = 0x71;

// Mouse flags of the button and move handlers.
constexpr UINT MK_LBUTTON = 0x0001;
constexpr UINT MK_RBUTTON = 0x0002;
constexpr UINT MK_SHIFT = 0x0004;
constexpr UINT MK_CONTROL = 0x0008;
constexpr UINT MK_MBUTTON = 0x0010;

// Scroll bars and their codes (WM_HSCROLL, WM_VSCROLL).
constexpr int SB_HORZ = 0;
constexpr int SB_VERT = 1;
constexpr UINT SB_LINEUP = 0;
constexpr UINT SB_LINEDOWN = 1;
constexpr UINT SB_PAGEUP = 2;
constexpr UINT SB_PAGEDOWN = 3;
constexpr UINT SB_THUMBPOSITION = 4;
constexpr UINT SB_THUMBTRACK = 5;
constexpr UINT SB_TOP = 6;
constexpr UINT SB_BOTTOM = 7;
constexpr UINT SB_ENDSCROLL = 8;

// The virtual key of a wx key code (letters and digits are their upper-case
// characters); 0 for a key without one.
UINT VirtualKeyFromWx(int wxKeyCode);

// GetKeyState / GetAsyncKeyState: the high bit (a negative result) while the
// key is down. Answered from the pointer and keyboard state of the display.
short GetKeyState(int virtualKey);
short GetAsyncKeyState(int virtualKey);
