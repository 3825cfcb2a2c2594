// Text typed into a float cell: the value it takes back is finite, the cell
// shows it as a text that reads back to it within "%g"'s six digits, and a
// refused text leaves the value as it was (-99, "missing", included).
#include <cmath>
#include <cstdint>
#include <string>

#include "properties/PropertyItemFloat.h"
#include "utl/Utf.h"
#include "utl/VxString.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::wstring const text =
      vx3::Utf8ToWide(std::string(reinterpret_cast<char const *>(data), size));
  for (float const before : {-99.0F, 1.5F}) {
    PropertyItemFloat item(L"Gain", 1, L"");
    item.SetData(before);
    // What SetData(window) does with the edit's text.
    float typed = 0;
    if (VxString::ToFloat(text.c_str(), typed)) item.SetData(typed);
    float after = 0;
    item.GetData(after);
    if (!std::isfinite(after)) __builtin_trap();
    wxString const shown = item.FormatValue();
    if (after == -99.0F) {
      if (!shown.empty()) __builtin_trap();
      continue;
    }
    float again = 0;
    if (!VxString::ToFloat(shown.wc_str(), again)) __builtin_trap();
    if (std::fabs(again - after) > std::fabs(after) * 1e-5F) __builtin_trap();
  }
  return 0;
}
