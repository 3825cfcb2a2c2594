#include "xml/XmlDomWriter.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMProcessingInstruction.hpp>

#include "utl/XmlText.h"
#include "utl/XmlWriter.h"

namespace vx3 {

namespace {

using xercesc::DOMNode;

std::u16string_view View(XMLCh const * text) {
  return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

bool IsWhitespace(std::u16string_view text) {
  for (char16_t const c : text)
    if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r') return false;
  return true;
}

bool IsText(DOMNode const & node) {
  return node.getNodeType() == DOMNode::TEXT_NODE ||
         node.getNodeType() == DOMNode::CDATA_SECTION_NODE;
}

void Indent(int depth, std::string & out) {
  out += '\n';
  out.append(static_cast<size_t>(depth) * 2, ' ');
}

void WriteNode(DOMNode const & node, int depth, std::string & out);

void WriteElement(xercesc::DOMElement const & element, int depth, std::string & out) {
  std::u16string_view const name = View(element.getTagName());
  out += '<';
  AppendXmlAsUtf8(name, out);
  if (xercesc::DOMNamedNodeMap const * attributes = element.getAttributes()) {
    auto const write = [&](DOMNode const * attribute) {
      out += ' ';
      AppendXmlAsUtf8(View(attribute->getNodeName()), out);
      out += "=\"";
      AppendEscapedXmlAttribute(View(attribute->getNodeValue()), out);
      out += '"';
    };
    // The DOM keeps attributes sorted; a "name" goes first, where a reader
    // looks for it.
    DOMNode const * name = attributes->getNamedItem(u"name");
    if (name != nullptr) write(name);
    XMLSize_t const count = attributes->getLength();
    for (XMLSize_t i = 0; i < count; ++i)
      if (attributes->item(i) != name) write(attributes->item(i));
  }
  DOMNode const * first = element.getFirstChild();
  if (first == nullptr) {
    out += "/>";
    return;
  }
  out += '>';
  // Indented: elements with element children and no other text than
  // whitespace, which the indentation replaces. Anything else is mixed
  // content or plain text and is written exactly.
  bool hasElements = false;
  bool hasText = false;
  for (DOMNode const * child = first; child != nullptr; child = child->getNextSibling()) {
    hasElements = hasElements || child->getNodeType() == DOMNode::ELEMENT_NODE;
    hasText = hasText || (IsText(*child) && !IsWhitespace(View(child->getNodeValue())));
  }
  if (hasElements && !hasText) {
    for (DOMNode const * child = first; child != nullptr; child = child->getNextSibling()) {
      if (IsText(*child)) continue;
      Indent(depth + 1, out);
      WriteNode(*child, depth + 1, out);
    }
    Indent(depth, out);
  } else {
    for (DOMNode const * child = first; child != nullptr; child = child->getNextSibling())
      WriteNode(*child, depth + 1, out);
  }
  out += "</";
  AppendXmlAsUtf8(name, out);
  out += '>';
}

void WriteNode(DOMNode const & node, int depth, std::string & out) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE:
      WriteElement(static_cast<xercesc::DOMElement const &>(node), depth, out);
      break;
    case DOMNode::TEXT_NODE:
    case DOMNode::CDATA_SECTION_NODE: AppendEscapedXmlText(View(node.getNodeValue()), out); break;
    case DOMNode::COMMENT_NODE:
      out += "<!--";
      AppendXmlAsUtf8(View(node.getNodeValue()), out);
      out += "-->";
      break;
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
      out += "<?";
      AppendXmlAsUtf8(View(node.getNodeName()), out);
      if (!View(node.getNodeValue()).empty()) {
        out += ' ';
        AppendXmlAsUtf8(View(node.getNodeValue()), out);
      }
      out += "?>";
      break;
    default:
      // Entity references are not created and document types are refused on
      // reading; nothing else can stand in a document this library writes.
      break;
  }
}

}  // namespace

std::string SerializeXml(xercesc::DOMDocument const & document) {
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  for (DOMNode const * child = document.getFirstChild(); child != nullptr;
       child = child->getNextSibling()) {
    if (child->getNodeType() == DOMNode::TEXT_NODE) continue;
    WriteNode(*child, 0, out);
    out += '\n';
  }
  return out;
}

}  // namespace vx3
