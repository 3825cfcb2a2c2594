// Style sheets from anywhere: reading never fails, and the text a sheet
// writes reads back to the same rules.
#include <cstdint>
#include <string>

#include "html/HtmlStyleSheet.h"
#include "html/IHTMLDocumentUtilities.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  wxString const css = wxString::FromUTF8(reinterpret_cast<char const *>(data), size);
  HtmlStyleSheet sheet;
  sheet.SetCssText(css);
  wxString const text = sheet.GetCssText();
  HtmlStyleSheet again;
  again.SetCssText(text);
  if (again.GetCssText() != text) __builtin_trap();
  // Completing a sheet with itself adds nothing.
  size_t const count = sheet.Rules().size();
  IHTMLDocumentUtilities::AddMissingHTMLRuleStyles(text, &sheet);
  if (sheet.Rules().size() != count) __builtin_trap();
  return 0;
}
