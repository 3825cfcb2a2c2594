#pragma once
// The basic types of the Windows vocabulary that the library's algorithms
// are written in, with Windows' widths. Linux is LP64: a DWORD is 32 bits,
// never `unsigned long`. wchar_t text is UTF-32 here, so character counts
// are code points.

#include <cstddef>
#include <cstdint>

using BYTE = uint8_t;
using WORD = uint16_t;
using DWORD = uint32_t;
using QWORD = uint64_t;
using LONG = int32_t;
using ULONG = uint32_t;
using UINT = uint32_t;
using BOOL = int32_t;
using LSTATUS = LONG;
using ACCESS_MASK = DWORD;
using WCHAR = wchar_t;
using HRESULT = LONG;
// Pointer-wide message parameters and results.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;
// A loaded library (a dlopen handle). Resource modules have their own
// handle type, HINSTANCE, in ResourceModule.h.
using HMODULE = void *;

using LPBYTE = BYTE *;
using LPDWORD = DWORD *;
using LPWSTR = wchar_t *;
using LPCWSTR = wchar_t const *;

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};
using PFILETIME = FILETIME *;

// Accepted where Windows takes one; the store has no per-key security.
struct SECURITY_ATTRIBUTES {
  DWORD nLength;
  void * lpSecurityDescriptor;
  BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES *;

struct _GUID {
  DWORD Data1;
  WORD Data2;
  WORD Data3;
  BYTE Data4[8];
};
using GUID = _GUID;

static_assert(sizeof(DWORD) == 4 && sizeof(LONG) == 4 && sizeof(WORD) == 2 && sizeof(QWORD) == 8,
              "the Windows widths");
static_assert(sizeof(GUID) == 16, "a GUID is 16 bytes");
