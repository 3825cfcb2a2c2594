// Saving and loading one collection of the favourites tree: the rows in
// display order as numbered "FavouriteItem" sections under "Favourites",
// each with the item's own keys followed by "_IndentLevel" and "_Style".

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "favourites/FavouriteBuilder.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "favourites/SeparatorItem.h"
#include "frame/VxAppCore.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"

namespace {

char const * const kOldRootKey = "GlobalFavourites";
char const * const kOldItemData = "ItemData";
char const * const kIndentLevelKey = "_IndentLevel";
char const * const kStyleKey = "_Style";
constexpr int kBoldStyle = 1;
constexpr int kExpandedStyle = 2;

using Sections = std::vector<boost::shared_ptr<ConfigurationSection>>;

// A stored flag of the old form: a number, or a boolean word.
bool ReadFlag(ConfigurationSection const & section, char const * key) {
  int number = 0;
  if (section.ReadInt(key, number)) return number != 0;
  bool flag = false;
  return section.ReadBool(key, flag) && flag;
}

int ReadStyle(ConfigurationSection const & section) {
  int style = 0;
  if (section.ReadInt(kStyleKey, style)) return style;
  style = 0;
  if (ReadFlag(section, "Bold")) style |= kBoldStyle;
  if (ReadFlag(section, "Expanded")) style |= kExpandedStyle;
  return style;
}

}  // namespace

void FavouritesTree::Serialize(ConfigurationSection * section, bool saving, int id) {
  if (section == nullptr) return;
  SetRedraw(0);
  try {
    if (saving)
      SaveCollection(section, id);
    else
      LoadCollection(section, id);
  } catch (Exception const & e) {
    // What was done up to here stays.
    SetRedraw(1);
    AfxMessageBox(wxString::FromUTF8(e.Why()), MB_ICONEXCLAMATION);
    return;
  }
  SetRedraw(1);
}

void FavouritesTree::SaveCollection(ConfigurationSection * section, int id) {
  {
    // An old-form section is replaced at the next save.
    std::unique_ptr<ConfigurationSection> const old(section->Copy());
    if (old->ChangeSubSection(FavouritesManager::GetRootSectionKey()) ||
        old->ChangeSubSection(kOldRootKey))
      old->DeleteSection();
  }
  std::unique_ptr<ConfigurationSection> const root(
      section->CreateSubSection(FavouritesManager::GetRootSectionKey()));
  VxAppCore::WriteAppInfo(root.get());
  int number = 1;
  int depth = 0;
  // Display order, collapsed branches included; the depth is kept along.
  for (HTREEITEM row = GetRootItem(); row;) {
    FavouriteTreeData const * const data = GetTreeData(row);
    if (data != nullptr && data->item != nullptr && data->collectionID == id &&
        data->kind != FavouriteTreeData::Kind::kSeparator) {
      std::unique_ptr<ConfigurationSection> const out(
          root->CreateSubSection(FavouritesManager::GetFavouriteItemSectionKey(), number));
      wxString name = GetItemText(row);
      name.Trim(true).Trim(false);
      data->item->SetName(name.wc_str());
      data->item->Save(out.get());
      out->WriteInt(kIndentLevelKey, depth);
      out->WriteInt(kStyleKey, GetItemStyle(row));
      ++number;
    }
    if (HTREEITEM const child = GetChildItem(row)) {
      row = child;
      ++depth;
      continue;
    }
    while (row && !GetNextSiblingItem(row)) {
      row = GetParentItem(row);
      --depth;
    }
    if (row) row = GetNextSiblingItem(row);
  }
}

void FavouritesTree::LoadCollection(ConfigurationSection * section, int id) {
  if (GetRootItem()) {
    // Collections are kept apart on screen by an empty row.
    int normal = -1;
    int expanded = -1;
    GetItemImage(nullptr, normal, expanded);
    HTREEITEM const separator = InsertItem(wxString(), normal, expanded, TVI_ROOT, TVI_LAST);
    SetItemData(separator,
                reinterpret_cast<DWORD_PTR>(new FavouriteTreeData(new SeparatorItem, id)));
  }
  std::unique_ptr<ConfigurationSection> const root(
      section->CopyAndChangeSubSection(FavouritesManager::GetRootSectionKey()));
  if (!root) return;
  std::unique_ptr<Sections> const rows(
      root->GetAllSubSections(FavouritesManager::GetFavouriteItemSectionKey()));
  if (!rows) return;
  FavouriteBuilder const & builder = *FavouriteBuilder::Instance();
  // The last row put in and its ancestors, from the root down: a new row's
  // parent is found along it, without a question to the tree per step.
  std::vector<HTREEITEM> path;
  int lastLevel = 0;  // as the last row put in was stored
  // The rows put in, in display order: each goes in after every row before
  // it, at the end of an ancestor of the last or of the root.
  std::vector<HTREEITEM> placed;
  placed.reserve(rows->size());
  // The style of each number, read while its row is at hand: a second walk
  // over ten thousand sections finds none of them in the cache.
  std::vector<int> styles;
  styles.reserve(rows->size());
  for (boost::shared_ptr<ConfigurationSection> const & stored : *rows) {
    styles.push_back(stored ? ReadStyle(*stored) : 0);
    if (!stored) continue;
    // A row of the present form carries its level; only a row without one
    // is looked at for the old form's payload, which spares every present
    // row a search of its keys.
    int wanted = 0;
    if (!stored->ReadInt(kIndentLevelKey, wanted) && stored->HasSection(kOldItemData, 1)) {
      // The old form: its rows carry no usable place in the tree, so the
      // item is built (as that form was read) and passed over.
      std::unique_ptr<ConfigurationSection> const data(
          stored->CopyAndChangeSubSection(kOldItemData));
      if (data) {
        std::string type;
        stored->ReadKey("Type", type);
        data->WriteKey("Type", type.c_str());
        delete builder.Load(data.get());
      }
      continue;
    }
    FavouriteItem * const item = builder.Load(stored.get());
    if (item == nullptr) continue;
    // Deeper by any amount is one step down (under the last row); the same
    // level is beside it; shallower goes up d - w + 1 from it, and past the
    // top to the root.
    if (wanted == lastLevel) {
      if (!path.empty()) path.pop_back();
    } else if (wanted < lastLevel) {
      // In 64 bits: levels at both ends of int would overflow the count.
      int64_t const up = int64_t(lastLevel) - wanted + 1;
      path.resize(up >= int64_t(path.size()) ? 0 : path.size() - size_t(up));
    }
    HTREEITEM const last = InsertRow(item, id, path.empty() ? TVI_NULL : path.back(), TVI_LAST);
    lastLevel = wanted;
    if (!last) {
      path.clear();
      continue;
    }
    path.push_back(last);
    placed.push_back(last);
  }
  // The styles walk numbers and rows in step, from the first row put in:
  // where rows were passed over, the styles shift, as they always did. A
  // new row is neither bold nor expanded, so a plain style changes nothing.
  for (size_t n = 0; n < placed.size(); ++n)
    if ((styles[n] & (kBoldStyle | kExpandedStyle)) != 0) SetItemStyle(placed[n], styles[n]);
}
