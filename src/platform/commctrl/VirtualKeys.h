#pragma once
// The Windows virtual-key codes the common controls speak of (LVN_KEYDOWN,
// label editing), and the mapping from wx's key codes.

#include "platform/WinTypes.h"

constexpr WORD VK_BACK = 0x08;
constexpr WORD VK_TAB = 0x09;
constexpr WORD VK_RETURN = 0x0D;
constexpr WORD VK_SHIFT = 0x10;
constexpr WORD VK_CONTROL = 0x11;
constexpr WORD VK_ESCAPE = 0x1B;
constexpr WORD VK_SPACE = 0x20;
constexpr WORD VK_PRIOR = 0x21;
constexpr WORD VK_NEXT = 0x22;
constexpr WORD VK_END = 0x23;
constexpr WORD VK_HOME = 0x24;
constexpr WORD VK_LEFT = 0x25;
constexpr WORD VK_UP = 0x26;
constexpr WORD VK_RIGHT = 0x27;
constexpr WORD VK_DOWN = 0x28;
constexpr WORD VK_INSERT = 0x2D;
constexpr WORD VK_DELETE = 0x2E;
constexpr WORD VK_F2 = 0x71;

// The Windows virtual key of a wx key code (letters and digits map to their
// upper-case character, as on Windows); 0 for a key without one.
WORD VirtualKeyFromWx(int wxKeyCode);
