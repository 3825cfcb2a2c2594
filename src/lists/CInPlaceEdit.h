#pragma once
// The edit that lies over a cell of a VxListCtrl while the user edits it.
// Return commits, Escape cancels, Tab and the page and arrow keys move it
// to another cell; it grows to fit its text and never shrinks. Its keys
// are taken before any dialog sees them. It ends itself: the list asks
// AcceptEdit or, failing that, its parent (LVN_ENDLABELEDIT), and the
// window goes.

#include <wx/textctrl.h>

class VxListCtrl;

class CInPlaceEdit : public wxTextCtrl {
public:
  // Made by VxListCtrl::EditSubLabel over the cell's rectangle (`rect`, in
  // the list's client coordinates); `align` is wxTE_LEFT, wxTE_RIGHT or
  // wxTE_CENTRE.
  CInPlaceEdit(VxListCtrl * list, int row, int column, wxString const & text, wxRect const & rect,
               long align);

  int GetRow() const { return mRow; }
  int GetColumn() const { return mColumn; }
  bool IsCancelled() const { return mCancelled; }

  // Ends the edit now, as the focus leaving it does: the text, trimmed,
  // goes to the list unless it was cancelled. Once only.
  void Commit();
  // Escape: ends the edit cancelled.
  void Cancel();
  // The list goes first: the edit ends without telling it.
  void Detach() { mEnded = true; }

private:
  void OnCharHook(wxKeyEvent & event);
  void OnText(wxCommandEvent & event);
  void OnKillFocus(wxFocusEvent & event);
  void OnFirstIdle(wxIdleEvent & event);
  bool MoveTo(int keyCode, bool shift, bool control);
  void Grow();

  VxListCtrl * mList;
  int mRow;
  int mColumn;
  wxString mInitialText;
  bool mCancelled = false;
  bool mEnded = false;
};
