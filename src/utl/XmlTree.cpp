#include "utl/XmlTree.h"

#include "utl/Exception.h"
#include "utl/XmlModule.h"

namespace vx3 {

bool XmlNode::Attribute(std::string_view attributeName, std::string & attributeValue) const {
  for (auto const & [key, text] : attributes) {
    if (key == attributeName) {
      attributeValue = text;
      return true;
    }
  }
  return false;
}

std::string XmlNode::Text() const {
  std::string text;
  for (XmlNode const & child : children)
    if (child.kind == Kind::Text || child.kind == Kind::CData) text += child.value;
  return text;
}

std::string XmlNode::TextContent() const {
  std::string text;
  for (XmlNode const & child : children) {
    if (child.kind == Kind::Text || child.kind == Kind::CData) text += child.value;
    if (child.kind == Kind::Element) text += child.TextContent();
  }
  return text;
}

XmlNode const & XmlTree::Root() const {
  for (XmlNode const & child : children)
    if (child.kind == XmlNode::Kind::Element) return child;
  throw Exception(ExceptionMessage::translate("The XML document has no root element."));
}

XmlTree ParseXmlTree(std::string_view bytes, std::string const & source,
                     XmlParseLimits const & limits) {
  return GetXmlModule().ParseTree(bytes, source, limits);
}

}  // namespace vx3
