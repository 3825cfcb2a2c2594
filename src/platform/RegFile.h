#pragma once
// The .reg text form of registry keys: what a file says, parsed.
//
// The header line is "Windows Registry Editor Version 5.00" or "REGEDIT4".
// Then, one a line (blank lines and lines starting with ";" aside):
//
//   [HKEY_CURRENT_USER\Software\Karvinel]   a key (made if absent); the values
//                                           below go into it
//   [-HKEY_CURRENT_USER\Software\Old]       the key removed, with all below
//   "Name"="text"                           REG_SZ; \\ and \" escape
//   @="text"                                the default value (empty name)
//   "Name"=dword:0000002a                   REG_DWORD, 1 to 8 hex digits
//   "Name"=hex:00,ff,...                    REG_BINARY
//   "Name"=hex(N):00,...                    type N (hex): hex(2) REG_EXPAND_SZ,
//                                           hex(7) REG_MULTI_SZ, hex(b) REG_QWORD
//   "Name"=-                                the value removed
//
// A line of hex bytes may go on over further lines, each but the last ending
// with "\". Roots: HKEY_CURRENT_USER (HKCU), HKEY_LOCAL_MACHINE (HKLM),
// HKEY_CLASSES_ROOT (HKCR).
//
// Text of the string types in hex (1, 2 and 7) is UTF-16LE in a version 5
// file, as Windows writes it, and UTF-8 in a REGEDIT4 file; in the store it
// is wchar_t text. A file is UTF-8 (a byte order mark is allowed) or UTF-16
// with a byte order mark.

#include <string>
#include <string_view>
#include <vector>

#include "platform/WinReg.h"
#include "utl/ExceptionMessage.h"

namespace registry {

struct RegFileEntry {
  enum Kind { Key, DeleteKey, Value, DeleteValue };
  Kind kind = Key;
  int line = 0;
  HKEY root = nullptr;  // of the key, for every kind
  std::wstring path;    // below the root; empty for the root itself
  std::wstring name;    // of the value; empty for the default value
  DWORD type = REG_NONE;
  std::string data;  // as the store keeps it
};

// False on the first thing that is not of the form above; `error` then says
// what, with its line number.
bool ParseRegFile(std::string_view bytes, std::vector<RegFileEntry> & entries,
                  ExceptionMessage & error);

// The name of a root as a file writes it ("HKEY_CURRENT_USER"); empty for
// another key.
std::string RegFileRootName(HKEY root);
// The root a name stands for (long or short form, any case); null if none.
HKEY RegFileRoot(std::string_view name);

// Text conversions of the string types between the store (wchar_t) and
// UTF-16LE. What cannot be converted becomes U+FFFD; a trailing part of a
// unit is dropped.
std::string WideBytesToUtf16(std::string_view wide);
std::string Utf16ToWideBytes(std::string_view utf16);

}  // namespace registry
