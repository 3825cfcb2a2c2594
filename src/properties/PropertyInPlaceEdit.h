#pragma once
// The text editor laid over the value cell of a property row: one line,
// "DummyText" high, centred in the cell, 3 pixels in from either side.
//
// Tab, Return and Escape commit and hand the focus back to the list (Escape
// never cancels); Up and Down do the same and then pass the key on, so the
// list moves to the next row. They are taken in the char hook, so a dialog
// around the list neither closes nor presses its default button.
//
// Committing runs the validation function, then ProcessData, which sends
// kInPlaceDataChanged to the owner (else the parent). It happens on
// kill-focus and when the list calls Commit (destroying a focused edit, or
// an edit of an inactive window, delivers no kill-focus); it runs once a
// change, so the list never takes the same edit twice.

#include <wx/textctrl.h>

#include "platform/WinGeometry.h"

class PropertyInPlaceEdit : public wxTextCtrl {
public:
  // Runs before the list takes the text; may put the text back (SetText).
  using ValidateFunction = void (*)(PropertyInPlaceEdit * edit, void * context);

  // Windows edit styles the items ask for; others are ignored.
  static constexpr unsigned long kNumberStyle = 0x2000;    // ES_NUMBER: digits only
  static constexpr unsigned long kReadOnlyStyle = 0x0800;  // ES_READONLY

  // `rect` is the value cell in the parent's client coordinates.
  PropertyInPlaceEdit(wxWindow * parent, RECT const & rect, wxString const & text,
                      unsigned long style = 0, ValidateFunction validate = nullptr,
                      void * context = nullptr);

  // As the items of the original made it; the parent owns the result.
  static PropertyInPlaceEdit * CreateInPlaceControl(wchar_t const * text, wxWindow * parent,
                                                    RECT rect, unsigned long style,
                                                    ValidateFunction validate, void * context);

  // Stores `text` as the start text, shows it and puts the caret at its end.
  void SetText(wchar_t const * text);
  wxString const & GetStartText() const { return mStartText; }
  // Lays the edit over a new cell.
  void MoveControl(RECT const & rect);

  // Where kInPlaceDataChanged goes; null (the default): the parent.
  void SetOwner(wxWindow * owner) { mOwner = owner; }
  wxWindow * GetOwner() const { return mOwner; }

  // Validates and sends kInPlaceDataChanged if the text changed since the
  // last commit (or since it was set). Returns whether it committed.
  bool Commit();
  bool HasUncommittedChange() const { return mChanged; }

  // Sends kInPlaceDataChanged.
  virtual void ProcessData();

private:
  void OnCharHook(wxKeyEvent & event);
  void OnChar(wxKeyEvent & event);
  void OnText(wxCommandEvent & event);
  void OnKillFocus(wxFocusEvent & event);

  wxString mStartText;
  ValidateFunction mValidate;
  void * mContext;
  unsigned long mStyle;
  wxWindow * mOwner = nullptr;
  bool mChanged = false;
  bool mCommitting = false;
};
