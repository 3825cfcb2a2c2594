#include "properties/PropertyInPlaceBrowseForFolder.h"

#include "dialogs/NativeChoosers.h"
#include "utl/Translation.h"

namespace {
constexpr size_t kMaxStartPath = 259;  // the longest path the original's chooser started at
}

PropertyInPlaceBrowseForFolder::PropertyInPlaceBrowseForFolder(wxWindow * parent, RECT const & rect,
                                                               wxString const & data)
    : PropertyInPlaceEditAndBrowse(parent, rect, data) {}

PropertyInPlaceBrowseForFolder * PropertyInPlaceBrowseForFolder::CreateInPlaceControl(
    wxWindow * parent, RECT rect) {
  return new PropertyInPlaceBrowseForFolder(parent, rect);
}

bool PropertyInPlaceBrowseForFolder::OnBrowse() {
  FolderChooserRequest request;
  request.parent = this;
  request.title = vx3::Tr("Select Folder");
  request.initialFolder = GetData().Left(kMaxStartPath);
  FolderChooserAnswer const answer = RunFolderChooser(request);
  if (!answer.accepted || answer.path.empty()) return false;
  StoreData(answer.path);
  return true;
}
