// The favourites tree with a real window: storing and reading collections,
// where added favourites land, moves and drop targets, the idle upkeep,
// file drops, deleting, naming, the context menu and the row colours.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "controls/VxMenu.h"
#include "dialogs/NativeChoosers.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "favourites/KeptLabelLayouts.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"
#include "utl/XercesXMLSection.h"

// X's headers last: their macros (None, Status) would break the others.
#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>

namespace {

// Hears what the tree tells its manager; `veto` refuses additions.
class Manager : public FavouritesManager {
public:
  bool OnAddToFavourites(FavouriteItem * /*item*/, int & id) override {
    id = collection;
    return !veto;
  }
  void OnFavouritesChanged(int id) override { changed.push_back(id); }
  void Open(std::vector<FavouriteItem *> * items) override {
    for (FavouriteItem * item : *items) opened.push_back(item->GetName().utf8_string());
    FavouritesManager::Open(items);
  }
  int collection = -1;
  bool veto = false;
  std::vector<int> changed;
  std::vector<std::string> opened;
};

class Tree : public FavouritesTree {
public:
  using FavouritesTree::FavouritesTree;
  using FavouritesTree::OnLButtonDblClk;
  using FavouritesTree::OnMouseMove;
};

std::string TempPath(char const * name) {
  char const * const dir = std::getenv("TMPDIR");
  return std::string(dir != nullptr ? dir : "/tmp") + "/" + name;
}

void Touch(std::string const & path) {
  if (FILE * const file = std::fopen(path.c_str(), "w")) std::fclose(file);
}

FavouriteFolderItem * Folder(wchar_t const * name, wchar_t const * emptyText = nullptr) {
  return new FavouriteFolderItem(name, emptyText);
}

class FavouritesTreeTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "favourites", wxPoint(40, 40), wxSize(320, 420));
    tree = new Tree(frame, 16258);
    tree->EnableMultiSelect(true);
    tree->EnableDelete(true);
    tree->SetFavouritesManager(&manager);
    frame->Show();
    gui_test::Flush();
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Adds with `selected` (expanded) as the only selected row: into a folder,
  // behind a leaf. Without a selection a favourite goes into the first folder
  // of its collection, or at the end of the root.
  HTREEITEM Add(FavouriteItem * item, HTREEITEM selected = TVI_NULL) {
    tree->ClearSelection();
    tree->Select(TVI_NULL, TVGN_CARET);
    if (selected) {
      tree->SetItemState(selected, TVIS_SELECTED, TVIS_SELECTED);
      tree->Expand(selected, TVE_EXPAND);
    }
    tree->AddToFavourites(item);
    tree->EndEditLabelNow(1);
    return tree->GetSelectedItem();
  }

  // "name/depth" of every row in display order.
  std::string Shape() const {
    std::string shape;
    for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
      shape += tree->GetItemText(row).utf8_string() + "/" +
               std::to_string(tree->GetIndentLevel(row)) + " ";
    return shape;
  }

  static std::string Saved(ConfigurationSection & section) {
    std::string text;
    std::unique_ptr<ConfigurationSection> const root(section.CopyAndChangeSubSection("Favourites"));
    if (!root) return "none";
    for (int n = 1;; ++n) {
      std::unique_ptr<ConfigurationSection> const row(
          root->CopyAndChangeSubSection("FavouriteItem", n));
      if (!row) break;
      std::string name;
      int level = -1;
      int style = -1;
      row->ReadKey("Name", name);
      row->ReadInt("_IndentLevel", level);
      row->ReadInt("_Style", style);
      text += name + ":" + std::to_string(level) + ":" + std::to_string(style) + " ";
    }
    return text;
  }

  wxFrame * frame = nullptr;
  Tree * tree = nullptr;
  Manager manager;
};

TEST_F(FavouritesTreeTest, SavingWritesTheCollectionInDisplayOrderAndLoadingRebuildsIt) {
  Add(new FavouriteCommandItem(L"First", 102));
  HTREEITEM const reports = Add(Folder(L"Reports"));
  Add(new FavouriteCommandItem(L"  Trend  ", 100), reports);
  HTREEITEM const inner = Add(Folder(L"Inner"), reports);
  Add(new FavouriteCommandItem(L"Deep", 101), inner);
  tree->SetItemText(tree->GetChildItem(reports), "  Trend  ");  // trimmed when saved
  tree->SetItemStyle(reports, 3);
  tree->Expand(inner, TVE_COLLAPSE);  // collapsed rows are saved too

  XercesXMLSection section;
  {
    // An old-form section is replaced at the next save.
    std::unique_ptr<ConfigurationSection> const old(section.CreateSubSection("GlobalFavourites"));
    old->WriteInt("Stale", 1);
  }
  manager.SaveFavouriteNode(&section, -1);
  EXPECT_FALSE(section.HasSection("GlobalFavourites", 1));
  EXPECT_EQ(Saved(section), "First:0:0 Reports:0:3 Trend:1:0 Inner:1:0 Deep:2:0 ");
  std::unique_ptr<ConfigurationSection> const root(section.CopyAndChangeSubSection("Favourites"));
  EXPECT_TRUE(root->HasKey("AppName"));
  EXPECT_TRUE(root->HasKey("Version"));

  tree->DeleteTree();
  EXPECT_EQ(tree->GetCount(), 0u);
  manager.LoadFavouriteNode(&section, -1);
  EXPECT_EQ(Shape(), "First/0 Reports/0 Trend/1 Inner/1 Deep/2 ");
  EXPECT_EQ(tree->GetItemStyle(tree->GetNextSiblingItem(tree->GetRootItem())), 3);
}

TEST_F(FavouritesTreeTest, LoadingPlacesRowsByLevelStepsAndShiftsStylesPastSkippedRows) {
  struct Case {
    char const * what;
    std::vector<int> levels;  // -99: an old-form row (ItemData)
    char const * shape;
  };
  Case const cases[] = {
      {"deeper by any amount is one step", {0, 5, 5, 9}, "a/0 b/1 c/1 d/2 "},
      {"up by the difference", {0, 1, 2, 0, 1}, "a/0 b/1 c/2 d/0 e/1 "},
      {"negative levels: up to the root, deeper again", {0, 1, -3, -1}, "a/0 b/1 c/0 d/1 "},
      {"levels at the ends of int", {0, 2147483647, -2147483647 - 1}, "a/0 b/1 c/0 "},
      {"old-form rows are passed over", {0, -99, 1}, "a/0 c/1 "},
  };
  for (Case const & c : cases) {
    tree->DeleteTree();
    XercesXMLSection section;
    std::unique_ptr<ConfigurationSection> const root(section.CreateSubSection("Favourites"));
    for (size_t i = 0; i < c.levels.size(); ++i) {
      std::unique_ptr<ConfigurationSection> const row(
          root->CreateSubSection("FavouriteItem", static_cast<int>(i + 1)));
      std::string const name(1, static_cast<char>('a' + i));
      if (c.levels[i] == -99) {
        row->WriteKey("Type", "CommandItem");
        row->WriteInt("Bold", 1);
        std::unique_ptr<ConfigurationSection> const data(row->CreateSubSection("ItemData"));
        data->WriteKey("Name", name.c_str());
        continue;
      }
      row->WriteKey("Name", name.c_str());
      row->WriteKey("Type", "CommandItem");
      row->WriteInt("_IndentLevel", c.levels[i]);
    }
    tree->Serialize(&section, false, -1);
    EXPECT_EQ(Shape(), c.shape) << c.what;
  }
  // Styles walk numbers and rows in step: the skipped second row's old-form
  // bold lands on the second row put in ("c").
  HTREEITEM const c = tree->GetChildItem(tree->GetRootItem());
  EXPECT_EQ(tree->GetItemText(c), "c");
  EXPECT_EQ(tree->GetItemStyle(c) & 1, 1);
}

TEST_F(FavouritesTreeTest, CollectionsStayApartWhenLoadedSavedAndDeleted) {
  Add(new FavouriteCommandItem(L"Mine", 1));
  XercesXMLSection other;
  {
    std::unique_ptr<ConfigurationSection> const root(other.CreateSubSection("Favourites"));
    std::unique_ptr<ConfigurationSection> const row(root->CreateSubSection("FavouriteItem", 1));
    row->WriteKey("Name", "Shared");
    row->WriteKey("Type", "CommandItem");
    row->WriteInt("_Style", 1);
  }
  tree->Serialize(&other, false, 7);
  EXPECT_EQ(Shape(), "Mine/0 /0 Shared/0 ") << "a separator row between the collections";
  // The first style is the first row put in, not a row that was there.
  HTREEITEM const mine = tree->GetRootItem();
  EXPECT_EQ(tree->GetItemStyle(mine), 0);
  EXPECT_EQ(tree->GetItemStyle(tree->GetNextSiblingItem(mine)), 0);
  EXPECT_EQ(tree->GetItemStyle(tree->GetLastItem(TVI_NULL)), 1);

  XercesXMLSection saved;
  tree->Serialize(&saved, true, 7);
  EXPECT_EQ(Saved(saved), "Shared:0:1 ") << "only collection 7, and never the separator";

  tree->DeleteFavouriteNode(7);
  EXPECT_EQ(Shape(), "Mine/0 ");
  EXPECT_EQ(tree->GetDefaultCollectionID(TVI_NULL), -1);
}

TEST_F(FavouritesTreeTest, DamagedFilesGiveATreeWithoutCrashing) {
  XercesXMLSection section;
  std::unique_ptr<ConfigurationSection> const root(section.CreateSubSection("Favourites"));
  int const rows = 20000;
  unsigned seed = 7;
  for (int n = 1; n <= rows; ++n) {
    seed = seed * 1103515245U + 12345U;
    std::unique_ptr<ConfigurationSection> const row(root->CreateSubSection("FavouriteItem", n));
    row->WriteKey("Name", "x");
    row->WriteKey("Type", n % 97 == 0 ? "Unknown" : "FavouritesFolder");
    row->WriteInt("_IndentLevel", static_cast<int>(seed >> 16) % 4000 - 2000);
    row->WriteKey("_Style", (seed & 1) != 0 ? "garbage" : "-1");
  }
  tree->Serialize(&section, false, -1);
  EXPECT_EQ(tree->GetCount(), static_cast<UINT>(rows - rows / 97));
}

TEST_F(FavouritesTreeTest, AddedItemsLandByTheSelectedFolderAndOneFileHasOneRow) {
  HTREEITEM const top = Add(new FavouriteCommandItem(L"Top", 9));
  HTREEITEM const full = Add(Folder(L"Full"), top);
  HTREEITEM const empty = Add(Folder(L"Empty"), top);
  HTREEITEM const child = Add(new FavouriteCommandItem(L"Child", 1), full);
  ASSERT_EQ(Shape(), "Top/0 Empty/0 Full/0 Child/1 ");
  struct Case {
    char const * what;
    HTREEITEM selected;
    bool expanded;
    HTREEITEM parent;
    HTREEITEM after;  // null: last
  };
  Case const cases[] = {
      {"into an empty folder", empty, false, empty, TVI_NULL},
      {"behind a collapsed folder", full, false, TVI_NULL, full},
      {"into an expanded folder, last", full, true, full, child},
      {"behind a leaf", child, true, full, child},
  };
  for (Case const & c : cases) {
    tree->ClearSelection();
    tree->Expand(full, c.expanded ? TVE_EXPAND : TVE_COLLAPSE);
    tree->SetItemState(c.selected, TVIS_SELECTED, TVIS_SELECTED);
    tree->AddToFavourites(new FavouriteCommandItem(L"New", 2));
    HTREEITEM const row = tree->GetSelectedItem();
    EXPECT_EQ(tree->GetItemText(row), "New") << c.what;
    EXPECT_EQ(tree->GetParentItem(row), c.parent) << c.what;
    if (c.after) {
      EXPECT_EQ(tree->GetPrevSiblingItem(row), c.after) << c.what;
    }
    tree->DeleteItemData(row);
    tree->DeleteItem(row);
  }

  std::string const path = TempPath("favourite-once.txt");
  Touch(path);
  HTREEITEM const first = Add(new FavouriteFileItem(L"Notes", wxString(path).wc_str()), empty);
  UINT const count = tree->GetCount();
  wxString upper(path);
  upper.MakeUpper();
  // The same file in another case, under the same parent: the old row.
  tree->AddToFavourites(new FavouriteFileItem(L"Again", upper.wc_str()));
  EXPECT_EQ(tree->GetCount(), count);
  EXPECT_EQ(tree->GetFirstSelectedItem(), first);

  manager.veto = true;
  FavouriteCommandItem refused(L"Refused", 3);
  tree->AddToFavourites(&refused);  // stays with the caller
  EXPECT_EQ(tree->GetCount(), count);
  std::remove(path.c_str());
}

TEST_F(FavouritesTreeTest, NewFoldersCountPastPartialMatchesAndStartALabelEdit) {
  Add(Folder(L"new folder (2)"));
  tree->ClearSelection();
  tree->OnFavouritesNewfolder();
  ASSERT_NE(tree->GetEditControl(), nullptr) << "a new folder starts a label edit";
  EXPECT_EQ(tree->GetEditControl()->GetValue(), "New Folder (3)");
  tree->GetEditControl()->SetValue("   ");
  tree->EndEditLabelNow(0);
  EXPECT_EQ(tree->GetItemText(tree->GetSelectedItem()), "New Folder (3)") << "blanks keep the name";

  tree->OnFavouritesRename();
  ASSERT_NE(tree->GetEditControl(), nullptr);
  tree->GetEditControl()->SetValue("  Plots ");
  tree->EndEditLabelNow(0);
  EXPECT_EQ(tree->GetItemText(tree->GetSelectedItem()), "Plots");
  EXPECT_EQ(tree->GetFavouriteItem(tree->GetSelectedItem())->GetName(), "Plots");
  // A label edit a click would start is refused.
  EXPECT_EQ(tree->EditLabel(tree->GetSelectedItem()), nullptr);
}

TEST_F(FavouritesTreeTest, MovesFollowTheirRulesAndKeepTheBranch) {
  Add(new FavouriteCommandItem(L"c", 3));
  HTREEITEM const folder = Add(Folder(L"F"));
  Add(new FavouriteCommandItem(L"a", 1), folder);
  Add(new FavouriteCommandItem(L"b", 2), tree->GetChildItem(folder));
  ASSERT_EQ(Shape(), "c/0 F/0 a/1 b/1 ");
  auto select = [this](char const * name) {
    tree->ClearSelection();
    for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
      if (tree->GetItemText(row) == name) {
        tree->SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
        tree->Select(row, TVGN_CARET);
      }
  };
  struct Step {
    char const * row;
    int command;
    char const * shape;
  };
  Step const steps[] = {
      {"c", FavouritesTree::kMoveDown, "F/0 a/1 b/1 c/0 "},
      {"c", FavouritesTree::kMoveRight, "F/0 a/1 b/1 c/1 "},
      {"c", FavouritesTree::kMoveUp, "F/0 a/1 c/1 b/1 "},
      {"b", FavouritesTree::kMoveDown, "F/0 a/1 c/1 b/1 "},  // no next row: disabled
      {"a", FavouritesTree::kMoveLeft, "F/0 c/1 b/1 a/0 "},
      {"b", FavouritesTree::kMoveDown, "F/0 c/1 b/0 a/0 "},  // the last child moves out
      {"c", FavouritesTree::kMoveUp, "F/0 c/1 b/0 a/0 "},    // first child: disabled
      {"F", FavouritesTree::kMoveDown, "b/0 F/0 c/1 a/0 "},  // with its branch, still open
  };
  for (Step const & step : steps) {
    select(step.row);
    wxUpdateUIEvent update(step.command);
    tree->UpdateCommand(update);
    if (update.GetEnabled()) tree->HandleCommand(step.command);
    EXPECT_EQ(Shape(), step.shape) << step.row << " " << step.command;
    EXPECT_EQ(tree->GetItemText(tree->GetFirstSelectedItem()), step.row);
  }
  for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
    EXPECT_EQ(tree->GetFavouriteItem(row)->GetName(), tree->GetItemText(row)) << "records moved";
}

TEST_F(FavouritesTreeTest, DropTargetsRefuseTheBranchOwnParentAndForeignCollections) {
  HTREEITEM const other = Add(new FavouriteCommandItem(L"y", 2));
  HTREEITEM const folder = Add(Folder(L"F"));
  HTREEITEM const inner = Add(Folder(L"G"), folder);
  HTREEITEM const leaf = Add(new FavouriteCommandItem(L"x", 1), inner);
  EXPECT_TRUE(tree->IsDropSource(leaf));
  tree->SetItemState(other, TVIS_SELECTED, TVIS_SELECTED);
  tree->SetItemState(leaf, TVIS_SELECTED, TVIS_SELECTED);
  EXPECT_FALSE(tree->IsDropSource(leaf)) << "two rows selected";
  // The base's press starts the drag of the row the tests name.
  tree->ClearSelection();
  tree->SetItemState(folder, TVIS_SELECTED, TVIS_SELECTED);
  RECT rect{};
  tree->EnsureVisible(folder);
  ASSERT_TRUE(tree->GetItemRect(folder, &rect, 1));
  NMTREEVIEWW drag;
  drag.itemNew.hItem = folder;
  drag.ptDrag = POINT{rect.left + 2, rect.top + 2};
  SendNotify(tree, TVN_BEGINDRAGW, drag.hdr);
  ASSERT_EQ(tree->GetDragItem(), folder);
  bool asChild = false;
  EXPECT_EQ(tree->GetDropTarget(inner, asChild), TVI_NULL) << "own branch";
  EXPECT_EQ(tree->GetDropTarget(folder, asChild), TVI_NULL) << "itself";
  EXPECT_EQ(tree->GetDropTarget(other, asChild), other);
  EXPECT_FALSE(asChild);
  tree->CancelDrag();
}

TEST_F(FavouritesTreeTest, IdleUpkeepDropsGoneFilesAndKeepsPlaceholdersForEmptyFolders) {
  std::string const path = TempPath("favourite-gone.txt");
  Touch(path);
  Add(new FavouriteFileItem(L"Gone", wxString(path).wc_str()));
  HTREEITEM const folder = Add(Folder(L"Docs", L"(empty)"));
  tree->UpdateAllItems();
  EXPECT_EQ(Shape(), "Gone/0 Docs/0 (empty)/1 ");
  EXPECT_TRUE(tree->IsPlaceholder(tree->GetChildItem(folder)));

  Add(new FavouriteCommandItem(L"Plot", 1), folder);
  tree->UpdateAllItems();
  EXPECT_EQ(Shape(), "Gone/0 Docs/0 Plot/1 ") << "two children: the placeholder goes";

  std::remove(path.c_str());
  tree->OnFavouritesRename();  // no pass while a label is edited
  tree->UpdateAllItems();
  EXPECT_EQ(tree->GetCount(), 3u);
  tree->EndEditLabelNow(1);
  // Nor while a button is held (a click or drag may be on its way).
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeButtonEvent(display, 1, True, CurrentTime);
  XSync(display, False);
  tree->UpdateAllItems();
  XTestFakeButtonEvent(display, 1, False, CurrentTime);
  XSync(display, False);
  EXPECT_EQ(tree->GetCount(), 3u) << "a pass with the button held";
  manager.changed.clear();
  tree->UpdateAllItems();
  EXPECT_EQ(Shape(), "Docs/0 Plot/1 ");
  EXPECT_TRUE(manager.changed.empty()) << "the manager is not told";
}

TEST_F(FavouritesTreeTest, FileDropsRefuseFoldersOnceAndNamesThatCannotBeKept) {
  std::string const a = TempPath("drop-a.txt");
  std::string const b = TempPath("drop-b.txt");
  Touch(a);
  Touch(b);
  ModalDialogScript script;
  script.Answer(wxID_OK).Answer(wxID_OK);
  tree->DropFiles({TempPath(""), wxString(a), TempPath("."), wxString(b), "http://example.org/x"});
  EXPECT_EQ(Shape(), "drop-a.txt/0 drop-b.txt/0 ");
  ASSERT_EQ(script.Shown().size(), 2u) << "one message a kind and drop";
  EXPECT_EQ(script.Shown()[0].message, "Folders cannot be dropped as a favourite.");

  tree->SetFileFavouriteFactory(FavouritesTree::FileFavouriteFactory());
  try {
    tree->DropFiles({wxString(a)});
    ADD_FAILURE() << "an empty factory raises";
  } catch (std::exception const & e) {
    EXPECT_STREQ(e.what(), "call to empty boost::function");
  }
  std::remove(a.c_str());
  std::remove(b.c_str());
}

TEST_F(FavouritesTreeTest, DeletingStopsAtAPlaceholderAndTellsEachCollectionOnceAscending) {
  HTREEITEM const folder = Add(Folder(L"F", L"(empty)"));
  tree->UpdateAllItems();
  HTREEITEM const placeholder = tree->GetChildItem(folder);
  ModalDialogScript script;
  script.Answer(wxID_OK).Answer(wxID_YES);
  tree->SetItemState(placeholder, TVIS_SELECTED, TVIS_SELECTED);
  tree->OnFavouritesDelete();
  ASSERT_GE(script.Shown().size(), 1u);
  EXPECT_EQ(script.Shown()[0].message, "The item '(empty)' cannot be deleted.");
  EXPECT_FALSE(tree->IsValidItem(folder)) << "the rest is deleted";

  XercesXMLSection a;
  for (int id : {9, 3}) {
    std::unique_ptr<ConfigurationSection> const root(a.CreateSubSection("Favourites"));
    std::unique_ptr<ConfigurationSection> const row(root->CreateSubSection("FavouriteItem", 1));
    row->WriteKey("Name", "r");
    row->WriteKey("Type", "CommandItem");
    tree->Serialize(&a, false, id);
  }
  for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
    tree->SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
  manager.changed.clear();
  ModalDialogScript confirm;
  confirm.Answer(wxID_YES);
  tree->OnFavouritesDelete();
  EXPECT_EQ(tree->GetCount(), 0u);
  EXPECT_EQ(manager.changed, (std::vector<int>{3, 9}));
}

TEST_F(FavouritesTreeTest, ContextMenuNamesOpenByWhatIsSelected) {
  HTREEITEM const x = Add(new FavouriteCommandItem(L"x", 1));
  HTREEITEM const y = Add(new FavouriteCommandItem(L"y", 2));
  HTREEITEM const folder = Add(Folder(L"F"));
  std::vector<std::string> labels;
  bool up = false;
  VxMenu::SetTrackPopupMenuFunction(
      [&](wxMenu * menu, unsigned int, int, int, wxWindow *, wxRect const *) {
        labels.clear();
        for (wxMenuItem * item : menu->GetMenuItems())
          labels.push_back(wxMenuItem::GetLabelText(item->GetItemLabel()).utf8_string());
        up = tree->IsContextMenuUp();
        return 0;
      });
  struct Case {
    std::vector<HTREEITEM> rows;
    char const * first;
    char const * second;
  };
  Case const cases[] = {
      {{x, y}, "Open selected items", ""},
      {{folder}, "Open all items in folder", "Treat folder as item"},
      {{x}, "Open", ""},
  };
  for (Case const & c : cases) {
    tree->ClearSelection();
    for (HTREEITEM row : c.rows) tree->SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
    tree->ShowContextMenu(wxDefaultPosition);
    ASSERT_GE(labels.size(), 2u);
    EXPECT_EQ(labels[0], c.first);
    if (*c.second != 0) {
      EXPECT_EQ(labels[1], c.second);
    }
    EXPECT_TRUE(up);
    EXPECT_FALSE(tree->IsContextMenuUp());
  }
  VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
}

TEST_F(FavouritesTreeTest, RowColoursFollowSelectionEnablingAndSeparators) {
  std::string const path = TempPath("favourite-colour.txt");
  HTREEITEM const gone = Add(new FavouriteFileItem(L"Gone", wxString(path).wc_str()));
  HTREEITEM const folder = Add(Folder(L"F"));
  XercesXMLSection empty;
  tree->Serialize(&empty, false, 4);
  HTREEITEM const separator = tree->GetNextSiblingItem(folder);
  ASSERT_TRUE(separator);
  auto draw = [this](HTREEITEM row, DWORD stage, NMTVCUSTOMDRAW & out) {
    out = NMTVCUSTOMDRAW();
    out.nmcd.dwDrawStage = stage;
    out.nmcd.dwItemSpec = ItemSpecFromHandle(row);
    return SendNotify(tree, NM_CUSTOMDRAW, out.nmcd.hdr);
  };
  EXPECT_GE(tree->GetItemHeight(), 16 + 5) << "room for the small icon";
  NMTVCUSTOMDRAW info;
  EXPECT_EQ(draw(TVI_NULL, CDDS_PREPAINT, info), CDRF_NOTIFYITEMDRAW);
  EXPECT_EQ(draw(TVI_NULL, 0x30001, info), 48);
  EXPECT_EQ(draw(TVI_NULL, 0x30002, info), CDRF_SKIPDEFAULT);
  struct Case {
    HTREEITEM row;
    bool selected;
    int text;
    int back;
  };
  Case const cases[] = {
      {folder, false, COLOR_WINDOWTEXT, COLOR_WINDOW},
      {folder, true, COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT},
      {gone, false, COLOR_GRAYTEXT, COLOR_WINDOW},
      {gone, true, COLOR_INACTIVECAPTIONTEXT, COLOR_INACTIVECAPTION},
  };
  for (Case const & c : cases) {
    tree->ClearSelection();
    if (c.selected) tree->SetItemState(c.row, TVIS_SELECTED, TVIS_SELECTED);
    EXPECT_EQ(draw(c.row, CDDS_ITEMPREPAINT, info), CDRF_DODEFAULT);
    EXPECT_EQ(info.clrText, GetSysColor(c.text)) << tree->GetItemText(c.row);
    EXPECT_EQ(info.clrTextBk, GetSysColor(c.back)) << tree->GetItemText(c.row);
  }
  EXPECT_EQ(draw(separator, CDDS_ITEMPREPAINT, info), CDRF_SKIPDEFAULT);
}

// The pixels `paint` leaves on a white page of `size`.
template <class Paint>
wxImage Painted(wxSize size, Paint paint) {
  wxBitmap bitmap(size);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  paint(dc);
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

bool SamePixels(wxImage const & a, wxImage const & b) {
  return a.GetSize() == b.GetSize() &&
         std::equal(a.GetData(), a.GetData() + (a.GetWidth() * a.GetHeight() * 3), b.GetData());
}

TEST_F(FavouritesTreeTest, KeptLabelLayoutsDrawTheToolkitsPixels) {
  KeptLabelLayouts layouts;
  wxFont const font = tree->GetFont();
  struct Case {
    char const * text;
    wxFont font;
    wxColour colour;
  };
  Case const cases[] = {
      {"Run report 12", font, *wxBLACK},
      {"Bold folder", font.Bold(), wxColour(30, 60, 200)},
      {"Mesure \xC3\xA9t\xC3\xA9 \xE2\x86\x92 \xE5\xA0\xB1\xE5\x91\x8A", font, *wxRED},
      {"", font, *wxBLACK},
  };
  for (Case const & c : cases) {
    wxString const text = wxString::FromUTF8(c.text);
    wxImage const toolkit = Painted(wxSize(300, 40), [&](wxDC & dc) {
      dc.SetFont(c.font);
      dc.SetTextForeground(c.colour);
      DrawTextUnmeasured(dc, text, 5, 7);
    });
    // Laid out on the first draw, then drawn from what was kept.
    for (int pass = 0; pass < 2; ++pass) {
      wxImage const kept = Painted(wxSize(300, 40), [&](wxDC & dc) {
        EXPECT_TRUE(layouts.Draw(dc, text, c.font, c.colour, 5, 7));
      });
      EXPECT_TRUE(SamePixels(kept, toolkit)) << c.text << ", pass " << pass;
    }
  }
  EXPECT_EQ(layouts.Count(), 3u) << "one layout a label and font";

  // What the toolkit decorates itself is left to the caller.
  wxFont underlined = font;
  underlined.SetUnderlined(true);
  wxImage const nothing = Painted(wxSize(100, 30), [&](wxDC & dc) {
    EXPECT_FALSE(layouts.Draw(dc, "Underlined", underlined, *wxBLACK, 0, 0));
  });
  EXPECT_TRUE(SamePixels(nothing, Painted(wxSize(100, 30), [](wxDC &) {})));
}

TEST_F(FavouritesTreeTest, RowsPaintAsAPlainTreePaintsTheSameRows) {
  std::string const path = TempPath("favourite-paint.txt");
  Touch(path);
  HTREEITEM const folder = Add(Folder(L"Reports"));
  Add(new FavouriteFileItem(L"Trend of the week", wxString(path).wc_str()), folder);
  Add(Folder(L"Archive"));
  tree->SetItemStyle(folder, 3);
  tree->ClearSelection();
  tree->Select(TVI_NULL, TVGN_CARET);

  auto * const plain = new VxTreeCtrl(frame, wxID_ANY, FavouritesTree::kStyle);
  plain->SetFont(tree->GetFont());
  plain->SetItemHeight(static_cast<short>(tree->GetItemHeight()));
  plain->SetImageList(tree->GetImageList(TVSIL_NORMAL), TVSIL_NORMAL);
  // The same rows, with the same images and states, in display order.
  std::vector<HTREEITEM> parents{TVI_ROOT};
  for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row)) {
    int image = 0;
    int selected = 0;
    tree->VxTreeCtrl::GetItemImage(row, image, selected);
    size_t const depth = static_cast<size_t>(tree->GetIndentLevel(row));
    parents.resize(depth + 1);
    HTREEITEM const copy =
        plain->InsertItem(tree->GetItemText(row), image, selected, parents[depth], TVI_LAST);
    plain->SetItemState(copy, tree->GetItemState(row, TVIS_BOLD), TVIS_BOLD);
    parents.push_back(copy);
  }
  for (HTREEITEM row = plain->GetRootItem(); row; row = plain->GetNextItem(row))
    plain->Expand(row, TVE_EXPAND);
  wxSize const size(260, 6 * tree->GetItemHeight());
  tree->SetSize(size);
  plain->SetSize(size);
  tree->SetFocus();  // neither paints a focus
  frame->SetFocus();
  gui_test::Flush();

  // Twice: the second paint draws the labels from the kept layouts.
  wxImage const expected = Painted(size, [&](wxDC & dc) { plain->PaintTo(dc, wxRect(size)); });
  for (int pass = 0; pass < 2; ++pass) {
    wxImage const favourites = Painted(size, [&](wxDC & dc) { tree->PaintTo(dc, wxRect(size)); });
    EXPECT_TRUE(SamePixels(favourites, expected)) << "pass " << pass;
  }
  plain->SetImageList(nullptr, TVSIL_NORMAL);
  plain->Destroy();
  std::remove(path.c_str());
}

TEST_F(FavouritesTreeTest, OpeningGivesCopiesOfLeavesAndFolderContents) {
  HTREEITEM const c = Add(new FavouriteCommandItem(L"c", 0));
  HTREEITEM const folder = Add(Folder(L"F"));
  HTREEITEM const inner = Add(Folder(L"G"), folder);
  Add(new FavouriteCommandItem(L"a", 0), inner);
  Add(new FavouriteCommandItem(L"b", 0), folder);
  tree->ClearSelection();
  tree->SetItemState(folder, TVIS_SELECTED, TVIS_SELECTED);
  tree->SetItemState(c, TVIS_SELECTED, TVIS_SELECTED);
  ModalDialogScript script;
  script.Answer(wxID_OK);  // commands without a main window are not available
  tree->OpenSelectedFavourites();
  // In display order; the sub-folder gives its leaf, folders themselves none.
  EXPECT_EQ(manager.opened, (std::vector<std::string>{"c", "a", "b"}));
}

TEST_F(FavouritesTreeTest, ExportAndImportGoThroughTheChooserWithTheFirstRowsCollection) {
  Add(new FavouriteCommandItem(L"Kept", 1));
  std::string const path = TempPath("favourites-export.xml");
  std::vector<FileChooserRequest> requests;
  FileChooserFunction const former = SetFileChooserFunction([&](FileChooserRequest const & r) {
    requests.push_back(r);
    FileChooserAnswer answer;
    answer.accepted = true;
    answer.paths.push_back(wxString(path));
    return answer;
  });
  tree->OnFavouritesExport();
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_FALSE(requests[0].open);
  EXPECT_EQ(requests[0].fileName, "Favorites");
  EXPECT_TRUE(requests[0].overwritePrompt);
  EXPECT_TRUE(requests[0].wildcard.Contains("*.xml"));

  tree->SetItemText(tree->GetRootItem(), "Changed");
  tree->OnFavouritesImport();  // replaces the collection with the file's
  SetFileChooserFunction(former);
  EXPECT_TRUE(requests.back().open);
  EXPECT_EQ(Shape(), "Kept/0 ");
  std::remove(path.c_str());
}

}  // namespace
