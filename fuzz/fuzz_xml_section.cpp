// Settings text from anywhere: refused with an Exception or read; what is
// read writes out as text that reads back to the very same text, and copies
// into another section without failing.
#include <cstdint>
#include <memory>
#include <string>

#include "utl/Exception.h"
#include "utl/XercesXMLSection.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  // The section takes a NUL-terminated text.
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::unique_ptr<XercesXMLSection> section;
  try {
    section.reset(XercesXMLSection::CreateXMLSectionFromString(input.c_str()));
  } catch (Exception const &) {
    return 0;
  }
  std::string const written = section->ToXmlString();
  std::unique_ptr<XercesXMLSection> again;
  try {
    again.reset(XercesXMLSection::CreateXMLSectionFromString(written.c_str()));
  } catch (Exception const &) {
    __builtin_trap();  // the writer produced something its reader refuses
  }
  if (again->ToXmlString() != written) __builtin_trap();
  XercesXMLSection copy;
  if (!section->WriteToSection(&copy)) __builtin_trap();
  return 0;
}
