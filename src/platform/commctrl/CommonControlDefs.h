#pragma once
// What the list view and the tree view share of the Windows vocabulary: the
// state image index in an item's state, and the callback markers of fields
// the owner gives on demand (LVN_GETDISPINFO, TVN_GETDISPINFO).

#include <cstdint>

#include "platform/WinTypes.h"

// The state image (with check boxes 1 unchecked, 2 checked) lives in bits
// 12 to 15 of an item's state.
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT index) { return index << 12; }
constexpr UINT STATEIMAGEMASKTOINDEX(UINT state) { return (state & 0xF000) >> 12; }

// A text or image the owner gives each time it is needed.
inline wchar_t * const LPSTR_TEXTCALLBACKW =
    reinterpret_cast<wchar_t *>(static_cast<intptr_t>(-1));  // NOLINT
constexpr int I_IMAGECALLBACK = -1;
