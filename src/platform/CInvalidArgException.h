#pragma once
// The framework's invalid-argument failure: a caller passed an index or a
// value the callee cannot take. Thrown as `new CInvalidArgException` and
// released by the catcher with Delete, as every CException.

#include <cwchar>

#include "platform/CException.h"

class CInvalidArgException : public CException {
public:
  bool GetErrorMessage(wchar_t * buffer, std::size_t size) const override {
    if (buffer == nullptr || size == 0) return false;
    std::wcsncpy(buffer, L"Invalid argument.", size - 1);
    buffer[size - 1] = L'\0';
    return true;
  }
};
