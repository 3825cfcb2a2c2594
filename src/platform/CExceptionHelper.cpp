#include "platform/CExceptionHelper.h"

#include <cwctype>
#include <string>

#include "platform/CException.h"
#include "platform/RegistryErrorText.h"
#include "platform/WinError.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

// The codes of the library beyond those of the registry functions.
char const * LoaderErrorText(unsigned long code) {
  switch (code) {
    case ERROR_BAD_FORMAT: return "An attempt was made to load a program with an incorrect format.";
    case ERROR_MOD_NOT_FOUND: return "The specified module could not be found.";
    case ERROR_PROC_NOT_FOUND: return "The specified procedure could not be found.";
    default: return nullptr;
  }
}

std::string UnknownErrorText() { return vx3::Tr("Unknown error.").utf8_string(); }

}  // namespace

namespace CExceptionHelper {

std::string GetErrorMessage(CException * e) {
  wchar_t buffer[256] = {};
  if (e == nullptr || !e->GetErrorMessage(buffer, 256) || buffer[0] == L'\0')
    return UnknownErrorText();
  std::wstring message(buffer);
  while (!message.empty() && std::iswspace(message.back())) message.pop_back();
  return vx3::WideToUtf8(message);
}

std::string GetErrorText(unsigned long code) {
  char const * text = code <= 0x7FFFFFFFul ? registry::ErrorText(static_cast<LONG>(code)) : nullptr;
  if (text == nullptr) text = LoaderErrorText(code);
  std::string result = text != nullptr ? std::string(text) : UnknownErrorText();
  return result + " (" + std::to_string(code) + ")";
}

}  // namespace CExceptionHelper
