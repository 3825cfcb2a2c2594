#pragma once
// The control that shows and owns favourites: a VxTreeCtrl with multiple
// selection, label editing, drag and drop, and one FavouriteItem behind each
// row (FavouriteTreeData). It is the sole store of favourites while the
// program runs; the manager reaches them only through the operations here.
//
// The work is split by concept: FavouritesTree.cpp (rows, state, images,
// commands), FavouritesTreeSerialize.cpp, FavouritesTreeAdd.cpp,
// FavouritesTreeUpdate.cpp, FavouritesTreeMoves.cpp, FavouritesTreeDraw.cpp,
// FavouritesTreeMenu.cpp and FavouritesTreeDrop.cpp.
//
// The virtual operations it adds are a fixed order of slots.

#include <memory>
#include <vector>

#include <wx/font.h>
#include <wx/icon.h>
#include <wx/imaglist.h>
#include <boost/function.hpp>

#include "favourites/FavouriteTreeData.h"
#include "lists/VxTreeCtrl.h"
#include "platform/AcceleratorText.h"

class ConfigurationSection;
class FavouriteItem;
class KeptLabelLayouts;
class FavouritesManager;
class wxMenu;
class wxUpdateUIEvent;

class FavouritesTree : public VxTreeCtrl {
public:
  using FileFavouriteFactory = boost::function<FavouriteItem *(wchar_t const *)>;

  // The commands of the tree.
  enum Command : int {
    kAddCommand = 16178,
    kFolderAsItem = 16179,
    kNewFolder = 16180,
    kOpen = 16181,
    kRename = 16182,
    kBold = 16205,
    kMoveDown = 16206,
    kMoveLeft = 16207,
    kMoveRight = 16208,
    kMoveUp = 16209,
    kExport = 16272,
    kImport = 16274,
    kDelete = 16275,
  };
  static constexpr unsigned int kContextMenu = 16093;
  static constexpr unsigned int kContextMenuWithCtrl = 16094;
  static constexpr unsigned int kAcceleratorTable = 16260;
  // The style of a free-standing tree (CreateFavouritesTree).
  static constexpr DWORD kStyle =
      TVS_FULLROWSELECT | TVS_NOTOOLTIPS | TVS_SHOWSELALWAYS | TVS_EDITLABELS | TVS_HASBUTTONS;
  static constexpr int kMaxLabelLength = 127;
  static constexpr size_t kMaxToolTipLength = 1024;

  FavouritesTree();
  FavouritesTree(wxWindow * parent, wxWindowID id, DWORD style = kStyle);
  ~FavouritesTree() override;

  bool Create(wxWindow * parent, wxWindowID id, DWORD style = kStyle);

  // Stores the manager (not owned); a manager given is attached both ways
  // and hears OnInitialUpdate.
  void SetFavouritesManager(FavouritesManager * manager);
  FavouritesManager * GetFavouritesManager() const { return mManager; }
  // What a dropped file becomes; CreateFileFavourite at first.
  void SetFileFavouriteFactory(FileFavouriteFactory factory) { mFileFactory = std::move(factory); }
  // Makes the add-command command available for these commands.
  void EnableCommandItems(unsigned int const * ids, unsigned int count);
  std::vector<unsigned int> const & GetCommandItems() const { return mCommandItems; }

  // Takes the item over and inserts it where the selection says; a file
  // already under the same parent selects the old row instead.
  void AddToFavourites(FavouriteItem * item);
  // Writes (`saving`) or reads collection `id` under `section`.
  void Serialize(ConfigurationSection * section, bool saving, int id);
  using VxTreeCtrl::Serialize;
  void DeleteTree();
  // Frees and deletes the root rows of collection `id` with their branches.
  void DeleteFavouriteNode(int id);
  void OpenSelectedFavourites();
  // Idle-time upkeep: rows of files that have gone leave, placeholders of
  // empty folders come and go.
  void UpdateAllItems();
  // Moves the row (with its branch) under `parent` after `after`; the new row.
  HTREEITEM MoveItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after);

  bool IsEnabled(HTREEITEM row) const;
  bool IsFolderNode(HTREEITEM row) const;
  bool IsTrueFolderNode(HTREEITEM row) const;
  bool IsPlaceholder(HTREEITEM row) const {
    return IsValidItem(row) && GetTreeData(row) == nullptr;
  }
  void GetItemImage(FavouriteItem const * item, int & normal, int & expanded);
  // Bit 0 bold, bit 1 expanded.
  int GetItemStyle(HTREEITEM row) const;
  // A clear expanded bit does not collapse.
  void SetItemStyle(HTREEITEM row, int style);
  int GetDefaultCollectionID(HTREEITEM row) const;
  HTREEITEM GetDefaultParent(wchar_t const * type, int id) const;
  // The image of an icon; an icon already added (the same shared image
  // data) gives its old index. -1 for no icon.
  int AddIconToImageList(wxIcon const & icon);
  FavouriteTreeData * GetTreeData(HTREEITEM row) const;

  // Takes (or stops taking) files dropped from the desktop.
  void DragAcceptFiles(bool accept);
  // The paths of a file drop, as the desktop gives them.
  void DropFiles(std::vector<wxString> const & paths);
  // The context menu at a screen point; wxDefaultPosition: the keyboard.
  void ShowContextMenu(wxPoint screenPoint);
  bool IsContextMenuUp() const { return mContextMenuUp; }
  // The commands above: true when the tree took it.
  bool HandleCommand(int id);
  // Enables (and checks) one of the commands above; false for another id.
  bool UpdateCommand(wxUpdateUIEvent & event) const;

  // --- The base's hooks ----------------------------------------------------
  void DeleteSelectedItems(bool ask) override;
  void DeleteItemData(HTREEITEM row) override;
  void OnItemCopied(HTREEITEM source, HTREEITEM copy) override;
  bool IsDropSource(HTREEITEM row) override;
  HTREEITEM GetDropTarget(HTREEITEM target, bool & asChild) override;
  // Its own, in this order.
  virtual FavouriteItem * GetFavouriteItem(HTREEITEM row) const;
  virtual void DeleteChildItemData(HTREEITEM row);
  virtual bool CanDeleteItem(HTREEITEM row);

  // Handlers, public so that tests drive them.
  void OnTimer(UINT_PTR id) override;
  void OnFavouritesDelete();
  void OnFavouritesNewfolder();
  void OnFavouritesOpen();
  void OnFavouritesRename();
  void OnFavouritesFolderAsItem();
  void OnFavouriteItemBold();
  void OnFavouriteItemMoveDown();
  void OnFavouriteItemMoveLeft();
  void OnFavouriteItemMoveRight();
  void OnFavouriteItemMoveUp();
  void OnFavouritesExport();
  void OnFavouritesImport();
  bool IsHoverSelect() const { return mHoverSelect; }
  // Where the pointer last moved over the tree (client coordinates).
  POINT GetLastMousePoint() const { return mLastMouse; }

protected:
  void OnLButtonDblClk(UINT flags, POINT point) override;
  void OnMouseMove(UINT flags, POINT point) override;
  void OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags) override;
  // The labels of the rows are drawn from layouts kept between paints.
  bool PaintsOwnLabel(HTREEITEM item) const override;
  void PaintRow(wxDC & dc, HTREEITEM item, RECT const & label) override;

private:
  void Init();
  void OnNotify(NotifyEvent & event);
  LRESULT OnCustomDraw(NMTVCUSTOMDRAW & draw);
  // The row's font: the tree's, or its bold form.
  wxFont LabelFont(HTREEITEM row);
  LRESULT OnClick();
  LRESULT OnItemExpanding(NMTREEVIEWW const & info);
  LRESULT OnBeginLabelEdit();
  LRESULT OnEndLabelEdit(NMTVDISPINFOW const & info);
  void OnContextMenuEvent(wxContextMenuEvent & event);
  // Label editing of a row the code asks for (a click never starts one).
  void EditRow(HTREEITEM row);
  HTREEITEM InsertRow(FavouriteItem * item, int id, HTREEITEM parent, HTREEITEM after);
  HTREEITEM InsertPlaceholder(HTREEITEM folder, wxString const & text);
  void NotifyChanged(int id) const;
  void AppendOpenable(HTREEITEM folder, std::vector<FavouriteItem *> & items) const;
  int SelectedRowCount() const;
  void SaveCollection(ConfigurationSection * section, int id);
  void LoadCollection(ConfigurationSection * section, int id);

  FavouritesManager * mManager = nullptr;
  std::vector<wxIcon> mIcons;
  std::unique_ptr<wxImageList> mImages;
  std::vector<unsigned int> mCommandItems;
  bool mHoverSelect = true;
  bool mAllowLabelEdit = false;
  bool mContextMenuUp = false;
  POINT mLastMouse{};
  FileFavouriteFactory mFileFactory;
  std::vector<AcceleratorLine> mAccelerators;
  // The labels this paint draws itself, with the text colour each row was
  // given, in the order the rows are painted.
  struct OwnLabel {
    HTREEITEM row;
    COLORREF colour;
  };
  std::vector<OwnLabel> mOwnLabels;
  size_t mNextOwnLabel = 0;
  std::unique_ptr<KeptLabelLayouts> mLabelLayouts;
  // The label's height as the rows centre it: the font's when the tree was made.
  int mLabelHeight = 0;
  wxFont mBoldFont;
  wxFont mBoldFontOf;  // the tree's font mBoldFont was made from
};

namespace FavouritesUtilities {
// A free-standing tree: a child of `parent` with id `id`, multiple selection
// and deletion, file drops, attached to `manager` when one is given. The
// parent owns it as any child window.
FavouritesTree * CreateFavouritesTree(wxWindow * parent, FavouritesManager * manager,
                                      unsigned int id);
// A file favourite named by the file's name without its folder.
FavouriteItem * CreateFileFavourite(wchar_t const * path);
}  // namespace FavouritesUtilities
