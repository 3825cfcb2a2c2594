// The page device: its geometry, the document and page brackets in one PDF
// read back by poppler, escapes, failures that leave the old file alone,
// fonts at the device's resolution and DIBs stretched onto the page.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <wx/dc.h>

#include "PdfTools.h"
#include "TestDib.h"
#include "printing/PageDevice.h"

namespace {

std::string TempPath(char const * name) {
  char const * folder = std::getenv("TMPDIR");
  return std::string(folder != nullptr ? folder : "/tmp") + "/" + name;
}

DOCINFOW Doc(wchar_t const * name) { return DOCINFOW{sizeof(DOCINFOW), name, nullptr, nullptr, 0}; }

std::string ReadFile(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

TEST(PageDevice, MeasuresThePaperIn600ths) {
  struct Case {
    PaperFormat paper;
    int width, height, widthMm, heightMm;
  } const cases[] = {
      {{210, 297, false}, 4961, 7016, 210, 297},
      {{210, 297, true}, 7016, 4961, 297, 210},
      {{297, 210, false}, 4961, 7016, 210, 297},  // given across: still portrait
      {{215.9, 279.4, false}, 5100, 6600, 216, 279},
  };
  for (Case const & c : cases) {
    auto device = PageDevice::ForImages(c.paper, 10);
    SCOPED_TRACE(testing::Message()
                 << c.paper.widthMm << "x" << c.paper.heightMm << " " << c.paper.landscape);
    EXPECT_EQ(device->GetDeviceCaps(HORZRES), c.width);
    EXPECT_EQ(device->GetDeviceCaps(VERTRES), c.height);
    EXPECT_EQ(device->GetDeviceCaps(HORZSIZE), c.widthMm);
    EXPECT_EQ(device->GetDeviceCaps(VERTSIZE), c.heightMm);
    EXPECT_EQ(device->GetDeviceCaps(LOGPIXELSX), 600);
    EXPECT_EQ(device->GetDeviceCaps(LOGPIXELSY), 600);
  }
}

TEST(PageDevice, PutsEveryDocumentOfItsLifeIntoOnePdf) {
  std::string const path = TempPath("two-documents.pdf");
  {
    auto device = PageDevice::ForPdf(path);
    for (wchar_t const * name : {L"First run", L"Second run"}) {
      ASSERT_GT(device->StartDoc(Doc(name)), 0);
      for (int page = 1; page <= 2; ++page) {
        ASSERT_GT(device->StartPage(), 0);
        wxDC & dc = device->GetDC();
        dc.SetFont(device->CreatePointFont(120, "Arial"));
        dc.DrawText(wxString::Format("%ls page %d", name, page), 600, 600 * page);
        ASSERT_GT(device->EndPage(), 0);
      }
      ASSERT_GT(device->EndDoc(), 0);
    }
    // Nothing reaches the file before the device closes: it is written
    // whole or not at all.
    EXPECT_EQ(pdf_tools::PageCount(path), -1);
    ASSERT_TRUE(device->Close()) << device->Error().ToString(std::locale());
  }
  EXPECT_EQ(pdf_tools::PageCount(path), 4);
  EXPECT_EQ(pdf_tools::PageSize(path), "595.276 x 841.89 pts (A4)");
  // Readable as any new file, not private as the temporary one was.
  struct stat info {};
  ASSERT_EQ(stat(path.c_str(), &info), 0);
  mode_t const mask = umask(0);
  umask(mask);
  EXPECT_EQ(info.st_mode & 0777, 0666 & ~mask);
  std::string const text = pdf_tools::Text(path);
  for (char const * line :
       {"First run page 1", "First run page 2", "Second run page 1", "Second run page 2"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << " in:\n" << text;
  }
}

TEST(PageDevice, EscapesAsAPrinterWithoutBands) {
  std::string const path = TempPath("escapes.pdf");
  auto device = PageDevice::ForPdf(path);
  struct Query {
    int escape, supported;
  } const queries[] = {
      {NEWFRAME, 1}, {NEXTBAND, 0}, {BANDINFO, 0}, {GETSETCOPYCOUNT, 0}, {QUERYESCSUPPORT, 1}};
  for (Query const & query : queries) {
    EXPECT_EQ(device->Escape(QUERYESCSUPPORT, sizeof(int), &query.escape, nullptr), query.supported)
        << "escape " << query.escape;
  }
  int copies = 3;
  EXPECT_EQ(device->Escape(GETSETCOPYCOUNT, sizeof copies, &copies, &copies), 0)
      << "a PDF makes no copies itself";

  // NEWFRAME ends the page; the EndPage that follows it adds no blank one.
  ASSERT_GT(device->StartDoc(Doc(L"Frames")), 0);
  ASSERT_GT(device->StartPage(), 0);
  EXPECT_GT(device->Escape(NEWFRAME, 0, nullptr, nullptr), 0);
  EXPECT_GT(device->EndPage(), 0);
  ASSERT_GT(device->StartPage(), 0);
  EXPECT_GT(device->EndPage(), 0);
  EXPECT_GT(device->EndDoc(), 0);
  ASSERT_TRUE(device->Close());
  EXPECT_EQ(pdf_tools::PageCount(path), 2);
}

TEST(PageDevice, RefusesBracketsOutOfOrder) {
  auto device = PageDevice::ForImages({}, 10);
  EXPECT_EQ(device->StartPage(), SP_ERROR) << "no document";
  EXPECT_EQ(device->EndDoc(), SP_ERROR);
  ASSERT_GT(device->StartDoc(Doc(L"Order")), 0);
  EXPECT_EQ(device->StartDoc(Doc(L"Again")), SP_ERROR) << "one document at a time";
  ASSERT_GT(device->StartPage(), 0);
  EXPECT_EQ(device->StartPage(), SP_ERROR) << "one page at a time";
  EXPECT_GT(device->EndDoc(), 0) << "ends the open page too";
  EXPECT_EQ(device->PagesPrinted(), 1);
}

TEST(PageDevice, LeavesTheFormerFileWhenTheRunFails) {
  std::string const path = TempPath("kept.pdf");
  std::ofstream(path) << "former contents";
  {
    auto device = PageDevice::ForPdf(path);
    ASSERT_GT(device->StartDoc(Doc(L"Aborted")), 0);
    ASSERT_GT(device->StartPage(), 0);
    device->AbortDoc();
    EXPECT_TRUE(device->Close());
  }
  EXPECT_EQ(ReadFile(path), "former contents");

  auto device = PageDevice::ForPdf(TempPath("no-such-folder/out.pdf"));
  EXPECT_EQ(device->StartDoc(Doc(L"Nowhere")), SP_ERROR);
  EXPECT_FALSE(device->Close());
  EXPECT_NE(
      device->Error().ToString(std::locale()).find("no-such-folder/out.pdf cannot be written"),
      std::string::npos)
      << device->Error().ToString(std::locale());
}

TEST(PageDevice, SizesPointFontsForItsResolution) {
  // 10 points are 83.3 units at 600 an inch; a line of "Arial" (its metric
  // twin) is 1.149 em high. Measured before any page, as footers are.
  auto device = PageDevice::ForPdf(TempPath("unused.pdf"));
  wxDC & dc = device->GetDC();
  dc.SetFont(device->CreatePointFont(100, "Arial"));
  wxCoord width = 0;
  wxCoord height = 0;
  dc.GetTextExtent("Footer", &width, &height);
  EXPECT_NEAR(height, 96, 4);
  dc.SetFont(device->CreatePointFont(200, "Arial"));
  wxCoord doubled = 0;
  dc.GetTextExtent("Footer", &width, &doubled);
  EXPECT_NEAR(doubled, 2 * height, 3);
}

namespace {

// The colour of the page picture at a point in device units.
std::uint32_t ColourAt(wxImage const & page, int x, int y, double pixelsPerInch) {
  int const px = int(x * pixelsPerInch / 600);
  int const py = int(y * pixelsPerInch / 600);
  return (std::uint32_t(page.GetRed(px, py)) << 16) | (std::uint32_t(page.GetGreen(px, py)) << 8) |
         page.GetBlue(px, py);
}

}  // namespace

TEST(PageDevice, StretchesEveryDibDepthTheRightWayUp) {
  // A 2 x 2 picture: red, green over blue, white, stretched onto 1200 x
  // 1200 units at 600, 600.
  std::uint32_t const colours[4] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
  auto quadrant = [](int x, int y) { return std::uint32_t(y * 2 + x); };
  struct Case {
    unsigned bits;
    bool topDown;
    std::function<std::uint32_t(int, int)> pixel;
    std::initializer_list<std::uint32_t> palette;
  } const cases[] = {
      {1, false, [](int x, int y) { return std::uint32_t((x + y) % 2); }, {}},
      {4, false, quadrant, {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF}},
      {8, false, quadrant, {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF}},
      {8, true, quadrant, {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF}},
      {16,
       false,
       [](int x, int y) {
         return std::array<std::uint32_t, 4>{0x7C00, 0x03E0, 0x001F, 0x7FFF}[y * 2 + x];
       },
       {}},
      {24, false, [&](int x, int y) { return colours[y * 2 + x]; }, {}},
      {32, false, [&](int x, int y) { return colours[y * 2 + x]; }, {}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.bits << " bits" << (c.topDown ? " top-down" : ""));
    auto dib = c.bits == 1 ? test_dib::Make(2, 2, 1, c.pixel, {0xFF0000, 0x0000FF})
                           : test_dib::Make(2, 2, c.bits, c.pixel, c.palette, c.topDown);
    auto device = PageDevice::ForImages({}, 60);
    ASSERT_GT(device->StartDoc(Doc(L"Depths")), 0);
    ASSERT_GT(device->StartPage(), 0);
    EXPECT_EQ(device->StretchDIBits(600, 600, 1200, 1200, 0, 0, 2, 2, test_dib::Bits(dib.get()),
                                    test_dib::Header(dib.get()), DIB_RGB_COLORS, SRCCOPY),
              2);
    ASSERT_GT(device->EndPage(), 0);
    wxImage const page = device->PageImages().at(0);
    std::uint32_t const want[4] = {
        c.bits == 1 ? 0xFF0000U : colours[0], c.bits == 1 ? 0x0000FFU : colours[1],
        c.bits == 1 ? 0x0000FFU : colours[2], c.bits == 1 ? 0xFF0000U : colours[3]};
    EXPECT_EQ(ColourAt(page, 900, 900, 60), want[0]);
    EXPECT_EQ(ColourAt(page, 1500, 900, 60), want[1]);
    EXPECT_EQ(ColourAt(page, 900, 1500, 60), want[2]);
    EXPECT_EQ(ColourAt(page, 1500, 1500, 60), want[3]);
    EXPECT_EQ(ColourAt(page, 300, 300, 60), 0xFFFFFFU)
        << "outside the picture the paper stays white";
    EXPECT_EQ(ColourAt(page, 1900, 900, 60), 0xFFFFFFU);
  }
}

TEST(PageDevice, StretchesAPartCountedFromTheLastRow) {
  // Four rows of one colour each, top to bottom; the source rectangle of
  // the lower two is y 0 in a bottom-up DIB.
  std::uint32_t const rows[4] = {0xFF0000, 0x00FF00, 0x0000FF, 0x000000};
  auto dib = test_dib::Make(1, 4, 24, [&](int, int y) { return rows[y]; });
  auto device = PageDevice::ForImages({}, 60);
  ASSERT_GT(device->StartDoc(Doc(L"Part")), 0);
  ASSERT_GT(device->StartPage(), 0);
  EXPECT_EQ(device->StretchDIBits(0, 0, 600, 1200, 0, 0, 1, 2, test_dib::Bits(dib.get()),
                                  test_dib::Header(dib.get()), DIB_RGB_COLORS, SRCCOPY),
            2);
  ASSERT_GT(device->EndPage(), 0);
  wxImage const page = device->PageImages().at(0);
  EXPECT_EQ(ColourAt(page, 300, 300, 60), 0x0000FFU);
  EXPECT_EQ(ColourAt(page, 300, 900, 60), 0x000000U);

  auto rle = test_dib::Make(1, 4, 8, [](int, int) { return 0U; }, {0});
  test_dib::Header(rle.get())->biCompression = BI_RLE8;
  ASSERT_GT(device->StartPage(), 0);
  EXPECT_EQ(device->StretchDIBits(0, 0, 600, 600, 0, 0, 1, 1, test_dib::Bits(rle.get()),
                                  test_dib::Header(rle.get()), DIB_RGB_COLORS, SRCCOPY),
            0)
      << "run-length rows cannot be addressed";
}

TEST(PageDevice, KeepsPicturesAndTextAsSuchInThePdf) {
  std::string const path = TempPath("picture.pdf");
  auto dib =
      test_dib::Make(40, 30, 24, [](int x, int y) { return std::uint32_t(x * 6 << 16 | y * 8); });
  auto device = PageDevice::ForPdf(path);
  ASSERT_GT(device->StartDoc(Doc(L"Picture")), 0);
  ASSERT_GT(device->StartPage(), 0);
  device->GetDC().SetFont(device->CreatePointFont(100, "Arial"));
  device->GetDC().DrawText("Under the picture", 600, 3000);
  EXPECT_EQ(device->StretchDIBits(600, 600, 2400, 1800, 0, 0, 40, 30, test_dib::Bits(dib.get()),
                                  test_dib::Header(dib.get()), DIB_RGB_COLORS, SRCCOPY),
            30);
  ASSERT_GT(device->EndPage(), 0);
  ASSERT_TRUE(device->Close());
  std::istringstream images(pdf_tools::ImageList(path));
  std::string page, num, type;
  int width = 0, height = 0;
  images >> page >> num >> type >> width >> height;
  EXPECT_EQ(type, "image");
  EXPECT_EQ(width, 40);
  EXPECT_EQ(height, 30);
  EXPECT_NE(pdf_tools::Text(path).find("Under the picture"), std::string::npos);
}
