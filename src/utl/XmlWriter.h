#pragma once
// The escaping of this library's XML writers. Internal to TALVOutl.
//
// Text escapes &, <, > and CR, attribute values also ", tab and line feed,
// so that every storable string round-trips exactly (a raw CR would come
// back as a line feed, a raw tab or line feed in an attribute as a blank).

#include <string>
#include <string_view>

namespace vx3 {

// The escaping above, appended to `out` as UTF-8.
void AppendEscapedXmlText(std::u16string_view text, std::string & out);
void AppendEscapedXmlAttribute(std::u16string_view text, std::string & out);
// The same escaping for text that already is UTF-8 (passed through as is).
void AppendEscapedUtf8(std::string_view text, bool attribute, std::string & out);

}  // namespace vx3
