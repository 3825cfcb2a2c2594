#pragma once
// The list view's vocabulary with Windows' values: styles, item and column
// descriptions, item states, hit-test flags and the LVN_ notifications with
// the structures they carry. Text crosses as wchar_t (UTF-32 here).

#include "platform/WinGdi.h"
#include "platform/WinGeometry.h"
#include "platform/commctrl/CommonControlDefs.h"
#include "platform/commctrl/CustomDraw.h"
#include "platform/commctrl/NotifyEvent.h"
#include "platform/commctrl/VirtualKeys.h"

// Window styles (the list keeps them apart from wx's style bits).
constexpr DWORD LVS_ICON = 0x0000;
constexpr DWORD LVS_REPORT = 0x0001;
constexpr DWORD LVS_SMALLICON = 0x0002;
constexpr DWORD LVS_LIST = 0x0003;
constexpr DWORD LVS_TYPEMASK = 0x0003;
constexpr DWORD LVS_SINGLESEL = 0x0004;
constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
constexpr DWORD LVS_SORTASCENDING = 0x0010;
constexpr DWORD LVS_SORTDESCENDING = 0x0020;
constexpr DWORD LVS_SHAREIMAGELISTS = 0x0040;
constexpr DWORD LVS_NOLABELWRAP = 0x0080;
constexpr DWORD LVS_AUTOARRANGE = 0x0100;
constexpr DWORD LVS_EDITLABELS = 0x0200;
constexpr DWORD LVS_OWNERDATA = 0x1000;
constexpr DWORD LVS_NOSCROLL = 0x2000;
constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
constexpr DWORD LVS_NOSORTHEADER = 0x8000;
constexpr DWORD LVS_ALIGNTOP = 0x0000;
constexpr DWORD LVS_ALIGNLEFT = 0x0800;
constexpr DWORD LVS_OWNERDRAWFIXED = 0x0400;

// Extended styles.
constexpr DWORD LVS_EX_GRIDLINES = 0x00000001;
constexpr DWORD LVS_EX_SUBITEMIMAGES = 0x00000002;
constexpr DWORD LVS_EX_CHECKBOXES = 0x00000004;
constexpr DWORD LVS_EX_TRACKSELECT = 0x00000008;
constexpr DWORD LVS_EX_HEADERDRAGDROP = 0x00000010;
constexpr DWORD LVS_EX_FULLROWSELECT = 0x00000020;
constexpr DWORD LVS_EX_ONECLICKACTIVATE = 0x00000040;
constexpr DWORD LVS_EX_TWOCLICKACTIVATE = 0x00000080;
constexpr DWORD LVS_EX_INFOTIP = 0x00000400;
constexpr DWORD LVS_EX_LABELTIP = 0x00004000;
constexpr DWORD LVS_EX_DOUBLEBUFFER = 0x00010000;

// Item fields (LVITEMW::mask).
constexpr UINT LVIF_TEXT = 0x0001;
constexpr UINT LVIF_IMAGE = 0x0002;
constexpr UINT LVIF_PARAM = 0x0004;
constexpr UINT LVIF_STATE = 0x0008;
constexpr UINT LVIF_INDENT = 0x0010;
constexpr UINT LVIF_NORECOMPUTE = 0x0800;
constexpr UINT LVIF_DI_SETITEM = 0x1000;

// Item states. The state image (1 unchecked, 2 checked with check boxes)
// lives in the top four bits of the low word.
constexpr UINT LVIS_FOCUSED = 0x0001;
constexpr UINT LVIS_SELECTED = 0x0002;
constexpr UINT LVIS_CUT = 0x0004;
constexpr UINT LVIS_DROPHILITED = 0x0008;
constexpr UINT LVIS_GLOW = 0x0010;
constexpr UINT LVIS_ACTIVATING = 0x0020;
constexpr UINT LVIS_OVERLAYMASK = 0x0F00;
constexpr UINT LVIS_STATEIMAGEMASK = 0xF000;

// No image (LPSTR_TEXTCALLBACKW and I_IMAGECALLBACK: CommonControlDefs.h).
constexpr int I_IMAGENONE = -2;

struct LVITEMW {
  UINT mask = 0;
  int iItem = 0;
  int iSubItem = 0;
  UINT state = 0;
  UINT stateMask = 0;
  wchar_t * pszText = nullptr;
  int cchTextMax = 0;
  int iImage = 0;
  LPARAM lParam = 0;
  int iIndent = 0;
};

// Column fields and formats.
constexpr UINT LVCF_FMT = 0x0001;
constexpr UINT LVCF_WIDTH = 0x0002;
constexpr UINT LVCF_TEXT = 0x0004;
constexpr UINT LVCF_SUBITEM = 0x0008;
constexpr UINT LVCF_IMAGE = 0x0010;
constexpr UINT LVCF_ORDER = 0x0020;
constexpr int LVCFMT_LEFT = 0x0000;
constexpr int LVCFMT_RIGHT = 0x0001;
constexpr int LVCFMT_CENTER = 0x0002;
constexpr int LVCFMT_JUSTIFYMASK = 0x0003;

struct LVCOLUMNW {
  UINT mask = 0;
  int fmt = 0;
  int cx = 0;
  wchar_t * pszText = nullptr;
  int cchTextMax = 0;
  int iSubItem = 0;
  int iImage = 0;
  int iOrder = 0;
};

// SetColumnWidth's computed widths.
constexpr int LVSCW_AUTOSIZE = -1;
constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;

// GetNextItem's relations and states.
constexpr UINT LVNI_ALL = 0x0000;
constexpr UINT LVNI_FOCUSED = 0x0001;
constexpr UINT LVNI_SELECTED = 0x0002;
constexpr UINT LVNI_CUT = 0x0004;
constexpr UINT LVNI_DROPHILITED = 0x0008;
constexpr UINT LVNI_ABOVE = 0x0100;
constexpr UINT LVNI_BELOW = 0x0200;

// GetItemRect's parts.
constexpr int LVIR_BOUNDS = 0;
constexpr int LVIR_ICON = 1;
constexpr int LVIR_LABEL = 2;
constexpr int LVIR_SELECTBOUNDS = 3;

// Image lists.
constexpr int LVSIL_NORMAL = 0;
constexpr int LVSIL_SMALL = 1;
constexpr int LVSIL_STATE = 2;

// Hit tests. LVHT_ABOVE shares its bit with LVHT_ONITEMSTATEICON, as on
// Windows: a caller tells them apart by iItem.
constexpr UINT LVHT_NOWHERE = 0x0001;
constexpr UINT LVHT_ONITEMICON = 0x0002;
constexpr UINT LVHT_ONITEMLABEL = 0x0004;
constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;
constexpr UINT LVHT_ABOVE = 0x0008;
constexpr UINT LVHT_BELOW = 0x0010;
constexpr UINT LVHT_TORIGHT = 0x0020;
constexpr UINT LVHT_TOLEFT = 0x0040;

struct LVHITTESTINFO {
  POINT pt{};  // in the list's client coordinates (the header included)
  UINT flags = 0;
  int iItem = -1;
  int iSubItem = 0;
};

// FindItem.
constexpr UINT LVFI_PARAM = 0x0001;
constexpr UINT LVFI_STRING = 0x0002;
constexpr UINT LVFI_PARTIAL = 0x0008;
constexpr UINT LVFI_WRAP = 0x0020;

struct LVFINDINFOW {
  UINT flags = 0;
  wchar_t const * psz = nullptr;
  LPARAM lParam = 0;
  POINT pt{};
  UINT vkDirection = 0;
};

// SetItemCountEx flags.
constexpr DWORD LVSICF_NOINVALIDATEALL = 0x0001;
constexpr DWORD LVSICF_NOSCROLL = 0x0002;

// Notifications.
constexpr UINT LVN_ITEMCHANGING = LVN_FIRST - 0;
constexpr UINT LVN_ITEMCHANGED = LVN_FIRST - 1;
constexpr UINT LVN_INSERTITEM = LVN_FIRST - 2;
constexpr UINT LVN_DELETEITEM = LVN_FIRST - 3;
constexpr UINT LVN_DELETEALLITEMS = LVN_FIRST - 4;
constexpr UINT LVN_COLUMNCLICK = LVN_FIRST - 8;
constexpr UINT LVN_BEGINDRAG = LVN_FIRST - 9;
constexpr UINT LVN_BEGINRDRAG = LVN_FIRST - 11;
constexpr UINT LVN_ODCACHEHINT = LVN_FIRST - 13;
constexpr UINT LVN_ITEMACTIVATE = LVN_FIRST - 14;
constexpr UINT LVN_ODSTATECHANGED = LVN_FIRST - 15;
constexpr UINT LVN_HOTTRACK = LVN_FIRST - 21;
constexpr UINT LVN_MARQUEEBEGIN = LVN_FIRST - 56;
constexpr UINT LVN_BEGINLABELEDITW = LVN_FIRST - 75;
constexpr UINT LVN_ENDLABELEDITW = LVN_FIRST - 76;
constexpr UINT LVN_GETDISPINFOW = LVN_FIRST - 77;
constexpr UINT LVN_SETDISPINFOW = LVN_FIRST - 78;
constexpr UINT LVN_ODFINDITEMW = LVN_FIRST - 79;
constexpr UINT LVN_KEYDOWN = LVN_FIRST - 55;
constexpr UINT LVN_BEGINLABELEDIT = LVN_BEGINLABELEDITW;
constexpr UINT LVN_ENDLABELEDIT = LVN_ENDLABELEDITW;
constexpr UINT LVN_GETDISPINFO = LVN_GETDISPINFOW;
constexpr UINT LVN_SETDISPINFO = LVN_SETDISPINFOW;
constexpr UINT LVN_ODFINDITEM = LVN_ODFINDITEMW;

// LVN_ITEMCHANGING/CHANGED, INSERTITEM, DELETEITEM, COLUMNCLICK, BEGINDRAG.
struct NMLISTVIEW {
  NMHDR hdr;
  int iItem = -1;
  int iSubItem = 0;
  UINT uNewState = 0;
  UINT uOldState = 0;
  UINT uChanged = 0;  // LVIF_STATE, LVIF_PARAM...
  POINT ptAction{};
  LPARAM lParam = 0;
};

// Mouse modifier flags of NMITEMACTIVATE::uKeyFlags.
constexpr UINT LVKF_ALT = 0x0001;
constexpr UINT LVKF_CONTROL = 0x0002;
constexpr UINT LVKF_SHIFT = 0x0004;

// NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK, LVN_ITEMACTIVATE.
struct NMITEMACTIVATE {
  NMHDR hdr;
  int iItem = -1;
  int iSubItem = 0;
  UINT uNewState = 0;
  UINT uOldState = 0;
  UINT uChanged = 0;
  POINT ptAction{};
  LPARAM lParam = 0;
  UINT uKeyFlags = 0;
};

// LVN_GETDISPINFO, LVN_SETDISPINFO, LVN_BEGINLABELEDIT, LVN_ENDLABELEDIT.
struct NMLVDISPINFOW {
  NMHDR hdr;
  LVITEMW item;
};

// LVN_KEYDOWN: the Windows virtual-key code (VK_*).
struct NMLVKEYDOWN {
  NMHDR hdr;
  WORD wVKey = 0;
  UINT flags = 0;
};

// LVN_ODFINDITEM: type-ahead on an owner-data list; the result is the row.
struct NMLVFINDITEMW {
  NMHDR hdr;
  int iStart = 0;
  LVFINDINFOW lvfi;
};

// LVN_ODSTATECHANGED: a range of an owner-data list changed state at once.
struct NMLVODSTATECHANGE {
  NMHDR hdr;
  int iFrom = 0;
  int iTo = 0;
  UINT uNewState = 0;
  UINT uOldState = 0;
};

// LVN_ODCACHEHINT: the rows about to be painted.
struct NMLVCACHEHINT {
  NMHDR hdr;
  int iFrom = 0;
  int iTo = 0;
};

// NM_CUSTOMDRAW of a list: the colours an item or sub-item is drawn in.
struct NMLVCUSTOMDRAW {
  NMCUSTOMDRAW nmcd;
  COLORREF clrText = 0;
  COLORREF clrTextBk = 0;
  int iSubItem = 0;
};

// The colour that means "none" (SetBkColor, SetTextBkColor).
constexpr COLORREF CLR_NONE = 0xFFFFFFFF;
constexpr COLORREF CLR_DEFAULT = 0xFF000000;
