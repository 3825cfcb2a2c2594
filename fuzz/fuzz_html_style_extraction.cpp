// HTML from anywhere, as UTF-8: the extracted style is a piece of the page
// that lies between a "<style" start tag and a "</style>".
#include <cstdint>
#include <string>

#include <boost/locale/encoding_utf.hpp>

#include "html/HtmlStyleExtraction.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const bytes(reinterpret_cast<char const *>(data), size);
  std::wstring const html = boost::locale::conv::utf_to_utf<wchar_t>(bytes);
  std::wstring const style = ExtractStyleFromHtml(html);
  if (!style.empty()) {
    size_t const at = html.find(style);
    if (at == std::wstring::npos) __builtin_trap();
    if (html.find(L"</style>", html.find(L"<style")) == std::wstring::npos) __builtin_trap();
  }
  return 0;
}
