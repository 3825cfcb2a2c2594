#include "RunList.h"

#include "utl/Translation.h"

RunList::RunList(wxWindow * parent)
    : ListCtrlWithDisabledItems(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, LVS_REPORT) {
  SetExtendedStyle(GetExtendedStyle() | LVS_EX_CHECKBOXES);
  AddColumn(vx3::Tr("Run column", "Run").wc_str(), 180);
  AddColumn(vx3::Tr("Run column", "State").wc_str(), 90);
  AddColumn(vx3::Tr("Run column", "Comment").wc_str(), 200);
  SubclassHeader(true);
  EnableSaveRestore(L"SampleRunList");
  EnableEditSubItems(true, true);
  SetEmptyCtrlText(vx3::Tr("No run matches the filter."));
}

bool RunList::IsRetired(std::string const & run) {
  return run.rfind("Blank", 0) == 0 || run.rfind("QC low", 0) == 0;
}

void RunList::ShowRuns(std::vector<std::string> const & runs) {
  RememberChecks();
  SetRedraw(false);
  DeleteAllItems();
  mNames = runs;
  for (size_t n = 0; n < runs.size(); ++n) {
    std::string const & run = runs[n];
    int const row = AddItem(wxString::FromUTF8(run).wc_str(), n);
    SetItemText(row, kStateColumn,
                IsRetired(run) ? vx3::Tr("Run state", "retired") : vx3::Tr("Run state", "valid"));
    auto const comment = mComments.find(run);
    if (comment != mComments.end()) SetItemText(row, kCommentColumn, comment->second);
    SetCheck(row, mChecked.count(run) != 0);
  }
  if (GetSortColumn() >= 0) SortItems(GetSortColumn(), GetSortAscending());
  SetRedraw(true);
}

std::string RunList::NameOf(int row) const {
  auto const index = static_cast<size_t>(GetItemData(row));
  return index < mNames.size() ? mNames[index] : std::string();
}

void RunList::RememberChecks() {
  for (int row = 0; row < GetItemCount(); ++row) {
    if (GetCheck(row))
      mChecked.insert(NameOf(row));
    else
      mChecked.erase(NameOf(row));
  }
}

bool RunList::IsItemDisabled(int item) { return IsRetired(NameOf(item)); }

CInPlaceEdit * RunList::EditSubLabel(int row, int column) {
  return column == kCommentColumn ? ListCtrlWithDisabledItems::EditSubLabel(row, column) : nullptr;
}

bool RunList::AcceptEdit(wxString & text, int column, int row) {
  if (column == kCommentColumn) mComments[NameOf(row)] = text;
  return true;
}
