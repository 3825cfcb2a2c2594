// GTK's print dialog opens on the paper and orientation of the device mode
// it is given (the application's, from the print setup and the backstage
// page). The dialog is read and cancelled from the main loop it runs.
#include <gtest/gtest.h>

#include <gtk/gtk.h>

#include <string>

#include "platform/WinUser.h"
#include "printing/PrintDialog.h"

namespace {

struct Opened {
  std::string paper;
  GtkPageOrientation orientation = GTK_PAGE_ORIENTATION_PORTRAIT;
  bool seen = false;
};

// Reads the print dialog once it is up, and cancels it.
gboolean ReadAndCancel(gpointer data) {
  auto * opened = static_cast<Opened *>(data);
  GList * const windows = gtk_window_list_toplevels();
  GtkWidget * dialog = nullptr;
  for (GList * item = windows; item != nullptr; item = item->next)
    if (G_TYPE_CHECK_INSTANCE_TYPE(item->data, g_type_from_name("GtkPrintUnixDialog")) &&
        gtk_widget_get_visible(GTK_WIDGET(item->data)))
      dialog = GTK_WIDGET(item->data);
  g_list_free(windows);
  if (dialog == nullptr) return G_SOURCE_CONTINUE;
  GtkPageSetup * setup = nullptr;
  g_object_get(dialog, "page-setup", &setup, nullptr);
  opened->paper = gtk_paper_size_get_name(gtk_page_setup_get_paper_size(setup));
  opened->orientation = gtk_page_setup_get_orientation(setup);
  opened->seen = true;
  g_object_unref(setup);
  gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_CANCEL);
  return G_SOURCE_REMOVE;
}

}  // namespace

// A paper of the desktop's list goes by its name, also when its size comes
// rounded to whole millimetres.
TEST(PrintDialogGtk, OpensOnTheDeviceModesPaperAndOrientation) {
  struct Case {
    PaperFormat paper;
    char const * name;
    GtkPageOrientation orientation;
  };
  for (Case const & c : {Case{{148, 210, false}, "iso_a5", GTK_PAGE_ORIENTATION_LANDSCAPE},
                         Case{{215, 279, false}, "na_letter", GTK_PAGE_ORIENTATION_PORTRAIT}}) {
    SCOPED_TRACE(c.paper.widthMm);
    PRINTDLGW data;
    data.hDevMode = std::make_shared<DEVMODEW>();
    data.hDevMode->paper = c.paper;
    data.hDevMode->dmOrientation =
        c.orientation == GTK_PAGE_ORIENTATION_LANDSCAPE ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    Opened opened;
    g_idle_add(ReadAndCancel, &opened);
    EXPECT_EQ(RunDesktopPrintDialog(data), IDCANCEL);
    ASSERT_TRUE(opened.seen);
    EXPECT_EQ(opened.paper, c.name);
    EXPECT_EQ(opened.orientation, c.orientation);
  }
}
