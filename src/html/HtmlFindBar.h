#pragma once
// A find bar under a browser: a text, next and previous, and a close box,
// searching in the browser as the user types. Escape closes it and
// gives the focus back to the browser. HTML views and the audit view share
// it.

#include <wx/panel.h>

class wxStaticText;
class wxTextCtrl;
class HtmlBrowser;

class HtmlFindBar : public wxPanel {
public:
  HtmlFindBar(wxWindow * parent, HtmlBrowser * browser);

  // Shows the bar (the parent lays it out) with the focus in its text.
  void Open();
  void Close();

  // Searches the current text forwards or backwards; the matches found, or
  // -1 (and "Not found" in the bar) for none.
  long FindNext(bool backwards = false);

  wxTextCtrl * GetTextCtrl() const { return mText; }
  wxString GetStatusText() const;

private:
  void OnText(wxCommandEvent & event);
  void OnCharHook(wxKeyEvent & event);

  HtmlBrowser * mBrowser;
  wxTextCtrl * mText;
  wxStaticText * mStatus;
};
