#pragma once
// VxTreeListCtrl: a tree with columns, as one window of its own class
// ("VXTREELISTCTRL") that holds three children and keeps them in step: the
// header (370), the column tree (373) and a sideways scroll bar (377). The
// header and the rows scroll sideways together, a click on a heading sorts
// (by the sort type), the columns may follow the window's width, and Ctrl+C
// puts the selected rows on the clipboard as text and HTML.
//
// A dialog template names a placeholder of the class (TreeListXmlHandler.h);
// SubclassDlgItem takes over its id and rectangle. Code that builds the
// window itself calls Create.
//
// The frame passes on to its parent every notification it does not use
// itself, the context menu, and a double click (without place or keys).

#include <optional>
#include <string>
#include <vector>

#include <wx/window.h>

#include "lists/TreeListHost.h"
#include "lists/VxTreeCtrlEx.h"

class wxScrollBar;
class NotifyEvent;
class wxScrollEvent;

class VxTreeListCtrl : public wxWindow, public TreeListHost {
public:
  enum SortType { NoSort = 0, SortRoots = 1, SortChildren = 2 };

  static constexpr int kHeaderId = 370;
  static constexpr int kTreeId = VxTreeCtrlEx::kTreeId;
  static constexpr int kScrollBarId = 377;
  // WS_CHILD | WS_VISIBLE and the tree's buttons, lines, lines at the root,
  // no drag and drop, selection shown always.
  static constexpr DWORD kDefaultTreeStyle = 0x50000037;

  VxTreeListCtrl();
  ~VxTreeListCtrl() override;
  VxTreeListCtrl(VxTreeListCtrl const &) = delete;
  VxTreeListCtrl & operator=(VxTreeListCtrl const &) = delete;

  // Registers the window class (its template handler) once a process.
  static bool RegisterWindowClass();

  // Takes the place of the placeholder `id` of `parent` and builds the
  // children. False when there is no such window.
  bool SubclassDlgItem(UINT id, wxWindow * parent);
  // Builds the frame and its children at that place.
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size);

  // The tree's style, before SubclassDlgItem or Create.
  void SetStyle(DWORD style) { mTreeStyle = style; }
  DWORD GetStyle() const { return mTreeStyle; }
  void SetSortType(SortType type) { mSortType = type; }
  SortType GetSortType() const { return mSortType; }
  // Sorting by header clicks on (the roots) or off.
  void EnableSort(bool enable);
  int GetSortColumn() const { return mSortColumn; }
  bool IsSortAscending() const { return mSortAscending != 0; }

  VxTreeCtrlEx & GetTreeCtrl() { return *mTree; }
  VxTreeCtrlEx const & GetTreeCtrl() const { return *mTree; }
  CNewHeaderCtrl * GetHeaderCtrl() const { return mHeader; }
  wxScrollBar * GetSideScrollBar() override { return mScrollBar; }

  // --- Columns ---------------------------------------------------------------
  int InsertColumn(int column, wchar_t const * text, int format = 0, int width = -1,
                   int subItem = -1);
  void ClearColumns();
  bool SetColumnHeaderText(int column, wchar_t const * text);
  // The width of the window at the time is kept; later resizes share out
  // the change among the columns.
  void EnableColumnAutoSize(bool enable);
  int GetAutoSizeWidth() const { return mAutoSizeWidth; }

  // --- Items (the tree's meaning) -----------------------------------------
  HTREEITEM InsertItem(wchar_t const * text, int image, int selectedImage,
                       HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
  HTREEITEM InsertItem(wchar_t const * text, HTREEITEM parent = TVI_ROOT,
                       HTREEITEM after = TVI_LAST);
  HTREEITEM InsertItem(UINT mask, wchar_t const * text, int image, int selectedImage, UINT state,
                       UINT stateMask, int64_t userData, HTREEITEM parent, HTREEITEM after);
  HTREEITEM InsertItem(int index, wchar_t const * text, HTREEITEM parent = TVI_ROOT);
  BOOL DeleteItem(HTREEITEM item);
  BOOL DeleteItem(int rootIndex);
  BOOL DeleteAllItems();
  BOOL Expand(HTREEITEM item, UINT code);
  wxString GetItemText(HTREEITEM item, int column = 0) const;
  wxString GetItemText(int rootIndex, int column) const;
  // Throws Exception (and changes nothing) for a text holding U+00B6.
  BOOL SetItemText(HTREEITEM item, int column, wchar_t const * text);
  // The value as "%g" followed by `text` (a unit).
  BOOL SetItemFloat(HTREEITEM item, int column, float value, wchar_t const * text);
  bool SetItemBold(HTREEITEM item, bool bold, bool invalidate = true);
  bool SetItemColor(HTREEITEM item, COLORREF color, bool invalidate = true);
  bool SetItemGroup(HTREEITEM item, bool group, bool invalidate = true);
  UINT GetItemState(HTREEITEM item, UINT mask) const;
  BOOL SetItemState(HTREEITEM item, UINT state, UINT mask);
  BOOL ItemHasChildren(HTREEITEM item) const;
  // The root index of an item (as GetListItem), and the n-th root item.
  int GetItem(HTREEITEM item) const;
  HTREEITEM GetItem(int rootIndex) const;
  int GetItemCount() const;
  HTREEITEM GetRootItem() const;
  HTREEITEM GetChildItem(HTREEITEM item) const;
  HTREEITEM GetParentItem(HTREEITEM item) const;
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;

  // --- Selection (the tree's meaning) ---------------------------------------
  void ClearSelection();
  void EnableMultiSelect(bool enable);
  void SetSelectionState(VxTreeCtrl::SelectionState state);
  VxTreeCtrl::SelectionState GetSelectionState() const;
  HTREEITEM GetFirstSelectedItem() const;
  HTREEITEM GetNextSelectedItem(HTREEITEM item) const;
  int GetSelectedItemCount() const;
  // The root index of the caret item; -1 without one.
  int GetSelIndex() const;

  // --- Drawing, sorting, fitting -----------------------------------------
  // Off: nothing repaints and the scroll bar is left alone; on: fitted.
  void SetRedraw(int redraw);
  bool IsRedrawOn() const { return mRedraw; }
  // Sorts the children of `item` and of its later siblings, all the way
  // down; the siblings themselves keep their order.
  void SortTree(int column, bool ascending, HTREEITEM item);
  void ResetScrollBar() override;
  // Where the headings stand: the rows' horizontal offset once fitted.
  int GetHeaderOffset() const;

  // --- Text and HTML --------------------------------------------------------
  // Headings and every row in walking order, cells by tabs, rows by
  // "\r\n"; "\r\n\t" trimmed at both ends.
  wxString GetTextClipString() const;
  // The same as a block the clipboard takes; null (after an error message
  // "Could not allocate memory.") when memory runs out.
  std::optional<wxString> MakeClipString() const;
  // The given rows, `columns` cells each, without a heading line.
  std::optional<wxString> MakeClipString(std::vector<HTREEITEM> const & items, int columns) const;
  // UTF-8, nothing escaped. With a caption when `title` is not null.
  std::string ToHTML(char const * title) const;
  std::string ToHTML(std::vector<HTREEITEM> const & items, int columns) const;

  // Ctrl+C in the tree: the selected rows as text and HTML.
  void OnUserCopiedData();

  // The handlers, public so that tests drive them as the window does.
  void OnHScroll(UINT code, int thumbPosition);
  void OnSize(int cx, int cy);

private:
  bool Initialize();
  void OnNotify(NotifyEvent & event);
  void OnHeaderClick(int column);
  void OnColumnsChanged();
  void ForwardNotify(NotifyEvent & event);
  void OnScrollEvent(wxScrollEvent & event);
  void FitChildren();
  int HeaderWidth() const;
  void MoveHeader(int offset);
  void SetSideOffset(int position);
  int ScrollPosition() const;
  int ScrollLimit() const;
  std::vector<wxString> Headings() const;

  DWORD mTreeStyle = kDefaultTreeStyle;
  int mSortColumn = -1;
  int mSortAscending = 1;
  SortType mSortType = NoSort;
  bool mRedraw = true;
  int mAutoSizeWidth = -1;
  int mHeaderHeight = 0;
  VxTreeCtrlEx * mTree = nullptr;
  CNewHeaderCtrl * mHeader = nullptr;
  wxScrollBar * mScrollBar = nullptr;
};
