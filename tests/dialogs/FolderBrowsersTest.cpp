// The folder, printer and computer browsers, and the toolkit's real file
// chooser on the test's X server.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

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

class FakePrinters {
public:
  explicit FakePrinters(PrinterListing listing) {
    mFormer = SetPrinterListFunction([listing] { return listing; });
  }
  ~FakePrinters() { SetPrinterListFunction(mFormer); }

private:
  PrinterListFunction mFormer;
};

TEST(FolderBrowsers, EachKindHasItsFlagsAndRoot) {
  struct Case {
    CFolderDialog::BrowseType type;
    unsigned flags;
    int root;
  };
  Case const cases[] = {{CFolderDialog::BrowseForComputer, 4096, CSIDL_NETWORK},
                        {CFolderDialog::BrowseForFolder, 1, 0},
                        {CFolderDialog::BrowseForPrinter, 8192, CSIDL_PRINTERS}};
  for (Case const & c : cases) {
    CFolderDialog dialog(nullptr, "t", c.type);
    EXPECT_EQ(dialog.GetBrowseFlags(), c.flags);
    EXPECT_EQ(dialog.GetRootFolder(), c.root);
  }
}

TEST(FolderBrowsers, ComputersAreNotOfferedAndSaySo) {
  ModalDialogScript script;
  script.Answer(wxID_OK);
  CFolderDialog dialog(nullptr, "Choose a computer", CFolderDialog::BrowseForComputer);
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_TRUE(dialog.GetFolderName().empty());
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_NE(script.Shown()[0].message.Find("not offered"), wxNOT_FOUND);
}

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

TEST(FolderBrowsers, NoPrintersOrNoSchedulerIsSaidPlainly) {
  struct Case {
    PrinterListing listing;
    char const * says;
  };
  Case const cases[] = {{{{}, ""}, "No printer is set up"},
                        {{{}, "Scheduler not responding"}, "Scheduler not responding"}};
  for (Case const & c : cases) {
    FakePrinters printers(c.listing);
    ModalDialogScript script;
    script.Answer(wxID_OK);
    CFolderDialog dialog(nullptr, "", CFolderDialog::BrowseForPrinter);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
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
}

TEST(FolderBrowsers, BrowseForFolderStartsAtTheNearestFolderStillThere) {
  std::string const base = TempFolder("browse/start");
  std::string const chosen = TempFolder("browse/chosen");
  struct Case {
    char const * name;
    char const * title;
    std::string start;
    std::string answer;  // empty: cancelled
    char const * titleShown;
    std::string startShown;
  };
  Case const cases[] = {
      {"chosen", "Data folder", base, chosen, "Data folder", base},
      {"vanished start", nullptr, base + "/gone/deeper", chosen, "Browse for a folder.", base},
      {"cancelled", "", base, "", "Browse for a folder.", base},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    FakeFolderChooser chooser({c.answer});
    std::string path = "/before";
    bool const result = BrowseForFolder(path, nullptr, c.title, c.start.c_str());
    EXPECT_EQ(result, !c.answer.empty());
    EXPECT_EQ(path, c.answer.empty() ? "/before" : c.answer);
    ASSERT_EQ(chooser.requests.size(), 1u);
    EXPECT_EQ(chooser.requests[0].title, c.titleShown);
    EXPECT_EQ(chooser.requests[0].initialFolder.utf8_string(), c.startShown);
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
  wxString acceptLabel, windowTitle;
  bool isNative = false;
  ModalDialogScript script;
  // GTK's chooser passes the modal hook twice: in its own ShowModal and in
  // the dialog's.
  script.Act([](wxDialog &) {});
  script.Act([&](wxDialog & d) {
    isNative = dynamic_cast<wxFileDialog *>(&d) != nullptr;
    GtkWidget * accept =
        gtk_dialog_get_widget_for_response(GTK_DIALOG(d.GetHandle()), GTK_RESPONSE_ACCEPT);
    if (accept != nullptr) acceptLabel = wxString::FromUTF8(gtk_button_get_label(GTK_BUTTON(accept)));
    windowTitle = wxString::FromUTF8(gtk_window_get_title(GTK_WINDOW(d.GetHandle())));
    Snapshot(d, "native-save.png");
    d.EndModal(wxID_OK);
  });
  FileChooserAnswer const answer = NativeFileChooser(request);
  EXPECT_TRUE(isNative);
  EXPECT_EQ(acceptLabel, "_Export");
  ASSERT_TRUE(answer.accepted);
  ASSERT_EQ(answer.paths.size(), 1u);
  EXPECT_EQ(answer.paths[0].utf8_string(), folder + "/table.csv");
  EXPECT_EQ(windowTitle, "Export the table");
}

}  // namespace
