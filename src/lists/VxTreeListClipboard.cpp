// VxTreeListCtrl: its rows as text and HTML, and Ctrl+C.
#include <new>

#include <wx/utils.h>

#include "lists/HtmlClipboardBlock.h"
#include "lists/ListClipboard.h"
#include "lists/TreeListClipFormat.h"
#include "lists/VxTreeListCtrl.h"
#include "platform/MessageBoxes.h"
#include "utl/Translation.h"

namespace {

// Every item of the tree in walking order.
class WalkedRows : public TreeListClipRows {
public:
  explicit WalkedRows(VxTreeCtrlEx const & tree) : mTree(tree), mNext(tree.GetRootItem()) {}
  bool Next(TreeListClipRow & row) override {
    while (mNext) {
      HTREEITEM const item = mNext;
      mNext = mTree.GetNextItem(item);
      if (Fill(mTree, item, row)) return true;
    }
    return false;
  }

  static bool Fill(VxTreeCtrlEx const & tree, HTREEITEM item, TreeListClipRow & row) {
    ItemData const * record = tree.GetItemRecord(item);
    if (record == nullptr) return false;
    row.record = record->text;
    row.separator = record->separator;
    row.isChild = static_cast<bool>(tree.GetParentItem(item));
    return true;
  }

private:
  VxTreeCtrlEx const & mTree;
  HTREEITEM mNext;
};

// The given items; handles that name no item of the tree are passed over.
class GivenRows : public TreeListClipRows {
public:
  GivenRows(VxTreeCtrlEx const & tree, std::vector<HTREEITEM> const & items)
      : mTree(tree), mItems(items) {}
  bool Next(TreeListClipRow & row) override {
    while (mAt < mItems.size()) {
      HTREEITEM const item = mItems[mAt++];
      if (mTree.IsValidItem(item) && WalkedRows::Fill(mTree, item, row)) return true;
    }
    return false;
  }

private:
  VxTreeCtrlEx const & mTree;
  std::vector<HTREEITEM> const & mItems;
  size_t mAt = 0;
};

}  // namespace

std::vector<wxString> VxTreeListCtrl::Headings() const {
  std::vector<wxString> headings;
  if (mHeader == nullptr) return headings;
  int const count = mHeader->GetItemCount();
  headings.reserve(static_cast<size_t>(count));
  for (int column = 0; column < count; ++column) headings.push_back(mHeader->GetItemText(column));
  return headings;
}

wxString VxTreeListCtrl::GetTextClipString() const {
  std::vector<wxString> const headings = Headings();
  WalkedRows rows(*mTree);
  return FormatTreeListText(&headings, static_cast<int>(headings.size()), rows);
}

namespace {

// What a failed allocation of a clipboard form tells the user.
void ReportNoMemory() { AfxMessageBox(vx3::Tr("Could not allocate memory."), MB_ICONERROR); }

}  // namespace

std::optional<wxString> VxTreeListCtrl::MakeClipString() const {
  try {
    return GetTextClipString();
  } catch (std::bad_alloc const &) {
    ReportNoMemory();
    return std::nullopt;
  }
}

std::optional<wxString> VxTreeListCtrl::MakeClipString(std::vector<HTREEITEM> const & items,
                                                       int columns) const {
  try {
    GivenRows rows(*mTree, items);
    return FormatTreeListText(nullptr, columns, rows);
  } catch (std::bad_alloc const &) {
    ReportNoMemory();
    return std::nullopt;
  }
}

std::string VxTreeListCtrl::ToHTML(char const * title) const {
  WalkedRows rows(*mTree);
  return FormatTreeListHtml(title, Headings(), rows);
}

std::string VxTreeListCtrl::ToHTML(std::vector<HTREEITEM> const & items, int columns) const {
  GivenRows rows(*mTree, items);
  return FormatTreeListRowsHtml(columns, rows);
}

void VxTreeListCtrl::OnUserCopiedData() {
  std::vector<HTREEITEM> items;
  for (HTREEITEM item = mTree->GetFirstSelectedItem(); item;
       item = mTree->GetNextSelectedItem(item))
    items.push_back(item);
  wxBusyCursor const wait;
  int const columns = mTree->GetColumnCount();
  std::optional<wxString> const text = MakeClipString(items, columns);
  if (!text) return;
  try {
    std::string const html = ToHTML(items, columns);
    PutTextAndHtmlOnClipboard(*text, MakeHTMLClipStringFromText(html.c_str()));
  } catch (std::bad_alloc const &) {
    ReportNoMemory();
  }
}
