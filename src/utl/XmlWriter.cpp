#include "utl/XmlWriter.h"

#include "utl/XmlText.h"

namespace vx3 {

namespace {

// Appends `text`, replacing the characters that `escape` names by
// references; runs between them are converted in one go.
template <typename Escape>
void AppendEscaped(std::u16string_view text, std::string & out, Escape escape) {
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    char const * reference = escape(text[i]);
    if (reference == nullptr) continue;
    AppendXmlAsUtf8(text.substr(start, i - start), out);
    out += reference;
    start = i + 1;
  }
  AppendXmlAsUtf8(text.substr(start), out);
}

char const * TextReference(char16_t c) {
  switch (c) {
    case u'&': return "&amp;";
    case u'<': return "&lt;";
    case u'>': return "&gt;";
    case u'\r': return "&#13;";
    default: return nullptr;
  }
}

char const * AttributeReference(char16_t c) {
  switch (c) {
    case u'"': return "&quot;";
    case u'\t': return "&#9;";
    case u'\n': return "&#10;";
    default: return TextReference(c);
  }
}

}  // namespace

void AppendEscapedXmlText(std::u16string_view text, std::string & out) {
  AppendEscaped(text, out, TextReference);
}

void AppendEscapedXmlAttribute(std::u16string_view text, std::string & out) {
  AppendEscaped(text, out, AttributeReference);
}

void AppendEscapedUtf8(std::string_view text, bool attribute, std::string & out) {
  // UTF-8 never has these ASCII bytes inside a multi-byte sequence.
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    auto const c = static_cast<char16_t>(static_cast<unsigned char>(text[i]));
    char const * reference = attribute ? AttributeReference(c) : TextReference(c);
    if (reference == nullptr) continue;
    out.append(text, start, i - start);
    out += reference;
    start = i + 1;
  }
  out.append(text, start, std::string_view::npos);
}

}  // namespace vx3
