// VxJpeg's bitmap for the screen: made from the DIB with red and blue back
// in their places.
#include <gtest/gtest.h>

#include <sstream>

#include "pictures/ArtJpeg.h"
#include "pictures/VxJpeg.h"

TEST(VxJpegBitmap, ShowsTheColoursWhereTheyWere) {
  wxImage picture(16, 8, false);
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 16; ++x)
      picture.SetRGB(x, y, x < 8 ? 230 : 10, y < 4 ? 40 : 160, x < 8 ? 10 : 230);
  std::istringstream stream(vx3::EncodeArtJpeg(picture, 100));
  VxJpeg jpeg(stream);
  wxBitmap const & bitmap = jpeg.GetBitMap();
  ASSERT_TRUE(bitmap.IsOk()) << jpeg.GetErrorMessage();
  EXPECT_EQ(bitmap.GetWidth(), 16);
  EXPECT_EQ(bitmap.GetHeight(), 8);
  wxImage const shown = bitmap.ConvertToImage();
  struct Spot {
    int x, y, red, green, blue;
  } const spots[] = {
      {1, 1, 230, 40, 10}, {14, 1, 10, 40, 230}, {1, 6, 230, 160, 10}, {14, 6, 10, 160, 230}};
  for (Spot const & spot : spots) {
    SCOPED_TRACE(testing::Message() << spot.x << "," << spot.y);
    EXPECT_NEAR(shown.GetRed(spot.x, spot.y), spot.red, 8);
    EXPECT_NEAR(shown.GetGreen(spot.x, spot.y), spot.green, 8);
    EXPECT_NEAR(shown.GetBlue(spot.x, spot.y), spot.blue, 8);
  }
}
