#pragma once
// The editor of a property row whose value is chosen in a dialog: a frame
// over the value cell holding an edit (id 2) and a flat "..." button at the
// right, 15 pixels wide. The frame draws the button itself and takes its
// clicks: a toolkit button, or any child window, costs about as much to
// make as the edit, and an editor is made on every selection change. The edit commits like
// PropertyInPlaceEdit (its keys go to the list, the frame's parent); on losing the focus, or when
// the list calls Commit, its text becomes the data and kInPlaceDataChanged goes to the owner, else
// the parent. The button runs OnBrowse; when it returns true the data goes to the edit, then
// kInPlaceDataChanged.

#include <wx/gdicmn.h>
#include <wx/string.h>
#include <wx/window.h>

#include "platform/WinGeometry.h"

class PropertyInPlaceEditAndBrowseEdit;

class PropertyInPlaceEditAndBrowse : public wxWindow {
public:
  static constexpr int kEditId = 2;
  static constexpr int kButtonWidth = 15;  // "..." and its margins

  // `rect` is the value cell in the parent's client coordinates; `data` is
  // shown with the caret where GTK puts it (SetData puts it at the end).
  PropertyInPlaceEditAndBrowse(wxWindow * parent, RECT const & rect,
                               wxString const & data = wxString());

  // The data, and the edit's text with the caret at its end.
  void SetData(wxString const & data);
  void GetData(wxString & data) const { data = mData; }
  wxString const & GetData() const { return mData; }
  // Lays the editor over a new cell.
  void MoveControl(RECT const & rect);

  // Takes the edit's text as the data and tells the owner, if it changed
  // since the last commit. Returns whether it committed.
  bool Commit();
  // Runs the browse button's work, as its click does.
  void Browse();

  // Where kInPlaceDataChanged goes; null (the default): the parent.
  void SetOwner(wxWindow * owner) { mOwner = owner; }
  wxWindow * GetOwner() const { return mOwner; }

  // Where the "..." button lies, in the frame's client coordinates.
  wxRect GetButtonRect() const;
  PropertyInPlaceEditAndBrowseEdit * GetEdit() const { return mEdit; }

protected:
  // Asks for a new value; true when one came (and is in the data).
  virtual bool OnBrowse() { return false; }
  // Sets the data without touching the edit.
  void StoreData(wxString const & data) { mData = data; }
  void SendDataChanged();

private:
  void OnPaint(wxPaintEvent & event);
  void OnSize(wxSizeEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnLeftUp(wxMouseEvent & event);
  void LayoutChildren();
  RECT EditPlace() const;

  wxString mData;
  PropertyInPlaceEditAndBrowseEdit * mEdit = nullptr;
  wxWindow * mOwner = nullptr;
  bool mPressed = false;  // the button, while the pointer holds it
};
