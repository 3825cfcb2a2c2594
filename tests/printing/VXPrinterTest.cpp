// The printer's loop as a PrintOut sees it: the order of its calls, pages
// and copies in the PDF, the dialog's flags and clamps, the second try when
// the chosen printer has gone, and the failures.
#include <gtest/gtest.h>

#include <cstdlib>

#include <wx/dc.h>
#include <wx/frame.h>

#include "PdfTools.h"
#include "dialogs/PrinterList.h"
#include "platform/WinUser.h"
#include "printing/VXPrinter.h"
#include "utl/Exception.h"

namespace {

std::string TempPath(char const * name) {
  char const * folder = std::getenv("TMPDIR");
  return std::string(folder != nullptr ? folder : "/tmp") + "/" + name;
}

std::wstring Wide(std::string const & text) { return std::wstring(text.begin(), text.end()); }

// Pages 1 to `pages` ("Page N" on each), the calls written down in order.
class RecordingPrintOut : public PrintOut {
public:
  explicit RecordingPrintOut(int pages, int minPage = 1, int maxPage = 9, int from = 0, int to = 0)
      : mPages(pages), mMin(minPage), mMax(maxPage), mFrom(from), mTo(to) {}

  void BeginPrinting() override { calls += "begin "; }
  std::string GetDocumentName() override {
    calls += "name ";
    return "Run list";
  }
  bool ContinuePrinting(int page) override { return page <= mPages; }
  void PrintPage(int page, RECT const & printable, DWORD /*flags*/) override {
    calls += "page" + std::to_string(page) + " ";
    area = printable;
    mDc->GetDC().SetFont(mDc->CreatePointFont(120, "Arial"));
    mDc->GetDC().DrawText(wxString::Format("Page %d", page), 600, 600);
  }
  void GetPageInfo(int & minPage, int & maxPage, int & from, int & to) override {
    calls += "info ";
    minPage = mMin;
    maxPage = mMax;
    from = mFrom;
    to = mTo;
  }
  void Reserved() override { calls += "reserved "; }
  void PrepareDevice(CDC & dc, wxSize const & size) override {
    calls += "prepare ";
    mDc = &dc;
    pageSize = size;
  }
  void StartDocument(int first, int last, DWORD /*flags*/) override {
    calls += "start" + std::to_string(first) + "-" + std::to_string(last) + " ";
  }
  void EndDocument() override { calls += "end "; }
  void EndPrinting() override { calls += "done"; }

  std::string calls;
  RECT area{};
  wxSize pageSize;

private:
  CDC * mDc = nullptr;
  int mPages, mMin, mMax, mFrom, mTo;
};

// Answers the print dialog: "print to file" with the flags, pages and copies
// given, after noting what it was shown.
class DialogAnswer {
public:
  explicit DialogAnswer(std::function<int(PRINTDLGW &)> answer) {
    mFormer = SetPrintDialogFunction(std::move(answer));
  }
  ~DialogAnswer() { SetPrintDialogFunction(mFormer); }

private:
  PrintDialogFunction mFormer;
};

std::function<int(PRINTDLGW &)> ToFile(std::string const & path, DWORD flags, WORD from, WORD to,
                                       WORD copies, PRINTDLGW * shown = nullptr,
                                       int * times = nullptr) {
  return [=](PRINTDLGW & data) {
    if (shown != nullptr) {
      *shown = data;
    }
    if (times != nullptr) {
      ++*times;
    }
    data.hDevNames = std::make_shared<DEVNAMES>(DEVNAMES{L"PDF", L"", Wide(path)});
    data.Flags = (data.Flags & ~(PD_PAGENUMS | PD_SELECTION | PD_COLLATE)) | flags;
    data.nFromPage = from;
    data.nToPage = to;
    data.nCopies = copies;
    return IDOK;
  };
}

}  // namespace

TEST(VXPrinter, PrintsTheChosenPagesOnceForEveryCopyIntoOnePdf) {
  struct Case {
    char const * what;
    DWORD flags;
    WORD from, to, copies;
    int selectionFrom, selectionTo;
    char const * calls;
    int pdfPages;
  } const cases[] = {
      {"all pages, one copy", 0, 0, 0, 1, 0, 0,
       "info prepare begin name start1-2147483647 page1 page2 page3 end done", 3},
      {"pages 2 to 3, two copies", PD_PAGENUMS, 2, 3, 2, 0, 0,
       "info prepare begin name start2-3 page2 page3 end name start2-3 page2 page3 end done", 4},
      {"the selection", PD_SELECTION, 0, 0, 1, 3, 3,
       "info prepare begin name start3-3 page3 end done", 1},
      {"a range past the pages", PD_PAGENUMS, 2, 9, 1, 0, 0,
       "info prepare begin name start2-9 page2 page3 end done", 2},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    std::string const path = TempPath("printer.pdf");
    std::remove(path.c_str());
    DialogAnswer answer(ToFile(path, c.flags, c.from, c.to, c.copies));
    RecordingPrintOut out(3, 1, 3, c.selectionFrom, c.selectionTo);
    VXPrinter printer;
    EXPECT_TRUE(printer.Print(nullptr, out, true));
    EXPECT_EQ(out.calls, c.calls);
    EXPECT_GT(printer.GetSetupError(), 0);
    EXPECT_EQ(out.pageSize, wxSize(4961, 7016));
    EXPECT_EQ(out.area.right, 4961);
    EXPECT_EQ(out.area.bottom, 7016);
    EXPECT_EQ(pdf_tools::PageCount(path), c.pdfPages);
  }
  std::string const text = pdf_tools::Text(TempPath("printer.pdf"));
  EXPECT_NE(text.find("Page 2"), std::string::npos) << text;
  EXPECT_NE(text.find("Page 3"), std::string::npos) << text;
}

TEST(VXPrinter, ShowsTheDialogThePagesItCanChooseFrom) {
  struct Case {
    int minPage, maxPage, selectionFrom;
    WORD from, to;
    DWORD set, cleared;
    WORD shownFrom, shownTo;
  } const cases[] = {
      {1, 5, 0, 0, 9, PD_NOSELECTION | PD_RETURNDC,
       PD_NOPAGENUMS | PD_PRINTSETUP | PD_RETURNDEFAULT, 1, 5},
      {2, 4, 3, 3, 3, PD_RETURNDC, PD_NOSELECTION | PD_NOPAGENUMS, 3, 3},
      {0, 0, 0, 7, 8, PD_NOSELECTION | PD_NOPAGENUMS, 0, 7,
       8},  // no page numbers: no clamps either
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.minPage << "-" << c.maxPage << " from " << c.from << " to " << c.to);
    VXPrinter printer;
    PRINTDLGW preset = printer.GetSetup();
    EXPECT_EQ(preset.Flags & 0x10001C, DWORD(0x10001C)) << "the flags a printer starts with";
    // A first run sets the pages the second run's dialog will start from.
    {
      DialogAnswer answer(ToFile(TempPath("first.pdf"), PD_PAGENUMS, c.from, c.to, 1));
      RecordingPrintOut none(0);
      printer.Print(nullptr, none, true);
    }
    PRINTDLGW shown;
    DialogAnswer answer([&](PRINTDLGW & data) {
      shown = data;
      return IDCANCEL;
    });
    RecordingPrintOut out(3, c.minPage, c.maxPage, c.selectionFrom, c.selectionFrom);
    EXPECT_FALSE(printer.Print(nullptr, out, true)) << "a cancel";
    EXPECT_EQ(out.calls, "info ") << "nothing printed";
    EXPECT_EQ(shown.Flags & c.set, c.set);
    EXPECT_EQ(shown.Flags & c.cleared, 0U);
    EXPECT_EQ(shown.nFromPage, c.shownFrom);
    EXPECT_EQ(shown.nToPage, c.shownTo);
  }
}

TEST(VXPrinter, ChoosesAgainWhenTheChosenPrinterIsGone) {
  PrinterListFunction const former = SetPrinterListFunction([] {
    return PrinterListing{{"Office"}, ""};
  });
  std::string const path = TempPath("again.pdf");
  int times = 0;
  PRINTDLGW shown;
  DialogAnswer answer(ToFile(path, 0, 0, 0, 1, &shown, &times));
  VXPrinter printer;
  {
    VXPrinter copy(printer);  // shares the dialog: its choice is the printer's
    DialogAnswer named([](PRINTDLGW & data) {
      data.hDevNames = std::make_shared<DEVNAMES>(DEVNAMES{L"CUPS", L"Basement", L""});
      return IDCANCEL;
    });
    EXPECT_FALSE(copy.ExecPrintDialog(nullptr));
  }
  ASSERT_TRUE(printer.GetSetup().hDevNames);
  RecordingPrintOut out(1);
  EXPECT_TRUE(printer.Print(nullptr, out, true));
  EXPECT_EQ(times, 1) << "the dialog is not shown for a printer that is not there";
  EXPECT_FALSE(shown.hDevNames) << "the second try starts without the lost printer";
  EXPECT_EQ(pdf_tools::PageCount(path), 1);
  SetPrinterListFunction(former);
}

TEST(VXPrinter, FailsWithoutADeviceAndOnADeviceThatFails) {
  {
    DialogAnswer answer([](PRINTDLGW & data) {
      data.hDevNames =
          std::make_shared<DEVNAMES>(DEVNAMES{L"PDF", L"", L""});  // no file: no device
      return IDOK;
    });
    VXPrinter printer;
    RecordingPrintOut out(1);
    EXPECT_THROW(printer.Print(nullptr, out, true), Exception);
  }
  {
    DialogAnswer answer(ToFile(TempPath("missing-folder/out.pdf"), 0, 0, 0, 1));
    VXPrinter printer;
    RecordingPrintOut out(2);
    EXPECT_FALSE(printer.Print(nullptr, out, true));
    EXPECT_LE(printer.GetSetupError(), 0);
    EXPECT_EQ(out.calls, "info prepare begin name start1-2147483647 end done");
  }
  {
    // Without the dialog, on the device the last choice named; nothing to
    // print gives an empty document and success.
    std::string const path = TempPath("quiet.pdf");
    VXPrinter printer;
    {
      DialogAnswer answer(ToFile(path, 0, 0, 0, 1));
      ASSERT_TRUE(printer.ExecPrintDialog(nullptr));
      printer.TransferDC();
    }
    RecordingPrintOut out(0);
    EXPECT_TRUE(printer.Print(nullptr, out, false));
    EXPECT_EQ(out.calls, "info prepare begin name start1-2147483647 end done");
  }
}

TEST(VXPrinter, TakesTheParentsInputAwayWhilePrinting) {
  wxFrame frame(nullptr, wxID_ANY, "Parent");
  std::string const path = TempPath("parent.pdf");
  DialogAnswer answer(ToFile(path, 0, 0, 0, 1));
  class Watching : public RecordingPrintOut {
  public:
    explicit Watching(wxWindow & window) : RecordingPrintOut(1), mWindow(window) {}
    void BeginPrinting() override { enabledWhilePrinting = mWindow.IsEnabled(); }
    bool enabledWhilePrinting = true;

  private:
    wxWindow & mWindow;
  } out(frame);
  VXPrinter printer;
  EXPECT_TRUE(printer.Print(&frame, out, true));
  EXPECT_FALSE(out.enabledWhilePrinting);
  EXPECT_TRUE(frame.IsEnabled());
}
