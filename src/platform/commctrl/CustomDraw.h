#pragma once
// NM_CUSTOMDRAW: a control asks its owner, stage by stage, whether it wants
// to draw or change the colours and font of the whole control, an item or a
// sub-item. The answers (CDRF_*) say which further stages to ask about and
// whether to skip the control's own drawing. The device context is the
// control's paint DC (wxDC here, where Windows passed an HDC).

#include "platform/WinGdi.h"
#include "platform/WinGeometry.h"
#include "platform/commctrl/NotifyEvent.h"

class wxDC;
using HDC = wxDC *;

// Draw stages.
constexpr DWORD CDDS_PREPAINT = 0x00000001;
constexpr DWORD CDDS_POSTPAINT = 0x00000002;
constexpr DWORD CDDS_PREERASE = 0x00000003;
constexpr DWORD CDDS_POSTERASE = 0x00000004;
constexpr DWORD CDDS_ITEM = 0x00010000;
constexpr DWORD CDDS_ITEMPREPAINT = CDDS_ITEM | CDDS_PREPAINT;
constexpr DWORD CDDS_ITEMPOSTPAINT = CDDS_ITEM | CDDS_POSTPAINT;
constexpr DWORD CDDS_ITEMPREERASE = CDDS_ITEM | CDDS_PREERASE;
constexpr DWORD CDDS_ITEMPOSTERASE = CDDS_ITEM | CDDS_POSTERASE;
constexpr DWORD CDDS_SUBITEM = 0x00020000;

// Answers.
constexpr LRESULT CDRF_DODEFAULT = 0x00000000;
constexpr LRESULT CDRF_NEWFONT = 0x00000002;
constexpr LRESULT CDRF_SKIPDEFAULT = 0x00000004;
constexpr LRESULT CDRF_DOERASE = 0x00000008;
constexpr LRESULT CDRF_SKIPPOSTPAINT = 0x00000100;
constexpr LRESULT CDRF_NOTIFYPOSTPAINT = 0x00000010;
constexpr LRESULT CDRF_NOTIFYITEMDRAW = 0x00000020;
constexpr LRESULT CDRF_NOTIFYSUBITEMDRAW = 0x00000020;
constexpr LRESULT CDRF_NOTIFYPOSTERASE = 0x00000040;

// Item states.
constexpr UINT CDIS_SELECTED = 0x0001;
constexpr UINT CDIS_GRAYED = 0x0002;
constexpr UINT CDIS_DISABLED = 0x0004;
constexpr UINT CDIS_CHECKED = 0x0008;
constexpr UINT CDIS_FOCUS = 0x0010;
constexpr UINT CDIS_DEFAULT = 0x0020;
constexpr UINT CDIS_HOT = 0x0040;
constexpr UINT CDIS_MARKED = 0x0080;
constexpr UINT CDIS_INDETERMINATE = 0x0100;
constexpr UINT CDIS_SHOWKEYBOARDCUES = 0x0200;
constexpr UINT CDIS_NEARHOT = 0x0400;
constexpr UINT CDIS_OTHERSIDEHOT = 0x0800;
constexpr UINT CDIS_DROPHILITED = 0x1000;

struct NMCUSTOMDRAW {
  NMHDR hdr;
  DWORD dwDrawStage = 0;
  HDC hdc = nullptr;
  RECT rc{};
  DWORD_PTR dwItemSpec = 0;  // the item's index or handle
  UINT uItemState = 0;
  LPARAM lItemlParam = 0;
};
