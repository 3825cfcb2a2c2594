#pragma once
// The messages the in-place editors of the property list exchange, as
// synchronous WindowMessageEvents (platform/WindowMessage.h). The numbers
// are those of the Windows original (WM_USER + n), so that a handler
// switches on them as before.

#include "platform/WinTypes.h"

// Editor -> its owner, else its parent (the property list): the value may
// have changed; take it with the item's SetData. No arguments.
constexpr UINT kInPlaceDataChanged = 1027;

// Drop list -> combo frame: hide the list without choosing (Tab, Escape).
constexpr UINT kInPlaceListHide = 1028;

// Drop list -> combo frame: the list was left by a click or a release;
// choose the entry wParam (lParam: its item data).
constexpr UINT kInPlaceListChoose = 1029;

// -> combo frame: step the choice; wParam is a virtual key, VK_UP steps
// up, any other key down.
constexpr UINT kInPlaceListStep = 1030;

// Property list -> its editor, wParam 1: the row was double-clicked; a list
// editor cycles its value, the others ignore it.
constexpr UINT kInPlaceDoubleClick = 0x203;  // WM_LBUTTONDBLCLK
