#include "lists/SelectItemDialog.h"

#include <wx/menu.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>

#include <algorithm>

#include "lists/VxListCtrl.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "platform/commctrl/ListViewDefs.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

using vx3::Tr;

namespace {

constexpr unsigned kTemplate = 16261;
constexpr size_t kMaxOptions = std::size(SelectItemDialog::kOptionButtons);

wxString Text(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

}  // namespace

SelectItemDialog::SelectItemDialog(wchar_t const * title, wchar_t const * prompt,
                                   wchar_t const * column, std::vector<wxString> const & items,
                                   std::vector<wxString> options, int * option,
                                   std::vector<int> * selection, int single, bool singleSelect,
                                   bool allowNone, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned>(-1)),
      mTitle(Text(title)),
      mPrompt(Text(prompt)),
      mColumn(Text(column)),
      mItems(&items),
      mOptions(std::move(options)),
      mOption(option),
      mSelection(selection),
      mSingle(single),
      mSingleSelect(singleSelect),
      mAllowNone(allowNone) {
  if (mOptions.size() > kMaxOptions) mOptions.resize(kMaxOptions);
}

bool SelectItemDialog::OnInitDialog() {
  // The list takes the placeholder's place and number.
  wxWindow * placeholder = GetDlgItem(kList);
  if (placeholder == nullptr) return false;
  wxRect const rect = placeholder->GetRect();
  placeholder->Destroy();
  DWORD style = LVS_REPORT | LVS_SHOWSELALWAYS;
  if (mColumn.empty()) style |= LVS_NOCOLUMNHEADER;
  if (mSingleSelect) style |= LVS_SINGLESEL;
  mList = new VxListCtrl(this, kList, rect.GetPosition(), rect.GetSize(), style);
  mList->MoveAfterInTabOrder(GetDlgItem(kPrompt));

  // One column across the list; it follows the list's width from then on.
  mList->AddColumn(mColumn.wc_str(), mList->GetClientSize().x);
  mList->EnableColumnAutoSize(true, 10);
  mList->SetRedraw(false);
  for (wxString const & item : *mItems) mList->AddItem(item.wc_str());
  mList->SetRedraw(true);

  for (size_t i = 0; i < kMaxOptions; ++i) {
    auto * button = wxDynamicCast(GetDlgItem(kOptionButtons[i]), wxRadioButton);
    if (button == nullptr) continue;
    if (i < mOptions.size()) {
      button->SetLabel(mOptions[i]);
      button->SetValue(mOption != nullptr && *mOption == static_cast<int>(i) + 1);
    } else {
      button->Hide();
    }
  }
  if (mOptions.empty()) {
    // No options: the list takes their room.
    if (wxWindow * ok = GetDlgItem(IDOK))
      mList->SetSize(rect.width, ok->GetPosition().y - 8 - rect.y);
  }
  // A radio group keeps one button ticked: with no option given, the hidden
  // member of the group is.
  bool const optionInRange =
      mOption != nullptr && *mOption >= 1 && *mOption <= static_cast<int>(mOptions.size());
  if (!optionInRange)
    if (auto * none = wxDynamicCast(FindWindow("NoOption"), wxRadioButton)) none->SetValue(true);

  SetTitle(mTitle.empty() ? wxString::FromUTF8(VxSystemInfo::GetApplicationName()) : mTitle);
  if (auto * prompt = wxDynamicCast(GetDlgItem(kPrompt), wxStaticText)) prompt->SetLabel(mPrompt);

  int const count = mList->GetItemCount();
  if (mSingleSelect) {
    if (mSingle >= 0 && mSingle < count) {
      mList->SetSelIndex(mSingle);
      mList->EnsureVisible(mSingle, false);
    }
  } else {
    mList->SetExtendedStyle(mList->GetExtendedStyle() | LVS_EX_CHECKBOXES);
    if (mSelection != nullptr) {
      std::vector<int> rows;
      for (int row : *mSelection)
        if (row >= 0 && row < count) rows.push_back(row);
      mList->SetCheckedIndexes(rows, true);
    }
    mList->Bind(wxEVT_CONTEXT_MENU, &SelectItemDialog::OnListContextMenu, this);
  }
  AddAnchor(kPrompt, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kList, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : kOptionButtons) AddAnchor(id, BOTTOM_LEFT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  mList->SetFocus();
  return true;
}

void SelectItemDialog::OnOK() {
  if (mOptions.size() > 1 && mOption != nullptr) {
    int ticked = 0;
    for (size_t i = 0; i < mOptions.size() && ticked == 0; ++i) {
      auto * button = wxDynamicCast(GetDlgItem(kOptionButtons[i]), wxRadioButton);
      if (button != nullptr && button->GetValue()) ticked = static_cast<int>(i) + 1;
    }
    if (ticked < 1 || ticked > static_cast<int>(mOptions.size())) {
      AfxMessageBox(Tr("No option is selected."), MB_OK);
      return;
    }
    *mOption = ticked;
  }
  if (mSingleSelect) {
    int const index = mList->GetSelIndex();
    if (index < 0 && !mAllowNone) return;
    mSingle = index;
  } else {
    std::vector<int> rows;
    mList->GetCheckedIndexes(rows);
    if (rows.empty() && !mAllowNone) return;
    if (mSelection != nullptr) *mSelection = std::move(rows);
  }
  EndDialog(IDOK);
}

void SelectItemDialog::RunCommand(int command) {
  int const count = mList->GetItemCount();
  mList->SetRedraw(false);
  switch (command) {
    case kSelectMarked:
    case kUnselectMarked: {
      std::vector<int> marked;
      mList->GetSelIndexes(marked);
      mList->SetCheckedIndexes(marked, command == kSelectMarked);
      break;
    }
    case kSelectAll: mList->CheckAllItems(true); break;
    case kUnselectAll: mList->CheckAllItems(false); break;
    case kSelectComplement:
      for (int row = 0; row < count; ++row) mList->SetCheck(row, !mList->GetCheck(row));
      break;
    default: break;
  }
  mList->SetRedraw(true);
}

void SelectItemDialog::OnListContextMenu(wxContextMenuEvent & event) {
  wxMenu menu;
  if (mList->GetSelectedCount() > 0) {
    menu.Append(kSelectMarked, Tr("Select all marked items"));
    menu.Append(kUnselectMarked, Tr("Unselect all marked items"));
    menu.AppendSeparator();
  }
  menu.Append(kSelectAll, Tr("Select all items"));
  menu.Append(kUnselectAll, Tr("Unselect all items"));
  menu.Append(kSelectComplement, Tr("Select complement"));
  wxPoint at = event.GetPosition();
  at = at == wxDefaultPosition ? wxPoint(5, 5) : mList->ScreenToClient(at);
  int const command = mList->GetPopupMenuSelectionFromUser(menu, at);
  if (command != wxID_NONE) RunCommand(command);
}

int VxSingleSelectItemDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * column,
                             std::vector<wxString> const & items, int * selected, bool allowNone,
                             wxWindow * parent) {
  SelectItemDialog dialog(title, prompt, column, items, {}, nullptr, nullptr,
                          selected != nullptr ? *selected : -1, true, allowNone, parent);
  int const result = dialog.DoModal();
  if (result == IDOK && selected != nullptr) *selected = dialog.GetSingleIndex();
  return result;
}

int VxMultiSelectItemDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * column,
                            std::vector<wxString> const & items, std::vector<int> * selected,
                            bool allowNone, wxWindow * parent) {
  SelectItemDialog dialog(title, prompt, column, items, {}, nullptr, selected, -1, false, allowNone,
                          parent);
  return dialog.DoModal();
}

int VxOptionMultiSelectItemDialog(wchar_t const * title, wchar_t const * prompt,
                                  wchar_t const * column, std::vector<wxString> const & items,
                                  std::vector<int> * selected,
                                  std::vector<wxString> const & options, int * option,
                                  bool singleSelect, bool allowNone, wxWindow * parent) {
  int const single =
      singleSelect && selected != nullptr && !selected->empty() ? selected->front() : -1;
  SelectItemDialog dialog(title, prompt, column, items, options, option, selected, single,
                          singleSelect, allowNone, parent);
  int const result = dialog.DoModal();
  if (result == IDOK && singleSelect && selected != nullptr) {
    selected->clear();
    if (dialog.GetSingleIndex() >= 0) selected->push_back(dialog.GetSingleIndex());
  }
  return result;
}
