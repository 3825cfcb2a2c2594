// HSV conversion and colour ramps of StandardColor.
#include <algorithm>
#include <cmath>

#include "controls/StandardColor.h"

namespace {

// The tolerance of the HSV arithmetic: float's epsilon.
constexpr double Tolerance = 1.1920928955078125e-7;

bool Equal(double a, double b) { return std::fabs(a - b) <= Tolerance; }

// Zero within the tolerance scaled to the number's own power of two, so
// that only a saturation that no float step can tell from 0 counts as gray.
bool IsZeroForItsScale(double value) {
  if (value == 0) return true;
  int exponent = 0;
  std::frexp(value, &exponent);
  return std::fabs(value) <= std::ldexp(Tolerance, exponent);
}

BYTE ToChannel(double unit) {
  double const scaled = std::floor(unit * 255);
  if (!(scaled >= 0)) return 0;  // NaN too
  return scaled >= 255 ? 255 : BYTE(scaled);
}

}  // namespace

void StandardColor::RGB2HSV(COLORREF color, double & h, double & s, double & v) {
  double const r = GetRValue(color) / 255.0;
  double const g = GetGValue(color) / 255.0;
  double const b = GetBValue(color) / 255.0;
  v = std::max({r, g, b});
  double const d = v - std::min({r, g, b});
  s = Equal(v, 0) ? 0 : d / v;
  if (Equal(s, 0)) {
    h = NoHue;
    return;
  }
  if (Equal(r, v))
    h = (g - b) / d;
  else if (Equal(g, v))
    h = (b - r) / d + 2;
  else
    h = (r - g) / d + 4;
  h *= 60;
  if (h < 0) h += 360;
}

COLORREF StandardColor::HSV2RGB(double h, double s, double v) {
  double r = 0, g = 0, b = 0;
  if (Equal(s, 0)) {
    if (!Equal(h, NoHue)) return 0;
    r = g = b = v;
  } else {
    if (Equal(h, 360)) h = 0;
    h /= 60;
    double const i = std::floor(h);
    double const f = h - i;
    double const p = (1 - s) * v;
    double const q = (1 - f * s) * v;
    double const t = (1 - (1 - f) * s) * v;
    // A hue outside 0..360 (or NaN) has no sector: black.
    int const sector = i >= 0 && i <= 5 ? int(i) : -1;
    switch (sector) {
      case 0: r = v, g = t, b = p; break;
      case 1: r = q, g = v, b = p; break;
      case 2: r = p, g = v, b = t; break;
      case 3: r = p, g = q, b = v; break;
      case 4: r = t, g = p, b = v; break;
      case 5: r = v, g = p, b = q; break;
      default: return 0;
    }
  }
  return RGB(ToChannel(r), ToChannel(g), ToChannel(b));
}

void StandardColor::InterpolateColors(COLORREF from, COLORREF to, COLORREF * out, int count) {
  if (out == nullptr || count <= 0) return;
  double h0, s0, v0, h1, s1, v1;
  RGB2HSV(from, h0, s0, v0);
  RGB2HSV(to, h1, s1, v1);
  if (Equal(h0, NoHue) && Equal(h1, NoHue))
    h0 = h1 = 0;
  else if (Equal(h0, NoHue))
    h0 = h1;
  else if (Equal(h1, NoHue))
    h1 = h0;
  out[0] = from;
  out[count - 1] = to;
  if (count < 3) return;
  double const steps = count - 1;
  double const dh = (h1 - h0) / steps, ds = (s1 - s0) / steps, dv = (v1 - v0) / steps;
  double h = h0, s = s0, v = v0;
  for (int index = 1; index < count - 1; ++index) {
    h += dh;
    s += ds;
    v += dv;
    out[index] = HSV2RGB(IsZeroForItsScale(s) ? NoHue : h, s, v);
  }
}
