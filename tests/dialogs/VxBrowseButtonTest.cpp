// The browse button beside an edit: where it goes and what it does to its
// buddy, for each of its types.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include "controls/VxMenu.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/VxBrowseButton.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WindowMessage.h"

namespace {

class BrowseButtonTest : public testing::Test {
protected:
  void SetUp() override {
    mFrame = new wxFrame(nullptr, wxID_ANY, "Browse buttons", wxDefaultPosition, wxSize(400, 200));
    mPanel = new wxPanel(mFrame);
    mEdit = new wxTextCtrl(mPanel, wxID_ANY, "", wxPoint(10, 10), wxSize(200, 30));
    gui_test::ShowAndWait(*mFrame);
  }
  void TearDown() override {
    mFrame->Destroy();
    gui_test::Flush();
  }

  void Press(VxBrowseButton & button) { gui_test::Click(*mPanel, button.GetId()); }

  wxFrame * mFrame = nullptr;
  wxPanel * mPanel = nullptr;
  wxTextCtrl * mEdit = nullptr;
};

TEST_F(BrowseButtonTest, TheButtonTakesTheRightEndOfItsBuddyAndFollowsItInTabOrder) {
  for (int type : {1, 2, 3, 4}) {
    SCOPED_TRACE(type);
    auto * edit = new wxTextCtrl(mPanel, wxID_ANY, "", wxPoint(10, 90), wxSize(200, 30));
    edit->Enable(type != 4);
    auto * button = new VxBrowseButton;
    ASSERT_EQ(button->Create(edit, static_cast<BROWSE_TYPE>(type)), 1);
    EXPECT_EQ(button->GetBuddyWnd(), edit);
    EXPECT_EQ(edit->GetSize().x, 200 - 23);
    EXPECT_EQ(button->GetRect(), wxRect(10 + 200 - 18, 90, 18, 30));
    EXPECT_EQ(button->GetPrevSibling(), edit);
    EXPECT_EQ(button->IsEnabled(), type != 4);
    EXPECT_EQ(button->GetLabel(), type == 3 ? wxString(wxUniChar(0x25BE)) : wxString("..."));
    EXPECT_EQ(button->GetFont(), edit->GetFont());
    button->Destroy();
    edit->Destroy();
  }
  VxBrowseButton unknown;
  EXPECT_EQ(unknown.Create(mEdit, static_cast<BROWSE_TYPE>(5)), 0);
  EXPECT_EQ(mEdit->GetSize().x, 200);  // untouched
}

TEST_F(BrowseButtonTest, FolderAndFileButtonsBrowseFromTheBuddysTextIntoIt) {
  std::vector<FolderChooserRequest> folderRequests;
  std::vector<FileChooserRequest> fileRequests;
  FolderChooserFunction const formerFolder =
      SetFolderChooserFunction([&](FolderChooserRequest const & r) {
        folderRequests.push_back(r);
        return FolderChooserAnswer{true, "/srv/data"};
      });
  FileChooserFunction const formerFile = SetFileChooserFunction([&](FileChooserRequest const & r) {
    fileRequests.push_back(r);
    FileChooserAnswer answer;
    answer.accepted = true;
    answer.paths = {"/srv/data/run.dat"};
    return answer;
  });

  auto * folder = new VxBrowseButton;
  folder->Create(mEdit, BT_DIRECTORY);
  mEdit->ChangeValue("/");
  int changes = 0;
  mEdit->Bind(wxEVT_TEXT, [&](wxCommandEvent &) { ++changes; });
  Press(*folder);
  EXPECT_EQ(mEdit->GetValue(), "/srv/data");
  EXPECT_EQ(changes, 1);  // the dialog's owner hears of it as of typing
  ASSERT_EQ(folderRequests.size(), 1u);
  EXPECT_EQ(folderRequests[0].initialFolder, "/");

  auto * next = new wxTextCtrl(mPanel, wxID_ANY, "/tmp/old.dat", wxPoint(10, 50), wxSize(200, 30));
  auto * file = new VxBrowseButton;
  file->Create(next, BT_FILE);
  file->SetFileDialog(true, L"dat", L"", OFN_FILEMUSTEXIST, L"Data (*.dat)|*.dat||");
  Press(*file);
  EXPECT_EQ(next->GetValue(), "/srv/data/run.dat");
  ASSERT_EQ(fileRequests.size(), 1u);
  FileChooserRequest const & asked = fileRequests[0];
  EXPECT_TRUE(asked.open && asked.fileMustExist);
  EXPECT_EQ(asked.wildcard, "Data (*.dat)|*.dat");
  EXPECT_EQ(asked.fileName, "old.dat");
  EXPECT_EQ(asked.initialFolder, "/tmp");
  SetFolderChooserFunction(formerFolder);
  SetFileChooserFunction(formerFile);
}

TEST_F(BrowseButtonTest, AMenuButtonPopsItsSubMenuUpBelowItself) {
  std::vector<std::pair<unsigned, unsigned>> loaded;
  auto const formerLoader = VxBrowseButton::SetMenuLoader([&](unsigned id, unsigned sub) {
    loaded.emplace_back(id, sub);
    auto menu = std::make_unique<wxMenu>();
    menu->Append(4711, "Insert date");
    return menu;
  });
  struct Shown {
    unsigned flags;
    wxPoint at;
    wxRect rect;
    wxWindow * owner;
    size_t items;
  };
  std::vector<Shown> shown;
  VxMenu::SetTrackPopupMenuFunction(
      [&](wxMenu * menu, unsigned flags, int x, int y, wxWindow * owner, wxRect const * rect) {
        shown.push_back({flags, wxPoint(x, y), *rect, owner, menu->GetMenuItemCount()});
        return 1;
      });
  auto * button = new VxBrowseButton;
  button->Create(mEdit, BT_POPUPMENU, 310, 2);
  Press(*button);
  VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
  VxBrowseButton::SetMenuLoader(formerLoader);

  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(loaded, (std::vector<std::pair<unsigned, unsigned>>{{310, 2}}));
  wxRect const screen(button->GetScreenPosition(), button->GetSize());
  EXPECT_EQ(shown[0].at, wxPoint(screen.GetLeft(), screen.GetBottom() + 1));
  EXPECT_EQ(shown[0].rect, screen);
  EXPECT_EQ(shown[0].flags, 64u);
  EXPECT_EQ(shown[0].owner, mPanel);
  EXPECT_EQ(shown[0].items, 1u);
}

TEST_F(BrowseButtonTest, ANotifyButtonTellsTheParentWithTheBuddyAndIgnoresAClickWhileBusy) {
  auto * button = new VxBrowseButton;
  button->Create(mEdit, BT_NOTIFY);
  std::vector<std::uintptr_t> buddies;
  mPanel->Bind(VX_EVT_WINDOW_MESSAGE, [&](WindowMessageEvent & event) {
    if (event.GetMessage() != VxBrowseButton::kNotifyMessage) return;
    buddies.push_back(event.GetWParam());
    Press(*button);  // a second click while the first is handled
  });
  Press(*button);
  EXPECT_EQ(buddies, (std::vector<std::uintptr_t>{reinterpret_cast<std::uintptr_t>(mEdit)}));
  Press(*button);  // and the button works again afterwards
  EXPECT_EQ(buddies.size(), 2u);
}

}  // namespace
