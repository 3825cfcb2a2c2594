#pragma once
// The one way this library reads XML that may come from elsewhere (settings
// copied between machines, imported favourites, audit trails handed round),
// into a Xerces-C DOM. Internal to the XML module; what it refuses is
// described in utl/XmlTree.h. Entity expansion is capped at zero by the
// refused document type; the parser's own expansion limit stays set low
// behind it. The DOM is walked recursively, hence the nesting limit.

#include <xercesc/dom/DOMDocument.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "utl/XmlTree.h"

namespace vx3 {

struct XmlDocumentRelease {
  void operator()(xercesc::DOMDocument * document) const { document->release(); }
};
using XmlDocumentPtr = std::unique_ptr<xercesc::DOMDocument, XmlDocumentRelease>;

// Parses `bytes`. `source` names the input in messages: a file path, or a
// description such as "(settings text)". Whitespace-only text directly in
// an element named in `layoutElements` is not built: there it is only the
// layout between child elements (settings sections hold no text), and in a
// large file it would be about a quarter of the nodes.
XmlDocumentPtr ParseHardenedXml(std::string_view bytes, std::string const & source,
                                XmlParseLimits const & limits,
                                std::vector<std::u16string> const & layoutElements = {});

}  // namespace vx3
