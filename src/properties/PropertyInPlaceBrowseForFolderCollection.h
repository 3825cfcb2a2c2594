#pragma once
// The editor of a folder list ("/a;/b;"): "..." opens the
// FolderCollectionDialog with the data, the dialog's title and its prompt;
// OK takes the folders it was left with.

#include "properties/PropertyInPlaceBrowseForFolder.h"

class PropertyInPlaceBrowseForFolderCollection : public PropertyInPlaceBrowseForFolder {
public:
  PropertyInPlaceBrowseForFolderCollection(wxWindow * parent, RECT const & rect,
                                           wxString const & title, wxString const & prompt,
                                           wxString const & data = wxString());
  // The parent owns the result.
  static PropertyInPlaceBrowseForFolderCollection * CreateInPlaceControl(wxWindow * parent,
                                                                         RECT rect,
                                                                         wxString const & title,
                                                                         wxString const & prompt);

  wxString const & GetTitle() const { return mTitle; }
  wxString const & GetPrompt() const { return mPrompt; }

protected:
  bool OnBrowse() override;

private:
  wxString mTitle;
  wxString mPrompt;
};
