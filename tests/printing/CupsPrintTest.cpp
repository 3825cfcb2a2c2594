// The printer road: a private CUPS scheduler on a socket of the test's own
// with a raw queue that keeps what it is sent in its spool, and VXPrinter
// printing to it through a GTK print job, the copies left to the printer.
// Skipped, saying why, where no scheduler can be started.
#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <wx/dc.h>

#include "PdfTools.h"
#include "dialogs/PrinterList.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "printing/VXPrinter.h"

extern char ** environ;

namespace {

class PrivateCups : public testing::Test {
protected:
  void SetUp() override {
    if (access("/usr/sbin/cupsd", X_OK) != 0 || pdf_tools::Run("command -v lpadmin").empty()) {
      GTEST_SKIP() << "CUPS is not installed (cups)";
    }
    char const * tmp = std::getenv("TMPDIR");
    mFolder = std::string(tmp != nullptr ? tmp : "/tmp") + "/cups";
    for (char const * sub : {"", "/spool", "/tmp", "/cache", "/state", "/log", "/out"}) {
      mkdir((mFolder + sub).c_str(), 0755);
    }
    chmod((mFolder + "/out").c_str(), 0777);  // the scheduler's jobs write as its own user
    mSocket = mFolder + "/cups.sock";
    std::ofstream(mFolder + "/cupsd.conf")
        << "Listen " << mSocket
        << "\nLogLevel warn\nWebInterface No\nBrowsing No\nPreserveJobFiles Yes\n"
           "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
           "<Policy default>\n  <Limit All>\n    Order deny,allow\n"
           "  </Limit>\n</Policy>\n";
    std::ofstream(mFolder + "/cups-files.conf")
        << "ServerRoot " << mFolder << "\nRequestRoot " << mFolder << "/spool\nTempDir " << mFolder
        << "/tmp\nCacheDir " << mFolder << "/cache\nStateDir " << mFolder << "/state\nAccessLog "
        << mFolder << "/log/access_log\nErrorLog " << mFolder << "/log/error_log\nPageLog "
        << mFolder << "/log/page_log\nFileDevice Yes\n";
    std::string const conf = mFolder + "/cupsd.conf";
    std::string const files = mFolder + "/cups-files.conf";
    char const * argv[] = {"cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), nullptr};
    if (posix_spawn(&mPid, "/usr/sbin/cupsd", nullptr, nullptr, const_cast<char **>(argv),
                    environ) != 0) {
      GTEST_SKIP() << "cupsd cannot be started";
    }
    struct stat info {};
    if (!gui_test::WaitUntil([&] { return stat(mSocket.c_str(), &info) == 0; }, 10000)) {
      GTEST_SKIP() << "cupsd did not open its socket: "
                   << pdf_tools::Run("cat " + mFolder + "/log/error_log");
    }
    int status = 0;
    pdf_tools::Run(
        "lpadmin -h " + pdf_tools::Quote(mSocket) + " -p talvo-test -E -v file:///dev/null -m raw",
        &status);
    if (status != 0) {
      GTEST_SKIP() << "the test queue cannot be made";
    }
    setenv("CUPS_SERVER", mSocket.c_str(), 1);
  }

  void TearDown() override {
    if (mPid > 0) {
      kill(mPid, SIGTERM);
      waitpid(mPid, nullptr, 0);
    }
  }

  std::string mFolder;
  std::string mSocket;
  pid_t mPid = 0;
};

class TwoPages : public PrintOut {
public:
  void BeginPrinting() override {}
  std::string GetDocumentName() override {
    ++documents;
    return "Printed through CUPS";
  }
  bool ContinuePrinting(int page) override { return page <= 2; }
  void PrintPage(int page, RECT const &, DWORD) override {
    mDc->GetDC().SetFont(mDc->CreatePointFont(120, "Arial"));
    mDc->GetDC().DrawText(wxString::Format("Queue page %d", page), 600, 600);
  }
  void GetPageInfo(int & minPage, int & maxPage, int & from, int & to) override {
    minPage = 1;
    maxPage = 2;
    from = to = 0;
  }
  void Reserved() override {}
  void PrepareDevice(CDC & dc, wxSize const &) override { mDc = &dc; }
  void StartDocument(int, int, DWORD) override {}
  void EndDocument() override {}
  void EndPrinting() override {}
  int documents = 0;

private:
  CDC * mDc = nullptr;
};

}  // namespace

TEST_F(PrivateCups, PrintsThroughAGtkPrintJobAndLeavesTheCopiesToThePrinter) {
  PrinterListing const printers = ListPrinters();
  ASSERT_NE(std::find(printers.names.begin(), printers.names.end(), "talvo-test"),
            printers.names.end())
      << printers.error;
  PrintDialogFunction const former = SetPrintDialogFunction([](PRINTDLGW & data) {
    data.hDevNames = std::make_shared<DEVNAMES>(DEVNAMES{L"CUPS", L"talvo-test", L""});
    data.Flags &= ~PD_COLLATE;
    data.nCopies = 3;
    return IDOK;
  });
  TwoPages out;
  VXPrinter printer;
  EXPECT_TRUE(printer.Print(nullptr, out, true));
  SetPrintDialogFunction(former);
  EXPECT_EQ(out.documents, 1) << "the printer makes the three copies of one document";

  // The job as the scheduler took it: the document GTK made, and the
  // copies among the job's attributes (IPP: name, a 4-byte length, the
  // value big-endian).
  std::string const document = mFolder + "/spool/d00001-001";
  ASSERT_TRUE(gui_test::WaitUntil([&] { return pdf_tools::PageCount(document) == 2; }, 20000))
      << pdf_tools::Run("cat " + mFolder + "/log/error_log");
  std::string const text = pdf_tools::Text(document);
  EXPECT_NE(text.find("Queue page 2"), std::string::npos) << text;
  // The scheduler writes the job's attributes as c00001.N, then renames it.
  std::string attributes;
  std::size_t copies = std::string::npos;
  gui_test::WaitUntil([&] {
    for (char const * name : {"/spool/c00001", "/spool/c00001.N"}) {
      std::ifstream control(mFolder + name, std::ios::binary);
      attributes.assign(std::istreambuf_iterator<char>(control), std::istreambuf_iterator<char>());
      if ((copies = attributes.find("copies")) != std::string::npos) return true;
    }
    return false;
  });
  ASSERT_NE(copies, std::string::npos) << pdf_tools::Run("ls " + mFolder + "/spool");
  ASSERT_GE(attributes.size(), copies + 12);
  EXPECT_EQ(attributes.substr(copies + 6, 6), std::string("\x00\x04\x00\x00\x00\x03", 6));
}
