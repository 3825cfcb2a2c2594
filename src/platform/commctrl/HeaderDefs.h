#pragma once
// The header control's vocabulary with Windows' values: styles, the item
// description, hit-test flags and the HDN_ notifications.

#include "platform/WinGeometry.h"
#include "platform/commctrl/NotifyEvent.h"

class wxBitmap;

// Window styles.
constexpr DWORD HDS_HORZ = 0x0000;
constexpr DWORD HDS_BUTTONS = 0x0002;
constexpr DWORD HDS_HOTTRACK = 0x0004;
constexpr DWORD HDS_HIDDEN = 0x0008;
constexpr DWORD HDS_DRAGDROP = 0x0040;
constexpr DWORD HDS_FULLDRAG = 0x0080;
constexpr DWORD HDS_FLAT = 0x0200;

// Item fields (HDITEMW::mask).
constexpr UINT HDI_WIDTH = 0x0001;
constexpr UINT HDI_HEIGHT = HDI_WIDTH;
constexpr UINT HDI_TEXT = 0x0002;
constexpr UINT HDI_FORMAT = 0x0004;
constexpr UINT HDI_LPARAM = 0x0008;
constexpr UINT HDI_BITMAP = 0x0010;
constexpr UINT HDI_IMAGE = 0x0020;
constexpr UINT HDI_ORDER = 0x0080;

// Formats.
constexpr int HDF_LEFT = 0x0000;
constexpr int HDF_RIGHT = 0x0001;
constexpr int HDF_CENTER = 0x0002;
constexpr int HDF_JUSTIFYMASK = 0x0003;
constexpr int HDF_IMAGE = 0x0800;
constexpr int HDF_SORTDOWN = 0x0200;
constexpr int HDF_SORTUP = 0x0400;
constexpr int HDF_BITMAP_ON_RIGHT = 0x1000;
constexpr int HDF_BITMAP = 0x2000;
constexpr int HDF_STRING = 0x4000;
constexpr int HDF_OWNERDRAW = 0x8000;

struct HDITEMW {
  UINT mask = 0;
  int cxy = 0;
  wchar_t * pszText = nullptr;
  wxBitmap const * hbm = nullptr;  // HDF_BITMAP: drawn beside or instead of the text
  int cchTextMax = 0;
  int fmt = 0;
  LPARAM lParam = 0;
  int iImage = 0;
  int iOrder = 0;
};

// Hit tests.
constexpr UINT HHT_NOWHERE = 0x0001;
constexpr UINT HHT_ONHEADER = 0x0002;
constexpr UINT HHT_ONDIVIDER = 0x0004;
constexpr UINT HHT_ONDIVOPEN = 0x0008;
constexpr UINT HHT_ABOVE = 0x0100;
constexpr UINT HHT_BELOW = 0x0200;
constexpr UINT HHT_TORIGHT = 0x0400;
constexpr UINT HHT_TOLEFT = 0x0800;

struct HDHITTESTINFO {
  POINT pt{};
  UINT flags = 0;
  int iItem = -1;
};

// Notifications (the wide forms; the narrow codes exist for handlers that
// name them, the header sends the wide ones only).
constexpr UINT HDN_ITEMCHANGINGA = HDN_FIRST - 0;
constexpr UINT HDN_ITEMCHANGEDA = HDN_FIRST - 1;
constexpr UINT HDN_ITEMCLICKA = HDN_FIRST - 2;
constexpr UINT HDN_ITEMDBLCLICKA = HDN_FIRST - 3;
constexpr UINT HDN_DIVIDERDBLCLICKA = HDN_FIRST - 5;
constexpr UINT HDN_BEGINTRACKA = HDN_FIRST - 6;
constexpr UINT HDN_ENDTRACKA = HDN_FIRST - 7;
constexpr UINT HDN_TRACKA = HDN_FIRST - 8;
constexpr UINT HDN_ITEMCHANGINGW = HDN_FIRST - 20;
constexpr UINT HDN_ITEMCHANGEDW = HDN_FIRST - 21;
constexpr UINT HDN_ITEMCLICKW = HDN_FIRST - 22;
constexpr UINT HDN_ITEMDBLCLICKW = HDN_FIRST - 23;
constexpr UINT HDN_DIVIDERDBLCLICKW = HDN_FIRST - 25;
constexpr UINT HDN_BEGINTRACKW = HDN_FIRST - 26;
constexpr UINT HDN_ENDTRACKW = HDN_FIRST - 27;
constexpr UINT HDN_TRACKW = HDN_FIRST - 28;
constexpr UINT HDN_BEGINDRAG = HDN_FIRST - 10;
constexpr UINT HDN_ENDDRAG = HDN_FIRST - 11;
constexpr UINT HDN_ITEMCHANGING = HDN_ITEMCHANGINGW;
constexpr UINT HDN_ITEMCHANGED = HDN_ITEMCHANGEDW;
constexpr UINT HDN_ITEMCLICK = HDN_ITEMCLICKW;
constexpr UINT HDN_ITEMDBLCLICK = HDN_ITEMDBLCLICKW;
constexpr UINT HDN_DIVIDERDBLCLICK = HDN_DIVIDERDBLCLICKW;
constexpr UINT HDN_BEGINTRACK = HDN_BEGINTRACKW;
constexpr UINT HDN_ENDTRACK = HDN_ENDTRACKW;
constexpr UINT HDN_TRACK = HDN_TRACKW;

// Every HDN_ notification. A handler may change pitem (a width during a
// drag: the header takes the changed value) or refuse by a nonzero result
// (HDN_BEGINTRACK, HDN_TRACK, HDN_ITEMCHANGING, HDN_DIVIDERDBLCLICK).
// iButton: 0 left, 1 right, 2 middle.
struct NMHEADERW {
  NMHDR hdr;
  int iItem = -1;
  int iButton = 0;
  HDITEMW * pitem = nullptr;
};
using NMHEADER = NMHEADERW;

// Owner-drawn items (HDF_OWNERDRAW) are painted by DrawItem with these.
constexpr UINT ODS_SELECTED = 0x0001;  // the item is pressed
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_HOTLIGHT = 0x0040;
