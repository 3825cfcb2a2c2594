#include "dialogs/VxBrowseButton.h"

#include <string>
#include <utility>

#include <wx/menu.h>
#include <wx/textentry.h>

#include "controls/VxMenu.h"
#include "dialogs/CFileDialog.h"
#include "dialogs/CFolderDialog.h"
#include "dialogs/FileSystemNames.h"
#include "platform/WinUser.h"
#include "platform/WindowMessage.h"
#include "utl/Log.h"
#include "utl/Paths.h"

namespace {

constexpr unsigned int kTrackVertical = 0x0040;  // TPM_VERTICAL

VxBrowseButton::MenuLoader & Loader() {
  static VxBrowseButton::MenuLoader loader;
  return loader;
}

wxString BuddyText(wxWindow * buddy) {
  if (auto * entry = dynamic_cast<wxTextEntry *>(buddy)) return entry->GetValue();
  return buddy->GetLabel();
}

void SetBuddyText(wxWindow * buddy, wxString const & text) {
  if (auto * entry = dynamic_cast<wxTextEntry *>(buddy)) {
    entry->SetValue(text);  // sends the change notification, as typing would
    entry->SetInsertionPointEnd();
  } else {
    buddy->SetLabel(text);
  }
}

// Resets a flag when the scope ends, however it ends.
class Reentry {
public:
  explicit Reentry(bool & flag) : mFlag(flag) { mFlag = true; }
  ~Reentry() { mFlag = false; }

private:
  bool & mFlag;
};

}  // namespace

VxBrowseButton::VxBrowseButton() = default;

int VxBrowseButton::Create(wxWindow * buddy, BROWSE_TYPE type, unsigned int menuId,
                           unsigned int subMenu) {
  if (buddy == nullptr || buddy->GetParent() == nullptr) return 0;
  if (type < BT_DIRECTORY || type > BT_NOTIFY) return 0;
  mBuddy = buddy;
  mParentWnd = buddy->GetParent();
  mType = type;
  mMenuId = menuId;
  mSubMenu = subMenu;

  wxRect const place = buddy->GetRect();
  buddy->SetSize(place.width - kBuddyShrink, place.height);
  // "..." for browsing; a small arrow for the menu (the glyph of the
  // symbol font on Windows).
  wxString const label = type == BT_POPUPMENU ? wxString(wxUniChar(0x25BE)) : wxString("...");
  if (!wxButton::Create(mParentWnd, wxID_ANY, label,
                        wxPoint(place.GetRight() + 1 - kWidth, place.y),
                        wxSize(kWidth, place.height), wxBU_EXACTFIT))
    return 0;
  MoveAfterInTabOrder(buddy);
  Enable(buddy->IsEnabled());
  UpdateFont();
  Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { OnClicked(); });
  return 1;
}

void VxBrowseButton::UpdateFont() {
  if (mBuddy != nullptr) SetFont(mBuddy->GetFont());
}

void VxBrowseButton::SetFileDialog(bool open, wchar_t const * defaultExtension,
                                   wchar_t const * fileName, DWORD flags, wchar_t const * filter) {
  mOpen = open;
  mDefaultExtension = defaultExtension != nullptr ? defaultExtension : L"";
  mFileName = fileName != nullptr ? fileName : L"";
  mFlags = flags;
  mFilter = filter != nullptr ? filter : L"";
}

VxBrowseButton::MenuLoader VxBrowseButton::SetMenuLoader(MenuLoader loader) {
  return std::exchange(Loader(), std::move(loader));
}

void VxBrowseButton::OnClicked() {
  if (mInClick || mBuddy == nullptr) return;
  Reentry guard(mInClick);
  switch (mType) {
    case BT_DIRECTORY: BrowseFolder(); break;
    case BT_FILE: BrowseFile(); break;
    case BT_POPUPMENU: PopUpMenu(); break;
    case BT_NOTIFY:
      SendWindowMessage(mParentWnd, kNotifyMessage, reinterpret_cast<std::uintptr_t>(mBuddy), 0);
      break;
  }
}

void VxBrowseButton::BrowseFolder() {
  std::string path = ToFileSystemPath(BuddyText(mBuddy));
  std::string const title = mBrowseTitle.utf8_string();
  if (BrowseForFolder(path, this, title.c_str(), path.c_str()))
    SetBuddyText(mBuddy, FromFileSystemPath(path));
}

void VxBrowseButton::BrowseFile() {
  // The buddy's file, when it names one, is where the dialog starts.
  std::string const current = ToFileSystemPath(BuddyText(mBuddy));
  wxString fileName = mFileName;
  if (!current.empty() && !VxGetFileName(current).empty())
    fileName = FromFileSystemPath(VxGetFileName(current));
  CFileDialog dialog(mOpen ? 1 : 0,
                     mDefaultExtension.empty() ? nullptr : mDefaultExtension.wc_str(),
                     fileName.wc_str(), mFlags, mFilter.empty() ? nullptr : mFilter.wc_str(), this);
  std::string const folder = VxGetDirectory(current);
  if (!folder.empty() && VxFileExist(folder) == VxFolder)
    dialog.m_ofn.lpstrInitialDir = FromFileSystemPath(folder);
  if (dialog.DoModal() == IDOK) SetBuddyText(mBuddy, dialog.GetPathName());
}

void VxBrowseButton::PopUpMenu() {
  MenuLoader const loader = Loader();
  std::unique_ptr<wxMenu> menu = loader ? loader(mMenuId, mSubMenu) : nullptr;
  if (!menu) {
    Log::WriteMessage(
        "VxBrowseButton", "PopUpMenu",
        "Menu " + std::to_string(mMenuId) + " has no sub-menu " + std::to_string(mSubMenu),
        Log::Error, false);
    return;
  }
  wxRect const rect(GetScreenPosition(), GetSize());
  VxMenu::TrackPopupMenu(menu.get(), kTrackVertical, rect.GetLeft(), rect.GetBottom() + 1,
                         mParentWnd, &rect);
}
