// A fragment from anywhere (cells hold what users and files put there),
// with the block's own markers sprinkled in by the seeds: the offsets must
// stay inside the block and the header must keep its shape.
#include <cstdint>
#include <cstring>
#include <string>

#include "lists/HtmlClipboardBlock.h"

namespace {

size_t Field(std::string const & block, char const * name, size_t digits) {
  size_t const at = block.find(name);
  if (at == std::string::npos) __builtin_trap();
  size_t value = 0;
  for (size_t k = 0; k < digits; ++k) {
    char const c = block[at + std::strlen(name) + 1 + k];
    if (c < '0' || c > '9') __builtin_trap();
    value = value * 10 + static_cast<size_t>(c - '0');
  }
  if (block[at + std::strlen(name) + 1 + digits] != '\n') __builtin_trap();
  return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const fragment(reinterpret_cast<char const *>(data), size);
  auto const block = MakeHTMLClipStringFromText(fragment.c_str());
  if (!block) __builtin_trap();  // far below the nine-digit offsets
  size_t const startHtml = Field(*block, "StartHTML", 8);
  size_t const endHtml = Field(*block, "EndHTML", 22);
  size_t const startFragment = Field(*block, "StartFragment", 8);
  size_t const endFragment = Field(*block, "EndFragment", 8);
  if (endHtml != block->size() || startHtml >= endHtml || startFragment > endFragment ||
      endFragment >= endHtml)
    __builtin_trap();
  if (block->compare(startHtml, 6, "<html>") != 0) __builtin_trap();
  if (block->compare(endFragment, 11, "<!--EndFrag") != 0) __builtin_trap();
  if (HtmlDocumentOfClipBlock(*block).size() != endHtml - startHtml) __builtin_trap();
  return 0;
}
