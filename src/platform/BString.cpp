// BSTR: the characters follow a 4-byte length prefix (in bytes, as on
// Windows) and end in a NUL that the length does not count. The block
// starts 8 bytes before the characters so that they stay aligned.

#include "platform/OleAutomation.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

namespace {

constexpr std::size_t headerSize = 8;

uint32_t * LengthPrefix(BSTR text) {
  return reinterpret_cast<uint32_t *>(reinterpret_cast<char *>(text) - sizeof(uint32_t));
}

}  // namespace

BSTR SysAllocStringLen(wchar_t const * text, UINT length) {
  if (length > (std::numeric_limits<uint32_t>::max() - headerSize) / sizeof(wchar_t) - 1)
    return nullptr;
  std::size_t const bytes = std::size_t{length} * sizeof(wchar_t);
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): freed by SysFreeString, a C interface
  auto * block = static_cast<char *>(std::malloc(headerSize + bytes + sizeof(wchar_t)));
  if (block == nullptr) return nullptr;
  auto * result = reinterpret_cast<BSTR>(block + headerSize);
  *LengthPrefix(result) = static_cast<uint32_t>(bytes);
  if (text != nullptr)
    std::memcpy(result, text, bytes);
  else
    std::memset(result, 0, bytes);
  result[length] = L'\0';
  return result;
}

BSTR SysAllocString(wchar_t const * text) {
  if (text == nullptr) return nullptr;
  std::size_t const length = std::wcslen(text);
  if (length > std::numeric_limits<UINT>::max()) return nullptr;
  return SysAllocStringLen(text, static_cast<UINT>(length));
}

void SysFreeString(BSTR text) {
  if (text != nullptr)
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): allocated by SysAllocStringLen
    std::free(reinterpret_cast<char *>(text) - headerSize);
}

UINT SysStringByteLen(BSTR text) { return text == nullptr ? 0 : *LengthPrefix(text); }

UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / sizeof(wchar_t); }
