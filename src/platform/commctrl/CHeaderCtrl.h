#pragma once
// The header control: a row of column headings that the user clicks and
// whose dividers the user drags. Every change of an item passes
// HDN_ITEMCHANGING (refusable; the handler may change the values, e.g. clamp
// a width) and HDN_ITEMCHANGED. A divider drag sends HDN_BEGINTRACK
// (refusable), HDN_TRACK at each move (refusable: the drag ends), the item
// change, and HDN_ENDTRACK, whose handler may still change the final width.
// With HDS_DRAGDROP a heading dragged sideways moves to another position:
// HDN_BEGINDRAG and HDN_ENDDRAG (pitem->iOrder the new position) may refuse.
// Notifications go through SendNotify: the header first, then its parent.

#include <wx/bitmap.h>
#include <wx/window.h>

#include <vector>

#include "platform/WinGdi.h"
#include "platform/commctrl/HeaderDefs.h"

class CHeaderCtrl : public wxWindow {
public:
  CHeaderCtrl() = default;
  CHeaderCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, DWORD headerStyle = HDS_BUTTONS | HDS_FULLDRAG);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, DWORD headerStyle = HDS_BUTTONS | HDS_FULLDRAG);
  ~CHeaderCtrl() override;

  DWORD GetHeaderStyle() const { return mStyle; }
  void ModifyHeaderStyle(DWORD remove, DWORD add);

  // Items. InsertItem returns the new index or -1; the item's order is its
  // index unless HDI_ORDER says otherwise.
  int GetItemCount() const { return static_cast<int>(mItems.size()); }
  int InsertItem(int index, HDITEMW const * item);
  bool DeleteItem(int index);
  // Text is copied into pszText up to cchTextMax - 1 characters.
  bool GetItem(int index, HDITEMW * item) const;
  // Passes HDN_ITEMCHANGING (false when refused) and HDN_ITEMCHANGED.
  bool SetItem(int index, HDITEMW const * item);
  // Convenience accessors of the same fields, without notifications.
  wxString GetItemText(int index) const;
  int GetItemWidth(int index) const;
  int GetItemFormat(int index) const;

  // Display order: order[position] is the item index there.
  bool GetOrderArray(int * order, int count) const;
  bool SetOrderArray(int count, int const * order);
  int OrderToIndex(int order) const;
  std::vector<int> const & GetOrder() const { return mOrder; }

  // Item rectangle in the header's client coordinates (scroll offset applied).
  bool GetItemRect(int index, RECT * rect) const;
  int HitTest(HDHITTESTINFO * info) const;

  // Horizontal scroll offset of the headings (the list scrolls its columns).
  void SetScrollOffset(int offset);
  int GetScrollOffset() const { return mScrollOffset; }

  // The height the header wants for its font.
  int GetIdealHeight() const;

  // Owner-drawn items (HDF_OWNERDRAW): `state` is ODS_SELECTED while pressed.
  // The default draws nothing but the face.
  virtual void DrawItem(wxDC & dc, int index, RECT const & rect, UINT state);

  // Index of the pressed item while the button is down on it, else -1.
  int GetPressedItem() const { return mPressed; }
  // Index of the heading being dragged to another place (HDS_DRAGDROP), else -1.
  int GetDraggedItem() const { return mDragging; }
  // Index of the divider being dragged, else -1.
  int GetTrackingItem() const { return mTracking; }

  // Half-width in pixels of the zone around a divider that grabs it.
  static constexpr int DividerGrip = 4;

protected:
  virtual void OnPaint(wxPaintEvent & event);
  virtual void OnLeftDown(wxMouseEvent & event);
  virtual void OnLeftUp(wxMouseEvent & event);
  virtual void OnLeftDClick(wxMouseEvent & event);
  virtual void OnRightUp(wxMouseEvent & event);
  virtual void OnMotion(wxMouseEvent & event);
  virtual void OnCaptureLost(wxMouseCaptureLostEvent & event);
  // Paints all items, then the part right of the last one.
  void PaintHeader(wxDC & dc);

private:
  struct Item {
    int width = 0;
    int format = HDF_LEFT | HDF_STRING;
    wxString text;
    wxBitmap bitmap;
    LPARAM lParam = 0;
    int image = -1;
  };

  void Read(int index, HDITEMW & item) const;
  void Write(Item & target, HDITEMW const & source);
  LRESULT Notify(UINT code, int index, HDITEMW * item, int button = 0);
  void DrawDefaultItem(wxDC & dc, int index, RECT const & rect, bool pressed);
  // The item whose right divider lies within DividerGrip of x, or -1.
  int DividerAt(int x) const;
  void EndTracking(bool notify);
  // The display position a heading dropped at x takes (0..count).
  int DropPositionAt(int x) const;

  DWORD mStyle = HDS_BUTTONS | HDS_FULLDRAG;
  std::vector<Item> mItems;
  std::vector<int> mOrder;  // position -> index
  int mScrollOffset = 0;
  int mPressed = -1;
  bool mPressedInside = false;
  int mPressX = 0;
  int mDragging = -1;
  int mDropPosition = 0;
  int mTracking = -1;
  int mTrackStartX = 0;
  int mTrackStartWidth = 0;

  wxDECLARE_DYNAMIC_CLASS_NO_COPY(CHeaderCtrl);
  wxDECLARE_EVENT_TABLE();
};
