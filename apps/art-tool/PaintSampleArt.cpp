// talvo-paint-sample-art FOLDER: paints the sample's art from arithmetic
// alone (no third-party art), as PNG files:
//   FOLDER/<artist>/<painting>.png   FOLDER/<artist>.portrait.png
// The build packs each artist into the sample's art archive with talvo-art.
#include <cmath>
#include <functional>
#include <iostream>
#include <string>

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/init.h>

namespace {

using Painter = std::function<void(double x, double y, unsigned char * rgb)>;

unsigned char Channel(double value) {
  return static_cast<unsigned char>(std::lround(255.0 * std::fmin(1.0, std::fmax(0.0, value))));
}

void Set(unsigned char * rgb, double r, double g, double b) {
  rgb[0] = Channel(r);
  rgb[1] = Channel(g);
  rgb[2] = Channel(b);
}

bool Paint(std::string const & path, int width, int height, Painter const & painter) {
  wxImage image(width, height, false);
  unsigned char * pixels = image.GetData();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, pixels += 3)
      painter(static_cast<double>(x) / width, static_cast<double>(y) / height, pixels);
  if (image.SaveFile(wxString::FromUTF8(path), wxBITMAP_TYPE_PNG)) return true;
  std::cerr << "talvo-paint-sample-art: cannot write " << path << '\n';
  return false;
}

// Quadra Lumen: fields and bands of colour.
void Fields(double x, double y, unsigned char * rgb) {
  int const column = static_cast<int>(x * 5);
  int const row = static_cast<int>(y * 4);
  bool const line = std::fmod(x * 5, 1.0) < 0.04 || std::fmod(y * 4, 1.0) < 0.05;
  if (line) return Set(rgb, 0.1, 0.1, 0.12);
  switch ((column * 7 + row * 3) % 5) {
    case 0: return Set(rgb, 0.85, 0.15, 0.12);
    case 1: return Set(rgb, 0.95, 0.85, 0.2);
    case 2: return Set(rgb, 0.15, 0.3, 0.75);
    default: return Set(rgb, 0.94, 0.93, 0.9);
  }
}

void Dusk(double x, double y, unsigned char * rgb) {
  double const band = std::floor(y * 9) / 9;
  Set(rgb, 0.95 - band * 0.6, 0.55 - band * 0.4 + 0.1 * std::sin(x * 6), 0.35 + band * 0.5);
}

void Steps(double x, double y, unsigned char * rgb) {
  double const step = std::floor((x + y) * 6) / 12;
  Set(rgb, 0.2 + step, 0.6 - step * 0.5, 0.4 + 0.3 * std::cos(step * 9));
}

// Vera Spiral: rings, waves and a spiral.
void Rings(double x, double y, unsigned char * rgb) {
  double const r = std::hypot(x - 0.45, y - 0.55);
  double const wave = 0.5 + 0.5 * std::sin(r * 60);
  Set(rgb, 0.2 + 0.6 * wave, 0.3 + 0.4 * (1 - wave), 0.55 + 0.4 * std::sin(r * 9));
}

void Waves(double x, double y, unsigned char * rgb) {
  double const v = std::sin(x * 23 + std::sin(y * 11) * 2) * std::cos(y * 17);
  Set(rgb, 0.5 + 0.5 * v, 0.35 + 0.3 * std::sin(v * 3), 0.6 - 0.4 * v);
}

void Spiral(double x, double y, unsigned char * rgb) {
  double const dx = x - 0.5;
  double const dy = y - 0.5;
  double const turn = std::atan2(dy, dx) + std::hypot(dx, dy) * 30;
  double const v = 0.5 + 0.5 * std::sin(turn * 3);
  Set(rgb, 0.1 + 0.8 * v, 0.15 + 0.5 * v * v, 0.35 + 0.5 * (1 - v));
}

Painter Portrait(double hue) {
  return [hue](double x, double y, unsigned char * rgb) {
    double const head = std::hypot(x - 0.5, (y - 0.42) * 1.15);
    double const shoulders = std::hypot((x - 0.5) * 0.8, y - 1.05);
    if (head < 0.22 || shoulders < 0.42) return Set(rgb, 0.25 + hue, 0.22, 0.3 + 0.5 * hue);
    Set(rgb, 0.8 - 0.3 * y, 0.75 - 0.2 * hue, 0.6 + 0.3 * hue);
  };
}

}  // namespace

int main(int argc, char ** argv) {
  if (argc != 2) {
    std::cerr << "usage: talvo-paint-sample-art FOLDER\n";
    return 2;
  }
  wxInitializer initializer;
  wxImage::AddHandler(new wxPNGHandler);
  std::string const folder = argv[1];
  struct Work {
    char const * artist;
    char const * title;
    int width, height;
    Painter painter;
  };
  Work const works[] = {
      {"Quadra Lumen", "Fields of Noon", 640, 480, Fields},
      {"Quadra Lumen", "Dusk in Nine Bands", 360, 480, Dusk},
      {"Quadra Lumen", "Steps", 400, 400, Steps},
      {"Vera Spiral", "Rings", 600, 600, Rings},
      {"Vera Spiral", "Waves at Rest", 520, 300, Waves},
      {"Vera Spiral", "The Spiral", 300, 300, Spiral},
  };
  for (Work const & work : works) {
    std::string const artistFolder = folder + "/" + work.artist;
    wxFileName::Mkdir(wxString::FromUTF8(artistFolder), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    if (!Paint(artistFolder + "/" + work.title + ".png", work.width, work.height, work.painter))
      return 1;
  }
  if (!Paint(folder + "/Quadra Lumen.portrait.png", 96, 96, Portrait(0.1)) ||
      !Paint(folder + "/Vera Spiral.portrait.png", 96, 96, Portrait(0.45)))
    return 1;
  return 0;
}
