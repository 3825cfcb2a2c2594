#pragma once
// The tree view's vocabulary with Windows' values: item handles, styles,
// item fields and states, walking codes, hit-test flags, expand codes and
// the notification structures (TVN_*).

#include <cstdint>

#include "platform/WinGeometry.h"
#include "platform/commctrl/CommonControlDefs.h"
#include "platform/commctrl/CustomDraw.h"
#include "platform/commctrl/NotifyEvent.h"

// An item of a tree. It names a slot of the tree's node store and that
// slot's generation: once the item is deleted the slot's generation moves
// on, so a kept handle no longer names anything and acts as null.
struct HTREEITEM {
  uint32_t slot = 0;        // 1-based; 0 is null
  uint32_t generation = 0;  // special handles (TVI_ROOT...) have 0

  constexpr explicit operator bool() const { return slot != 0; }
  constexpr bool operator!() const { return slot == 0; }
  constexpr bool operator==(HTREEITEM other) const {
    return slot == other.slot && generation == other.generation;
  }
  constexpr bool operator!=(HTREEITEM other) const { return !(*this == other); }
  constexpr bool operator<(HTREEITEM other) const {
    return slot != other.slot ? slot < other.slot : generation < other.generation;
  }
};

constexpr HTREEITEM TVI_NULL{};

// An item handle in a DWORD_PTR field (NMCUSTOMDRAW::dwItemSpec) and back.
constexpr DWORD_PTR ItemSpecFromHandle(HTREEITEM item) {
  return (static_cast<DWORD_PTR>(item.generation) << 32) | item.slot;
}
constexpr HTREEITEM HandleFromItemSpec(DWORD_PTR spec) {
  return HTREEITEM{static_cast<uint32_t>(spec & 0xFFFFFFFFU), static_cast<uint32_t>(spec >> 32)};
}
// Parents and places of InsertItem; they never name a real item.
constexpr HTREEITEM TVI_ROOT{0xFFFF0000U, 0};
constexpr HTREEITEM TVI_FIRST{0xFFFF0001U, 0};
constexpr HTREEITEM TVI_LAST{0xFFFF0002U, 0};
constexpr HTREEITEM TVI_SORT{0xFFFF0003U, 0};

// Styles.
constexpr DWORD TVS_HASBUTTONS = 0x0001;
constexpr DWORD TVS_HASLINES = 0x0002;
constexpr DWORD TVS_LINESATROOT = 0x0004;
constexpr DWORD TVS_EDITLABELS = 0x0008;
constexpr DWORD TVS_DISABLEDRAGDROP = 0x0010;
constexpr DWORD TVS_SHOWSELALWAYS = 0x0020;
constexpr DWORD TVS_RTLREADING = 0x0040;
constexpr DWORD TVS_NOTOOLTIPS = 0x0080;
constexpr DWORD TVS_CHECKBOXES = 0x0100;
constexpr DWORD TVS_TRACKSELECT = 0x0200;
constexpr DWORD TVS_SINGLEEXPAND = 0x0400;
constexpr DWORD TVS_INFOTIP = 0x0800;
constexpr DWORD TVS_FULLROWSELECT = 0x1000;
constexpr DWORD TVS_NOSCROLL = 0x2000;
constexpr DWORD TVS_NONEVENHEIGHT = 0x4000;
constexpr DWORD TVS_NOHSCROLL = 0x8000;

// TVITEM::mask.
constexpr UINT TVIF_TEXT = 0x0001;
constexpr UINT TVIF_IMAGE = 0x0002;
constexpr UINT TVIF_PARAM = 0x0004;
constexpr UINT TVIF_STATE = 0x0008;
constexpr UINT TVIF_HANDLE = 0x0010;
constexpr UINT TVIF_SELECTEDIMAGE = 0x0020;
constexpr UINT TVIF_CHILDREN = 0x0040;

// Item states. The state image index lives in bits 12-15, the overlay
// image in bits 8-11.
constexpr UINT TVIS_SELECTED = 0x0002;
constexpr UINT TVIS_CUT = 0x0004;
constexpr UINT TVIS_DROPHILITED = 0x0008;
constexpr UINT TVIS_BOLD = 0x0010;
constexpr UINT TVIS_EXPANDED = 0x0020;
constexpr UINT TVIS_EXPANDEDONCE = 0x0040;
constexpr UINT TVIS_EXPANDPARTIAL = 0x0080;
constexpr UINT TVIS_OVERLAYMASK = 0x0F00;
constexpr UINT TVIS_STATEIMAGEMASK = 0xF000;
constexpr UINT TVIS_USERMASK = 0xF000;

// Callback fields: the tree asks its parent with TVN_GETDISPINFO each time
// it needs them. TVIF_DI_SETITEM in the answer's mask keeps what the parent
// gave from then on.
constexpr int I_CHILDRENCALLBACK = -1;
constexpr UINT TVIF_DI_SETITEM = 0x1000;

// GetNextItem / Select codes.
constexpr UINT TVGN_ROOT = 0x0000;
constexpr UINT TVGN_NEXT = 0x0001;
constexpr UINT TVGN_PREVIOUS = 0x0002;
constexpr UINT TVGN_PARENT = 0x0003;
constexpr UINT TVGN_CHILD = 0x0004;
constexpr UINT TVGN_FIRSTVISIBLE = 0x0005;
constexpr UINT TVGN_NEXTVISIBLE = 0x0006;
constexpr UINT TVGN_PREVIOUSVISIBLE = 0x0007;
constexpr UINT TVGN_DROPHILITE = 0x0008;
constexpr UINT TVGN_CARET = 0x0009;
constexpr UINT TVGN_LASTVISIBLE = 0x000A;
constexpr UINT TVSI_NOSINGLEEXPAND = 0x8000;

// Answers to TVN_SINGLEEXPAND.
constexpr LRESULT TVNRET_DEFAULT = 0;
constexpr LRESULT TVNRET_SKIPOLD = 1;
constexpr LRESULT TVNRET_SKIPNEW = 2;

// Expand codes (TVM_EXPAND and NMTREEVIEW::action of the expand messages).
constexpr UINT TVE_COLLAPSE = 0x0001;
constexpr UINT TVE_EXPAND = 0x0002;
constexpr UINT TVE_TOGGLE = 0x0003;
constexpr UINT TVE_EXPANDPARTIAL = 0x4000;
constexpr UINT TVE_COLLAPSERESET = 0x8000;

// NMTREEVIEW::action of the selection messages.
constexpr UINT TVC_UNKNOWN = 0x0000;
constexpr UINT TVC_BYMOUSE = 0x0001;
constexpr UINT TVC_BYKEYBOARD = 0x0002;

// Hit-test flags.
constexpr UINT TVHT_NOWHERE = 0x0001;
constexpr UINT TVHT_ONITEMICON = 0x0002;
constexpr UINT TVHT_ONITEMLABEL = 0x0004;
constexpr UINT TVHT_ONITEMINDENT = 0x0008;
constexpr UINT TVHT_ONITEMBUTTON = 0x0010;
constexpr UINT TVHT_ONITEMRIGHT = 0x0020;
constexpr UINT TVHT_ONITEMSTATEICON = 0x0040;
constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON;
constexpr UINT TVHT_ABOVE = 0x0100;
constexpr UINT TVHT_BELOW = 0x0200;
constexpr UINT TVHT_TORIGHT = 0x0400;
constexpr UINT TVHT_TOLEFT = 0x0800;

// SetImageList / GetImageList.
constexpr int TVSIL_NORMAL = 0;
constexpr int TVSIL_STATE = 2;

// Notification codes (the wide forms; the plain names stand for them).
constexpr UINT TVN_GETINFOTIPW = TVN_FIRST - 14;
constexpr UINT TVN_SINGLEEXPAND = TVN_FIRST - 15;
constexpr UINT TVN_KEYDOWN = TVN_FIRST - 12;
constexpr UINT TVN_SELCHANGINGW = TVN_FIRST - 50;
constexpr UINT TVN_SELCHANGEDW = TVN_FIRST - 51;
constexpr UINT TVN_GETDISPINFOW = TVN_FIRST - 52;
constexpr UINT TVN_SETDISPINFOW = TVN_FIRST - 53;
constexpr UINT TVN_ITEMEXPANDINGW = TVN_FIRST - 54;
constexpr UINT TVN_ITEMEXPANDEDW = TVN_FIRST - 55;
constexpr UINT TVN_BEGINDRAGW = TVN_FIRST - 56;
constexpr UINT TVN_BEGINRDRAGW = TVN_FIRST - 57;
constexpr UINT TVN_DELETEITEMW = TVN_FIRST - 58;
constexpr UINT TVN_BEGINLABELEDITW = TVN_FIRST - 59;
constexpr UINT TVN_ENDLABELEDITW = TVN_FIRST - 60;
constexpr UINT TVN_GETINFOTIP = TVN_GETINFOTIPW;
constexpr UINT TVN_SELCHANGING = TVN_SELCHANGINGW;
constexpr UINT TVN_SELCHANGED = TVN_SELCHANGEDW;
constexpr UINT TVN_GETDISPINFO = TVN_GETDISPINFOW;
constexpr UINT TVN_SETDISPINFO = TVN_SETDISPINFOW;
constexpr UINT TVN_ITEMEXPANDING = TVN_ITEMEXPANDINGW;
constexpr UINT TVN_ITEMEXPANDED = TVN_ITEMEXPANDEDW;
constexpr UINT TVN_BEGINDRAG = TVN_BEGINDRAGW;
constexpr UINT TVN_BEGINRDRAG = TVN_BEGINRDRAGW;
constexpr UINT TVN_DELETEITEM = TVN_DELETEITEMW;
constexpr UINT TVN_BEGINLABELEDIT = TVN_BEGINLABELEDITW;
constexpr UINT TVN_ENDLABELEDIT = TVN_ENDLABELEDITW;

// An item's fields; `mask` says which are meant. On GetItem, pszText points
// to the caller's buffer of cchTextMax characters.
struct TVITEMW {
  UINT mask = 0;
  HTREEITEM hItem{};
  UINT state = 0;
  UINT stateMask = 0;
  LPWSTR pszText = nullptr;
  int cchTextMax = 0;
  int iImage = 0;
  int iSelectedImage = 0;
  int cChildren = 0;
  LPARAM lParam = 0;
};
using TVITEM = TVITEMW;

struct TVINSERTSTRUCTW {
  HTREEITEM hParent = TVI_ROOT;
  HTREEITEM hInsertAfter = TVI_LAST;
  TVITEMW item;
};
using TVINSERTSTRUCT = TVINSERTSTRUCTW;

struct TVHITTESTINFO {
  POINT pt{};
  UINT flags = 0;
  HTREEITEM hItem{};
};

// SortChildrenCB: the callback compares two items' lParam with the caller's
// lParamSort; negative, zero or positive.
using PFNTVCOMPARE = int (*)(LPARAM lParam1, LPARAM lParam2, LPARAM lParamSort);
struct TVSORTCB {
  HTREEITEM hParent{};
  PFNTVCOMPARE lpfnCompare = nullptr;
  LPARAM lParam = 0;
};

struct NMTREEVIEWW {
  NMHDR hdr;
  UINT action = 0;
  TVITEMW itemOld;
  TVITEMW itemNew;
  POINT ptDrag{};
};
using NMTREEVIEW = NMTREEVIEWW;

// TVN_GETDISPINFO, TVN_BEGINLABELEDIT, TVN_ENDLABELEDIT (pszText null when
// the edit was cancelled).
struct NMTVDISPINFOW {
  NMHDR hdr;
  TVITEMW item;
};
using NMTVDISPINFO = NMTVDISPINFOW;

#pragma pack(push, 1)
struct NMTVKEYDOWN {
  NMHDR hdr;
  WORD wVKey = 0;
  UINT flags = 0;
};
#pragma pack(pop)

struct NMTVCUSTOMDRAW {
  NMCUSTOMDRAW nmcd;
  COLORREF clrText = 0;
  COLORREF clrTextBk = 0;
  int iLevel = 0;
};

struct NMTVGETINFOTIPW {
  NMHDR hdr;
  LPWSTR pszText = nullptr;
  int cchTextMax = 0;
  HTREEITEM hItem{};
  LPARAM lParam = 0;
};
using NMTVGETINFOTIP = NMTVGETINFOTIPW;
