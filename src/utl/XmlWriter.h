#pragma once
// Writes a DOM document as UTF-8 XML text. Internal to TALVOutl.
//
// Why not Xerces' DOMLSSerializer: it writes a carriage return in text as a
// raw byte, which every parser turns into a line feed on reading, so a value
// would not come back as it was stored. Here text escapes &, <, > and CR,
// attribute values also ", tab and line feed, so that every storable string
// round-trips exactly. Elements that hold other elements and no text but
// whitespace are indented two blanks a level (the whitespace is replaced by
// the indentation); everything else is written as it stands, so writing what
// was read and reading it again changes nothing. An attribute
// called "name" is written first, the others in the DOM's order.

#include <xercesc/dom/DOMDocument.hpp>

#include <string>
#include <string_view>

namespace vx3 {

std::string SerializeXml(xercesc::DOMDocument const & document);

// The escaping above, appended to `out` as UTF-8.
void AppendEscapedXmlText(std::u16string_view text, std::string & out);
void AppendEscapedXmlAttribute(std::u16string_view text, std::string & out);
// The same escaping for text that already is UTF-8 (passed through as is).
void AppendEscapedUtf8(std::string_view text, bool attribute, std::string & out);

}  // namespace vx3
