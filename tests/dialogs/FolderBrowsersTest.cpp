// The folder, printer and computer browsers, and the toolkit's real file
// chooser on the test's X server.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <gtk/gtk.h>
#include <wx/choicdlg.h>
#include <wx/filedlg.h>
#include <wx/listbox.h>

#include "dialogs/CFolderDialog.h"
#include "dialogs/FolderDialogTestSupport.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/PrinterList.h"
#include "harness/ModalDialogScript.h"
#include "platform/CommDlg.h"
#include "platform/WinUser.h"

using namespace folder_test;

namespace {

struct FakePrinters {
  explicit FakePrinters(PrinterListing listing)
      : former(SetPrinterListFunction([listing = std::move(listing)] { return listing; })) {}
  ~FakePrinters() { SetPrinterListFunction(former); }
  PrinterListFunction former;
};

TEST(FolderBrowsers, PrintersAreChosenFromTheListWithTheDefaultFirst) {
  FakePrinters printers({{"Office", "Lab/duplex", "Bad\x01name"}, ""});
  CFolderDialog dialog(nullptr, "Choose a printer", CFolderDialog::BrowseForPrinter);
  wxArrayString offered;
  int preselected = -1;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto & choice = dynamic_cast<wxSingleChoiceDialog &>(d);
    preselected = choice.GetSelection();
    for (wxWindow * child : d.GetChildren()) {
      if (auto * list = dynamic_cast<wxListBox *>(child)) offered = list->GetStrings();
    }
    choice.SetSelection(1);
    d.EndModal(wxID_OK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(dialog.GetFolderName(), "Lab/duplex");
  EXPECT_EQ(preselected, 0);
  ASSERT_EQ(offered.size(), 3u);
  EXPECT_EQ(offered[2], "Bad\\x01name");  // shown readable, handed back as CUPS named it
  EXPECT_EQ(script.Shown()[0].title, "Choose a printer");
}

TEST(FolderBrowsers, NoComputersNoPrintersOrNoSchedulerIsSaidPlainly) {
  struct Case {
    CFolderDialog::BrowseType type;
    PrinterListing listing;
    char const * says;
  };
  Case const cases[] = {{CFolderDialog::BrowseForComputer, {{"Office"}, ""}, "not offered"},
                        {CFolderDialog::BrowseForPrinter, {{}, ""}, "No printer is set up"},
                        {CFolderDialog::BrowseForPrinter,
                         {{}, "Scheduler not responding"},
                         "Scheduler not responding"}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.says);
    FakePrinters printers(c.listing);
    ModalDialogScript script;
    script.Answer(wxID_OK);
    CFolderDialog dialog(nullptr, "", c.type);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(dialog.GetFolderName().empty());
    ASSERT_EQ(script.Shown().size(), 1u);
    EXPECT_NE(script.Shown()[0].message.Find(c.says), wxNOT_FOUND);
  }
}

TEST(FolderBrowsers, CupsWithoutASchedulerListsNothingAndSaysWhy) {
  // A scheduler socket where none listens: the real call must come back
  // at once with an empty list and its reason.
  std::string const socket = TempFolder("cups") + "/cups.sock";
  setenv("CUPS_SERVER", socket.c_str(), 1);
  PrinterListing const listing = CupsPrinters();
  unsetenv("CUPS_SERVER");
  EXPECT_TRUE(listing.names.empty());
  EXPECT_FALSE(listing.error.empty());
  EXPECT_EQ(listing.error.find("libcups"), std::string::npos)
      << "CUPS was loaded: " << listing.error;
}

TEST(FolderBrowsers, BrowseForFolderStartsAtTheNearestFolderStillThere) {
  std::string const base = TempFolder("browse/start");
  std::string const chosen = TempFolder("browse/chosen");
  // The answer empty: cancelled.
  struct Case {
    char const *name, *title;
    std::string start, answer;
    char const * titleShown;
  };
  char const * const standard = "Browse for a folder.";
  Case const cases[] = {{"chosen", "Data folder", base, chosen, "Data folder"},
                        {"vanished start", nullptr, base + "/gone/deeper", chosen, standard},
                        {"cancelled", "", base, "", standard}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    FakeFolderChooser chooser({c.answer});
    std::string path = "/before";
    bool const result = BrowseForFolder(path, nullptr, c.title, c.start.c_str());
    EXPECT_EQ(result, !c.answer.empty());
    EXPECT_EQ(path, c.answer.empty() ? "/before" : c.answer);
    ASSERT_EQ(chooser.requests.size(), 1u);
    EXPECT_EQ(chooser.requests[0].title, c.titleShown);
    EXPECT_EQ(chooser.requests[0].initialFolder.utf8_string(), base);
  }
}

TEST(FolderBrowsers, TheRealFileChooserOpensInTheFolderAndHandsBackTheName) {
  std::string const folder = TempFolder("native chooser");
  FileChooserRequest request;
  request.open = false;
  request.title = "Export the table";
  request.acceptLabel = "&Export";
  request.initialFolder = wxString::FromUTF8(folder);
  request.fileName = "table.csv";
  request.wildcard = "Tables|*.csv|All files|*";
  ModalDialogScript script;
  // GTK's chooser passes the modal hook twice: in its own ShowModal and in
  // the dialog's.
  script.Act([](wxDialog &) {});
  script.Act([&](wxDialog & d) {
    ASSERT_NE(dynamic_cast<wxFileDialog *>(&d), nullptr);
    GtkWidget * accept =
        gtk_dialog_get_widget_for_response(GTK_DIALOG(d.GetHandle()), GTK_RESPONSE_ACCEPT);
    ASSERT_NE(accept, nullptr);
    EXPECT_STREQ(gtk_button_get_label(GTK_BUTTON(accept)), "_Export");
    EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(d.GetHandle())), "Export the table");
    Snapshot(d, "native-save.png");
    d.EndModal(wxID_OK);
  });
  FileChooserAnswer const answer = NativeFileChooser(request);
  ASSERT_TRUE(answer.accepted);
  EXPECT_EQ(answer.paths, std::vector<wxString>{wxString::FromUTF8(folder + "/table.csv")});
}

}  // namespace
