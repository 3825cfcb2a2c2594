// Bitmaps of the screen and DIB blocks, both ways, on a real display: the
// blocks' headers and rows, screen shots of shown and covered windows as BMP
// files, and DIBs painted on a device context.
#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/palette.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <string>

#include "DibTestBlocks.h"
#include "harness/GuiTestUtilities.h"
#include "pictures/DibBitmap.h"
#include "pictures/DibFile.h"
#include "pictures/DibPainter.h"
#include "pictures/WindowToDib.h"
#include "utl/TestFiles.h"

namespace {

// 5 x 3: every pixel its own colour.
wxImage Pattern() {
  wxImage image(5, 3, false);
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 5; ++x) image.SetRGB(x, y, x * 50, y * 100, 255 - x * 20 - y * 7);
  return image;
}

BITMAPINFOHEADER HeaderOf(HDIB dib) {
  BITMAPINFOHEADER header{};
  std::memcpy(&header, GlobalLock(dib), sizeof header);
  return header;
}

// The blue, green, red bytes of pixel (x, y) counted from the top.
unsigned char const * StoredPixel(HDIB dib, int x, int y) {
  BITMAPINFOHEADER const header = HeaderOf(dib);
  std::size_t const stride = DibStride(header.biWidth, header.biBitCount);
  auto const * pixels =
      static_cast<unsigned char const *>(GlobalLock(dib)) + 40 + DibPaletteSize(GlobalLock(dib));
  return pixels + stride * static_cast<std::size_t>(header.biHeight - 1 - y) +
         x * header.biBitCount / 8;
}

TEST(DdbToDib, BlocksCarryTheBitmapsDepthAndRowsBottomUp) {
  wxImage withAlpha = Pattern();
  withAlpha.InitAlpha();
  withAlpha.SetAlpha(4, 0, 77);
  struct Case {
    std::string name;
    wxBitmap bitmap;
    unsigned bits;
    std::size_t tableBytes;
  } const cases[] = {
      {"24 bits", wxBitmap(Pattern(), 24), 24, 0},
      {"32 bits with alpha", wxBitmap(withAlpha, 32), 32, 0},
      {"monochrome", wxBitmap(Pattern().ConvertToMono(0, 0, 0), 1), 1, 8},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    OwnedDib const dib(DDBToDIB(test.bitmap, BI_RGB, nullptr));
    ASSERT_NE(dib, nullptr);
    BITMAPINFOHEADER const header = HeaderOf(dib.get());
    EXPECT_EQ(Unpacked(header.biSize), 40u);
    EXPECT_EQ(Unpacked(header.biWidth), 5);
    EXPECT_EQ(Unpacked(header.biHeight), 3);
    EXPECT_EQ(Unpacked(header.biPlanes), 1);
    EXPECT_EQ(Unpacked(header.biBitCount), test.bits);
    EXPECT_EQ(Unpacked(header.biCompression), BI_RGB);
    EXPECT_EQ(Unpacked(header.biXPelsPerMeter) | Unpacked(header.biYPelsPerMeter) |
                  Unpacked(header.biClrUsed),
              0);
    EXPECT_EQ(GlobalSize(dib.get()), 40 + test.tableBytes + DibStride(5, test.bits) * 3);
    EXPECT_EQ(DibPaletteSize(GlobalLock(dib.get())), test.tableBytes);
    wxImage const back = DibToImage(dib.get());
    ASSERT_TRUE(back.IsOk());
    wxImage const expected = test.bitmap.ConvertToImage();
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x < 5; ++x) {
        SCOPED_TRACE(testing::Message() << x << "," << y);
        EXPECT_EQ(back.GetRed(x, y), expected.GetRed(x, y));
        EXPECT_EQ(back.GetGreen(x, y), expected.GetGreen(x, y));
        EXPECT_EQ(back.GetBlue(x, y), expected.GetBlue(x, y));
      }
  }
  OwnedDib const alpha(DDBToDIB(wxBitmap(withAlpha, 32), BI_RGB, nullptr));
  EXPECT_EQ(StoredPixel(alpha.get(), 4, 0)[3], 77);
  EXPECT_EQ(StoredPixel(alpha.get(), 3, 2)[0], 255 - 60 - 14);  // blue first, top row last

  wxBitmap const bitmap(Pattern(), 24);
  EXPECT_EQ(DDBToDIB(bitmap, BI_BITFIELDS, nullptr), nullptr);
  EXPECT_EQ(DDBToDIB(bitmap, BI_RLE8, nullptr), nullptr);
  EXPECT_EQ(DDBToDIB(wxBitmap(), BI_RGB, nullptr), nullptr);
  OwnedDib const reduced(BitmapToDIB(wxBitmap(withAlpha, 32), nullptr));
  ASSERT_NE(reduced, nullptr);
  EXPECT_EQ(Unpacked(HeaderOf(reduced.get()).biBitCount), 24);
}

// A frame of two coloured halves; the panels paint their own backgrounds.
wxFrame * TwoColourFrame(wxPoint const & where, wxColour const & left, wxColour const & right) {
  auto * frame = new wxFrame(nullptr, wxID_ANY, "Shot", where, wxSize(160, 100));
  auto * sizer = new wxBoxSizer(wxHORIZONTAL);
  for (wxColour const & colour : {left, right}) {
    auto * panel = new wxPanel(frame);
    panel->SetBackgroundColour(colour);
    sizer->Add(panel, 1, wxEXPAND);
  }
  frame->SetSizer(sizer);
  return frame;
}

TEST(WriteWindowToDib, WritesTheWindowEvenWhenCovered) {
  wxFrame * shot = TwoColourFrame(wxPoint(40, 40), wxColour(200, 30, 30), wxColour(30, 30, 200));
  ASSERT_TRUE(gui_test::ShowAndWait(*shot));
  wxFrame * cover = TwoColourFrame(wxPoint(40, 40), wxColour(0, 250, 0), wxColour(0, 250, 0));
  ASSERT_TRUE(gui_test::ShowAndWait(*cover));
  cover->Raise();
  gui_test::Flush();

  std::string const path = Temp("window.bmp");
  std::wstring const wide(path.begin(), path.end());
  ASSERT_NE(WriteWindowToDIB(wide.c_str(), shot), 0);
  std::string const bytes = Slurp(path);
  ASSERT_GT(bytes.size(), 54u);
  BITMAPFILEHEADER fileHeader{};
  std::memcpy(&fileHeader, bytes.data(), sizeof fileHeader);
  EXPECT_EQ(Unpacked(fileHeader.bfOffBits), 67108918u);  // WriteDIB's arithmetic for 24 bits
  OwnedDib const dib = MakeDib(Bytes(bytes.begin() + 14, bytes.end()));
  BITMAPINFOHEADER const header = HeaderOf(dib.get());
  EXPECT_EQ(Unpacked(header.biBitCount), 24);
  EXPECT_GE(Unpacked(header.biWidth), shot->GetClientSize().x);
  EXPECT_GE(Unpacked(header.biHeight), shot->GetClientSize().y);
  wxImage const picture = DibToImage(dib.get());
  ASSERT_TRUE(picture.IsOk());
  int const y = picture.GetHeight() - 10;
  EXPECT_EQ(wxColour(picture.GetRed(10, y), picture.GetGreen(10, y), picture.GetBlue(10, y)),
            wxColour(200, 30, 30));
  int const x = picture.GetWidth() - 10;
  EXPECT_EQ(wxColour(picture.GetRed(x, y), picture.GetGreen(x, y), picture.GetBlue(x, y)),
            wxColour(30, 30, 200));

  // A screen rectangle comes back at its size; an empty one gives nothing.
  wxPoint const corner = cover->GetScreenPosition();
  EXPECT_EQ(ScreenRectToBitmap(wxRect(corner, wxSize(20, 10))).GetSize(), wxSize(20, 10));
  EXPECT_FALSE(ScreenRectToBitmap(wxRect(corner, wxSize(0, 5))).IsOk());

  // The picture was taken, though the file could not be written.
  EXPECT_NE(WriteWindowToDIB(L"/nonexistent-folder/window.bmp", shot), 0);
  EXPECT_EQ(WriteWindowToDIB(wide.c_str(), nullptr), 0);
  cover->Destroy();
  shot->Destroy();
}

TEST(PaintDib, PaintsUnscaledOrStretchedWithoutSmoothing) {
  OwnedDib const dib(DDBToDIB(wxBitmap(Pattern(), 24), BI_RGB, nullptr));
  wxImage const pattern = Pattern();
  struct Case {
    std::string name;
    wxRect target, source;
    int scale;  // target pixels per source pixel
    wxPoint sourceOrigin;
  } const cases[] = {
      {"same size", wxRect(2, 1, 5, 3), wxRect(0, 0, 5, 3), 1, wxPoint(0, 0)},
      {"part of it", wxRect(0, 0, 2, 2), wxRect(3, 1, 2, 2), 1, wxPoint(3, 1)},
      {"three times", wxRect(1, 1, 15, 9), wxRect(0, 0, 5, 3), 3, wxPoint(0, 0)},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    wxBitmap canvas(20, 12, 24);
    {
      wxMemoryDC dc(canvas);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      ASSERT_TRUE(PaintDIB(dc, test.target, dib.get(), test.source, nullptr));
    }
    wxImage const painted = canvas.ConvertToImage();
    for (int ty = 0; ty < test.target.height; ++ty)
      for (int tx = 0; tx < test.target.width; ++tx) {
        int const sx = test.sourceOrigin.x + tx / test.scale;
        int const sy = test.sourceOrigin.y + ty / test.scale;
        int const px = test.target.x + tx, py = test.target.y + ty;
        ASSERT_EQ(
            wxColour(painted.GetRed(px, py), painted.GetGreen(px, py), painted.GetBlue(px, py)),
            wxColour(pattern.GetRed(sx, sy), pattern.GetGreen(sx, sy), pattern.GetBlue(sx, sy)))
            << tx << "," << ty;
      }
    EXPECT_EQ(wxColour(painted.GetRed(19, 11), painted.GetGreen(19, 11), painted.GetBlue(19, 11)),
              *wxWHITE);
  }
  wxBitmap canvas(4, 4, 24);
  wxMemoryDC dc(canvas);
  EXPECT_FALSE(PaintDIB(dc, wxRect(0, 0, 4, 4), nullptr, wxRect(0, 0, 4, 4), nullptr));
  EXPECT_FALSE(PaintDIB(dc, wxRect(0, 0, 4, 4), dib.get(), wxRect(10, 10, 4, 4), nullptr));
}

TEST(CreateDibPalette, TakesTheColourTableOfIndexedPictures) {
  Bytes const table{30, 20, 10, 0, 60, 50, 40, 0, 90, 80, 70, 0};
  OwnedDib const indexed = MakeDib(InfoHeader(2, 2, 8, BI_RGB, 3), table, Bytes(8, 0));
  wxPalette palette;
  ASSERT_TRUE(CreateDIBPalette(indexed.get(), palette));
  ASSERT_EQ(palette.GetColoursCount(), 3);
  unsigned char red = 0, green = 0, blue = 0;
  ASSERT_TRUE(palette.GetRGB(2, &red, &green, &blue));
  EXPECT_EQ(wxColour(red, green, blue), wxColour(70, 80, 90));
  wxPalette none;
  EXPECT_FALSE(CreateDIBPalette(MakeDib(InfoHeader(2, 2, 24), Bytes(16, 0)).get(), none));
  EXPECT_FALSE(CreateDIBPalette(MakeDib(InfoHeader(2, 2, 8, BI_RGB, 300), table).get(), none));
}

}  // namespace
