// Files dropped on the favourites tree from the desktop (XDND): each file
// becomes a favourite through the tree's factory; folders are refused.

#include <exception>

#include <wx/dnd.h>

#include "favourites/FavouritesTree.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/Translation.h"

namespace {

// A name the file system can take back as it came: an absolute path whose
// characters convert to the file system's bytes. A name that does not is
// refused rather than stored broken.
bool IsLocalFileName(wxString const & path) {
  if (path.empty() || path[0] != '/') return false;
  wxCharBuffer const bytes = path.fn_str();
  return bytes.data() != nullptr && bytes.length() > 0;
}

class FavouritesDropTarget : public wxFileDropTarget {
public:
  explicit FavouritesDropTarget(FavouritesTree & tree) : mTree(tree) {}

  bool OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, wxArrayString const & names) override {
    std::vector<wxString> const paths(names.begin(), names.end());
    try {
      mTree.DropFiles(paths);
    } catch (std::exception const & e) {
      AfxMessageBox(wxString::FromUTF8(e.what()), MB_ICONEXCLAMATION);
      return false;
    }
    return true;
  }

private:
  FavouritesTree & mTree;
};

}  // namespace

void FavouritesTree::DragAcceptFiles(bool accept) {
  SetDropTarget(accept ? new FavouritesDropTarget(*this) : nullptr);
}

void FavouritesTree::DropFiles(std::vector<wxString> const & paths) {
  bool folderTold = false;
  bool refusedTold = false;
  for (wxString const & path : paths) {
    if (!IsLocalFileName(path)) {
      if (!refusedTold)
        AfxMessageBox(vx3::Tr("Only files of this computer can be dropped as a favourite."),
                      MB_ICONEXCLAMATION);
      refusedTold = true;
      continue;
    }
    if (VxFileExist(path.utf8_string()) == VxFolder) {
      if (!folderTold)
        AfxMessageBox(vx3::Tr("Folders cannot be dropped as a favourite."), MB_ICONEXCLAMATION);
      folderTold = true;
      continue;
    }
    // An empty factory throws boost::bad_function_call ("call to empty
    // boost::function").
    AddToFavourites(mFileFactory(path.wc_str()));
  }
}
