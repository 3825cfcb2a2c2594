#pragma once
// The strip under a property list's rows that shows the selected row's name
// and description. A child of the list laid over the bottom of its window,
// outside the rows' area; the list draws it (PropertyListCtrl::DrawDetails).

#include <wx/window.h>

class PropertyListCtrl;

class PropertyDetailsPane : public wxWindow {
public:
  explicit PropertyDetailsPane(PropertyListCtrl * list);

  // Lays the pane over the bottom of the list's window.
  void Place();

  // Only shows: the focus stays with the rows and their editor.
  bool AcceptsFocus() const override { return false; }
  bool AcceptsFocusFromKeyboard() const override { return false; }

private:
  void OnPaint(wxPaintEvent & event);

  PropertyListCtrl * mList;
};
