#include "favourites/AddCommandToFavouritesDlg.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "favourites/CommandsListBox.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouritesTree.h"
#include "platform/MenuCommandIds.h"
#include "platform/ResourceMenus.h"
#include "platform/ResourceModule.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr size_t kMaxText = 1024;

// A menu text as a row shows it: the first "&" deleted, the short-cut after
// a tab cut off.
wxString RowText(wxString text) {
  text.Truncate(kMaxText);
  size_t const tab = text.find('\t');
  if (tab != wxString::npos) text.Truncate(tab);
  size_t const mnemonic = text.find('&');
  if (mnemonic != wxString::npos) text.erase(mnemonic, 1);
  return text;
}

unsigned int CommandOf(int itemId) {
  return static_cast<unsigned int>(CommandFromMenuItemId(itemId));
}

// The command's string: "long text\nshort text".
wxString CommandString(unsigned int command) { return LoadResourceString(command); }

bool HasString(unsigned int command) { return command != 0 && !CommandString(command).empty(); }

// The main window's tool bars, its own first.
std::vector<wxToolBar *> MainFrameToolBars() {
  std::vector<wxToolBar *> bars;
  auto * frame = wxDynamicCast(wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr, wxFrame);
  if (frame == nullptr) return bars;
  if (wxToolBar * own = frame->GetToolBar()) bars.push_back(own);
  for (wxWindow * child : frame->GetChildren())
    if (auto * bar = wxDynamicCast(child, wxToolBar); bar != nullptr && bar != frame->GetToolBar())
      bars.push_back(bar);
  return bars;
}

// A placeholder of the template replaced by the control built here.
template <typename Control>
Control * ReplacePlaceholder(wxWindow & dialog, int id) {
  wxWindow * placeholder = nullptr;
  for (wxWindow * child : dialog.GetChildren())
    if (child->GetId() == id) placeholder = child;
  wxRect const rect = placeholder != nullptr ? placeholder->GetRect() : wxRect(0, 0, 200, 200);
  if (placeholder != nullptr) placeholder->Destroy();
  return new Control(&dialog, id, rect.GetPosition(), rect.GetSize());
}

}  // namespace

AddCommandToFavouritesDlg::AddCommandToFavouritesDlg(FavouritesTree * tree,
                                                     unsigned int const * menuIds,
                                                     unsigned int count, wxWindow * parent)
    : mTree(tree), mMenuIds(menuIds, menuIds + count), mImages(16, 15, true, 0) {
  SetParent(parent);
}

AddCommandToFavouritesDlg::~AddCommandToFavouritesDlg() = default;

bool AddCommandToFavouritesDlg::Create() {
  if (!LoadDialogTemplate(*this, GetParent(), kTemplate, kResizableStyle)) return false;
  return OnInitDialog();
}

bool AddCommandToFavouritesDlg::OnInitDialog() {
  mMenus = wxDynamicCast(FindWindow(kMenusList), wxListBox);
  mCommands = ReplacePlaceholder<CommandsListBox>(*this, kCommandsList);
  if (mMenus == nullptr) return false;
  for (int id : {16067, int(kMenusList), int(kCommandsList)}) AddAnchor(id, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : {int(kSelectedCommand), int(kDescription), 16062})
    AddAnchor(id, BOTTOM_LEFT, BOTTOM_RIGHT);
  for (int id : {int(kAddButton), 1, 2}) AddAnchor(id, BOTTOM_RIGHT);

  for (unsigned int id : mMenuIds) FavouritesManager::LoadToolBar(id, mImages, mIconMap);
  for (unsigned int id : mMenuIds) {
    std::unique_ptr<wxMenuBar> bar = LoadResourceMenuBar(id);
    if (!bar) continue;  // a menu that does not load adds nothing
    for (size_t i = 0; i < bar->GetMenuCount(); ++i) mMenus->Append(RowText(bar->GetMenuLabel(i)));
  }
  for (wxToolBar * bar : MainFrameToolBars()) {
    bool hasCommand = false;
    for (size_t i = 0; i < bar->GetToolsCount() && !hasCommand; ++i) {
      wxToolBarToolBase const * tool = bar->GetToolByPos(static_cast<int>(i));
      hasCommand = !tool->IsSeparator() && HasString(CommandOf(tool->GetId()));
    }
    if (!hasCommand) continue;
    wxString name = bar->GetLabel();
    if (name.empty()) name = Tr("Toolbar", "Application Toolbar");
    mMenus->Append(name);
    mToolBars.emplace_back(bar);
  }

  mMenus->Bind(wxEVT_LISTBOX, [this](wxCommandEvent &) { OnMenusSelection(); });
  mCommands->Bind(wxEVT_LISTBOX, [this](wxCommandEvent &) { OnCommandsSelection(); });
  mCommands->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent &) { OnCommandsDoubleClick(); });
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnAdd(); }, kAddButton);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Destroy(); }, wxID_OK);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Destroy(); }, wxID_CANCEL);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent &) { Destroy(); });

  if (mMenus->GetCount() > 0) mMenus->SetSelection(0);
  OnMenusSelection();
  return true;
}

void AddCommandToFavouritesDlg::OnMenusSelection() { ShowRow(mMenus->GetSelection()); }

void AddCommandToFavouritesDlg::ShowRow(int row) {
  if (wxWindow * add = FindWindow(kAddButton)) add->Enable(false);
  mCurrentMenu = nullptr;
  mMenu.reset();
  int index = row;
  for (unsigned int id : mMenuIds) {
    if (index < 0) break;
    std::unique_ptr<wxMenuBar> bar = LoadResourceMenuBar(id);
    int const count = bar ? static_cast<int>(bar->GetMenuCount()) : 0;
    if (index < count) {
      mCurrentMenu = bar->GetMenu(static_cast<size_t>(index));
      mMenu = std::move(bar);
      break;
    }
    index -= count;
  }
  if (mCurrentMenu != nullptr) {
    FillFromMenu(*mCurrentMenu);
  } else if (index >= 0 && index < static_cast<int>(mToolBars.size()) && mToolBars[index]) {
    FillFromToolBar(*mToolBars[index]);
  } else {
    mCommands->ResetContent();
  }
  mDescription.clear();
  mSelectedCommand.clear();
  UpdateTexts();
}

void AddCommandToFavouritesDlg::FillFromMenu(wxMenu const & menu) {
  std::vector<CommandsListBox::CommandRow> rows;
  int position = -1;
  for (wxMenuItem const * item : menu.GetMenuItems()) {
    ++position;
    unsigned int const command = CommandOf(item->GetId());
    if (command == kRecentFileCommand) continue;
    wxMenu const * sub = item->GetSubMenu();
    // Placeholders the application leaves in its menus.
    if (sub != nullptr && sub->GetMenuItemCount() == 1 &&
        RowText(sub->FindItemByPosition(0)->GetItemLabel()) == Tr("N/A"))
      continue;
    wxString const label = item->GetItemLabel();
    if (item->IsSeparator() || label.empty()) continue;
    CommandsListBox::CommandRow row{RowText(label), wxIcon(), sub != nullptr ? 0U : command,
                                    position};
    if (row.commandId != 0) {
      auto const found = mIconMap.find(static_cast<uint16_t>(row.commandId));
      if (found != mIconMap.end()) row.icon = mImages.GetIcon(found->second);
    }
    rows.push_back(std::move(row));
  }
  mCommands->SetRows(std::move(rows));
}

void AddCommandToFavouritesDlg::FillFromToolBar(wxToolBar const & bar) {
  std::vector<CommandsListBox::CommandRow> rows;
  for (size_t i = 0; i < bar.GetToolsCount(); ++i) {
    wxToolBarToolBase const * tool = bar.GetToolByPos(static_cast<int>(i));
    unsigned int const command = CommandOf(tool->GetId());
    if (tool->IsSeparator() || !HasString(command)) continue;
    wxString const text = CommandString(command);
    wxString const longText = text.BeforeFirst('\n');
    wxString const shortText = text.Find('\n') == wxNOT_FOUND ? wxString() : text.AfterFirst('\n');
    wxIcon icon;
    if (tool->GetNormalBitmap().IsOk()) icon.CopyFromBitmap(tool->GetNormalBitmap());
    rows.push_back({shortText.empty() ? longText : shortText, icon, command, static_cast<int>(i)});
  }
  mCommands->SetRows(std::move(rows));
}

void AddCommandToFavouritesDlg::OnCommandsSelection() {
  CommandsListBox::CommandRow const * row = mCommands->GetRow(mCommands->GetSelection());
  wxWindow * add = FindWindow(kAddButton);
  if (row == nullptr) {
    mSelectedCommand = Tr("Selected command:");
  } else if (row->commandId != 0) {
    wxString description = CommandString(row->commandId).BeforeFirst('\n');
    if (description.empty()) description = row->text;
    mSelectedCommand = Tr("%1% %2%");
    mSelectedCommand.Replace("%1%", Tr("Selected command:"));
    mSelectedCommand.Replace("%2%", description);
    if (add != nullptr) add->Enable(true);
  } else {
    mSelectedCommand = Tr("Submenu:  double-click to view the submenu items.");
    if (add != nullptr) add->Enable(false);
  }
  mDescription.clear();
  mAdded = false;
  UpdateTexts();
}

void AddCommandToFavouritesDlg::OnCommandsDoubleClick() {
  CommandsListBox::CommandRow const * row = mCommands->GetRow(mCommands->GetSelection());
  if (row != nullptr && row->commandId == 0 && mCurrentMenu != nullptr) {
    wxMenuItem * item = mCurrentMenu->FindItemByPosition(static_cast<size_t>(row->position));
    if (item != nullptr && item->GetSubMenu() != nullptr) {
      mCurrentMenu = item->GetSubMenu();
      FillFromMenu(*mCurrentMenu);
      mDescription.clear();
      mSelectedCommand.clear();
      UpdateTexts();
      return;
    }
  }
  OnAdd();
}

void AddCommandToFavouritesDlg::OnAdd() {
  CommandsListBox::CommandRow const * row = mCommands->GetRow(mCommands->GetSelection());
  if (row == nullptr || row->commandId == 0 || mTree == nullptr) return;
  mTree->AddToFavourites(
      new FavouriteCommandItem(row->text.wc_str(), static_cast<int>(row->commandId)));
  mAdded = true;
}

void AddCommandToFavouritesDlg::UpdateTexts() {
  if (auto * heading = wxDynamicCast(FindWindow(kSelectedCommand), wxStaticText))
    heading->SetLabel(mSelectedCommand);
  if (auto * description = wxDynamicCast(FindWindow(kDescription), wxStaticText))
    description->SetLabel(mDescription);
}

AddCommandToFavouritesDlg * ShowAddCommandDialog(FavouritesTree & tree) {
  std::vector<unsigned int> const & ids = tree.GetCommandItems();
  if (ids.empty()) return nullptr;
  wxWindow * owner = wxGetTopLevelParent(&tree);
  for (wxWindow * window : wxTopLevelWindows)
    if (auto * open = dynamic_cast<AddCommandToFavouritesDlg *>(window);
        open != nullptr && open->GetTree() == &tree) {
      open->Raise();
      return open;
    }
  auto * dialog = new AddCommandToFavouritesDlg(&tree, ids.data(),
                                                static_cast<unsigned int>(ids.size()), owner);
  if (!dialog->Create()) {
    delete dialog;
    return nullptr;
  }
  dialog->Show();
  return dialog;
}
