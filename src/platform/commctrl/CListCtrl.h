#pragma once
// The report list view: rows of texts under a CHeaderCtrl, each row with
// 64-bit item data, an image and a state (LVIS_*, the state image in
// 0xF000). Rows live in one flat vector (or, with LVS_OWNERDATA, only the
// count, the texts coming through LVN_GETDISPINFO); only the visible rows
// are painted, and the view scrolls by whole rows vertically and by pixels
// horizontally. The list speaks the Windows vocabulary: styles, hit flags,
// custom-draw stages and notifications through SendNotify (the list first,
// then its parent). Header notifications reach the list (OnNotify), which
// acts on them and passes them on to its own parent.
//
// Input follows the platform's list: a click selects the row (Ctrl toggles,
// Shift extends from the selection mark), a click on the state icon toggles
// the check box; arrows, Home/End and PgUp/PgDn move the focus (Shift
// extends, Ctrl moves the focus only), Space selects (with check boxes:
// toggles the focused row's check), Ctrl+Space toggles the selection, typed
// characters find the next row by its beginning (type-ahead). With
// LVS_EX_TRACKSELECT the row under the pointer becomes the selected one
// (after LVN_HOTTRACK, which may refuse). Derived classes override the virtual handlers and call
// the base for the default.

#include <wx/textctrl.h>
#include <wx/window.h>

#include <cstdint>
#include <vector>

#include "platform/commctrl/CHeaderCtrl.h"
#include "platform/commctrl/ListViewDefs.h"
#include "platform/commctrl/SelectionRanges.h"

class wxImageList;

class CListCtrl : public wxWindow {
public:
  CListCtrl();
  CListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
            wxSize const & size = wxDefaultSize, DWORD listStyle = LVS_REPORT,
            long windowStyle = wxBORDER_THEME);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, DWORD listStyle = LVS_REPORT,
              long windowStyle = wxBORDER_THEME);
  ~CListCtrl() override;

  // Styles: LVS_* (the window's own wx style stays apart) and LVS_EX_*.
  // Switching LVS_EX_CHECKBOXES on gives every row state image 1 (unchecked).
  DWORD GetStyle() const { return mStyle; }
  bool ModifyStyle(DWORD remove, DWORD add);
  DWORD GetExtendedStyle() const { return mExStyle; }
  DWORD SetExtendedStyle(DWORD exStyle);  // returns the previous one

  // Columns. InsertColumn returns the new index or -1.
  int InsertColumn(int column, LVCOLUMNW const * description);
  int InsertColumn(int column, wxString const & heading, int format = LVCFMT_LEFT, int width = -1,
                   int subItem = -1);
  bool DeleteColumn(int column);
  bool GetColumn(int column, LVCOLUMNW * description) const;
  bool SetColumn(int column, LVCOLUMNW const * description);
  int GetColumnWidth(int column) const;
  // Also LVSCW_AUTOSIZE (widest cell) and LVSCW_AUTOSIZE_USEHEADER (widest
  // of cells and heading; the last column fills the client).
  bool SetColumnWidth(int column, int width);
  bool GetColumnOrderArray(int * order, int count) const;
  bool SetColumnOrderArray(int count, int const * order);
  CHeaderCtrl * GetHeaderCtrl() const { return mHeader; }
  // Puts `header` (a created child of this list, of a class of the
  // caller's, e.g. a differently drawn one) in the place of the present
  // header: it takes over the items, their widths, formats and order, and
  // the old header is destroyed. False, and nothing changes, for a null
  // header or one with another parent.
  bool ReplaceHeaderCtrl(CHeaderCtrl * header);

  // Rows. InsertItem returns the new row or -1; LVN_INSERTITEM follows.
  int GetItemCount() const;
  int InsertItem(LVITEMW const * item);
  int InsertItem(int index, wxString const & text, int image = -1);
  bool DeleteItem(int item);  // LVN_DELETEITEM first
  bool DeleteAllItems();      // LVN_DELETEALLITEMS; a zero answer: LVN_DELETEITEM for each
  // LVS_OWNERDATA: the number of rows; states of rows beyond it are dropped.
  void SetItemCount(int count);
  bool SetItemCountEx(int count, DWORD flags = LVSICF_NOINVALIDATEALL);

  bool GetItem(LVITEMW * item) const;  // asks LVN_GETDISPINFO for callback fields
  bool SetItem(LVITEMW const * item);  // a state change passes LVN_ITEMCHANGING/CHANGED
  wxString GetItemText(int item, int subItem) const;
  // The text the list itself holds for a cell, without a copy; null when
  // the owner supplies it (LPSTR_TEXTCALLBACK, owner data) or the cell
  // does not exist. For reading many cells at once, as a sort does.
  wxString const * FindStoredText(int item, int subItem) const;
  // Asks the processor to fetch the cells of a row that a loop over many
  // rows will read soon; rows moved by a sort no longer lie in memory in
  // their order, and waiting for each in turn costs more than the reading.
  void PrefetchRow(int item) const;
  bool SetItemText(int item, int subItem, wxString const & text);
  DWORD_PTR GetItemData(int item) const;
  bool SetItemData(int item, DWORD_PTR data);
  // item -1: every row (with one LVN_ODSTATECHANGED-free pass of
  // LVN_ITEMCHANGING/CHANGED for iItem -1, as the platform sends).
  bool SetItemState(int item, UINT state, UINT mask);
  UINT GetItemState(int item, UINT mask) const;
  int GetNextItem(int start, UINT flags) const;
  UINT GetSelectedCount() const;
  int GetSelectionMark() const { return mSelectionMark; }
  int GetHotItem() const { return mHot; }
  int SetSelectionMark(int item);
  bool GetCheck(int item) const;
  bool SetCheck(int item, bool checked = true);
  // Text (LVFI_STRING, LVFI_PARTIAL: beginning, case-insensitive) or item
  // data (LVFI_PARAM), from the row after `start`; LVFI_WRAP goes round.
  int FindItem(LVFINDINFOW const * find, int start = -1) const;

  // Sorting by the owner's comparison of item data (SortItems) or of row
  // indices (SortItemsEx); the order is stable. Not on owner-data lists.
  using PFNLVCOMPARE = int (*)(LPARAM, LPARAM, LPARAM);
  bool SortItems(PFNLVCOMPARE compare, DWORD_PTR data);
  bool SortItemsEx(PFNLVCOMPARE compare, DWORD_PTR data);
  // Puts the rows in the order given: order[n] is the present index of the
  // row that becomes row n. False, with nothing moved, unless `order` is a
  // permutation of all rows. For an owner that computed the order itself.
  bool ReorderItems(std::vector<int> const & order);

  // Geometry, in the list's client coordinates: the header on top, rows below.
  int GetTopIndex() const { return mTop; }
  int GetCountPerPage() const;  // fully visible rows
  bool EnsureVisible(int item, bool partialOK);
  bool Scroll(wxSize delta);  // pixels; vertically rounded to rows
  bool GetItemRect(int item, RECT * rect, int code) const;
  bool GetSubItemRect(int item, int subItem, int code, RECT * rect) const;
  bool GetViewRect(RECT * rect) const;
  int GetItemHeight() const { return mRowHeight; }
  int GetHeaderHeight() const;
  int GetScrollOffsetX() const { return mScrollX; }
  int HitTest(LVHITTESTINFO * info) const;
  int HitTest(wxPoint const & point, UINT * flags = nullptr) const;
  int SubItemHitTest(LVHITTESTINFO * info) const;
  int GetStringWidth(wxString const & text) const;

  // Colours (COLORREF; CLR_NONE paints no text background).
  COLORREF GetBkColor() const { return mBkColor; }
  bool SetBkColor(COLORREF color);
  COLORREF GetTextColor() const { return mTextColor; }
  bool SetTextColor(COLORREF color);
  COLORREF GetTextBkColor() const { return mTextBkColor; }
  bool SetTextBkColor(COLORREF color);

  // Image lists are not owned (LVSIL_SMALL: row images; LVSIL_STATE: state
  // images, index 1 upwards; without one, check boxes are drawn).
  wxImageList * SetImageList(wxImageList * images, int which);
  wxImageList * GetImageList(int which) const;

  // WM_SETREDRAW: while off, nothing is painted and scroll bars wait.
  void SetRedraw(bool redraw);
  bool IsRedrawOn() const { return mRedraw; }
  bool RedrawItems(int first, int last);

  // Label editing of column 0 (LVN_BEGINLABELEDIT may refuse; at the end
  // LVN_ENDLABELEDIT, null text when cancelled, a nonzero answer keeps it).
  wxTextCtrl * EditLabel(int item);
  wxTextCtrl * GetEditControl() const { return mEdit; }
  bool CancelEditLabel();

  // Type-ahead: characters typed within this many milliseconds of each other
  // make one search text.
  static constexpr long TypeAheadPause = 1000;

  // Paints the visible part of the list (header excluded) into `dc`, as a
  // paint event does; `dc` has the client's coordinates.
  void PaintRows(wxDC & dc, wxRect const & clip);

  void OnInternalIdle() override;

protected:
  // The default handling of input and notifications; a derived class
  // overrides and calls these for the default.
  virtual void OnLButtonDown(wxMouseEvent & event);
  virtual void OnLButtonUp(wxMouseEvent & event);
  virtual void OnLButtonDblClk(wxMouseEvent & event);
  virtual void OnRButtonDown(wxMouseEvent & event);
  virtual void OnRButtonUp(wxMouseEvent & event);
  virtual void OnMouseMove(wxMouseEvent & event);
  virtual void OnMouseWheel(wxMouseEvent & event);
  virtual void OnKeyDown(wxKeyEvent & event);
  virtual void OnChar(wxKeyEvent & event);
  virtual void OnSetFocus(wxFocusEvent & event);
  virtual void OnKillFocus(wxFocusEvent & event);
  virtual void OnSize(wxSizeEvent & event);
  virtual void OnPaint(wxPaintEvent & event);
  virtual void OnScrollWin(wxScrollWinEvent & event);
  // Header notifications (VX_EVT_NOTIFY from the header child): item
  // clicks become LVN_COLUMNCLICK, divider double-clicks autosize, width
  // changes relayout; each is passed on to the list's parent as it came.
  virtual void OnNotify(NotifyEvent & event);

  // Moves the focus to `item` as the keyboard does: with `extend` the
  // selection becomes the range from the mark, with `focusOnly` only the
  // focus moves, else the row alone is selected.
  void MoveFocus(int item, bool extend, bool focusOnly);
  // Sends an NMITEMACTIVATE notification for a mouse action.
  LRESULT NotifyItemActivate(UINT code, int item, int subItem, wxPoint const & point);

private:
  struct Column {
    int format = LVCFMT_LEFT;
    int width = 0;
    int subItem = 0;
    int image = -1;
  };
  struct Row {
    std::vector<wxString> texts;  // by sub-item; missing entries are empty
    LPARAM data = 0;
    int image = -1;
    int indent = 0;
    uint16_t state = 0;
    bool textCallback = false;
  };

  void Init();
  bool IsOwnerData() const { return (mStyle & LVS_OWNERDATA) != 0; }
  bool IsValid(int item) const { return item >= 0 && item < GetItemCount(); }
  UINT StateOf(int item) const;
  void StoreState(int item, UINT state);
  // Changes the state bits of one row through LVN_ITEMCHANGING/CHANGED;
  // false when refused or unchanged.
  bool ChangeState(int item, UINT state, UINT mask);
  LRESULT NotifyListView(UINT code, int item, int subItem, UINT newState, UINT oldState,
                         UINT changed);
  wxString DisplayText(int item, int subItem) const;
  int DisplayImage(int item) const;
  UINT DisplayStateImage(int item) const;
  bool SelectOnly(int item);
  void SelectRange(int first, int last);
  void ToggleCheck(int item);
  void TypeAhead(wxChar character, long timestamp);
  void CommitEdit(bool cancelled);
  void UpdateRowHeight();
  void UpdateScrollBars();
  void ApplyScrollBars();
  void LayoutHeader();
  int ColumnsWidth() const;
  int ColumnLeft(int column) const;  // in content coordinates, by display order
  int AutoWidth(int column, bool useHeader) const;
  // A column as one paint lays it out: by display order, in client x.
  struct Place {
    int column;
    int subItem;
    int left;
    int width;
    int format;
  };
  void PaintRow(wxDC & dc, int item, wxRect const & rowRect, LRESULT prepaint);
  void PaintCell(wxDC & dc, int item, Place const & place, wxRect const & cell, COLORREF text,
                 COLORREF back, bool selected);
  // Whether `text` is certainly no wider than `room` without measuring it.
  bool FitsSurely(wxString const & text, int room) const;
  // The text as painted: a reference to the stored one where there is one.
  wxString const & TextForPaint(int item, int subItem);
  void OnEraseBackground(wxEraseEvent & event);
  void OnEditKey(wxKeyEvent & event);
  void OnEditFocusLost(wxFocusEvent & event);
  void OnHeaderResized(wxSizeEvent & event);

  DWORD mStyle = LVS_REPORT;
  DWORD mExStyle = 0;
  CHeaderCtrl * mHeader = nullptr;
  std::vector<Column> mColumns;
  std::vector<Row> mRows;
  // Owner data: only the count and the selected/focused rows are kept.
  int mVirtualCount = 0;
  SelectionRanges mVirtualSelected;
  int mFocused = -1;
  int mSelectionMark = -1;
  int mTop = 0;
  int mScrollX = 0;
  int mRowHeight = 17;
  COLORREF mBkColor = 0;
  COLORREF mTextColor = 0;
  COLORREF mTextBkColor = 0;
  wxImageList * mSmallImages = nullptr;
  wxImageList * mStateImages = nullptr;
  bool mRedraw = true;
  bool mScrollBarsStale = false;
  std::vector<Place> mPlaces;  // of the paint under way
  int mCharHeight = 0;
  int mWidestAscii = 0;
  wxString mPaintText;
  bool mHasFocus = false;
  // Mouse: the row pressed, where, and whether a drag notification went.
  int mPressedItem = -1;
  wxPoint mPressPoint;
  bool mDragSent = false;
  bool mClickPending = false;
  int mHot = -1;  // the row under the pointer with LVS_EX_TRACKSELECT
  // Type-ahead.
  wxString mSearch;
  long mSearchTime = 0;
  // Label editing.
  wxTextCtrl * mEdit = nullptr;
  int mEditItem = -1;
  bool mEnding = false;

  wxDECLARE_DYNAMIC_CLASS_NO_COPY(CListCtrl);
  wxDECLARE_EVENT_TABLE();
};
