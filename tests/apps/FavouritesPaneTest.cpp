// The sample's Tools › Favourites pane with the real pointer (XTest): the
// pane opens with its favourites, an empty folder shows its text, the row
// the pointer rests on becomes the caret, one click on a command favourite
// runs it, a drag moves a row into a folder, and closing keeps the
// favourites for the next run.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/menu.h>

#include "FavouritesPane.h"
#include "MainFrame.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesTree.h"
#include "harness/GuiTestUtilities.h"
#include "utl/XercesXMLSection.h"
#include "work/XTestInput.h"

namespace {

class FavouritesPaneTest : public testing::Test {
protected:
  void SetUp() override {
    // A toolkit complaint is printed, not shown in a box that waits.
    mFormerLog = wxLog::SetActiveTarget(new wxLogStderr);
    if (wxFileName::FileExists(SampleFavouritesFile())) wxRemoveFile(SampleFavouritesFile());
    frame = new MainFrame;
    wxTheApp->SetTopWindow(frame);  // command favourites run on the main window
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    wxMenu * const tools =
        frame->GetMenuBar()->GetMenu(static_cast<size_t>(frame->GetMenuBar()->FindMenu("Tools")));
    int const id = tools->FindItem("Favourites pane");
    ASSERT_NE(id, wxNOT_FOUND);
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
    pane = dynamic_cast<wxFrame *>(frame->FindWindowByName("SampleFavourites", frame));
    ASSERT_NE(pane, nullptr);
    tree = dynamic_cast<FavouritesTree *>(pane->FindWindow(16258));
    ASSERT_NE(tree, nullptr);
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*pane));
    ASSERT_TRUE(gui_test::WaitUntil([this] { return IsClickable(*tree); }));
    display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  }
  void TearDown() override {
    wxTheApp->SetTopWindow(nullptr);
    frame->Destroy();
    gui_test::Flush();
    delete wxLog::SetActiveTarget(mFormerLog);
  }
  HTREEITEM Row(char const * text) const {
    for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
      if (tree->GetItemText(row) == text) return row;
    return TVI_NULL;
  }
  wxPoint OnScreen(HTREEITEM row) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(row, &rect, 1));
    wxPoint const centre = ScreenCentre(*tree);
    wxSize const size = tree->GetClientSize();
    return wxPoint(centre.x - size.x / 2 + (rect.left + rect.right) / 2,
                   centre.y - size.y / 2 + (rect.top + rect.bottom) / 2);
  }
  void MoveTo(wxPoint at) {
    XTestFakeMotionEvent(display, -1, at.x, at.y, CurrentTime);
    XSync(display, False);
  }
  void Button(bool down) {
    XTestFakeButtonEvent(display, 1, down, CurrentTime);
    XSync(display, False);
  }
  std::string Shape() const {
    std::string shape;
    for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
      shape += std::string(size_t(tree->GetIndentLevel(row)), ' ') +
               tree->GetItemText(row).utf8_string() + "|";
    return shape;
  }

  MainFrame * frame = nullptr;
  wxFrame * pane = nullptr;
  FavouritesTree * tree = nullptr;
  Display * display = nullptr;
  wxLog * mFormerLog = nullptr;
};

TEST_F(FavouritesPaneTest, HoverOneClickAndDragWorkWithTheRealPointer) {
  // The idle upkeep gives the empty folder its text.
  ASSERT_TRUE(gui_test::WaitUntil([this] { return bool(Row("Drop files here")); }));
  EXPECT_EQ(Shape(),
            "Tree view|Documents| Drop files here|Notes|Reports| Calibration report| Runs by "
            "project|");
  gui_test::Snapshot(*pane, "favourites-pane");

  // Resting on a label makes it the caret (the hover timer's handler).
  HTREEITEM const notes = Row("Notes");
  MoveTo(OnScreen(notes));
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    UINT flags = 0;
    return tree->HitTest(tree->GetLastMousePoint(), &flags) == notes &&
           (flags & TVHT_ONITEMLABEL) != 0;
  }));
  tree->OnTimer(VxTreeCtrl::kHoverTimer);
  EXPECT_EQ(tree->GetSelectedItem(), notes);

  // One click on a command favourite's label runs the command.
  MoveTo(OnScreen(Row("Tree view")));
  gui_test::Flush();
  Button(true);
  Button(false);
  ASSERT_TRUE(gui_test::WaitUntil(
      [this] { return frame->FindWindowByName("SampleTreeView", frame) != nullptr; }));
  // Out of the way of the drag.
  frame->FindWindowByName("SampleTreeView", frame)->Destroy();
  pane->Raise();
  ASSERT_TRUE(gui_test::WaitUntil([this] { return IsClickable(*tree); }));

  // A drag of Notes onto the open Reports folder drops it in as its last row.
  wxPoint const from = OnScreen(Row("Notes"));
  MoveTo(from);
  gui_test::Flush();
  Button(true);
  MoveTo(from + wxPoint(0, 12));
  ASSERT_TRUE(gui_test::WaitUntil([this] { return tree->IsDragging(); }));
  MoveTo(OnScreen(Row("Reports")));
  EXPECT_TRUE(gui_test::WaitUntil([&] { return tree->GetCurrentDropTarget() == Row("Reports"); }));
  Button(false);
  ASSERT_TRUE(gui_test::WaitUntil([this] { return !tree->IsDragging(); }));
  EXPECT_EQ(Shape(),
            "Tree view|Documents| Drop files here|Reports| Calibration report| Runs by project| "
            "Notes|");
  EXPECT_EQ(tree->GetFavouriteItem(Row("Notes"))->GetName(), "Notes") << "the record moved along";

  // Closing keeps the favourites, in display order.
  pane->Close();
  gui_test::Flush();
  ASSERT_TRUE(wxFileName::FileExists(SampleFavouritesFile()));
  XercesXMLSection saved(SampleFavouritesFile().utf8_str().data(), false);
  std::unique_ptr<ConfigurationSection> const root(saved.CopyAndChangeSubSection("Favourites"));
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->NumSubSections("FavouriteItem"), 6) << "the placeholder is no favourite";
}

}  // namespace
