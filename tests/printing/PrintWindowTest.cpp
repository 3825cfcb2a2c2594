// The footer line, and a window printed under it: copies from the dialog,
// the heading's height taken from "Arial" at 10 points, the room for the
// picture shrinking with each copy, nothing at all after a cancel.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <regex>
#include <sstream>

#include <wx/frame.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/panel.h>

#include "PdfTools.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "printing/PrintDialog.h"
#include "printing/PrintFooter.h"
#include "printing/PrintWindow.h"
#include "utl/VxSystemInfo.h"

namespace {

std::string TempPath(char const * name) {
  char const * folder = std::getenv("TMPDIR");
  return std::string(folder != nullptr ? folder : "/tmp") + "/" + name;
}

// Answers the print dialog with "print to file" and the copies given.
class PrintToFile {
public:
  PrintToFile(std::string const & path, short copies, bool cancel = false) {
    mFormer = SetPrintDialogFunction([=](PRINTDLGW & data) {
      ++shown;
      flags = data.Flags;
      if (cancel) {
        return IDCANCEL;
      }
      data.hDevNames =
          std::make_shared<DEVNAMES>(DEVNAMES{L"PDF", L"", std::wstring(path.begin(), path.end())});
      data.hDevMode = std::make_shared<DEVMODEW>();
      data.hDevMode->dmCopies = copies;
      return IDOK;
    });
  }
  ~PrintToFile() { SetPrintDialogFunction(mFormer); }
  static inline int shown = 0;
  static inline DWORD flags = 0;

private:
  PrintDialogFunction mFormer;
};

class ZoneGuard {
public:
  explicit ZoneGuard(char const * zone) {
    char const * former = std::getenv("TZ");
    mHad = former != nullptr;
    mFormer = mHad ? former : "";
    setenv("TZ", zone, 1);
    tzset();
  }
  ~ZoneGuard() {
    if (mHad) {
      setenv("TZ", mFormer.c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

private:
  bool mHad;
  std::string mFormer;
};

}  // namespace

TEST(PrintFooter, NamesTheApplicationTheTextAndTheTimeWithItsOffset) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  struct Case {
    char const * zone;
    char const * text;
    char const * pattern;
  } const cases[] = {
      {"UTC0", nullptr, R"(Analyzer 6\.3\.2 - \d\d/\d\d/\d\d \d\d:\d\d:\d\d \(UTC\+0\))"},
      {"EST5", "", R"(Analyzer 6\.3\.2 - \d\d/\d\d/\d\d \d\d:\d\d:\d\d \(UTC-5\))"},
      {"IST-5:30", "Run 12",
       R"(Analyzer 6\.3\.2 - Run 12 - \d\d/\d\d/\d\d \d\d:\d\d:\d\d \(UTC\+5\.5\))"},
  };
  for (Case const & c : cases) {
    ZoneGuard zone(c.zone);
    std::string const footer = MakePrintFooter(c.text);
    EXPECT_TRUE(std::regex_match(footer, std::regex(c.pattern))) << c.zone << ": " << footer;
  }
}

TEST(PrintWindow, PrintsEachCopyUnderTheFooterWithLessRoomEachTime) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  // Tall enough that the second copy's picture must shrink: 300 x 960
  // pixels are 1800 x 5760 units at 6 a pixel; the first copy has 7016 less
  // 7 lines of 10 points below it, the second 7 lines less again.
  wxFrame frame(nullptr, wxID_ANY, "Printed", wxPoint(0, 0), wxDefaultSize);
  frame.SetClientSize(300, 960);
  auto * panel = new wxPanel(&frame);
  panel->SetBackgroundColour(wxColour(0, 128, 255));
  ASSERT_TRUE(gui_test::ShowAndWait(frame));
  gui_test::Flush();

  std::string const path = TempPath("window.pdf");
  {
    PrintToFile answer(path, 2);
    PrintWindow(&frame, "Run list of line 4", "Window print");
    EXPECT_EQ(PrintToFile::flags & 0x14000C, DWORD(0x14000C));
  }
  ASSERT_EQ(pdf_tools::PageCount(path), 2);
  std::string const text = pdf_tools::Text(path);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
  std::size_t const title = text.find("Run list of line 4");
  std::size_t const footer = text.find("Analyzer 6.3.2 - ");
  ASSERT_NE(title, std::string::npos) << text;
  ASSERT_NE(footer, std::string::npos) << text;
  EXPECT_LT(footer, title) << "the footer line stands above the title";

  // pdfimages: page, num, type, width, height, color, comp, bpc, enc,
  // interp, object, id, x-ppi, y-ppi. Across, 6 units a pixel are 100
  // pixels an inch, the second copy's 5 are 120. Down, the picture is
  // shorter by the heading's 672 units: 5088 and 4128 units for 960 rows.
  std::istringstream images(pdf_tools::ImageList(path));
  std::string line;
  std::vector<int> ppi;
  std::vector<int> rowsPpi;
  while (std::getline(images, line)) {
    std::istringstream fields(line);
    std::string field[14];
    for (auto & f : field) {
      fields >> f;
    }
    if (field[2] == "image") {
      EXPECT_EQ(field[3], "300");
      EXPECT_EQ(field[4], "960");
      ppi.push_back(std::stoi(field[12]));
      rowsPpi.push_back(std::stoi(field[13]));
    }
  }
  EXPECT_EQ(ppi, (std::vector<int>{100, 120}));
  EXPECT_EQ(rowsPpi, (std::vector<int>{113, 139}));

  // The picture starts 7 lines of "Arial" at 10 points (1.149 em of 83.3
  // units) down: about 672 units, 67 pixels at 60 an inch.
  std::string const png = TempPath("window-page");
  pdf_tools::Run("pdftoppm -r 60 -f 1 -l 1 -png " + pdf_tools::Quote(path) + " " +
                 pdf_tools::Quote(png));
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) {
    wxImage::AddHandler(new wxPNGHandler);
  }
  wxImage page(png + "-1.png", wxBITMAP_TYPE_PNG);
  ASSERT_TRUE(page.IsOk());
  int firstBlue = -1;
  for (int y = 0; y < page.GetHeight() && firstBlue < 0; ++y) {
    if (page.GetBlue(page.GetWidth() / 2, y) > 200 && page.GetRed(page.GetWidth() / 2, y) < 50) {
      firstBlue = y;
    }
  }
  EXPECT_NEAR(firstBlue, 67, 2);
}

TEST(PrintWindow, PrintsNothingWhenTheDialogIsCancelled) {
  wxFrame frame(nullptr, wxID_ANY, "Not printed");
  ASSERT_TRUE(gui_test::ShowAndWait(frame));
  std::string const path = TempPath("cancelled.pdf");
  PrintToFile answer(path, 1, true);
  int const before = PrintToFile::shown;
  PrintWindow(&frame, "Title", "Document");
  EXPECT_EQ(PrintToFile::shown, before + 1);
  EXPECT_EQ(pdf_tools::PageCount(path), -1) << "no file";
}
