#pragma once
// CTreeCtrl: the platform's tree view, drawn with wx on a node model.
//
// Items live in a node store: each node links to its parent, first and last
// child and next and previous sibling, so every step of a walk is O(1), and
// every walk is a loop (a chain of 100,000 levels is fine). Painting visits
// only the rows in the window. The control speaks the Windows vocabulary:
// TVS_* styles, TVIS_* states, TVGN_* walks, TVHT_* hits, and TVN_*/NM_*
// notifications through SendNotify (seen by the control, then its parent),
// NM_CUSTOMDRAW stages included.
//
// The input handlers are virtual and named as the window messages: a class
// built on the tree overrides one and calls CTreeCtrl's to run the tree's
// default handling (a left press selects, may start label editing, and runs
// the drag detection loop that sends TVN_BEGINDRAG before it returns).

#include <wx/imaglist.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <map>
#include <memory>
#include <vector>

#include "platform/commctrl/TreeViewTypes.h"
#include "platform/commctrl/VirtualKeys.h"

class wxTextCtrl;

class CTreeCtrl : public wxWindow {
public:
  CTreeCtrl();
  CTreeCtrl(wxWindow * parent, wxWindowID id,
            DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
            wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);
  ~CTreeCtrl() override;
  CTreeCtrl(CTreeCtrl const &) = delete;
  CTreeCtrl & operator=(CTreeCtrl const &) = delete;

  bool Create(wxWindow * parent, wxWindowID id,
              DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
              wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);

  // The TVS_* style bits.
  DWORD GetStyle() const { return mStyle; }
  void ModifyStyle(DWORD remove, DWORD add);

  // Inserting and deleting.
  HTREEITEM InsertItem(TVINSERTSTRUCTW const * insert);
  HTREEITEM InsertItem(UINT mask, wxString const & text, int image, int selectedImage, UINT state,
                       UINT stateMask, LPARAM data, HTREEITEM parent, HTREEITEM insertAfter);
  HTREEITEM InsertItem(wxString const & text, HTREEITEM parent = TVI_ROOT,
                       HTREEITEM insertAfter = TVI_LAST);
  HTREEITEM InsertItem(wxString const & text, int image, int selectedImage,
                       HTREEITEM parent = TVI_ROOT, HTREEITEM insertAfter = TVI_LAST);
  // Deletes the item and its branch, sending TVN_DELETEITEM for each item.
  BOOL DeleteItem(HTREEITEM item);
  BOOL DeleteAllItems();

  // Item fields.
  BOOL GetItem(TVITEMW * item) const;
  BOOL SetItem(TVITEMW const * item);
  wxString GetItemText(HTREEITEM item) const;
  BOOL SetItemText(HTREEITEM item, wxString const & text);
  BOOL GetItemImage(HTREEITEM item, int & image, int & selectedImage) const;
  BOOL SetItemImage(HTREEITEM item, int image, int selectedImage);
  UINT GetItemState(HTREEITEM item, UINT stateMask) const;
  BOOL SetItemState(HTREEITEM item, UINT state, UINT stateMask);
  DWORD_PTR GetItemData(HTREEITEM item) const;
  BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
  // Whether the item shows a button: its children, or what TVIF_CHILDREN set.
  BOOL ItemHasChildren(HTREEITEM item) const;
  // The two-state check box of TVS_CHECKBOXES: state image 2 is checked.
  BOOL GetCheck(HTREEITEM item) const;
  BOOL SetCheck(HTREEITEM item, BOOL check = 1);
  // True while the handle names an item of this tree.
  bool IsValidItem(HTREEITEM item) const;

  // Walking.
  HTREEITEM GetNextItem(HTREEITEM item, UINT code) const;
  HTREEITEM GetRootItem() const;
  HTREEITEM GetChildItem(HTREEITEM item) const;
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;
  HTREEITEM GetParentItem(HTREEITEM item) const;
  HTREEITEM GetFirstVisibleItem() const;
  HTREEITEM GetNextVisibleItem(HTREEITEM item) const;
  HTREEITEM GetPrevVisibleItem(HTREEITEM item) const;
  HTREEITEM GetLastVisibleItem() const;
  HTREEITEM GetSelectedItem() const;
  HTREEITEM GetDropHilightItem() const;
  UINT GetCount() const;
  // The number of whole rows the window shows.
  UINT GetVisibleCount() const;

  // Selecting: TVGN_CARET (with TVN_SELCHANGING/ED), TVGN_DROPHILITE,
  // TVGN_FIRSTVISIBLE.
  BOOL Select(HTREEITEM item, UINT code);
  BOOL SelectItem(HTREEITEM item);
  BOOL SelectDropTarget(HTREEITEM item);
  BOOL SelectSetFirstVisible(HTREEITEM item);

  // Expanding: TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE, with TVE_COLLAPSERESET.
  BOOL Expand(HTREEITEM item, UINT code);
  BOOL EnsureVisible(HTREEITEM item);

  // Geometry, in client coordinates.
  BOOL GetItemRect(HTREEITEM item, RECT * rect, BOOL textOnly) const;
  HTREEITEM HitTest(POINT point, UINT * flags = nullptr) const;
  HTREEITEM HitTest(TVHITTESTINFO * info) const;
  UINT GetIndent() const { return mIndent; }
  void SetIndent(UINT indent);
  short GetItemHeight() const;
  // -1 returns to the height from the font and images.
  short SetItemHeight(short height);
  int GetScrollPos(int bar) const;
  // The viewport origin in x, added to every row's place in painting, hit
  // tests and rectangles: a frame that scrolls the rows sideways itself
  // (0 or negative) keeps the tree's own horizontal range out of it.
  void SetHorizontalOrigin(int x);
  int GetHorizontalOrigin() const;

  // Images.
  wxImageList * GetImageList(int which) const;
  wxImageList * SetImageList(wxImageList * images, int which);  // not owned; returns the old one
  // A picture of the item's icon and text, as a drag shows it; the caller
  // owns it.
  wxImageList * CreateDragImage(HTREEITEM item);

  // Colours; CLR_DEFAULT (0xFF000000) returns to the system colours.
  COLORREF GetBkColor() const { return mBkColor; }
  COLORREF SetBkColor(COLORREF color);
  COLORREF GetTextColor() const { return mTextColor; }
  COLORREF SetTextColor(COLORREF color);
  COLORREF GetLineColor() const { return mLineColor; }
  COLORREF SetLineColor(COLORREF color);
  COLORREF GetInsertMarkColor() const { return mInsertMarkColor; }
  COLORREF SetInsertMarkColor(COLORREF color);

  // A line before or after the item; a null item removes it.
  BOOL SetInsertMark(HTREEITEM item, BOOL after = 1);
  HTREEITEM GetInsertMark(BOOL * after = nullptr) const;

  // Label editing (TVS_EDITLABELS or a direct call).
  wxTextCtrl * EditLabel(HTREEITEM item);
  wxTextCtrl * GetEditControl() const { return mEdit; }
  BOOL EndEditLabelNow(BOOL cancel);

  // Sorting the direct children of an item (TVI_ROOT for the roots); the
  // sort is stable.
  BOOL SortChildren(HTREEITEM item);
  BOOL SortChildrenCB(TVSORTCB const * sort);
  // Puts the children of `item` (TVI_ROOT for the roots) in the order
  // given, for a tree that sorts them itself; 0, and nothing moves, unless
  // `order` holds every child once.
  BOOL SetChildOrder(HTREEITEM item, std::vector<HTREEITEM> const & order);

  // WM_SETREDRAW: off, changes do not repaint until it is on again.
  void SetRedraw(BOOL redraw);
  // Repaints the whole window at the next paint (unless redraw is off).
  void Invalidate(BOOL erase = 1);
  void Refresh(bool eraseBackground = true, wxRect const * rect = nullptr) override;

  // Window timers by id, delivered to OnTimer (tests call OnTimer).
  void SetTimer(UINT_PTR id, UINT milliseconds);
  void KillTimer(UINT_PTR id);

  // Paints the rows under `clip` (client coordinates) into `dc`, with the
  // custom-draw stages; the default OnPaint does this on the window.
  void PaintTo(wxDC & dc, wxRect const & clip);

  static constexpr COLORREF CLR_DEFAULT = 0xFF000000;
  static constexpr COLORREF CLR_NONE = 0xFFFFFFFF;

  // The timers the tree uses itself.
  static constexpr UINT_PTR TypeAheadTimer = 0x7F01;
  static constexpr UINT_PTR EditLabelTimer = 0x7F02;

protected:
  // The message handlers with their default handling. Points are client
  // coordinates; flags are MK_*.
  virtual void OnLButtonDown(UINT flags, POINT point);
  virtual void OnLButtonUp(UINT flags, POINT point);
  virtual void OnLButtonDblClk(UINT flags, POINT point);
  virtual void OnRButtonDown(UINT flags, POINT point);
  virtual void OnRButtonUp(UINT flags, POINT point);
  virtual void OnMouseMove(UINT flags, POINT point);
  virtual void OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags);
  virtual void OnKeyUp(UINT virtualKey, UINT repeatCount, UINT flags);
  virtual void OnChar(UINT character, UINT repeatCount, UINT flags);
  virtual void OnSetFocus();
  virtual void OnKillFocus();
  virtual void OnTimer(UINT_PTR id);
  virtual void OnHScroll(UINT code, UINT position);
  virtual void OnVScroll(UINT code, UINT position);
  // WM_PAINT: the default paints the visible rows into a buffer and shows it.
  virtual void OnPaint(wxDC & dc, wxRect const & clip);
  // True when a derived tree wipes and draws this item's label itself after
  // the rows: the default label is then left out rather than drawn to be
  // wiped, which costs a text layout a row.
  virtual bool PaintsOwnLabel(HTREEITEM /*item*/) const { return false; }
  // Called for each painted row after the lines and buttons, so that a
  // derived tree paints over them; `label` is the label's rectangle.
  virtual void PaintRow(wxDC & /*dc*/, HTREEITEM /*item*/, RECT const & /*label*/) {}
  // DragDetect: a captured loop until the button is released (false) or the
  // pointer leaves the drag rectangle around `point` (true).
  virtual bool DragDetect(POINT point);

public:
  struct Impl;  // the node store and the view's state, opaque outside the tree

private:
  void SingleExpand(uint32_t old, uint32_t now);
  // wxEVT_PAINT: draws what changed into the kept pixels and shows them.
  void PaintKept();

  std::unique_ptr<Impl> mImpl;

  DWORD mStyle = 0;
  UINT mIndent = 19;
  COLORREF mBkColor = CLR_DEFAULT;
  COLORREF mTextColor = CLR_DEFAULT;
  COLORREF mLineColor = CLR_DEFAULT;
  COLORREF mInsertMarkColor = CLR_DEFAULT;
  wxTextCtrl * mEdit = nullptr;
};
