#include "favourites/FavouritesManager.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/mdi.h>
#include <boost/format.hpp>

#include "controls/GUIUtilities.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteImportFailedDialog.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouriteItemClass.h"
#include "favourites/FavouriteOpenFailures.h"
#include "favourites/FavouritesTree.h"
#include "favourites/FavouritesView.h"
#include "favourites/ImageStrip.h"
#include "favourites/ToolBarResource.h"
#include "platform/ResourceModule.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"
#include "utl/Translation.h"
#include "utl/XercesXMLSection.h"

namespace {

wxWindow * MainWindow() { return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr; }

constexpr int kImageSize = 16;
// The standard strip's transparent colour.
wxColour const kStandardMask(0xFF, 0x00, 0xFF);
// Tool bar strips without alpha: what the old 16-colour bitmaps used as
// button face.
wxColour const kToolBarMask(0xC0, 0xC0, 0xC0);

// The frame's own window-arrangement commands (cascade, tile horizontally,
// tile vertically): a user's explicit arrangement is not overridden.
constexpr int kFirstArrangeCommand = 57650;
constexpr int kLastArrangeCommand = 57652;

// Freezes the MDI client while several favourites open, so that the
// windows appear arranged at once; thawed whatever escapes.
class FrozenWindow {
public:
  explicit FrozenWindow(wxWindow * window) : mWindow(window) {
    if (mWindow != nullptr) mWindow->Freeze();
  }
  FrozenWindow(FrozenWindow const &) = delete;
  FrozenWindow & operator=(FrozenWindow const &) = delete;
  ~FrozenWindow() {
    if (mWindow != nullptr) mWindow->Thaw();
  }

private:
  wxWindow * mWindow;
};

// Deletes the items handed to Open, whatever escapes.
class ItemsDeleter {
public:
  explicit ItemsDeleter(std::vector<FavouriteItem *> * items) : mItems(items) {}
  ItemsDeleter(ItemsDeleter const &) = delete;
  ItemsDeleter & operator=(ItemsDeleter const &) = delete;
  ~ItemsDeleter() {
    if (mItems == nullptr) return;
    for (FavouriteItem *& item : *mItems) {
      delete item;
      item = nullptr;
    }
  }

private:
  std::vector<FavouriteItem *> * mItems;
};

void AppendFailure(wxString & details, wxString const & name, wxString const & why) {
  if (name.empty()) {
    details += why;
  } else {
    char const * const pattern = details.empty() ? "%1%: %2%" : "\r\n%1%: %2%";
    details +=
        wxString::FromUTF8((boost::format(pattern) % name.utf8_string() % why.utf8_string()).str());
  }
}

bool IsArrangeCommand(FavouriteItem const * item) {
  auto const * const command = dynamic_cast<FavouriteCommandItem const *>(item);
  return command != nullptr && command->GetCommandID() >= kFirstArrangeCommand &&
         command->GetCommandID() <= kLastArrangeCommand;
}

bool Contains(std::vector<wxMDIChildFrame *> const & frames, wxMDIChildFrame const * frame) {
  return std::find(frames.begin(), frames.end(), frame) != frames.end();
}

// Restores the newly opened children and, with `tile`, lets only them share
// the client area: the others are hidden while the frame tiles. GTK's stock
// MDI is tabbed, its Tile does nothing and it shows the children raised;
// an application's own MDI frame tiles, so the order is kept for it.
void ArrangeOpenedChildren(wxMDIParentFrame & parent, std::vector<wxMDIChildFrame *> const & opened,
                           std::vector<wxMDIChildFrame *> const & before, bool tile) {
  for (wxMDIChildFrame * const frame : opened) frame->Restore();
  if (tile) {
    std::vector<wxMDIChildFrame *> hidden;
    for (wxMDIChildFrame * const frame : before) {
      if (Contains(opened, frame) || !frame->IsShown()) continue;
      frame->Hide();
      hidden.push_back(frame);
    }
    parent.Tile();
    for (wxMDIChildFrame * const frame : hidden) frame->Show();
  }
  for (wxMDIChildFrame * const frame : opened) frame->Raise();
}

}  // namespace

FavouritesManager::FavouritesManager() {
  wxBitmap strip = LoadResourceBitmap(kStandardImagesBitmap);
  if (strip.IsOk()) {
    mStandardImages.Create(kImageSize, kImageSize, true, 10);
  } else {
    strip = LoadResourceBitmap(kStandardImagesFallbackBitmap);
    mStandardImages.Create(kImageSize, kImageSize, true, 1);
  }
  if (strip.IsOk()) AddImageStrip(mStandardImages, strip, &kStandardMask);
  mCommandImages.Create(kImageSize, kImageSize, true, 10);
  for (int i = 0; i < mStandardImages.GetImageCount(); ++i)
    mStandardIcons.push_back(mStandardImages.GetIcon(i));
}

FavouritesManager::~FavouritesManager() {
  // The tree may outlive its manager (its window dies at idle time).
  if (mTree != nullptr && mTree->GetFavouritesManager() == this)
    mTree->SetFavouritesManager(nullptr);
}

bool FavouritesManager::SaveFavourites(wxString const & path, int id) const {
  std::unique_ptr<XercesXMLSection> const section(
      new XercesXMLSection(path.utf8_str().data(), true));
  SaveFavouriteNode(section.get(), id);
  return section->Flush();
}

bool FavouritesManager::LoadFavourites(wxString const & path, int id) {
  try {
    // A file that is no favourites file fails here, before the tree is
    // touched.
    std::unique_ptr<XercesXMLSection> const section(
        new XercesXMLSection(path.utf8_str().data(), true));
    if (mTree != nullptr) DeleteFavouriteNode(id);
    LoadFavouriteNode(section.get(), id);
  } catch (Exception const & e) {
    ShowFavouriteImportFailure(MainWindow(), wxFileName(path).GetFullName(),
                               wxString::FromUTF8(e.Why()));
  }
  return true;
}

void FavouritesManager::OnInitialUpdate() {}

void FavouritesManager::OnDestroy() {}

void FavouritesManager::Open(std::vector<FavouriteItem *> * items) {
  ItemsDeleter const deleteItems(items);
  if (items == nullptr || items->empty()) return;
  std::vector<FavouriteItem *> const copies(*items);
  std::vector<wxMDIChildFrame *> visible;
  GUIUtilities::GetMDIChildWnds(&visible, true);
  bool tile = true;
  int errors = 0;
  wxString details;
  std::vector<wxMDIChildFrame *> opened;
  auto * const mdiParent = dynamic_cast<wxMDIParentFrame *>(MainWindow());
  bool const several = copies.size() > 1;
  {
    FrozenWindow const frozen(several && mdiParent != nullptr ? mdiParent->GetClientWindow()
                                                              : nullptr);
    for (size_t i = 0; i < copies.size(); ++i) {
      wxString name;
      try {
        FavouriteItem * const item = copies[i];
        if (item == nullptr)
          throw Exception(ExceptionMessage::translate("'Open Favorites' was canceled. The item "
                                                      "number {1} became invalid.\n") %
                          static_cast<int>(i + 1));
        name = item->GetName();
        if (!item->Enable()) throw Exception(ExceptionMessage::translate("Not available."));
        wxWindow * const frame = item->Open();
        if (IsArrangeCommand(item)) tile = false;
        if (auto * const child = dynamic_cast<wxMDIChildFrame *>(frame)) opened.push_back(child);
      } catch (Exception const & e) {
        ++errors;
        AppendFailure(details, name, wxString::FromUTF8(e.Why()));
      } catch (std::runtime_error const & e) {
        ++errors;
        AppendFailure(details, name, wxString::FromUTF8(e.what()));
      }
    }
    if (opened.size() > 1 && mdiParent != nullptr)
      ArrangeOpenedChildren(*mdiParent, opened, visible, tile);
  }
  if (details.empty()) return;
  char const * headline = "Not all favorites could be opened.";
  if (copies.size() == 1)
    headline = "The selected favorite could not be opened.";
  else if (errors == static_cast<int>(copies.size()))
    headline = "The selected favorites could not be opened.";
  ShowFavouriteOpenFailures(MainWindow(), vx3::Tr(headline), details);
}

void FavouritesManager::GetIcon(FavouriteItem const * item, wxIcon & normal, wxIcon & expanded) {
  // Emptied in place: no icon is made to be copied from.
  normal.UnRef();
  expanded.UnRef();
  if (item == nullptr) {
    normal = StandardIcon(kPlaceholderImage);
    expanded = normal;
    return;
  }
  FavouriteItemClass const itemClass(item);
  if (auto const * const folder = itemClass.As<FavouriteFolderItem>()) {
    if (folder->GetTreatAsItem()) {
      normal = StandardIcon(kFolderAsItemImage);
    } else {
      normal = StandardIcon(kFolderClosedImage);
      expanded = StandardIcon(kFolderOpenImage);
    }
  } else if (!itemClass.IsLibraryClass() && item->GetType() == wxS("RootItem")) {
    // A root row has no icon of its own. (No class of the library's is one.)
  } else if (auto const * const command = itemClass.As<FavouriteCommandItem>()) {
    CommandIcon(command->GetCommandID(), normal);
  } else if (auto const * const file = itemClass.As<FavouriteFileItem>()) {
    normal = mFileIcons.Get(file->GetFileName());
    if (!normal.IsOk()) normal = StandardIcon(kMissingFileIconImage);
    expanded = normal;
    return;
  }
  if (!normal.IsOk()) normal = StandardIcon(item->IsGlobal() ? kGlobalItemImage : kItemImage);
  if (!expanded.IsOk()) expanded = normal;
}

void FavouritesManager::CommandIcon(int id, wxIcon & icon) {
  if (!mCommandImagesLoaded) {
    LoadCommandImageList();
    mCommandImagesLoaded = true;
  }
  auto const found = mCommandImageMap.find(static_cast<uint16_t>(id));
  if (found != mCommandImageMap.end() && found->second < mCommandImages.GetImageCount())
    icon = mCommandImages.GetIcon(found->second);
  else
    icon = StandardIcon(kCommandImage);
}

bool FavouritesManager::OnAddToFavourites(FavouriteItem * /*item*/, int & id) {
  id = -1;
  return true;
}

void FavouritesManager::OnShowPopupMenu(wxMenu * /*menu*/, FavouriteItem * /*item*/) {}

void FavouritesManager::OnFavouritesChanged(int /*id*/) {}

bool FavouritesManager::LoadFavouriteNode(ConfigurationSection * section, int id) {
  if (mTree == nullptr) return false;
  mTree->Serialize(section, false, id);
  return true;
}

bool FavouritesManager::SaveFavouriteNode(ConfigurationSection * section, int id) const {
  if (mTree == nullptr) return false;
  mTree->Serialize(section, true, id);
  return true;
}

void FavouritesManager::DeleteFavouriteNode(int id) {
  if (mTree != nullptr) mTree->DeleteFavouriteNode(id);
}

void FavouritesManager::RemoveAll() {
  if (mTree != nullptr) mTree->DeleteTree();
}

void FavouritesManager::Serialize(ConfigurationSection * section, bool saving) {
  if (mTree != nullptr) mTree->Serialize(section, saving, -1);
}

char const * FavouritesManager::GetRootSectionKey() { return "Favourites"; }

char const * FavouritesManager::GetFavouriteItemSectionKey() { return "FavouriteItem"; }

bool FavouritesManager::LoadToolBar(unsigned int id, wxImageList & images, CommandImageMap & map) {
  wxBitmap const strip = LoadResourceBitmap(id);
  if (!strip.IsOk()) return false;
  std::string const bytes = LoadResourceBytes(id, RT_TOOLBAR);
  ToolBarLayout layout;
  if (bytes.empty() || !ParseToolBarResource(bytes, layout)) return false;
  int next = images.GetImageCount();
  AddImageStrip(images, strip, strip.HasAlpha() ? nullptr : &kToolBarMask);
  for (uint16_t const command : layout.items) {
    if (command == 0) continue;
    map.emplace(command, next);  // keeps the first tool bar's image
    ++next;
  }
  return true;
}

void FavouritesManager::LoadCommandImageList() {
  // The tool bars are the view's; a free-standing tree has none, and its
  // commands keep the standard image. A missing tool bar is passed over.
  auto const * const view =
      mTree != nullptr ? dynamic_cast<FavouritesView const *>(mTree->GetParent()) : nullptr;
  if (view == nullptr) return;
  for (int const id : view->GetToolbarIDs())
    LoadToolBar(static_cast<unsigned int>(id), mCommandImages, mCommandImageMap);
}

wxIcon const & FavouritesManager::StandardIcon(int index) const {
  if (index < 0 || static_cast<size_t>(index) >= mStandardIcons.size()) return wxNullIcon;
  return mStandardIcons[static_cast<size_t>(index)];
}
