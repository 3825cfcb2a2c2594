#pragma once
// The grid in which property items are shown and edited: an owner-drawn,
// variable-height list whose rows are PropertyItem pointers (not owned).
// A row has a gutter with the expander, a name cell and a value cell; the
// selected row carries one live in-place editor over its value cell, made by
// its item. A details pane at the bottom (64 px, not part of the rows' area)
// shows the selected row's name and description.
//
// Editors report a changed value with message 1027 (kInPlaceDataChanged),
// sent to their parent, the list; the list then hands the editor to the
// selected item (PropertyItem::SetData) and tells the manager
// (PropertyItemManager::OnDataChanged). Escape commits like Return.

#include <cstdint>
#include <memory>
#include <vector>

#include <wx/brush.h>
#include <wx/vlbox.h>

#include "controls/ExceptionGuarded.h"
#include "platform/WinTypes.h"
#include "properties/PropertyInPlaceMessages.h"
#include "properties/PropertyListGeometry.h"

class PropertyItem;
class PropertyItemCategory;
class PropertyItemManager;
class PropertyDetailsPane;
class PropertyRowMeasure;
class WindowMessageEvent;

// The list stops an exception of its own handlers, of an item or of the
// manager at its edge (controls/ExceptionGuarded.h): the failure is reported
// and the list stays usable.
class PropertyListCtrl : public ExceptionGuarded<wxVListBox> {
public:
  PropertyListCtrl() = default;
  PropertyListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
                   wxSize const & size = wxDefaultSize, long style = 0);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, long style = 0);
  ~PropertyListCtrl() override;

  PropertyListCtrl(PropertyListCtrl const &) = delete;
  PropertyListCtrl & operator=(PropertyListCtrl const &) = delete;

  // Stores the manager (not owned; it must outlive its use here) and lets it
  // fill the list (PropertyItemManager::InitControl).
  void SetPropertyItemManager(PropertyItemManager * manager);
  PropertyItemManager * GetPropertyItemManager() const { return mManager; }

  // The item of a row; null for an index outside the list.
  PropertyItem * GetPropertyItem(int index) const;
  // Inserts `item` (not copied, not owned) before row `index`, or appends it
  // for -1. Returns the row, or -1 (nothing inserted) for a null item or an
  // index past the end.
  int InsertPropertyItem(PropertyItem * item, int index);
  int GetCount() const { return static_cast<int>(mRows.size()); }

  // Destroys the in-place editor, then empties the list.
  void ResetContent();

  // Destroys the present editor; with `show` and a selection makes a new one
  // for the selected row.
  void ShowInPlaceControl(bool show);
  // Destroys the present editor without taking its value.
  void DestroyInPlaceControl();
  wxWindow * GetInPlaceControl() const { return mInPlaceControl; }

  // Redraws every value from the top row down and makes the editor anew.
  void Refresh();
  // The window's own invalidation, as wx calls it. Without a rectangle it
  // covers the rows only: the details pane shows the selection, and
  // RefreshDetails redraws it when that changes.
  void Refresh(bool eraseBackground, wxRect const * rect = nullptr) override;

  // Shows or hides the details pane; the rows take its room when hidden.
  void ShowDetails(bool show);
  bool GetShowDetails() const { return mShowDetails; }

  // Selects the row of the item with this property identifier, expanding a
  // collapsed category that holds it, and runs the selection-change steps
  // (so the editor follows). False when nothing matches.
  bool SetCurSelByID(unsigned id);

  int GetCurSel() const { return GetSelection(); }
  // Selects a row without the selection-change steps (-1: none); callers
  // follow with ShowInPlaceControl(true) for its editor.
  void SetCurSel(int index);

  // Hands the editor to the selected item and tells the manager. False
  // without an editor or a selection.
  bool SetCurrentData();

  // The value cell of a row in client coordinates; empty for a row outside
  // the list.
  wxRect GetItemValueRect(int index) const;

  void DoCollapse(PropertyItemCategory * category, int index);
  // Inserts the category's items after `index`, which ends on the last one.
  void DoExpand(PropertyItemCategory * category, int & index);
  // Flips the category at `index` (or `item` when given); other rows do
  // nothing.
  void DoCollapseExpand(int index, PropertyItem * item = nullptr);

  // Type-ahead: selects the next row after the selection whose name starts
  // with `key` (without regard to case), wrapping to the top once. False
  // when no name does.
  bool LookupPropertyItem(wchar_t key);

  // The handler of kInPlaceDataChanged: SetCurrentData; returns 1.
  std::intptr_t OnSetData(std::uintptr_t wParam, std::intptr_t lParam);

  // Draws the details pane into `dc` over `pane` (the pane's own rectangle).
  void DrawDetails(wxDC & dc, wxRect const & pane) const;

  // The focus goes to the list itself, never on to a child: an editor
  // commits as it hands the focus back here.
  void SetFocus() override { SetFocusIgnoringChildren(); }
  bool AcceptsFocus() const override { return true; }
  // A container of focusable children (the editor) would stop taking the
  // focus itself; the list always takes it.
  void SetCanFocus(bool) override { wxVListBox::SetCanFocus(true); }

  // The rows' wrapping and heights are measured again at the next paint
  // (after a font change, say).
  void InvalidateRowHeights();

protected:
  void OnDrawItem(wxDC & dc, wxRect const & rect, size_t n) const override;
  wxCoord OnMeasureItem(size_t n) const override;
  void OnDrawBackground(wxDC & dc, wxRect const & rect, size_t n) const override;
  // The scroll range from the row count alone: the window would otherwise
  // measure rows across the whole list to guess it.
  wxCoord EstimateTotalHeight() const override;
  // The rows' area: the window's client area less the details pane.
  void DoGetClientSize(int * width, int * height) const override;

private:
  void Init();
  void OnPaintRows(wxPaintEvent & event);
  void OnSelectionChange(wxCommandEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnLeftDoubleClick(wxMouseEvent & event);
  void OnKeyDown(wxKeyEvent & event);
  void OnSize(wxSizeEvent & event);
  void OnScroll(wxScrollWinEvent & event);
  void OnMouseWheel(wxMouseEvent & event);
  void OnWindowMessage(WindowMessageEvent & event);

  // The selection-change steps: a new editor for the selected row (the old
  // one dropped without taking its value), then the details.
  void SelectionChanged();
  // Keys on a selected category row; true when consumed.
  bool CategoryKey(int keyCode);
  void CreateInPlaceControl();
  // Puts the editor back over its row after a scroll, or hides it while the
  // row is out of view.
  void PlaceInPlaceControl();
  void RefreshDetails();
  void SyncItemCount();
  // Takes an editor out of the list at once; it is deleted now, or later
  // when its own message is being handled (its handler is on the stack).
  void RetireInPlaceControl(wxWindow * control);
  wxRect GetRowRect(int index) const;
  PropertyListGeometry::NameSpan SpanOf(PropertyItem const & item) const;

  // Pens, brushes and colours of the rows and the pane, made once and
  // again when the system colours change: asking the theme for a colour
  // costs more than a row's drawing.
  struct PaintTools {
    wxBrush grid;
    wxBrush window, highlight, face;
    wxBrush border;
    wxColour text, highlightText, faceColour;
  };
  static PaintTools MakePaintTools();
  struct PaintedRow {
    size_t index;
    wxRect rect;
  };
  void PaintRows(wxDC & dc, std::vector<PaintedRow> const & rows) const;
  void PaintExpanders(wxDC & dc, std::vector<PaintedRow> const & rows) const;
  void PaintNames(wxDC & dc, std::vector<PaintedRow> const & rows, bool bold, bool selected) const;
  void PaintValues(wxDC & dc, std::vector<PaintedRow> const & rows) const;
  // Adds a one-pixel grid line from (x1, y1) to (x2, y2), horizontal or
  // vertical, the end left out.
  void AddLine(int x1, int y1, int x2, int y2) const;
  PaintTools mTools = MakePaintTools();
  // The grid lines of one paint as one-pixel boxes, filled together once its
  // rows are drawn.
  mutable std::vector<wxRect> mGridLines;

  std::vector<PropertyItem *> mRows;
  mutable std::vector<int> mHeights;  // 0: not measured yet
  std::unique_ptr<PropertyRowMeasure> mMeasure;
  PropertyItemManager * mManager = nullptr;
  wxWindow * mInPlaceControl = nullptr;
  PropertyDetailsPane * mDetails = nullptr;
  wxWindow * mRetired = nullptr;  // hidden holder of editors waiting to be deleted
  // The details pane's description as last wrapped, and for which width.
  mutable wxString mWrappedFor;
  mutable int mWrappedWidth = -1;
  mutable wxString mWrapped;
  bool mShowDetails = true;
  int mBatch = 0;                   // inserts held back from the window's row count
  int mInEditorMessage = 0;         // an editor's message is being handled
  mutable int mMeasuredWidth = -1;  // the width the cached heights were wrapped for
};
