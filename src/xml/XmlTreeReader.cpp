#include "xml/XmlTreeReader.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/dom/DOMNode.hpp>

#include "utl/XmlText.h"

namespace vx3 {

namespace {

using xercesc::DOMNode;

XmlNode::Kind KindOf(DOMNode const & node) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE: return XmlNode::Kind::Element;
    case DOMNode::TEXT_NODE: return XmlNode::Kind::Text;
    case DOMNode::CDATA_SECTION_NODE: return XmlNode::Kind::CData;
    case DOMNode::COMMENT_NODE: return XmlNode::Kind::Comment;
    case DOMNode::PROCESSING_INSTRUCTION_NODE: return XmlNode::Kind::ProcessingInstruction;
    default: return XmlNode::Kind::Other;
  }
}

std::string Utf8(XMLCh const * text) { return text == nullptr ? std::string() : XmlToUtf8(text); }

// Recursion is bounded: the parser refused documents nested deeper than
// its limit.
XmlNode ToNode(DOMNode const & node) {
  XmlNode result;
  result.kind = KindOf(node);
  switch (result.kind) {
    case XmlNode::Kind::Element: {
      result.name = Utf8(node.getNodeName());
      xercesc::DOMNamedNodeMap const * attributes = node.getAttributes();
      XMLSize_t const count = attributes != nullptr ? attributes->getLength() : 0;
      result.attributes.reserve(count);
      for (XMLSize_t i = 0; i < count; ++i) {
        DOMNode const * attribute = attributes->item(i);
        result.attributes.emplace_back(Utf8(attribute->getNodeName()),
                                       Utf8(attribute->getNodeValue()));
      }
      for (DOMNode const * child = node.getFirstChild(); child != nullptr;
           child = child->getNextSibling())
        result.children.push_back(ToNode(*child));
      break;
    }
    case XmlNode::Kind::ProcessingInstruction:
      result.name = Utf8(node.getNodeName());
      result.value = Utf8(node.getNodeValue());
      break;
    case XmlNode::Kind::Other: result.name = Utf8(node.getNodeName()); break;
    default: result.value = Utf8(node.getNodeValue());
  }
  return result;
}

}  // namespace

XmlTree ToXmlTree(xercesc::DOMDocument const & document) {
  XmlTree tree;
  for (DOMNode const * child = document.getFirstChild(); child != nullptr;
       child = child->getNextSibling())
    tree.children.push_back(ToNode(*child));
  return tree;
}

}  // namespace vx3
