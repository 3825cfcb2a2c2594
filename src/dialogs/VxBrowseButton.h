#pragma once
// The small button at the right end of an edit, its buddy: it browses for
// a folder or a file into the buddy, pops up a menu, or tells the parent.

#include <functional>
#include <memory>

#include <wx/button.h>
#include <wx/string.h>

#include "platform/CommDlg.h"

class wxMenu;

enum BROWSE_TYPE {
  BT_DIRECTORY = 1,  // the folder browser, starting at the buddy's text
  BT_FILE = 2,       // a file dialog with the button's settings
  BT_POPUPMENU = 3,  // a menu below the button
  BT_NOTIFY = 4,     // kNotifyMessage to the buddy's parent
};

class VxBrowseButton : public wxButton {
public:
  // Sent to the buddy's parent by a BT_NOTIFY button, wParam the buddy.
  static constexpr UINT kNotifyMessage = 33468;
  static constexpr int kBuddyShrink = 23;
  static constexpr int kWidth = 18;

  // The menu `menuId`'s sub-menu `subMenu` for a BT_POPUPMENU button;
  // null when there is none.
  using MenuLoader =
      std::function<std::unique_ptr<wxMenu>(unsigned int menuId, unsigned int subMenu)>;

  VxBrowseButton();

  // Makes the buddy 23 pixels narrower and puts the button on the right
  // end of its former place, after it in the tab order, enabled as it is.
  // 0 for an unknown type or a buddy without parent.
  virtual int Create(wxWindow * buddy, BROWSE_TYPE type, unsigned int menuId = 0,
                     unsigned int subMenu = 0);
  wxWindow * GetBuddyWnd() const { return mBuddy; }
  BROWSE_TYPE GetBrowseType() const { return mType; }

  // The file dialog of a BT_FILE button.
  void SetFileDialog(bool open, wchar_t const * defaultExtension, wchar_t const * fileName,
                     DWORD flags, wchar_t const * filter);
  // The folder browser's title of a BT_DIRECTORY button (empty: the default).
  void SetBrowseTitle(wxString const & title) { mBrowseTitle = title; }

  // Takes the buddy's font again.
  void UpdateFont();

  // Where BT_POPUPMENU buttons get their menus (the application's menus
  // by number); returns the former loader.
  static MenuLoader SetMenuLoader(MenuLoader loader);

  virtual void OnClicked();

private:
  void BrowseFolder();
  void BrowseFile();
  void PopUpMenu();

  wxWindow * mBuddy = nullptr;
  wxWindow * mParentWnd = nullptr;
  BROWSE_TYPE mType = BT_DIRECTORY;
  unsigned int mMenuId = 0;
  unsigned int mSubMenu = 0;
  bool mInClick = false;

  bool mOpen = true;
  wxString mDefaultExtension;
  wxString mFileName;
  DWORD mFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
  wxString mFilter;
  wxString mBrowseTitle;
};
