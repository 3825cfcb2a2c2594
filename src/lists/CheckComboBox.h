#pragma once
// A drop-down list of check boxes. The closed face shows the checked items
// joined by the user's list separator (or the no-selection and all-selected
// strings), and reading the combo's value gives that face. The list stays
// open while rows are checked; rows can be disabled or shown without a
// box, each row can have its own text colour, and the last check can be
// made impossible to clear.

#include <map>
#include <set>
#include <vector>

#include "lists/VxComboBox.h"
#include "platform/WinGdi.h"

class CheckComboBox : public VxComboBox {
public:
  CheckComboBox() = default;
  CheckComboBox(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
                wxSize const & size = wxDefaultSize, long style = 0);
  // Always a read-only list: the face is not edited.
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
              long style);

  // Removes every item and forgets every state.
  void ResetContent();

  bool GetCheck(int index) const;
  int GetNumCheckedItems() const;
  // The drop-down's list window (null before it was first made).
  wxWindow * GetListBox() const;

  // Checks or clears `index`; a row without box is left alone. Returns
  // the index.
  virtual int SetCheck(int index, bool check);
  virtual void SelectAll(bool check);
  // The texts of the checked items, in item order, replacing `texts`.
  virtual void GetSelItems(std::vector<wxString> & texts) const;
  // Checks exactly the items whose text is among `texts`.
  virtual void SetSelItems(std::vector<wxString> const & texts);

  void SetItemColor(int index, COLORREF color);
  COLORREF GetItemColor(int index) const;

  virtual void SetDisabled(int index, bool disabled);
  virtual bool IsDisabled(int index) const;
  virtual void EnableAll();

  void SetNoSelectionString(wxString const & text);
  void SetAllSelectedString(wxString const & text);
  // Whether the last checked item may be cleared (it may by default).
  void EnableAllClear(bool enable) { mAllClear = enable; }
  bool AllClear() const { return mAllClear; }
  void SetItemsWithoutCheckbox(std::vector<int> items);
  std::vector<int> const & GetItemsWithoutCheckbox() const { return mWithoutBox; }
  // The row last toggled by a click, -1 before any.
  int GetLastSelected() const { return mLastSelected; }

  // Brings the face text up to date.
  virtual void RecalcText() const;
  // The face as shown.
  wxString GetValue() const override;

  // The user toggles `index` (by the mouse or Space): disabled rows and the
  // last check (when it may not be cleared) refuse; the parent hears of
  // everything else as a selection change, rows without box too.
  void ToggleItem(int index, bool byMouse);

  // Paints the closed face into `rect`.
  void DrawFace(wxDC & dc, wxRect const & rect) const;

  // A row of the list (or the face for a negative item or with
  // wxODCB_PAINTING_CONTROL): its box and tick, then its text.
  void OnDrawItem(wxDC & dc, wxRect const & rect, int item, int flags) const override;
  void OnDrawBackground(wxDC & dc, wxRect const & rect, int item, int flags) const override;
  // The font's height and leading plus two.
  wxCoord OnMeasureItem(size_t item) const override;

private:
  struct ItemState {
    bool checked = false;
    COLORREF color = 0;
  };

  bool HasCheckbox(int index) const;
  void Changed();
  void DrawRow(wxDC & dc, wxRect const & rect, int item, bool face, bool selected) const;

  mutable wxString mFaceText;
  mutable bool mTextValid = false;
  mutable bool mNoSelection = false;
  mutable bool mAllSelected = false;
  std::map<int, ItemState> mStates;
  wxString mNoSelectionString;
  wxString mAllSelectedString;
  bool mAllClear = true;
  std::vector<int> mWithoutBox;  // sorted
  std::set<int> mDisabled;
  int mLastSelected = -1;
};
