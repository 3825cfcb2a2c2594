#include "platform/RegistryName.h"

#include <unicode/uchar.h>

#include "platform/WinReg.h"
#include "utl/Utf.h"

namespace registry {

namespace {

bool IsScalarValue(wchar_t c) {
  auto const code = static_cast<uint32_t>(c);
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

char32_t Upper(char32_t code) {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - ('a' - 'A') : code;
  return static_cast<char32_t>(u_toupper(static_cast<UChar32>(code)));
}

// Converts [begin, end) into `out`; false on a character that is no scalar
// value or a name longer than `limit`.
bool MakeName(wchar_t const * begin, wchar_t const * end, DWORD limit, Name & out) {
  if (end - begin > static_cast<std::ptrdiff_t>(limit)) return false;
  out.text.clear();
  out.folded.clear();
  for (wchar_t const * c = begin; c != end; ++c) {
    if (!IsScalarValue(*c)) return false;
    vx3::AppendUtf8(static_cast<char32_t>(*c), out.text);
    vx3::AppendUtf8(Upper(static_cast<char32_t>(*c)), out.folded);
  }
  return true;
}

}  // namespace

LONG ParseValueName(wchar_t const * name, Name & out) {
  if (name == nullptr) name = L"";
  wchar_t const * end = name;
  // Stop counting once past the limit: the name is refused anyway.
  while (*end != L'\0' && end - name <= static_cast<std::ptrdiff_t>(REG_MAX_VALUE_NAME_LENGTH))
    ++end;
  return MakeName(name, end, REG_MAX_VALUE_NAME_LENGTH, out) ? ERROR_SUCCESS
                                                             : ERROR_INVALID_PARAMETER;
}

LONG ParseKeyPath(wchar_t const * path, std::vector<Name> & elements) {
  elements.clear();
  if (path == nullptr || *path == L'\0') return ERROR_SUCCESS;
  if (*path == L'\\') return ERROR_BAD_PATHNAME;
  wchar_t const * begin = path;
  for (;;) {
    wchar_t const * end = begin;
    while (*end != L'\0' && *end != L'\\') ++end;
    if (end == begin) return ERROR_BAD_PATHNAME;
    Name element;
    if (!MakeName(begin, end, REG_MAX_KEY_NAME_LENGTH, element)) return ERROR_INVALID_PARAMETER;
    elements.push_back(std::move(element));
    if (*end == L'\0' || end[1] == L'\0') return ERROR_SUCCESS;
    begin = end + 1;
  }
}

}  // namespace registry
