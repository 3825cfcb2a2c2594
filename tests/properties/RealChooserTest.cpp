// The browse editors with the toolkit's real choosers, no replacement: a
// person's keys (xdotool) type a path into GTK's folder and file choosers,
// and the path lands in the editor as the file system knows it.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <gtk/gtk.h>
#include <wx/timer.h>

#include "EditorHost.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "properties/PropertyInPlaceBrowseForFile.h"
#include "properties/PropertyInPlaceBrowseForFolder.h"
#include "properties/PropertyInPlaceEditAndBrowseEdit.h"

namespace {

bool SameFile(std::string const & a, std::string const & b) {
  struct stat sa {
  }, sb{};
  return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
         sa.st_ino == sb.st_ino;
}

// Ends a chooser: the toolkit's own runs its own loop, which only a
// response ends (EndModal does not).
void Cancel(wxDialog & dialog) {
  if (dialog.IsModal())
    dialog.EndModal(wxID_CANCEL);
  else if (GTK_IS_DIALOG(dialog.GetHandle()))
    gtk_dialog_response(GTK_DIALOG(dialog.GetHandle()), GTK_RESPONSE_CANCEL);
}

// Types into the chooser once GTK shows it active: `keys` first (xdotool
// key names), then `text`, then Return. Returns the chooser's title.
// With `intoEntry` it waits until a text entry of the chooser has the focus.
std::string TypeInto(wxDialog & dialog, std::string const & keys, std::string const & text,
                     bool intoEntry) {
  GtkWidget * const widget = dialog.GetHandle();
  bool const active = gui_test::WaitUntil([&] {
    if (gtk_widget_get_mapped(widget) == 0 || gtk_window_is_active(GTK_WINDOW(widget)) == 0)
      return false;
    GtkWidget * const focus = gtk_window_get_focus(GTK_WINDOW(widget));
    return !intoEntry || (focus != nullptr && GTK_IS_ENTRY(focus));
  });
  EXPECT_TRUE(active);
  if (!active) {
    Cancel(dialog);
    return {};
  }
  gui_test::Flush();
  std::string const command =
      "xdotool key --clearmodifiers " + keys + " && xdotool type --delay 15 '" + text + "'";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  // Return only once the entry holds the whole text: a key still on its way,
  // or a completion GTK offers meanwhile, would otherwise take it.
  auto entryText = [widget] {
    GtkWidget * const focus = gtk_window_get_focus(GTK_WINDOW(widget));
    return focus != nullptr && GTK_IS_ENTRY(focus)
               ? std::string(gtk_entry_get_text(GTK_ENTRY(focus)))
               : std::string();
  };
  EXPECT_TRUE(gui_test::WaitUntil([&] { return entryText() == text; })) << entryText();
  EXPECT_EQ(std::system("xdotool key Return"), 0);
  char const * title = gtk_window_get_title(GTK_WINDOW(widget));
  return title == nullptr ? std::string() : std::string(title);
}

class RealChooserTest : public testing::Test {
protected:
  void SetUp() override {
    char folder[] = "/tmp/talvo-chooser-XXXXXX";
    ASSERT_NE(::mkdtemp(folder), nullptr);
    root = folder;
    host = new EditorHost;
    ASSERT_TRUE(gui_test::ShowAndWait(*host));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*host));
  }
  void TearDown() override {
    guard.Stop();
    host->Destroy();
    gui_test::Flush();
    std::system(("rm -rf '" + root + "'").c_str());
  }

  // Should the keys go astray, the open chooser is cancelled rather than
  // left waiting for ever; the test then fails on the path.
  void Guard() {
    guard.Bind(wxEVT_TIMER, [](wxTimerEvent &) {
      for (wxWindow * window : wxTopLevelWindows) {
        auto * dialog = wxDynamicCast(window, wxDialog);
        if (dialog != nullptr) Cancel(*dialog);
      }
    });
    guard.StartOnce(20000);
  }

  std::string root;
  EditorHost * host = nullptr;
  wxTimer guard;
};

TEST_F(RealChooserTest, TypedFolderLandsInTheEditor) {
  std::string const chosen = root + "/run 7";
  ASSERT_EQ(::mkdir(chosen.c_str(), 0700), 0);
  auto * editor = new PropertyInPlaceBrowseForFolder(host->owner, RECT{100, 20, 300, 40}, root);
  ModalDialogScript script;
  std::string title;
  script.Act([&](wxDialog & dialog) { title = TypeInto(dialog, "ctrl+l", chosen + "/", false); });
  Guard();
  editor->Browse();
  gui_test::Flush();
  EXPECT_EQ(title, "Select Folder");
  std::string const landed = editor->GetEdit()->GetValue().utf8_string();
  EXPECT_TRUE(SameFile(landed, chosen)) << landed;
  EXPECT_EQ(editor->GetData(), editor->GetEdit()->GetValue());
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

TEST_F(RealChooserTest, ExistingFileIsTakenWithoutAnOverwriteQuestion) {
  std::string const existing = root + "/existing.csv";
  std::ofstream(existing) << "run,value\n7,1.5\n";
  auto * editor =
      new PropertyInPlaceBrowseForFile(host->owner, RECT{100, 20, 300, 40}, root + "/old.csv");
  ModalDialogScript script;
  std::string title;
  // The file dialog passes the modal hook twice, outside and inside.
  script.Act([](wxDialog &) {});
  script.Act([&](wxDialog & dialog) { title = TypeInto(dialog, "ctrl+a", existing, true); });
  Guard();
  editor->Browse();
  gui_test::Flush();
  for (auto const & shown : script.Shown())
    EXPECT_EQ(shown.className, "wxFileDialog") << "no question about overwriting";
  EXPECT_EQ(title, "Select File");
  std::string const landed = editor->GetEdit()->GetValue().utf8_string();
  EXPECT_TRUE(SameFile(landed, existing)) << landed;
  struct stat after {};
  ASSERT_EQ(::stat(existing.c_str(), &after), 0);
  EXPECT_EQ(after.st_size, 16) << "choosing the file left it as it was";
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

}  // namespace
