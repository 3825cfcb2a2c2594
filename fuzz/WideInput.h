#pragma once
// The two ways a fuzz input reaches code that reads wide text: as UTF-8
// decoded, and as raw 32-bit units, which may be no code points at all.

#include <cstdint>
#include <string>
#include <utility>

#include "utl/Utf.h"

// {decoded text, raw units}.
inline std::pair<std::wstring, std::wstring> WideInputs(uint8_t const * data, size_t size) {
  std::wstring text = vx3::Utf8ToWide(std::string(reinterpret_cast<char const *>(data), size));
  std::wstring raw(size / sizeof(wchar_t), L'\0');
  for (size_t i = 0; i < raw.size(); ++i) {
    uint32_t unit = 0;
    for (size_t b = 0; b < sizeof(wchar_t); ++b)
      unit |= uint32_t(data[i * sizeof(wchar_t) + b]) << (8 * b);
    raw[i] = static_cast<wchar_t>(unit);
  }
  return {std::move(text), std::move(raw)};
}
