// The JPEG coder of the art archive: limits checked from the header, the
// decoder's shrinking, and progressive files with too many scans.
#include <gtest/gtest.h>

#include "ArtTestFiles.h"
#include "JpegTestFiles.h"

namespace {

wxImage Decode(std::string const & jpeg, vx3::JpegDecodeLimits const & limits, int minWidth = 0,
               int minHeight = 0) {
  return vx3::DecodeArtJpeg(reinterpret_cast<unsigned char const *>(jpeg.data()), jpeg.size(),
                            limits, minWidth, minHeight);
}

// A progressive JPEG (libjpeg's standard script: 10 scans for colour).
std::string Progressive(wxImage const & image) {
  return LibjpegEncode(image.GetData(), image.GetWidth(), image.GetHeight(), 0, true);
}

TEST(ArtJpeg, LimitsAreCheckedBeforeDecoding) {
  std::string const jpeg = vx3::EncodeArtJpeg(HalfAndHalf(64, 32), 75);
  struct Case {
    int maxWidth, maxHeight;
    unsigned long long maxPixels;
    bool accepted;
  } const cases[] = {
      {64, 32, 2048, true},
      {63, 32, 2048, false},
      {64, 31, 2048, false},
      {64, 32, 2047, false},
  };
  for (Case const & c : cases) {
    vx3::JpegDecodeLimits limits;
    limits.maxWidth = c.maxWidth;
    limits.maxHeight = c.maxHeight;
    limits.maxPixels = c.maxPixels;
    if (c.accepted)
      EXPECT_EQ(wxSize(64, 32), Decode(jpeg, limits).GetSize());
    else
      EXPECT_THROW(Decode(jpeg, limits), vx3::ArtJpegError);
  }
  for (std::string const & broken :
       {std::string(), std::string("\xFF\xD8\xFF"), jpeg.substr(0, 80), std::string("GIF89a")})
    EXPECT_THROW(Decode(broken, vx3::JpegDecodeLimits()), vx3::ArtJpegError);
}

TEST(ArtJpeg, TheDecoderShrinksByPowersOfTwoDownToTheWantedSize) {
  std::string const jpeg = vx3::EncodeArtJpeg(HalfAndHalf(800, 400), 75);
  struct Case {
    int minWidth, minHeight;
    wxSize decoded;
  } const cases[] = {
      {0, 0, {800, 400}},     {800, 1, {800, 400}}, {400, 200, {400, 200}},
      {399, 150, {400, 200}}, {100, 50, {100, 50}}, {1, 1, {100, 50}},  // 1/8 at most
  };
  for (Case const & c : cases)
    EXPECT_EQ(c.decoded, Decode(jpeg, vx3::JpegDecodeLimits(), c.minWidth, c.minHeight).GetSize());
}

TEST(ArtJpeg, ProgressiveFilesWithTooManyScansAreStopped) {
  std::string const jpeg = Progressive(HalfAndHalf(32, 32));
  vx3::JpegDecodeLimits limits;
  EXPECT_EQ(wxSize(32, 32), Decode(jpeg, limits).GetSize());
  limits.maxScans = 3;
  EXPECT_THROW(Decode(jpeg, limits), vx3::ArtJpegError);
}

}  // namespace
