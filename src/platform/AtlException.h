#pragma once
// The failure that the ATL helpers throw: an HRESULT by value. AtlThrow is
// how a stand-in of an ATL class reports what the platform reports with it
// (E_INVALIDARG for an impossible time, E_FAIL...).

#include <exception>

#include "platform/WinHResult.h"

class CAtlException : public std::exception {
public:
  explicit CAtlException(HRESULT hr = E_FAIL) noexcept : m_hr(hr) {}

  operator HRESULT() const noexcept { return m_hr; }  // NOLINT(google-explicit-constructor): ATL's
  char const * what() const noexcept override { return "CAtlException"; }

  HRESULT m_hr;  // NOLINT(misc-non-private-member-variables-in-classes): ATL's public field
};

[[noreturn]] inline void AtlThrow(HRESULT hr) { throw CAtlException(hr); }
