// PrintDIB: the target of each mode, its failures by code, and the same
// picture band by band on a device that bands.
#include <gtest/gtest.h>

#include <vector>

#include "TestDib.h"
#include "platform/WinGeometry.h"
#include "printing/PageDevice.h"
#include "printing/PrintDIB.h"

// Found by argument lookup from gtest's namespace: RECT is a global type.
static bool operator==(RECT const & a, RECT const & b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
static std::ostream & operator<<(std::ostream & out, RECT const & r) {
  return out << "(" << r.left << "," << r.top << ")-(" << r.right << "," << r.bottom << ")";
}

namespace {

DOCINFOW Doc() { return DOCINFOW{sizeof(DOCINFOW), L"Picture", nullptr, nullptr, 0}; }

// A printer that draws on a page picture, keeps every stretch it is asked
// for and, when told, hands out the page in bands of `bandHeight` units, the
// bands listed in `textOnly` without graphics.
class BandingDevice : public CDC {
public:
  explicit BandingDevice(int bandHeight = 0, bool bandInfo = false, std::vector<int> textOnly = {})
      : mPage(PageDevice::ForImages({}, 30)),
        mBandHeight(bandHeight),
        mBandInfo(bandInfo),
        mTextOnly(std::move(textOnly)) {
    mPage->StartDoc(Doc());
    mPage->StartPage();
  }

  int GetDeviceCaps(int index) const override { return mPage->GetDeviceCaps(index); }
  int StartDoc(DOCINFOW const & info) override { return mPage->StartDoc(info); }
  int StartPage() override { return mPage->StartPage(); }
  int EndPage() override { return mPage->EndPage(); }
  int EndDoc() override { return mPage->EndDoc(); }
  int AbortDoc() override { return mPage->AbortDoc(); }
  int SetStretchBltMode(int mode) override { return mPage->SetStretchBltMode(mode); }
  wxDC & GetDC() override { return mPage->GetDC(); }

  int Escape(int escape, int inSize, void const * in, void * out) override {
    if (escape == QUERYESCSUPPORT) {
      int const asked = *static_cast<int const *>(in);
      if (asked == NEXTBAND) {
        return int(mBandHeight > 0);
      }
      if (asked == BANDINFO) {
        return int(mBandInfo);
      }
    }
    if (escape == NEXTBAND && mBandHeight > 0) {
      auto * band = static_cast<RECT *>(out);
      int const top = mBands * mBandHeight;
      *band = top < GetDeviceCaps(VERTRES) ? RECT{0, top, GetDeviceCaps(HORZRES), top + mBandHeight}
                                           : RECT{};
      ++mBands;
      return 1;
    }
    if (escape == BANDINFO && mBandInfo) {
      auto * info = static_cast<BANDINFOSTRUCT *>(out);
      bool const textOnly =
          std::find(mTextOnly.begin(), mTextOnly.end(), mBands - 1) != mTextOnly.end();
      info->fGraphicsFlag = textOnly ? 0 : 1;
      info->fTextFlag = 1;
      return 1;
    }
    if (escape == NEWFRAME) {
      ++mNewFrames;
    }
    return mPage->Escape(escape, inSize, in, out);
  }

  int StretchDIBits(int x, int y, int width, int height, int xSource, int ySource, int sourceWidth,
                    int sourceHeight, void const * bits, void const * info, UINT usage,
                    DWORD rop) override {
    stretches.push_back({x, y, x + width, y + height});
    sources.push_back({xSource, ySource, xSource + sourceWidth, ySource + sourceHeight});
    return mPage->StretchDIBits(x, y, width, height, xSource, ySource, sourceWidth, sourceHeight,
                                bits, info, usage, rop);
  }

  wxImage Picture() {
    if (mPage->GetCairoContext() != nullptr) {
      mPage->EndPage();
    }
    return mPage->PageImages().at(0);
  }

  std::vector<RECT> stretches;
  std::vector<RECT> sources;
  int mNewFrames = 0;

private:
  std::unique_ptr<PageDevice> mPage;
  int mBandHeight;
  bool mBandInfo;
  std::vector<int> mTextOnly;
  int mBands = 0;
};

// 40 x 30 pixels in twelve blocks of 10 x 10, each its own colour.
std::uint32_t Block(int x, int y) {
  return std::uint32_t(0x202020 + (x / 10) * 0x400000 + (y / 10) * 0x005000);
}

std::uint32_t At(wxImage const & page, int x, int y) {
  int const px = x * 30 / 600;
  int const py = y * 30 / 600;
  return (std::uint32_t(page.GetRed(px, py)) << 16) | (std::uint32_t(page.GetGreen(px, py)) << 8) |
         page.GetBlue(px, py);
}

}  // namespace

TEST(PrintDIB, PlacesThePictureAsItsModeSays) {
  auto dib = test_dib::Make(40, 30, 24, Block);
  // An A4 page at 600 an inch: 4961 x 7016.
  struct Case {
    unsigned short mode, xScale, yScale;
    RECT target;
  } const cases[] = {
      {1, 0, 0, {0, 100, 4961, 3720}},       // best fit: 4961 * 30 / 40, truncated
      {3, 50, 60, {1480, 100, 3480, 1800}},  // scaled, centred; the bottom counts from 0
      {2, 7, 7, {0, 100, 4961, 6916}},       // stretched below the top
      {0, 0, 0, {0, 100, 4961, 6916}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << "mode " << c.mode);
    BandingDevice device;
    EXPECT_EQ(PrintDIB(dib.get(), c.mode, c.xScale, c.yScale, &device, 100), 0);
    ASSERT_EQ(device.stretches.size(), 1U);
    EXPECT_EQ(device.stretches[0], c.target);
    EXPECT_EQ(device.sources[0], (RECT{0, 0, 40, 30}));
    EXPECT_EQ(device.mNewFrames, 1) << "the one band ends the page";
  }
}

TEST(PrintDIB, ReportsEachFailureByItsCode) {
  auto good = test_dib::Make(4, 4, 24, Block);
  auto lying = test_dib::Make(4, 4, 24, Block);
  test_dib::Header(lying.get())->biHeight = 4000;  // rows far past the block
  auto runLength = test_dib::Make(4, 4, 8, [](int, int) { return 0U; }, {0});
  test_dib::Header(runLength.get())->biCompression = BI_RLE8;
  test_dib::Header(runLength.get())->biSizeImage = 4;

  BandingDevice device;
  auto closed = PageDevice::ForImages({}, 10);  // no document: NEWFRAME fails
  struct Case {
    char const * what;
    HDIB dib;
    CDC * dc;
    unsigned short code;
  } const cases[] = {
      {"no DIB", nullptr, &device, 20},
      {"a header that lies", lying.get(), &device, 3},
      {"no DC", good.get(), nullptr, 6},
      {"rows that cannot be stretched", runLength.get(), &device, 9},
      {"a page that cannot end", good.get(), closed.get(), 9},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(PrintDIB(c.dib, 2, 0, 0, c.dc, 0), c.code) << c.what;
  }

  // Stretching works without a page on a device that keeps one open, but
  // NEWFRAME then fails.
  class NoFrames : public BandingDevice {
    int Escape(int escape, int inSize, void const * in, void * out) override {
      return escape == NEWFRAME ? SP_ERROR : BandingDevice::Escape(escape, inSize, in, out);
    }
  } noFrames;
  EXPECT_EQ(PrintDIB(good.get(), 2, 0, 0, &noFrames, 0), 15);
}

TEST(PrintDIB, PaintsBandByBandWhereTheDeviceBands) {
  auto dib = test_dib::Make(40, 30, 24, Block);
  BandingDevice whole;
  ASSERT_EQ(PrintDIB(dib.get(), 2, 0, 0, &whole, 0), 0);
  BandingDevice banded(1000, true, {2});
  ASSERT_EQ(PrintDIB(dib.get(), 2, 0, 0, &banded, 0), 0);

  EXPECT_EQ(banded.mNewFrames, 0) << "the bands end the page, not NEWFRAME";
  // Eight bands meet the page: band 2 takes text only, and the last one's
  // 16 units are less than half a pixel of the picture.
  std::vector<int> tops;
  for (RECT const & stretch : banded.stretches) {
    tops.push_back(stretch.top);
    EXPECT_EQ(stretch.bottom - stretch.top, 1000) << stretch;
  }
  EXPECT_EQ(tops, (std::vector<int>{0, 1000, 3000, 4000, 5000, 6000}));
  wxImage const one = whole.Picture();
  wxImage const bands = banded.Picture();
  // Each block's middle has its colour on both roads; band 2 (2000-3000)
  // took text only and stays white.
  for (int by = 0; by < 3; ++by) {
    for (int bx = 0; bx < 4; ++bx) {
      int const x = bx * 1240 + 620;
      int const y = by * 2339 + 1169;
      SCOPED_TRACE(testing::Message() << "block " << bx << "," << by);
      EXPECT_EQ(At(one, x, y), Block(bx * 10, by * 10));
      bool const textBand = y >= 2000 && y < 3000;
      EXPECT_EQ(At(bands, x, y), textBand ? 0xFFFFFFU : Block(bx * 10, by * 10));
    }
  }
}
