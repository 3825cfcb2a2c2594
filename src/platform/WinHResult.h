#pragma once
// HRESULT values that the platform stand-ins return, with their Windows
// values, and the Win32-code wrapping of HRESULT_FROM_WIN32.

#include "platform/WinTypes.h"

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003u);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);

constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) { return hr < 0; }

// A Win32 error code as an HRESULT of the Win32 facility (7).
constexpr HRESULT HRESULT_FROM_WIN32(LONG code) {
  return code <= 0 ? code
                   : static_cast<HRESULT>((static_cast<uint32_t>(code) & 0xFFFFu) | 0x80070000u);
}
