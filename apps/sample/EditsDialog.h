#pragma once
// The sample's "Edits" dialog: the family's edit boxes side by side. A
// search box with its hint, a numeric box for the number of runs to keep,
// a find box that selects runs in the list as the user types (its choice
// says how the text matches), and a filter box that, once the typing has
// stopped, shows how many run names contain the text.

#include <wx/dialog.h>

#include "controls/VxTimedEdit.h"

class CListCtrl;
class VxEdit;
class VxFindAndSelectEdit;
class wxChoice;
class wxFrame;
class wxMenu;
class wxStaticText;

class EditsDialog : public wxDialog, private TimedEditParent {
public:
  explicit EditsDialog(wxWindow * parent);

  VxEdit & GetSearch() const { return *mSearch; }
  VxEdit & GetKeep() const { return *mKeep; }
  VxFindAndSelectEdit & GetFind() const { return *mFind; }
  wxChoice & GetHow() const { return *mHow; }
  CListCtrl & GetRuns() const { return *mRuns; }
  TimedEditBox & GetFilter() const { return *mFilter; }
  wxStaticText & GetFilterResult() const { return *mFilterResult; }

private:
  void OnTimedEditChanged(TimedEditBox * box, wchar_t const * text) override;

  VxEdit * mSearch = nullptr;
  VxEdit * mKeep = nullptr;
  VxFindAndSelectEdit * mFind = nullptr;
  wxChoice * mHow = nullptr;
  CListCtrl * mRuns = nullptr;
  TimedEditBox * mFilter = nullptr;
  wxStaticText * mFilterResult = nullptr;
};

// Appends the command to `menu`; `frame` handles it.
void AddEditsCommand(wxMenu & menu, wxFrame & frame);
