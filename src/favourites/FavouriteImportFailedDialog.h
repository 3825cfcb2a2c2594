#pragma once
// Tells that a file could not be imported as favourites, in the manner of a
// task dialog: the application's name as title, the error icon, a main
// instruction, the content, and the reason behind an expander that starts
// open and is labelled "Hide details" / "Show details". (The stock rich
// message dialog keeps its expander labels to itself.)

#include <wx/dialog.h>
#include <wx/string.h>

class wxCollapsiblePane;
class wxCollapsiblePaneEvent;

class FavouriteImportFailedDialog : public wxDialog {
public:
  // `fileName` without its folder; `why` the failure's text.
  FavouriteImportFailedDialog(wxWindow * parent, wxString const & fileName, wxString const & why);

  wxString GetInstruction() const;
  wxString GetContent() const;
  wxString GetDetails() const;
  bool IsExpanded() const;
  wxString GetExpanderLabel() const;
  // Opens or closes the details as a click on the expander does.
  void SetExpanded(bool expanded);

private:
  void OnPaneChanged(wxCollapsiblePaneEvent & event);
  void UpdateExpanderLabel();

  wxString mInstruction;
  wxString mContent;
  wxString mDetails;
  // GTK's expander does not give its label back.
  wxString mExpanderLabel;
  wxCollapsiblePane * mPane = nullptr;
};

// Shows the dialog modally.
void ShowFavouriteImportFailure(wxWindow * parent, wxString const & fileName, wxString const & why);
