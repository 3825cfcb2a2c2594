#pragma once
// The list editor of a property row: a frame (id 1) over the value cell
// holding a painted edit (id 2) that shows the choice, takes no typing and
// opens the list on a click, a flat drop button (id 1, as wide as a scroll
// bar, pressed while the list is open) and an own-drawn drop list (id 3).
//
// The drop list is a popup window holding the mouse capture, so that it is
// not clipped by the property list and an outside press reaches it: an
// outside press or a release inside chooses the highlighted entry
// (kInPlaceListChoose), Return chooses, Tab and Escape only hide it
// (kInPlaceListHide), a drag moves the highlight. Its height is min(8,
// count) rows + 2, or 100 pixels when empty.
//
// A choice goes to the edit and kInPlaceDataChanged to the owner, else the
// parent. kInPlaceListStep steps the choice, kInPlaceDoubleClick cycles it.

#include <utility>
#include <vector>

#include <wx/window.h>

#include "platform/WinGeometry.h"

class PropertyInPlaceComboBoxEdit;
class PropertyInPlaceComboBoxButton;
class PropertyInPlaceComboBoxListBox;
class WindowMessageEvent;

class PropertyInPlaceComboBox : public wxWindow {
public:
  static constexpr int kFrameId = 1;
  static constexpr int kButtonId = 1;
  static constexpr int kEditId = 2;
  static constexpr int kListId = 3;
  static constexpr int kMaxDropRows = 8;
  static constexpr int kEmptyDropHeight = 100;

  // `rect` is the value cell in the parent's client coordinates.
  PropertyInPlaceComboBox(wxWindow * parent, RECT const & rect);
  ~PropertyInPlaceComboBox() override;

  // As the items of the original made it; the parent owns the result.
  static PropertyInPlaceComboBox * CreateInPlaceControl(wxWindow * parent, RECT rect);

  // Appends an entry; returns its index.
  int AddString(wchar_t const * text, unsigned long data = 0);
  int GetCount() const;
  wxString GetString(int index) const;
  unsigned long GetItemData(int index) const;
  // The chosen index, -1 for none.
  int GetCurSel() const;
  // Chooses `index` and shows it in the edit; with `notify` tells the owner.
  // -1 (and no change) for an index outside the entries.
  int SetCurSel(int index, bool notify);
  void ResetContent();
  // Gives the drop list its height by the rule above, where it is.
  void ResetListBoxHeight();
  // Lays the combo over a new cell.
  void MoveControl(RECT const & rect);

  // Opens the drop list below the frame, or closes it when open (the
  // button's click and the edit's click).
  void OnBnClicked();
  bool IsDropped() const;
  // The height the drop list takes for the present entries.
  int DropListHeight() const;

  // Where kInPlaceDataChanged goes; null (the default): the parent.
  void SetOwner(wxWindow * owner) { mOwner = owner; }
  wxWindow * GetOwner() const { return mOwner; }

  PropertyInPlaceComboBoxButton * GetButton() const { return mButton; }
  PropertyInPlaceComboBoxEdit * GetEdit() const { return mEdit; }
  // The drop list, made on first use.
  PropertyInPlaceComboBoxListBox * GetList() const;
  // The height of a row of the drop list.
  int GetItemHeight() const;

private:
  void OnWindowMessage(WindowMessageEvent & event);
  void OnSize(wxSizeEvent & event);
  void HideList();
  void Notify();
  void LayoutChildren();

  PropertyInPlaceComboBoxEdit * mEdit = nullptr;
  PropertyInPlaceComboBoxButton * mButton = nullptr;
  std::vector<std::pair<wxString, unsigned long>> mEntries;
  // A popup is a top-level window, costly to make: it waits for a drop.
  mutable PropertyInPlaceComboBoxListBox * mList = nullptr;
  wxWindow * mOwner = nullptr;
  int mChosen = -1;  // the list's highlight moves apart from it while open
};
