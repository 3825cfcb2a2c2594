#pragma once
// The framework's own failure type, thrown as a heap pointer and released by
// the catcher with Delete. Few parts of the library throw it; the guards and
// CExceptionHelper::GetErrorMessage accept it.

#include <cstddef>

class CException {
public:
  virtual ~CException() = default;

  // Writes the message, null-terminated and cut to `size` characters, into
  // `buffer`; false when there is none.
  virtual bool GetErrorMessage(wchar_t * buffer, std::size_t size) const = 0;

  void Delete() { delete this; }
};
