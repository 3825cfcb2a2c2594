#pragma once
// The "..." button of PropertyInPlaceEditAndBrowse: flat, drawn here (a
// toolkit button costs more to make than the edit beside it, and an editor
// is made on every selection change), pressed while the pointer holds it.
// A click runs the frame's Browse. It takes no focus from the edit until
// pressed, when it takes it so that the edit commits first.

#include <wx/window.h>

class PropertyInPlaceEditAndBrowse;

class PropertyInPlaceBrowseButton : public wxWindow {
public:
  explicit PropertyInPlaceBrowseButton(PropertyInPlaceEditAndBrowse * frame);

  bool AcceptsFocusFromKeyboard() const override { return false; }

private:
  void OnPaint(wxPaintEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnLeftUp(wxMouseEvent & event);

  PropertyInPlaceEditAndBrowse * mFrame;
  bool mPressed = false;
};
