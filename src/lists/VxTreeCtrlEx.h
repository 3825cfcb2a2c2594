#pragma once
// VxTreeCtrlEx: the tree half of the tree list, a tree with columns. The
// tree's own labels stay empty; each item carries an ItemData record with
// all its column texts, and the rows are painted over the tree's lines,
// buttons and icons, one cell a column, at the horizontal offset that the
// frame's sideways scroll bar sets. The columns are the items of a
// CNewHeaderCtrl that the frame makes and hands over.
//
// The frame (a TreeListHost) is the tree's parent: inserts, deletes and
// expansion ask it to fit its scroll bar. A tree without such a parent
// works too, without the bar.
//
// Texts holding U+00B6 (the column divider) are refused with an Exception
// and change nothing. Null, deleted and special handles (TVI_ROOT) and bad
// column or root indexes give empty, false, null or -1.

#include <wx/font.h>
#include <wx/imaglist.h>
#include <wx/string.h>
#include <wx/weakref.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "lists/CNewHeaderCtrl.h"
#include "lists/VxTreeCtrl.h"
#include "lists/VxTreeCtrlExItemData.h"
#include "lists/VxTreeCtrlExSort.h"

class TreeListHost;

class VxTreeCtrlEx : public VxTreeCtrl {
public:
  // The identifier of the tree in its frame, sent with the selection
  // notification that clicks in multi-selection compose.
  static constexpr int kTreeId = 373;

  VxTreeCtrlEx();
  VxTreeCtrlEx(wxWindow * parent, wxWindowID id,
               DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
               wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);
  ~VxTreeCtrlEx() override;

  bool Create(wxWindow * parent, wxWindowID id,
              DWORD style = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
              wxPoint const & pos = wxDefaultPosition, wxSize const & size = wxDefaultSize);

  // --- Header and frame ---------------------------------------------------
  // The header is a window of the frame; the tree does not own it.
  void SetHeaderCtrl(CNewHeaderCtrl * header);
  CNewHeaderCtrl * GetHeaderCtrl() const { return mHeader.get(); }
  // The images of the rows (TVSIL_NORMAL); owned by the tree.
  void SetNormalImageList(std::unique_ptr<wxImageList> images);

  // The viewport origin in x: 0 or negative, moves the rows left.
  int GetHorizontalOffset() const { return mHorizontalOffset; }
  void SetHorizontalOffset(int offset);
  bool GetGroupsFirst() const { return mGroupsFirst; }
  void SetGroupsFirst(bool groupsFirst) { mGroupsFirst = groupsFirst; }

  // --- Columns ---------------------------------------------------------------
  // format 1 right, 2 centre, else left; a width of -1 leaves it to the
  // header. `subItem` is not used. The new index, or -1.
  int InsertColumn(int column, wchar_t const * text, int format = 0, int width = -1,
                   int subItem = -1);
  void ClearColumns();
  int GetColumnCount() const { return mColumnCount; }
  // The sum of all widths, kept by RecalcColumnsWidth.
  int GetColumnsWidth() const { return mColumnsWidth; }
  int GetColumnWidth(int column) const;
  bool SetColumnWidth(int column, int width);
  void RecalcColumnsWidth();
  // 0 left, 1 right, 2 centre.
  int GetColumnAlign(int column) const;

  // --- Items -----------------------------------------------------------------
  // Each writes `text` as column 0 and ends in the frame's ResetScrollBar.
  HTREEITEM InsertItem(wchar_t const * text, int image, int selectedImage,
                       HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
  HTREEITEM InsertItem(wchar_t const * text, HTREEITEM parent = TVI_ROOT,
                       HTREEITEM after = TVI_LAST);
  HTREEITEM InsertItem(UINT mask, wchar_t const * text, int image, int selectedImage, UINT state,
                       UINT stateMask, int64_t userData, HTREEITEM parent, HTREEITEM after);
  // After the root item `index` (0: at the end).
  HTREEITEM InsertItem(int index, wchar_t const * text, HTREEITEM parent = TVI_ROOT);

  wxString GetItemText(HTREEITEM item, int column = 0) const;
  wxString GetItemText(int rootIndex, int column) const;
  // Throws Exception (and changes nothing) for a text holding U+00B6.
  BOOL SetItemText(HTREEITEM item, int column, wchar_t const * text);
  uint64_t GetItemData(HTREEITEM item) const;
  BOOL SetItemData(HTREEITEM item, uint64_t data);
  // The record behind the item, or null.
  ItemData * GetItemRecord(HTREEITEM item) const;

  // The n-th root item; GetListItem: its index among the roots, or the
  // number of roots when the item is no root.
  HTREEITEM GetTreeItem(int rootIndex) const;
  int GetListItem(HTREEITEM item) const;
  int GetItemCount() const;

  bool SetItemColor(HTREEITEM item, COLORREF color, bool invalidate);
  bool SetItemBold(HTREEITEM item, bool bold, bool invalidate);
  // A group row is right-aligned and expanded.
  bool SetItemGroup(HTREEITEM item, bool group, bool invalidate);
  bool IsBold(HTREEITEM item) const;
  bool IsGroup(HTREEITEM item) const;
  bool SetItemPriority(HTREEITEM item, int priority);
  int GetItemPriority(HTREEITEM item) const;  // -1 without a record

  // The first item of the sibling run from `start` (the first root for
  // null) whose column text is `text` and, when data is not 0, whose user
  // data is `data`. Does not descend.
  HTREEITEM FindParentItem(wxString const & text, int column, HTREEITEM start, int64_t data) const;

  // Leaves only: null for an item with children.
  HTREEITEM CopyItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after = TVI_LAST);
  HTREEITEM MoveItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after = TVI_LAST);
  BOOL DeleteItem(HTREEITEM item);
  BOOL DeleteItem(int rootIndex);
  // 1 when a deletion failed.
  int DeleteSubItems(HTREEITEM item);
  BOOL DeleteAllItems();
  // Frees the records of `item`, its siblings after it and all their
  // children, and deletes the nodes.
  void MemDeleteAllItems(HTREEITEM item);
  void DeleteItemData(HTREEITEM item) override;
  // The family tree's delete of the selection, keeping the parents'
  // has-children flags.
  void DeleteSelectedItems(bool ask) override;
  // A branch copied by the family tree (a drop, CopyBranch) gets records
  // of its own; a tree built on this one calls it first.
  void OnItemCopied(HTREEITEM source, HTREEITEM copy) override;

  BOOL Expand(HTREEITEM item, UINT code);
  // Sorts the children of `parent` (TVI_ROOT or null: the roots).
  BOOL SortItems(int column, bool ascending, HTREEITEM parent);
  // The tree's order of two records (lParams); `info` is a TreeSortInfo*.
  static int CompareFunc(LPARAM item1, LPARAM item2, LPARAM info);

  // --- Painting and fitting ----------------------------------------------
  // A cell's text in `rect`: nothing for an empty text or when the room
  // (width - 6, less 7 on the left for align 0) is gone; ends in "...".
  static void DrawItemText(wxDC & dc, wxString const & text, RECT rect, int width, int align);
  // Fits the tree, the header and the frame's sideways bar to the frame.
  void ResetVertScrollBar();

  HTREEITEM GetLastClickItem() const { return mLastClickItem; }
  void ClearSelection() override;
  void OnSelectionChanged() override;

protected:
  void OnLButtonDown(UINT flags, POINT point) override;
  void OnLButtonDblClk(UINT flags, POINT point) override;
  void OnRButtonDown(UINT flags, POINT point) override;
  void OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags) override;
  void OnSetFocus() override;
  void OnPaint(wxDC & dc, wxRect const & clip) override;
  bool PaintsOwnLabel(HTREEITEM item) const override;
  void PaintRow(wxDC & dc, HTREEITEM item, RECT const & label) override;

private:
  // Text sizes by text, for one font.
  using TextExtents = std::unordered_map<std::wstring, std::pair<int, int>>;
  static void DrawCellText(wxDC & dc, wxString const & text, RECT rect, int width, int align,
                           TextExtents * kept);
  TreeListHost * GetHost() const;
  void ResetHostScrollBar();
  HTREEITEM InsertRecord(wchar_t const * text, TVINSERTSTRUCTW insert);
  void OnNotifyReflect(NotifyEvent & event);
  void UpdateHasChildren(HTREEITEM parent);
  void FreeAllRecords();

  wxWeakRef<CNewHeaderCtrl> mHeader;
  std::unique_ptr<wxImageList> mImages;
  int mHorizontalOffset = 0;
  bool mGroupsFirst = true;
  int mColumnCount = 0;
  int mColumnsWidth = 0;
  HTREEITEM mLastClickItem{};
  // Painting: the column widths and the fonts of the paint under way.
  std::vector<int> mPaintWidths;
  wxFont mPaintFont;
  wxFont mPaintBoldFont;
  COLORREF mPaintWindowText = 0;
  wxRect mPaintClip;
  TextExtents mKeptExtents[2];  // plain and bold
  // ResetVertScrollBar: whether the tree had its vertical bar, and the
  // sideways bar's last limit.
  bool mHadVerticalBar = false;
  int mSideLimit = 0;
  // A click in multi-selection on a button keeps the selection.
  bool mKeepSelection = false;
  // Clicks in the two multi-item modes tell the parent themselves.
  bool mQuietSelection = false;
};
