#pragma once
// Text between this library's UTF-8 strings and Xerces-C's UTF-16 (XMLCh).
// Invalid UTF-8 is skipped, as everywhere in the family; unpaired surrogates
// coming from a DOM are skipped the same way.

#include <string>
#include <string_view>

namespace vx3 {

std::u16string Utf8ToXml(std::string_view text);
std::string XmlToUtf8(char16_t const * text);
std::string XmlToUtf8(std::u16string_view text);
// Appends the UTF-8 form of `text` to `out` (no temporary string).
void AppendXmlAsUtf8(std::u16string_view text, std::string & out);

// Whether every character of `text` may stand in an XML 1.0 document: no
// C0 control but tab, line feed and carriage return, no U+FFFE or U+FFFF.
// Text that fails this cannot be stored in an XML file at all.
bool IsXmlStorable(std::u16string_view text);

}  // namespace vx3
