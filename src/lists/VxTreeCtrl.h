#pragma once
// VxTreeCtrl: the family's tree. On the platform tree (one selected item,
// two-state boxes) it adds multi-selection in three modes, check boxes with
// partial states kept consistent up and down the tree, drag and drop that
// moves or (with Ctrl) copies a branch, colours and fonts of single items, a
// tiled background picture, search, and a plain-text form (TreeText.h).
// Derived trees steer it through the virtual hooks.
//
// Every walk is a loop over the tree's O(1) links: no recursion, so a chain
// of 100,000 levels is fine.

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>

#include <wx/bitmap.h>
#include <wx/cursor.h>
#include <wx/imaglist.h>

#include "lists/ItemFontCache.h"
#include "platform/WinGdi.h"
#include "platform/commctrl/CTreeCtrl.h"

class TreeDragImageWindow;

class VxTreeCtrl : public CTreeCtrl {
public:
  enum SelectionState { SingleSelection = 0, MultipleSelection = 1, LeafPerParentSelection = 2 };
  // What SetCheck does.
  enum CheckType { RemoveCheck = 0, Check = 1, Uncheck = 2, ToggleCheck = 3, DisableCheck = 4 };
  // The state image of an item: its check box.
  enum CheckState {
    NoCheckBox = 0,
    Unchecked = 1,
    Checked = 2,
    SomeChildrenChecked = 3,
    AllChildrenCheckedState = 4,
    CheckDisabled = 5
  };

  static constexpr UINT kStateImageBitmap = 13007;
  static constexpr UINT kCopyCursor = 13045;
  static constexpr UINT_PTR kHoverTimer = 2;
  static constexpr UINT kHoverDelay = 750;
  static constexpr COLORREF kDefaultColor = 0xFFFFFFFF;

  struct ItemDisplayInfo {
    COLORREF color = kDefaultColor;
    LOGFONTW font{};  // an empty face name: the control's font
  };

  VxTreeCtrl();
  VxTreeCtrl(wxWindow * parent, wxWindowID id,
             DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
             wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);
  ~VxTreeCtrl() override;

  bool Create(wxWindow * parent, wxWindowID id,
              DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
              wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);

  // --- Walking, in display order whether expanded or not -----------------
  using CTreeCtrl::GetNextItem;
  HTREEITEM GetNextItem(HTREEITEM item) const;
  HTREEITEM GetPrevItem(HTREEITEM item) const;
  // The deepest last descendant; from the last root item for null.
  HTREEITEM GetLastItem(HTREEITEM item) const;
  int GetIndentLevel(HTREEITEM item) const;
  // Direct children; with null, every item of the tree.
  int GetNumChildren(HTREEITEM item) const;

  // --- Selection ---------------------------------------------------------
  int GetSelectedItemCount() const;
  virtual HTREEITEM GetFirstSelectedItem() const;
  virtual HTREEITEM GetNextSelectedItem(HTREEITEM item) const;
  virtual HTREEITEM GetPrevSelectedItem(HTREEITEM item) const;
  virtual void ClearSelection();
  virtual void EnableMultiSelect(bool enable);
  virtual void SetSelectionState(SelectionState state);
  virtual SelectionState GetSelectionState() const { return mSelectionState; }
  virtual void EnableDelete(bool enable) { mDeleteEnabled = enable; }
  // Selects the visible items from first to last (either order) and clears
  // the others; MultipleSelection only. 1 when done.
  virtual BOOL SelectItems(HTREEITEM first, HTREEITEM last);
  HTREEITEM GetSelectionAnchor() const { return mAnchor; }

  // --- Check boxes -------------------------------------------------------
  // Does something only with TVS_CHECKBOXES: the state images.
  virtual void SetStateImageList();
  BOOL SetCheck(HTREEITEM item, CheckType type);
  // True for images 2, 3 and 4.
  bool GetCheck(HTREEITEM item) const;
  UINT GetCheckImage(HTREEITEM item) const;
  bool AllChildrenChecked(HTREEITEM item, bool checked) const;
  void CheckAllChildItems(HTREEITEM item, CheckState state);
  HTREEITEM GetFirstCheckedItem() const;
  HTREEITEM GetNextCheckedItem(HTREEITEM item) const;
  // Unlike the forward walk, this one also stops at partly checked items.
  HTREEITEM GetPrevCheckedItem(HTREEITEM item) const;

  // --- Expansion ---------------------------------------------------------
  void ExpandBranch(HTREEITEM item, UINT code);
  void ExpandAll(UINT code);

  // --- Items -------------------------------------------------------------
  HTREEITEM CopyItem(HTREEITEM item, HTREEITEM parent, HTREEITEM insertAfter = TVI_LAST);
  HTREEITEM CopyBranch(HTREEITEM item, HTREEITEM parent, HTREEITEM insertAfter = TVI_LAST);
  // Asks (when `ask`) and deletes the selected items: their data first, then
  // the items.
  virtual void DeleteSelectedItems(bool ask);
  virtual void DeleteItemData(HTREEITEM /*item*/) {}
  virtual void SetItemFont(HTREEITEM item, LOGFONTW const & font);
  virtual void SetItemBold(HTREEITEM item, int bold);
  virtual void SetItemColor(HTREEITEM item, COLORREF color);
  virtual BOOL GetItemFont(HTREEITEM item, LOGFONTW * font) const;
  virtual BOOL GetItemBold(HTREEITEM item) const;
  virtual COLORREF GetItemColor(HTREEITEM item) const;
  bool HasDisplayInfo(HTREEITEM item) const { return mDisplay.count(item) != 0; }
  // Ctrl+C: the tree writes nothing itself, it tells the callback.
  void SetUserHasCopiedDataCallBack(std::function<void()> callback) {
    mCopiedCallback = std::move(callback);
  }
  void CopySelection();

  // --- Search and text form ---------------------------------------------
  // From `start` (default: the caret), wrapping at both ends; null after one
  // round. Without `caseSensitive` each code point is case folded.
  virtual HTREEITEM FindItem(wchar_t const * text, bool caseSensitive, bool down, bool wholeWord,
                             HTREEITEM start = TVI_NULL);
  // Writes every item (TreeText.h); appends the items of the text.
  virtual void Serialize(std::ostream & out);
  virtual void Serialize(std::istream & in);

  // --- Background picture -----------------------------------------------
  // The PNG of that name (a file) or resource number; 0, and no picture at
  // all, when it cannot be loaded.
  BOOL SetBkImage(wchar_t const * name);
  BOOL SetBkImage(UINT resourceId);
  BOOL SetBkImage(wxBitmap const & bitmap);
  bool HasBkImage() const { return mBkImage.IsOk(); }

  // --- Drag and drop -----------------------------------------------------
  bool IsDragging() const { return mDragging; }
  HTREEITEM GetDragItem() const { return mDragItem; }
  HTREEITEM GetCurrentDropTarget() const { return mDropTarget; }
  // The cursor the drag shows now: copy, move or no-drop.
  enum class DragCursor { None, Move, Copy, NoDrop };
  DragCursor GetDragCursor() const { return mDragCursor; }
  virtual void UpdateDropTarget(POINT point);
  wxImageList * CreateDragImageEx(HTREEITEM item);
  void CancelDrag();

  // --- Hooks ---------------------------------------------------------------
  virtual void OnItemCopied(HTREEITEM /*source*/, HTREEITEM /*copy*/) {}
  virtual bool IsFindValid(HTREEITEM /*item*/) { return true; }
  virtual bool IsDropSource(HTREEITEM /*item*/) { return true; }
  // Null refuses; `asChild` true drops into the target, else after it.
  virtual HTREEITEM GetDropTarget(HTREEITEM item, bool & asChild);
  virtual void OnSelectionChanged() {}

  // The handlers, public so that tests can drive a timer.
  void OnTimer(UINT_PTR id) override;

protected:
  void OnLButtonDown(UINT flags, POINT point) override;
  void OnLButtonUp(UINT flags, POINT point) override;
  void OnRButtonDown(UINT flags, POINT point) override;
  void OnMouseMove(UINT flags, POINT point) override;
  void OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags) override;
  void OnKeyUp(UINT virtualKey, UINT repeatCount, UINT flags) override;
  void OnKillFocus() override;
  void OnHScroll(UINT code, UINT position) override;
  void OnVScroll(UINT code, UINT position) override;
  void OnPaint(wxDC & dc, wxRect const & clip) override;
  bool PaintsOwnLabel(HTREEITEM item) const override;

private:
  void Init();
  void OnNotifyReflect(NotifyEvent & event);
  void BeginDrag(NMTREEVIEWW const & info);
  void EndDrag();
  void SetDropTargetFromHit(HTREEITEM hit, bool hitNowhere);
  void RefreshDragCursor();
  void MoveDragImage(POINT client);
  void SetCheckImage(HTREEITEM item, UINT image);
  void PropagateCheckUp(HTREEITEM item, bool checked);
  void DrawItemTexts(wxDC & dc);
  void DrawBackground(wxDC & dc, wxBitmap const & picture, wxRect const & clip);
  bool IsOnItem(UINT hitFlags) const { return (hitFlags & TVHT_ONITEM) != 0; }
  bool IsSelected(HTREEITEM item) const { return GetItemState(item, TVIS_SELECTED) != 0; }
  void SetSelected(HTREEITEM item, bool selected);
  void DeleteAllDisplayInfo();

  std::function<void()> mCopiedCallback;
  std::map<HTREEITEM, ItemDisplayInfo> mDisplay;
  ItemFontCache mFontCache;
  std::unique_ptr<wxImageList> mStateImages;
  std::unique_ptr<wxImageList> mDragImage;
  TreeDragImageWindow * mDragWindow = nullptr;
  wxPoint mDragHotSpot;
  bool mDragging = false;
  HTREEITEM mDragItem{};
  HTREEITEM mDropTarget{};
  DragCursor mDragCursor = DragCursor::None;
  wxCursor mMoveCursor;
  wxCursor mCopyCursor;
  wxCursor mNoDropCursor;
  UINT_PTR mHoverTimer = 0;
  POINT mHoverPoint{};
  HTREEITEM mAnchor{};
  SelectionState mSelectionState = SingleSelection;
  bool mDeleteEnabled = false;
  wxBitmap mBkImage;
};
