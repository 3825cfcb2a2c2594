// The printer road: a private CUPS scheduler on a socket of the test's own
// with a raw queue that keeps what it is sent in its spool, and VXPrinter
// printing to it through a GTK print job, the copies left to the printer.
// Skipped, saying why, where no scheduler can be started.
#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>

#include <wx/cmndata.h>
#include <wx/dc.h>

#include "PdfTools.h"
#include "dialogs/PrinterList.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "printing/PrinterDeviceDefaults.h"
#include "printing/VXPrinter.h"

extern char ** environ;

namespace {

// One scheduler for the whole run: libcups keeps the server it first
// talked to. Jobs are numbered from 1 in the order the tests print.
class PrivateCups : public testing::Test {
protected:
  static void SetUpTestSuite() { sSkipReason = StartScheduler(); }

  static void TearDownTestSuite() {
    if (sPid > 0) {
      kill(sPid, SIGTERM);
      waitpid(sPid, nullptr, 0);
    }
    if (!sFolder.empty()) pdf_tools::Run("rm -rf " + pdf_tools::Quote(sFolder));
  }

  void SetUp() override {
    if (!sSkipReason.empty()) GTEST_SKIP() << sSkipReason;
    PrinterDeviceDefaults() = wxPrintData();
  }

  // Empty when the scheduler runs with the raw queue "talvo-test".
  static std::string StartScheduler() {
    if (access("/usr/sbin/cupsd", X_OK) != 0 || pdf_tools::Run("command -v lpadmin").empty()) {
      return "CUPS is not installed (cups)";
    }
    // Filters run as the scheduler's own user, who has to reach the spooled
    // documents: the folder lies outside the test's private one, and goes
    // when the tests end.
    std::string pattern = "/tmp/talvo-cups.XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) return "no folder for the scheduler";
    sFolder = pattern;
    chmod(sFolder.c_str(), 0755);
    for (char const * sub : {"/spool", "/cache", "/state", "/log"}) {
      mkdir((sFolder + sub).c_str(), 0755);
    }
    mkdir((sFolder + "/tmp").c_str(), 01777);
    chmod((sFolder + "/tmp").c_str(), 01777);
    sSocket = sFolder + "/cups.sock";
    std::ofstream(sFolder + "/cupsd.conf")
        << "Listen " << sSocket
        << "\nLogLevel warn\nWebInterface No\nBrowsing No\nPreserveJobFiles Yes\n"
           "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
           "<Policy default>\n  <Limit All>\n    Order deny,allow\n"
           "  </Limit>\n</Policy>\n";
    std::ofstream(sFolder + "/cups-files.conf")
        << "ServerRoot " << sFolder << "\nRequestRoot " << sFolder << "/spool\nTempDir " << sFolder
        << "/tmp\nCacheDir " << sFolder << "/cache\nStateDir " << sFolder << "/state\nAccessLog "
        << sFolder << "/log/access_log\nErrorLog " << sFolder << "/log/error_log\nPageLog "
        << sFolder << "/log/page_log\nFileDevice Yes\n";
    std::string const conf = sFolder + "/cupsd.conf";
    std::string const files = sFolder + "/cups-files.conf";
    char const * argv[] = {"cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), nullptr};
    if (posix_spawn(&sPid, "/usr/sbin/cupsd", nullptr, nullptr, const_cast<char **>(argv),
                    environ) != 0) {
      return "cupsd cannot be started";
    }
    struct stat info {};
    if (!gui_test::WaitUntil([&] { return stat(sSocket.c_str(), &info) == 0; }, 10000)) {
      return "cupsd did not open its socket: " +
             pdf_tools::Run("cat " + sFolder + "/log/error_log");
    }
    int status = 0;
    pdf_tools::Run(
        "lpadmin -h " + pdf_tools::Quote(sSocket) + " -p talvo-test -E -v file:///dev/null -m raw",
        &status);
    if (status != 0) {
      return "the test queue cannot be made";
    }
    setenv("CUPS_SERVER", sSocket.c_str(), 1);
    setenv("CUPS_USER", "talvo-print-test", 1);
    return {};
  }

  // Job `job`'s attribute `name` as the scheduler keeps it (IPP: a 2-byte
  // length, then the value); empty when the job has no such attribute. The
  // scheduler writes the attributes as c0000N.N, then renames the file.
  static std::string JobAttribute(int job, std::string const & name) {
    std::string const control = sFolder + wxString::Format("/spool/c%05d", job).ToStdString();
    std::string const key = std::string{char(name.size() >> 8), char(name.size() & 0xFF)} + name;
    std::string value;
    gui_test::WaitUntil([&] {
      for (std::string const & path : {control, control + ".N"}) {
        std::ifstream file(path, std::ios::binary);
        std::string const attributes{std::istreambuf_iterator<char>(file),
                                     std::istreambuf_iterator<char>()};
        std::size_t const at = attributes.find(key);
        if (at == std::string::npos || attributes.size() < at + key.size() + 2) continue;
        std::size_t const start = at + key.size() + 2;
        auto const byte = [&](std::size_t index) {
          return std::size_t(static_cast<unsigned char>(attributes[index]));
        };
        value = attributes.substr(start, byte(start - 2) << 8 | byte(start - 1));
        return true;
      }
      return false;
    });
    return value;
  }

  // The document of job `job` as GTK spooled it, once it has `pages` pages.
  static std::string SpooledDocument(int job, int pages) {
    std::string document = sFolder + wxString::Format("/spool/d%05d-001", job).ToStdString();
    EXPECT_TRUE(gui_test::WaitUntil([&] { return pdf_tools::PageCount(document) == pages; }, 20000))
        << pdf_tools::Run("cat " + sFolder + "/log/error_log");
    return document;
  }

  static inline std::string sSkipReason;
  static inline std::string sFolder;
  static inline std::string sSocket;
  static inline pid_t sPid = 0;
};

class TwoPages : public PrintOut {
public:
  explicit TwoPages(std::string name = "Printed through CUPS") : mName(std::move(name)) {}
  void BeginPrinting() override {}
  std::string GetDocumentName() override {
    ++documents;
    return mName;
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
  std::string mName;
  CDC * mDc = nullptr;
};

// Prints `out` to `queue` with `copies` copies left to the printer, on the
// paper the print dialog chooses, or else on the one it opened with. The
// job's number.
int Print(TwoPages & out, std::wstring const & queue, std::optional<PaperFormat> paper = {},
          WORD copies = 1) {
  static int jobs = 0;
  PrintDialogFunction const former = SetPrintDialogFunction([&](PRINTDLGW & data) {
    data.hDevNames = std::make_shared<DEVNAMES>(DEVNAMES{L"CUPS", queue, L""});
    if (paper) {
      data.hDevMode->paper = *paper;
      data.hDevMode->dmOrientation = paper->landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    }
    data.Flags &= ~PD_COLLATE;
    data.nCopies = copies;
    return IDOK;
  });
  VXPrinter printer;
  EXPECT_TRUE(printer.Print(nullptr, out, true));
  SetPrintDialogFunction(former);
  return ++jobs;
}

struct Box {
  double left = -1;
  double top = -1;
};

// Where `word` stands on the first page, in points from the top-left corner.
Box WordBox(std::string const & pdf, std::string const & word) {
  std::string const words =
      pdf_tools::Run("pdftotext -bbox -f 1 -l 1 " + pdf_tools::Quote(pdf) + " -");
  std::smatch match;
  if (!std::regex_search(words, match,
                         std::regex("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>" + word + "<")))
    return {};
  return {std::stod(match[1]), std::stod(match[2])};
}

}  // namespace

TEST_F(PrivateCups, PrintsThroughAGtkPrintJobAndLeavesTheCopiesToThePrinter) {
  PrinterListing const printers = ListPrinters();
  ASSERT_NE(std::find(printers.names.begin(), printers.names.end(), "talvo-test"),
            printers.names.end())
      << printers.error;
  TwoPages out;
  int const job = Print(out, L"talvo-test", std::nullopt, 3);
  EXPECT_EQ(out.documents, 1) << "the printer makes the three copies of one document";

  // The job as the scheduler took it: the document GTK made, and the
  // copies among the job's attributes (4 bytes, big-endian).
  std::string const text = pdf_tools::Text(SpooledDocument(job, 2));
  EXPECT_NE(text.find("Queue page 2"), std::string::npos) << text;
  EXPECT_EQ(JobAttribute(job, "copies"), std::string("\x00\x00\x00\x03", 4));
}

// The paper of the print dialog is the job's and the application's: the
// printer is asked for it by the name printers know, and the pages are the
// paper upright, a landscape page turned onto it with its top along the
// left edge.
TEST_F(PrivateCups, TheDialogsPaperIsTheJobsPaper) {
  struct Case {
    PaperFormat paper;
    char const * pageSize;
    double width;
    double height;
    bool textAtBottomLeft;
  };
  for (Case const & c : {Case{{148, 210, false}, "A5", 419.53, 595.28, false},
                         Case{{215.9, 279.4, true}, "Letter", 612, 792, true}}) {
    SCOPED_TRACE(c.pageSize);
    TwoPages out;
    int const job = Print(out, L"talvo-test", c.paper);
    EXPECT_EQ(JobAttribute(job, "PageSize"), c.pageSize);
    std::string const document = SpooledDocument(job, 2);
    double width = 0;
    double height = 0;
    std::sscanf(pdf_tools::PageSize(document).c_str(), "%lf x %lf", &width, &height);
    EXPECT_NEAR(width, c.width, 0.5);
    EXPECT_NEAR(height, c.height, 0.5);
    // "Queue" stands an inch from the page's top and left edges.
    Box const queue = WordBox(document, "Queue");
    EXPECT_NEAR(queue.left, 72, 2);
    EXPECT_EQ(queue.top > height / 2, c.textAtBottomLeft) << queue.top;
    EXPECT_NEAR(PaperOf(PrinterDeviceDefaults()).widthMm, c.paper.widthMm, 0.05);
  }
}

// A printer with a driver prints on the application's paper (the print
// setup's, which the print dialog opens with). cups-pdf makes its PDF of
// what reached it through CUPS's filters and Ghostscript, which turns pages
// as their text reads; an unknown user's PDFs go to its folder for
// anonymous jobs.
TEST_F(PrivateCups, APrinterDriverPrintsOnTheChosenPaper) {
  std::string const ppd = "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd";
  std::string const folder = "/var/spool/cups-pdf/ANONYMOUS";
  struct stat info {};
  if (access("/usr/lib/cups/backend/cups-pdf", F_OK) != 0 || access(ppd.c_str(), R_OK) != 0 ||
      stat(folder.c_str(), &info) != 0) {
    GTEST_SKIP() << "cups-pdf is not installed (printer-driver-cups-pdf)";
  }
  if (geteuid() != 0) GTEST_SKIP() << "the scheduler runs cups-pdf only as root";
  int status = 0;
  pdf_tools::Run("lpadmin -h " + pdf_tools::Quote(sSocket) + " -p talvo-pdf -E -v cups-pdf:/ -P " +
                     pdf_tools::Quote(ppd),
                 &status);
  ASSERT_EQ(status, 0);
  // The output's name begins with the job's title.
  std::string const title = "talvo-paper-" + std::to_string(getpid());
  TwoPages out(title);
  SetPaper(PrinterDeviceDefaults(), {148, 210, true});
  int const job = Print(out, L"talvo-pdf");
  PrinterDeviceDefaults() = wxPrintData();
  std::string const pattern = folder + "/" + title + "*-job_" + std::to_string(job) + ".pdf";
  std::string output;
  EXPECT_TRUE(gui_test::WaitUntil(
      [&] {
        output = pdf_tools::Run("ls " + pattern);
        output = output.substr(0, output.find('\n'));
        return !output.empty() && pdf_tools::PageCount(output) == 2;
      },
      30000))
      << pdf_tools::Run("cat " + sFolder + "/log/error_log");
  double width = 0;
  double height = 0;
  std::sscanf(pdf_tools::PageSize(output).c_str(), "%lf x %lf", &width, &height);
  EXPECT_NEAR(std::min(width, height), 420, 2) << pdf_tools::PageSize(output);
  EXPECT_NEAR(std::max(width, height), 595, 2) << pdf_tools::PageSize(output);
  if (!output.empty()) std::remove(output.c_str());
}
