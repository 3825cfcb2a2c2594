#include "properties/PropertyInPlaceBrowseForFolderCollection.h"

#include "dialogs/FolderCollectionDialog.h"
#include "platform/WinUser.h"

PropertyInPlaceBrowseForFolderCollection::PropertyInPlaceBrowseForFolderCollection(
    wxWindow * parent, RECT const & rect, wxString const & title, wxString const & prompt,
    wxString const & data)
    : PropertyInPlaceBrowseForFolder(parent, rect, data), mTitle(title), mPrompt(prompt) {}

PropertyInPlaceBrowseForFolderCollection *
PropertyInPlaceBrowseForFolderCollection::CreateInPlaceControl(wxWindow * parent, RECT rect,
                                                               wxString const & title,
                                                               wxString const & prompt) {
  return new PropertyInPlaceBrowseForFolderCollection(parent, rect, title, prompt);
}

bool PropertyInPlaceBrowseForFolderCollection::OnBrowse() {
  FolderCollectionDialog dialog(GetData().wc_str(), mTitle.wc_str(), mPrompt.wc_str(), this);
  if (dialog.DoModal() != IDOK) return false;
  StoreData(dialog.GetFolders());
  return true;
}
