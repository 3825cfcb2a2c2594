#pragma once
// What an application derives from to take part in the favourites pane: it
// opens what the user picks, gives each item its icons, stores and reloads
// collections of favourites, and hears of changes through its virtual
// operations. It owns neither the tree nor the items: the tree's rows own
// their items, and every storage operation is a forward to the attached
// tree. Collections are told apart by an id; -1 when there is only one.
//
// The virtual operations are a fixed order of slots; nothing is inserted,
// removed or reordered.

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include <wx/icon.h>
#include <wx/imaglist.h>
#include <wx/string.h>

#include "favourites/FileTypeIcons.h"

class ConfigurationSection;
class FavouriteItem;
class FavouritesTree;
class wxMenu;

// Command id to image index in a command image list.
using CommandImageMap = std::unordered_map<uint16_t, int>;

class FavouritesManager {
public:
  // Standard images by index (bitmap 16006, else 16005).
  enum StandardImage : int {
    kPlaceholderImage = 0,
    kFolderClosedImage = 1,
    kFolderOpenImage = 2,
    kItemImage = 3,
    kGlobalItemImage = 4,
    kFolderAsItemImage = 5,
    kCommandImage = 7,
    kMissingFileIconImage = 8,
  };
  static constexpr unsigned int kStandardImagesBitmap = 16006;
  static constexpr unsigned int kStandardImagesFallbackBitmap = 16005;

  FavouritesManager();
  FavouritesManager(FavouritesManager const &) = delete;
  FavouritesManager & operator=(FavouritesManager const &) = delete;

  virtual ~FavouritesManager();
  // Writes collection `id` of the tree to an XML file at `path`. Failures
  // of the file reach the caller as Exception; the result is Flush's.
  virtual bool SaveFavourites(wxString const & path, int id) const;
  // Replaces collection `id` by the favourites of the file at `path`. A file
  // that is no favourites file is told in a dialog and changes nothing.
  // Always true: it is no sign of success.
  virtual bool LoadFavourites(wxString const & path, int id);
  // A tree was attached. Nothing here.
  virtual void OnInitialUpdate();
  // The tree's window is going, before it frees its items. Nothing here.
  virtual void OnDestroy();
  // Opens the items in order and deletes them (they are copies made for
  // this call). What failed is told at the end in one dialog.
  virtual void Open(std::vector<FavouriteItem *> * items);
  // The icons of `item` in the tree: normal and expanded.
  virtual void GetIcon(FavouriteItem const * item, wxIcon & normal, wxIcon & expanded);
  // Asked before an item joins the tree: false vetoes, `id` directs it to a
  // collection. Here: collection -1, true.
  virtual bool OnAddToFavourites(FavouriteItem * item, int & id);
  // The context menu, just before it is shown. Nothing here.
  virtual void OnShowPopupMenu(wxMenu * menu, FavouriteItem * item);
  // The contents of collection `id` changed. Nothing here.
  virtual void OnFavouritesChanged(int id);

  // Forwards to the attached tree. Without a tree: false, or nothing.
  bool LoadFavouriteNode(ConfigurationSection * section, int id);
  bool SaveFavouriteNode(ConfigurationSection * section, int id) const;
  void DeleteFavouriteNode(int id);
  void RemoveAll();
  void Serialize(ConfigurationSection * section, bool saving);

  // "Favourites": the section that holds the stored favourites.
  static char const * GetRootSectionKey();
  // "FavouriteItem": the numbered sub-sections of the items.
  static char const * GetFavouriteItemSectionKey();

  // Adds the images of tool bar `id` (bitmap and RT_TOOLBAR resource of that
  // number) to `images` and maps each command the tool bar shows to its
  // image, the first tool bar that shows a command deciding. False when
  // either resource is missing or unreadable.
  static bool LoadToolBar(unsigned int id, wxImageList & images, CommandImageMap & map);

  wxImageList & GetStandardImageList() { return mStandardImages; }
  wxImageList & GetCommandImageList() { return mCommandImages; }
  CommandImageMap const & GetCommandImageMap() const { return mCommandImageMap; }
  FavouritesTree * GetFavouritesTree() const { return mTree; }

protected:
  friend class FavouritesTree;  // attaches itself
  void SetFavouritesTree(FavouritesTree * tree) { mTree = tree; }
  // The images of the attached view's tool bars; nothing without a tree.
  void LoadCommandImageList();

private:
  // A shared copy is made only where it is stored.
  wxIcon const & StandardIcon(int index) const;
  // The command's image from the tool bars, else the standard one.
  void CommandIcon(int id, wxIcon & icon);

  wxImageList mStandardImages;
  wxImageList mCommandImages;
  CommandImageMap mCommandImageMap;
  bool mCommandImagesLoaded = false;
  FavouritesTree * mTree = nullptr;
  // The standard images as icons, made once: GetIcon hands out shared copies.
  std::vector<wxIcon> mStandardIcons;
  FileTypeIcons mFileIcons;
};
