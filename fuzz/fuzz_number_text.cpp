// Numbers typed by users and read from settings (any text), and printf
// formats: parsing never fails loudly, fails without touching the output,
// and a number read is written and read back unchanged. Any format is
// either used or replaced, never handed to swprintf unchecked.
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <string>

#include "WideInput.h"
#include "utl/VxString.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  auto const [text, raw] = WideInputs(data, size);
  for (std::wstring const * candidate : {&text, static_cast<std::wstring const *>(&raw)}) {
    wchar_t const * const chars = candidate->c_str();
    int integer = 0x5eed;
    if (VxString::ToInt(chars, integer)) {
      int again = 0;
      if (!VxString::ToInt(VxString::ToString(integer, L"%d", nullptr).wc_str(), again)) {
        __builtin_trap();
      }
      if (again != integer) __builtin_trap();
    } else if (integer != 0x5eed) {
      __builtin_trap();
    }
    float real = 0.25f;
    if (VxString::ToFloat(chars, real)) {
      if (!std::isfinite(real)) __builtin_trap();
      float again = 0;
      if (!VxString::ToFloat(VxString::ToString(real, L"%.9g", nullptr).wc_str(), again)) {
        __builtin_trap();
      }
      if (again != real) __builtin_trap();
    } else if (real != 0.25f) {
      __builtin_trap();
    }
    // The text as a format and as a suffix.
    wxString const a = VxString::ToString(-12345, chars, chars);
    wxString const b = VxString::ToString(-1.5e300, chars, chars);
    size_t const suffix = std::wcslen(chars);
    if (a.length() < suffix || b.length() < suffix) __builtin_trap();
  }
  return 0;
}
