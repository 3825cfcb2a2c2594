#include "lists/HtmlClipboardBlock.h"

#include <cstdio>
#include <cstring>

namespace {

char const kHeader[] =
    "Version:0.9\n"
    "StartHTML:00000000\n"
    "EndHTML:0000000000000000000000\n"
    "StartFragment:00000000\n"
    "EndFragment:00000000\n"
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\n"
    "<html><head><title></title></head>\n"
    "<body>\n"
    "<!--StartFragment -->\n";
char const kTrailer[] = "\n<!--EndFragment-->\n</body>\n</html>";

constexpr size_t kFieldDigits = 8;
constexpr size_t kEndHtmlDigits = 22;
// "<!--StartFragment -->\n": the fragment begins right after it.
constexpr size_t kStartMarkerLength = 22;

// Writes `digits` of `value` right after "<field>:", where the header's
// zeros stand. The header keeps its length: a value needing more digits
// than the field has is refused by the caller before this runs.
void PatchField(std::string & block, char const * field, std::string const & digits) {
  size_t const at = block.find(field) + std::strlen(field) + 1;
  block.replace(at, digits.size(), digits);
}

std::string Padded(size_t value, size_t width) {
  std::string text = std::to_string(value);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace

std::optional<std::string> MakeHTMLClipStringFromText(char const * fragment) {
  if (fragment == nullptr) return std::nullopt;
  std::string block;
  size_t const fragmentLength = std::strlen(fragment);
  block.reserve(fragmentLength + 400);
  block.append(kHeader).append(fragment, fragmentLength).append(kTrailer);

  size_t const startHtml = block.find("<html>");
  size_t const endHtml = block.size();
  size_t const startFragment = block.find("<!--StartFrag") + kStartMarkerLength;
  size_t const endFragment = block.find("<!--EndFrag");
  constexpr size_t kLimit = 100000000;  // 10^8: the first value of nine digits
  if (startHtml >= kLimit || startFragment >= kLimit || endFragment >= kLimit) return std::nullopt;

  PatchField(block, "StartHTML", Padded(startHtml, kFieldDigits));
  PatchField(block, "EndHTML", Padded(endHtml, kEndHtmlDigits));
  PatchField(block, "StartFragment", Padded(startFragment, kFieldDigits));
  PatchField(block, "EndFragment", Padded(endFragment, kFieldDigits));
  return block;
}

std::string HtmlDocumentOfClipBlock(std::string const & block) {
  char const field[] = "StartHTML:";
  size_t const at = block.find(field);
  if (at == std::string::npos) return block;
  size_t offset = 0;
  size_t digit = at + sizeof field - 1;
  for (; digit < block.size() && digit < at + sizeof field - 1 + kFieldDigits; ++digit) {
    char const c = block[digit];
    if (c < '0' || c > '9') return block;
    offset = offset * 10 + static_cast<size_t>(c - '0');
  }
  if (offset >= block.size()) return block;
  return block.substr(offset);
}
