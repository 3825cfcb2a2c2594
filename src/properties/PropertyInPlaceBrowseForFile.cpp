#include "properties/PropertyInPlaceBrowseForFile.h"

#include "platform/WinUser.h"
#include "properties/SelectFileDialog.h"

PropertyInPlaceBrowseForFile::PropertyInPlaceBrowseForFile(wxWindow * parent, RECT const & rect,
                                                           wxString const & data)
    : PropertyInPlaceEditAndBrowse(parent, rect, data) {}

PropertyInPlaceBrowseForFile * PropertyInPlaceBrowseForFile::CreateInPlaceControl(wxWindow * parent,
                                                                                  RECT rect) {
  return new PropertyInPlaceBrowseForFile(parent, rect);
}

bool PropertyInPlaceBrowseForFile::OnBrowse() {
  SelectFileDialog dialog(GetData().wc_str(), this);
  if (dialog.DoModal() != IDOK) return false;
  wxString const path = dialog.GetPathName();
  if (path.empty()) return false;
  StoreData(path);
  return true;
}
