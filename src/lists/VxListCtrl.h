#pragma once
// The family's report list: a CListCtrl with click-to-sort headings in
// natural order, drag selection with auto-scroll, check boxes that act on
// the whole selection, keyboard shortcuts, column widths that follow the
// window and are kept between runs, its rows as text and HTML (to a string
// and to the clipboard), a text shown while it is empty, colours of its
// own for the disabled state and cell editing through CInPlaceEdit.

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include <wx/font.h>
#include <wx/timer.h>

#include "lists/ListFormatter.h"
#include "platform/commctrl/CListCtrl.h"

class CFlatHeaderCtrl;
class CInPlaceEdit;

class VxListCtrl : public CListCtrl {
public:
  using Formatter = ListFormatter;

  // The control id of the cell editor.
  static constexpr int kInPlaceEditId = 1022;
  // The drag selection's timer.
  static constexpr int kDragTimerId = 1;

  VxListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
             wxSize const & size = wxDefaultSize, DWORD listStyle = LVS_REPORT,
             long windowStyle = wxBORDER_THEME);
  ~VxListCtrl() override;

  // Selection. Rows are zero-based; -1 means none.
  int GetSelIndex() const;
  int SetSelIndex(int item);
  void GetSelIndexes(std::vector<int> & rows) const;
  // Stores the selected rows; as always, the limit is tested after the
  // store, so up to max + 1 entries are written.
  int GetSelIndexes(int * buffer, int max) const;
  void SetSelIndexes(std::vector<int> const & rows);
  void SelectAllItems(bool select);
  void ComplementSelection();
  // The selection becomes first..last (either order) and the ascending
  // rows of `extra`; only rows whose state changes are touched.
  void SetSelection(int first, int last, int const * extra, int extraCount);
  void SelectWithWildcards(wchar_t const * pattern, int column, bool flag);
  void GetSelItemData(std::vector<uint64_t> & data) const;
  void DeleteSelectedItems();
  void RedrawSelectedItems();
  void SetTopIndex(int item);

  // Check boxes: state image 1 unchecked, 2 checked.
  void GetCheckedIndexes(std::vector<int> & rows) const;
  void SetCheckedIndexes(std::vector<int> const & rows, bool check);
  void CheckAllItems(bool check);
  int GetCheckedItemCount() const;
  int GetCheckedItemData(uint64_t * buffer, int max) const;

  // Columns and rows.
  void SetColumns(float const * percents, std::wstring const * names, int count);
  int AddColumn(wchar_t const * name, int width = -1, int format = LVCFMT_LEFT);
  int GetColumnCount() const;
  wxString GetColumnText(int column) const;
  void AutoSizeColumn(int column = -1, int minWidth = 0, int maxWidth = 10000);
  void EnableColumnAutoSize(bool enable, int threshold = 1);
  void DisableColumnSizing(bool disable) { mColumnSizingDisabled = disable; }
  void SetMinimumColumnSize(int size) { mMinimumColumnSize = size; }
  // Reads the widths kept under `name` in the profile section
  // "ListColumnWidths" (call it once the columns exist); they are written
  // back when the list is destroyed.
  void EnableSaveRestore(wchar_t const * name);
  int AddItem(wchar_t const * text, uint64_t data = 0);
  virtual bool CopyRow(int from, int to);
  virtual bool MoveRow(int from, int to);
  void SetColorItem(int index, wchar_t const * text, COLORREF colour);
  // A copy of the text that stays valid until the third following call.
  wchar_t const * AddPool(wchar_t const * text);
  wchar_t const * AddPool(char const * text);
  void SetRowColors(COLORREF text, COLORREF textBackground, COLORREF background);
  void SetDisabledRowColors(COLORREF text, COLORREF textBackground, COLORREF background);
  void EnableDisabledColors(bool enable) { mDisabledColorsEnabled = enable; }
  bool IsDisabledColorsEnabled() const { return mDisabledColorsEnabled; }
  void SetEmptyCtrlText(wxString const & text);
  wxString const & GetEmptyCtrlText() const { return mEmptyText; }
  bool Enable(bool enable = true) override;

  // Sorting: the rows low..high (high -1: the last) by the texts of one
  // column in natural order. False for a column beyond the last or fewer
  // than two rows.
  bool SortItems(int column, int ascending, int low = 0, int high = -1);
  int GetSortColumn() const { return mSortColumn; }
  bool GetSortAscending() const { return mSortAscending != 0; }

  // Output of all rows (with a title and the headings) or of given rows.
  wxString ToString(wchar_t const * title) const;
  wxString ToString(std::vector<int> const & rows) const;
  wxString ToHTML(wchar_t const * title) const;
  wxString ToHTML(std::vector<int> const & rows) const;
  void AddToClipboard(wchar_t const * title);
  void AddToClipboard(std::vector<int> const & rows);
  void CopySelection();
  void EditCopy() { AddToClipboard(static_cast<wchar_t const *>(nullptr)); }
  // The text written for a cell; by default the one shown.
  virtual wxString GetClipboardItemText(int row, int column) const;

  // Cells. HitTestEx returns the row under the point (client coordinates)
  // and stores its column.
  virtual int HitTestEx(wxPoint const & point, int * column) const;
  virtual bool AcceptEdit(wxString & text, int column, int row);
  virtual CInPlaceEdit * EditSubLabel(int row, int column);
  void EnableEditSubItems(bool editSubItems, bool acceptEdit = false);
  void EnableShortCuts(bool shortcuts, bool deleteKey = false);
  bool SubclassHeader(bool bold = false);
  CFlatHeaderCtrl * GetFlatHeader() const { return mFlatHeader; }

  // The drag selection's timer tick, as the timer calls it.
  void OnDragTimer();
  bool IsDragRunning() const { return mDragRunning; }

  // The cell editor ends: it asks the list here before it goes. The
  // running editor, if any, and a synchronous end of it (GTK tells of the
  // focus leaving it only later).
  void EndCellEdit(CInPlaceEdit & edit, wxString text, bool cancelled);
  CInPlaceEdit * GetCellEdit() const { return mCellEdit; }
  void CommitCellEdit();

protected:
  void OnLButtonDown(wxMouseEvent & event) override;
  void OnLButtonDblClk(wxMouseEvent & event) override;
  void OnMouseMove(wxMouseEvent & event) override;
  void OnMouseWheel(wxMouseEvent & event) override;
  void OnKeyDown(wxKeyEvent & event) override;
  void OnLButtonUp(wxMouseEvent & event) override;
  void OnKillFocus(wxFocusEvent & event) override;
  void OnSize(wxSizeEvent & event) override;
  void OnPaint(wxPaintEvent & event) override;
  void OnScrollWin(wxScrollWinEvent & event) override;
  void OnNotify(NotifyEvent & event) override;
  // NM_CUSTOMDRAW and the other notifications the list sends itself.
  virtual void OnReflectedNotify(NotifyEvent & event);

  // Whether a key or button state is down now; tests replace it.
  virtual bool IsPrimaryButtonDown() const;

private:
  class Table;
  friend class Table;

  wxString ToStringImpl(Formatter const & formatter) const;
  wxString ToHtmlImpl(Formatter const & formatter) const;
  void AddToClipboardImpl(Formatter const & formatter);
  void OnHeaderClick(int column);
  bool ToggleChecksOfSelection(int item);
  void StopDrag();
  // Takes the focus as the list's handlers do first, ending a cell edit.
  void TakeFocus();
  void ApplyColors(bool enabled);
  void PaintEmptyText(wxDC & dc);
  void WriteColumnWidths();
  std::vector<int> ColumnWidths() const;
  bool IsSingleSelection() const { return (GetStyle() & LVS_SINGLESEL) != 0; }
  bool HasCheckBoxes() const { return (GetExtendedStyle() & LVS_EX_CHECKBOXES) != 0; }

  int mSortColumn = -1;
  int mSortAscending = 1;
  int mMinimumColumnSize = 0;
  bool mColumnSizingDisabled = false;
  wxString mEmptyText;
  std::array<COLORREF, 3> mRowColors{};
  std::array<COLORREF, 3> mDisabledRowColors{};
  bool mDisabledColorsEnabled = false;
  bool mDragAllowed = true;
  bool mDragRunning = false;
  std::unique_ptr<std::vector<int>> mSavedSelection;
  int mDragAnchor = 0;
  int mRowsPerPage = -1;
  bool mControlAtPress = false;
  bool mAcceptEdit = false;
  bool mEditSubItems = false;
  bool mShortCuts = true;
  bool mDeleteKey = false;
  std::array<wxString, 3> mPool;
  int mPoolNext = 0;
  CFlatHeaderCtrl * mFlatHeader = nullptr;
  wxString mSaveName;
  int mAutoSizeWidth = -1;
  int mAutoSizeThreshold = 0;
  wxFont mEmptyTextFont;
  wxTimer mDragTimer;
  std::unique_ptr<wxImageList> mColorImages;
  CInPlaceEdit * mCellEdit = nullptr;
};
