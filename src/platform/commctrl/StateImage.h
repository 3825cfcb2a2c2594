#pragma once
// The state image of a list or tree item (its check box, say) lives in bits
// 12 to 15 of the item state; index 0 is none.

#include "platform/WinTypes.h"

constexpr UINT STATEIMAGEMASK = 0xF000;
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT index) { return index << 12; }
constexpr UINT STATEIMAGEMASKTOINDEX(UINT state) { return (state & STATEIMAGEMASK) >> 12; }
