#pragma once
// A parsed XML document as plain values, for readers that walk a small
// document once (audit trails, the appconfig.xml of a customization
// package). Parsing is hardened for files from elsewhere:
//  - any document type declaration is refused. A settings file or trail
//    never needs one, and refusing it removes every entity attack at its
//    root: no DTD is loaded, no external entity can be named, no internal
//    entity can be declared, so nothing can be expanded;
//  - element nesting deeper than the limit is refused;
//  - input larger than the limit is refused before a byte is parsed;
//  - anything that is not well-formed XML is refused.
// Each refusal is an Exception that names the source and the line.
//
// The parser lives in the XML module (XmlModule.h); ParseXmlTree loads it
// on first use and throws Exception when it cannot be loaded.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vx3 {

struct XmlParseLimits {
  size_t maxBytes = size_t(64) << 20;
  int maxDepth = 128;
};

struct XmlNode {
  enum class Kind { Element, Text, CData, Comment, ProcessingInstruction, Other };

  Kind kind = Kind::Element;
  // The tag of an element, the target of a processing instruction.
  std::string name;
  // The text of a text, CDATA or comment node, the data of a processing
  // instruction (UTF-8).
  std::string value;
  // An element's attributes in document order.
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<XmlNode> children;

  // The attribute's value; false when the element has no such attribute.
  bool Attribute(std::string_view attributeName, std::string & attributeValue) const;
  // The text and CDATA children joined.
  std::string Text() const;
  // The text and CDATA of every node below, in document order (the DOM's
  // text content).
  std::string TextContent() const;
};

// The document node: its children are the processing instructions and
// comments around the root element and the root element itself.
struct XmlTree {
  std::vector<XmlNode> children;

  // The root element (a parsed tree always has one).
  XmlNode const & Root() const;
};

// Parses `bytes`. `source` names the input in messages: a file path, or a
// description such as "(settings text)".
XmlTree ParseXmlTree(std::string_view bytes, std::string const & source,
                     XmlParseLimits const & limits);

}  // namespace vx3
