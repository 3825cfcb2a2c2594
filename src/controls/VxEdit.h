#pragma once
// The family's edit box: a hint text shown in italics and the hint colour
// while the box is empty and unfocused (the box then reads as empty), a
// numeric mode that lets only digits through, a selection readable in
// user-perceived characters, and notice 32769 to the parent when the
// selection changes. Positions are code points here, as wx counts them.
//
// The hint is the box's own text rather than GTK's placeholder, which is
// single-line only and drawn in the theme's look.

#include <wx/textctrl.h>

#include "platform/WinGdi.h"

class VxEdit : public wxTextCtrl {
public:
  // The message the parent gets, wParam the edit, lParam start << 16 | end.
  static constexpr unsigned kSelectionNotice = 32769;

  VxEdit(wxWindow * parent, wxWindowID id, wxString const & value = wxString(),
         wxPoint const & position = wxDefaultPosition, wxSize const & size = wxDefaultSize,
         long style = 0);

  void SetBackgroundColor(COLORREF colour);
  void SetTextColor(COLORREF colour);
  void SetNumeric(int numeric, int allowNegative);
  void SetHintText(wchar_t const * hint);
  void RemoveHintText();
  bool IsHintShowing() const { return mHintShowing; }

  // "" while the hint shows; the length of the shown text is not hidden.
  wxString GetValue() const override;

  void GetGraphemeClusterSel(int & start, int & end) const;
  void SetGraphemeClusterSel(int start, int end, int noScroll);
  void ConvertToGraphemeClusterSel(int start, int end, int & clusterStart, int & clusterEnd) const;

  // Whether the numeric filter lets `key` through with the current text
  // and selection (the handler of character events asks it).
  bool AcceptsCharacter(int key) const;

private:
  void OnChar(wxKeyEvent & event);
  void OnSetFocus(wxFocusEvent & event);
  void OnKillFocus(wxFocusEvent & event);
  void OnKeyDown(wxKeyEvent & event);
  void OnMouse(wxMouseEvent & event);
  void ShowHint(bool showing);
  void ApplyColours();
  void NotifySelection(bool always);

  COLORREF mBackgroundColour;
  COLORREF mTextColour;
  COLORREF mHintColour;
  bool mSelecting = false;
  long mLastSelectionEnd = -1;
  long mLastSelectionStart = 0;
  int mNumeric = 0;
  int mAllowNegative = 1;
  wxString mHint;
  bool mHintShowing = false;
  wxFont mRegularFont;
};
