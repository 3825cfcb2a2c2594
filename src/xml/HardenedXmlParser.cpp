#include "xml/HardenedXmlParser.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>

#include <algorithm>

#include "utl/Exception.h"
#include "utl/XmlText.h"
#include "xml/XercesStart.h"

namespace vx3 {

namespace {

// Thrown from the parser's callbacks to stop the scan at once; Xerces
// unwinds its scanner state with its own guards.
struct ParseRefused {
  ExceptionMessage message;
};

int Line(xercesc::Locator const * locator) {
  return locator == nullptr ? 0 : static_cast<int>(locator->getLineNumber());
}

class RefusingErrorHandler : public xercesc::ErrorHandler {
public:
  explicit RefusingErrorHandler(std::string source) : mSource(std::move(source)) {}

  void warning(xercesc::SAXParseException const &) override {}
  void error(xercesc::SAXParseException const & problem) override { Refuse(problem); }
  void fatalError(xercesc::SAXParseException const & problem) override { Refuse(problem); }
  void resetErrors() override {}

private:
  [[noreturn]] void Refuse(xercesc::SAXParseException const & problem) {
    throw ParseRefused{
        ExceptionMessage::translate("The XML of {1} cannot be read at line {2}, column {3}: {4}") %
        mSource % static_cast<int>(problem.getLineNumber()) %
        static_cast<int>(problem.getColumnNumber()) % XmlToUtf8(problem.getMessage())};
  }

  std::string mSource;
};

// A DOM parser that refuses document types and deep nesting while scanning,
// before anything is expanded or built.
class HardenedDomParser : public xercesc::XercesDOMParser {
public:
  HardenedDomParser(std::string source, int maxDepth,
                    std::vector<std::u16string> const & layoutElements)
      : mSource(std::move(source)), mMaxDepth(maxDepth), mLayoutElements(layoutElements) {}

  void docCharacters(XMLCh const * const chars, XMLSize_t const length,
                     bool const cdataSection) override {
    if (!mLayoutElements.empty() && !cdataSection && IsLayout(chars, length)) return;
    XercesDOMParser::docCharacters(chars, length, cdataSection);
  }

  void doctypeDecl(xercesc::DTDElementDecl const &, XMLCh const * const, XMLCh const * const,
                   bool const, bool const) override {
    throw ParseRefused{ExceptionMessage::translate(
                           "The XML of {1} declares a document type at line {2}. Document types "
                           "are refused: they can declare entities and load other documents.") %
                       mSource % Line(getScanner()->getLocator())};
  }

  void startElement(xercesc::XMLElementDecl const & declaration, unsigned int const urlId,
                    XMLCh const * const prefix,
                    xercesc::RefVectorOf<xercesc::XMLAttr> const & attributes,
                    XMLSize_t const attributeCount, bool const isEmpty,
                    bool const isRoot) override {
    if (++mDepth > mMaxDepth)
      throw ParseRefused{ExceptionMessage::translate(
                             "The XML of {1} nests elements deeper than {2} levels (line {3}).") %
                         mSource % mMaxDepth % Line(getScanner()->getLocator())};
    // An empty element gets its endElement call too, from the base.
    XercesDOMParser::startElement(declaration, urlId, prefix, attributes, attributeCount, isEmpty,
                                  isRoot);
  }

  void endElement(xercesc::XMLElementDecl const & declaration, unsigned int const urlId,
                  bool const isRoot, XMLCh const * const prefix) override {
    --mDepth;
    XercesDOMParser::endElement(declaration, urlId, isRoot, prefix);
  }

private:
  // Whitespace directly in a layout element. Text of any other element is
  // kept whole, even when the scanner hands it over in pieces.
  bool IsLayout(XMLCh const * chars, XMLSize_t length) const {
    for (XMLSize_t i = 0; i < length; ++i)
      if (chars[i] != u' ' && chars[i] != u'\t' && chars[i] != u'\n' && chars[i] != u'\r')
        return false;
    xercesc::DOMNode const * parent = fCurrentParent;
    if (parent == nullptr || parent->getNodeType() != xercesc::DOMNode::ELEMENT_NODE) return false;
    std::u16string_view const name(parent->getNodeName());
    return std::find(mLayoutElements.begin(), mLayoutElements.end(), name) != mLayoutElements.end();
  }

  std::string mSource;
  int mMaxDepth;
  std::vector<std::u16string> const & mLayoutElements;
  int mDepth = 0;
};

}  // namespace

XmlDocumentPtr ParseHardenedXml(std::string_view bytes, std::string const & source,
                                XmlParseLimits const & limits,
                                std::vector<std::u16string> const & layoutElements) {
  if (bytes.size() > limits.maxBytes)
    throw Exception(
        ExceptionMessage::translate("The XML of {1} is larger than {2} MB and is not read.") %
        source % static_cast<int>(limits.maxBytes >> 20));
  StartXerces();

  xercesc::SecurityManager security;
  security.setEntityExpansionLimit(16);
  RefusingErrorHandler errors(source);
  HardenedDomParser parser(source, limits.maxDepth, layoutElements);
  parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
  parser.setDoNamespaces(false);
  parser.setDoSchema(false);
  parser.setLoadSchema(false);
  parser.setLoadExternalDTD(false);
  parser.setSkipDTDValidation(true);
  parser.setDisableDefaultEntityResolution(true);
  parser.setCreateEntityReferenceNodes(false);
  parser.setDoXInclude(false);
  parser.setSecurityManager(&security);
  parser.setErrorHandler(&errors);

  xercesc::MemBufInputSource input(reinterpret_cast<XMLByte const *>(bytes.data()), bytes.size(),
                                   u"input", false);
  try {
    parser.parse(input);
  } catch (ParseRefused const & refused) {
    throw Exception(refused.message);
  } catch (xercesc::OutOfMemoryException const &) {
    throw Exception(ExceptionMessage::translate("The XML of {1} is too large to be read.") %
                    source);
  } catch (xercesc::XMLException const & problem) {
    throw Exception(ExceptionMessage::translate("The XML of {1} cannot be read: {2}") % source %
                    XmlToUtf8(problem.getMessage()));
  } catch (xercesc::DOMException const & problem) {
    throw Exception(ExceptionMessage::translate("The XML of {1} cannot be read: {2}") % source %
                    XmlToUtf8(problem.getMessage()));
  }
  XmlDocumentPtr document(parser.adoptDocument());
  if (!document || document->getDocumentElement() == nullptr)
    throw Exception(ExceptionMessage::translate("The XML of {1} has no root element.") % source);
  return document;
}

}  // namespace vx3
