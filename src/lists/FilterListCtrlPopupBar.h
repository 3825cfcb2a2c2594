#pragma once
// The filter popup: a combo box for the filter above an owner-data list of
// the caller's items. Typing filters after a pause; a click on a row, or
// Enter, chooses it; Escape or a click outside closes without a choice.
// Tab moves between the combo and the list, the wheel always scrolls the
// list. The popup has no window-manager frame, so its edges are dragged
// by hand; size and the last filters are written to the profile on a
// choice only.

#include <wx/combobox.h>
#include <wx/popupwin.h>
#include <wx/timer.h>

#include <cstdint>
#include <string>
#include <vector>

#include "lists/FilterListFiltering.h"
#include "lists/PopupFilterListSettings.h"
#include "platform/commctrl/NotifyEvent.h"

class CListCtrl;
class FilterListItems;
class wxGUIEventLoop;

class FilterListCtrlPopupBar : public wxPopupTransientWindow {
public:
  static constexpr int kComboId = 1;
  static constexpr int kListId = 2;
  static constexpr int kFilterTimerId = 76354;
  static constexpr int kFilterDelayMs = 500;
  static constexpr int kComboDropHeight = 200;
  static constexpr size_t kMaxCarriedSelection = 1000;
  static constexpr int kFrame = 4;  // the draggable edge around the controls

  // `items` (may be null) must outlive the popup's tracking.
  FilterListCtrlPopupBar(wxWindow * parent, FilterListItems const * items, uint64_t selected);
  ~FilterListCtrlPopupBar() override;

  // Shows the popup with its top-left corner at `screenPoint` (moved to fit
  // the display) and runs until it closes. The chosen item, or
  // kNoFilterItem.
  uint64_t Track(wxPoint screenPoint);
  // The popup being tracked now, if any.
  static FilterListCtrlPopupBar * GetOpen();

  wxComboBox & GetCombo() const { return *mCombo; }
  CListCtrl & GetList() const { return *mList; }
  // The caller's index of each list row.
  std::vector<uint64_t> const & GetVisibleItems() const { return mVisible; }

  // Filters by `filter` (UTF-8) now.
  void ApplyFilter(std::string const & filter);
  // The pause after typing has passed: filters by the combo's text.
  void OnFilterTimer();
  bool IsFilterPending() const { return mFilterTimer.IsRunning(); }
  // Chooses list row `row`; false (and nothing closes) for no such row.
  bool ChooseRow(int row);
  // Closes without a choice.
  void Cancel();

protected:
  void OnDismiss() override;

private:
  void Layout(wxSize size);
  void RetitleColumn(size_t visible, uint64_t total);
  void End(uint64_t result);
  void OnTextChanged(wxCommandEvent & event);
  void OnFilterChosen(wxCommandEvent & event);
  void OnListNotify(NotifyEvent & event);
  void OnCharHook(wxKeyEvent & event);
  void OnWheel(wxMouseEvent & event);
  void OnPaint(wxPaintEvent & event);
  void OnSize(wxSizeEvent & event);
  // Edge dragging.
  int EdgesAt(wxPoint point) const;
  void OnMouseMove(wxMouseEvent & event);
  void OnMouseDown(wxMouseEvent & event);
  void OnMouseUp(wxMouseEvent & event);

  FilterListItems const * mItems;
  uint64_t mInitialSelection;
  PopupFilterListSettings mSettings;
  wxComboBox * mCombo = nullptr;
  CListCtrl * mList = nullptr;
  std::vector<uint64_t> mVisible;
  std::wstring mDisplayText;  // alive while the list reads it
  std::string mLastFilter;
  bool mFiltered = false;
  wxTimer mFilterTimer;
  wxGUIEventLoop * mLoop = nullptr;
  bool mEnded = false;
  uint64_t mResult = kNoFilterItem;
  int mDragEdges = 0;
  wxPoint mDragStart;
  wxRect mDragRect;
};
