#pragma once
// The drop list of PropertyInPlaceComboBox (id 3): an own-drawn list on a
// popup window, so that the property list does not clip it, holding the
// mouse capture while shown. It tells the combo (its parent) what the user
// did: kInPlaceListChoose for an outside press, a release inside and
// Return; kInPlaceListHide for Tab and Escape. A drag with
// the button down moves the highlight; the wheel and the strip at the right
// scroll a list longer than its window.

#include <wx/popupwin.h>

class PropertyInPlaceComboBox;

class PropertyInPlaceComboBoxListBox : public wxPopupWindow {
public:
  PropertyInPlaceComboBoxListBox(PropertyInPlaceComboBox * combo, int id);
  ~PropertyInPlaceComboBoxListBox() override;

  // The entries are the combo's; the list shows them.
  int GetCount() const;
  wxString GetString(int index) const;
  unsigned long GetItemData(int index) const;
  // The entries changed: nothing highlighted, the top shown.
  void Reset();
  // The highlighted entry, -1 for none.
  int GetSelection() const { return mSelection; }
  // Highlights `index` (-1: none) and scrolls it into view.
  void SetSelection(int index);
  int GetItemHeight() const { return mItemHeight; }
  int GetTopIndex() const { return mTop; }

  // Shows the list at `screenRect` and takes the mouse; Drop(false) lets it
  // go and hides the list.
  void Drop(wxRect const & screenRect);
  void CloseUp();
  bool IsDropped() const { return mDropped; }
  // Whether the list holds the pointer now.
  bool HoldsPointer() const { return mHoldsPointer; }

  // A key while the list is open; false when the list does not use it.
  bool HandleKey(int keyCode);

private:
  void OnPaint(wxPaintEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnLeftUp(wxMouseEvent & event);
  void OnMotion(wxMouseEvent & event);
  void OnWheel(wxMouseEvent & event);
  void Tell(unsigned message);
  int VisibleRows() const;
  int RowAt(int y) const;
  bool HasScrollStrip() const;
  int StripLeft() const;
  void ScrollTo(int top);
  void ScrollToStrip(int y);
  void ReleaseMouse();

  PropertyInPlaceComboBox * mCombo;
  int mSelection = -1;
  int mTop = 0;
  int mItemHeight;
  bool mDropped = false;
  bool mHoldsPointer = false;
  bool mInStrip = false;  // the press began on the scroll strip
};
