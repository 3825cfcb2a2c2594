// talvo-paint-sample-splash FILE: paints the sample's splash picture from
// arithmetic alone (no third-party art) as a PNG: a rounded card with a
// round emblem standing out of its top edge, on magenta, the colour the
// splash window cuts away. The splash draws the name, version and rights
// lines on the card's lower part, which is kept light and quiet.
#include <cmath>
#include <iostream>

#include <wx/image.h>
#include <wx/init.h>

namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 300;
constexpr int kCardTop = 44;
constexpr int kCorner = 26;
constexpr double kEmblemX = 392;
constexpr double kEmblemY = 72;
constexpr double kEmblemRadius = 64;

bool InCard(int x, int y) {
  if (y < kCardTop) return false;
  // The corners are quarter circles.
  int const cx = x < kCorner ? kCorner : (x >= kWidth - kCorner ? kWidth - kCorner - 1 : x);
  int const cy = y < kCardTop + kCorner ? kCardTop + kCorner
                                        : (y >= kHeight - kCorner ? kHeight - kCorner - 1 : y);
  return std::hypot(x - cx, y - cy) <= kCorner;
}

void Paint(int x, int y, unsigned char * rgb) {
  double const emblem = std::hypot(x - kEmblemX, y - kEmblemY);
  if (emblem <= kEmblemRadius) {
    // Rings turning around the centre, blue to teal.
    double const turn = std::atan2(y - kEmblemY, x - kEmblemX) + emblem / 9.0;
    double const v = 0.5 + 0.5 * std::sin(turn * 3);
    bool const rim = emblem > kEmblemRadius - 4;
    rgb[0] = static_cast<unsigned char>(rim ? 30 : 20 + 40 * v);
    rgb[1] = static_cast<unsigned char>(rim ? 60 : 90 + 100 * v);
    rgb[2] = static_cast<unsigned char>(rim ? 110 : 150 + 80 * (1 - v));
    return;
  }
  if (!InCard(x, y)) {
    rgb[0] = 255;
    rgb[1] = 0;
    rgb[2] = 255;
    return;
  }
  // A pale card, a wave of colour across its upper half.
  double const t = static_cast<double>(y - kCardTop) / (kHeight - kCardTop);
  double const wave = std::sin(x / 37.0 + std::sin(y / 23.0)) * std::exp(-t * 4);
  auto const channel = [](double value) {
    return static_cast<unsigned char>(std::lround(std::fmin(250.0, std::fmax(0.0, value))));
  };
  rgb[0] = channel(214 - 40 * wave * (1 - t));
  rgb[1] = channel(226 - 18 * wave);
  rgb[2] = channel(240 + 8 * wave * t);
}

}  // namespace

int main(int argc, char ** argv) {
  if (argc != 2) {
    std::cerr << "usage: talvo-paint-sample-splash FILE\n";
    return 2;
  }
  wxInitializer wx;
  wxImage::AddHandler(new wxPNGHandler);
  wxImage image(kWidth, kHeight, false);
  unsigned char * pixels = image.GetData();
  for (int y = 0; y < kHeight; ++y)
    for (int x = 0; x < kWidth; ++x, pixels += 3) Paint(x, y, pixels);
  if (image.SaveFile(wxString::FromUTF8(argv[1]), wxBITMAP_TYPE_PNG)) return 0;
  std::cerr << "talvo-paint-sample-splash: cannot write " << argv[1] << '\n';
  return 1;
}
