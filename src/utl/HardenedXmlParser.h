#pragma once
// The one way this library reads XML that may come from elsewhere (settings
// copied between machines, imported favourites, audit trails handed round).
// Internal to TALVOutl: the public headers do not expose Xerces-C.
//
// Refused, each with an Exception that names the source and the line:
//  - any document type declaration. A settings file or trail never needs
//    one, and refusing it removes every entity attack at its root: no DTD is
//    loaded, no external entity can be named, no internal entity can be
//    declared, so nothing can be expanded (entity expansion is capped at
//    zero; the parser's own expansion limit stays set low behind it);
//  - element nesting deeper than the limit (the DOM is walked recursively);
//  - input larger than the limit (checked before a byte is parsed);
//  - anything that is not well-formed XML.

#include <xercesc/dom/DOMDocument.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace vx3 {

struct XmlParseLimits {
  size_t maxBytes = size_t(64) << 20;
  int maxDepth = 128;
};

struct XmlDocumentRelease {
  void operator()(xercesc::DOMDocument * document) const { document->release(); }
};
using XmlDocumentPtr = std::unique_ptr<xercesc::DOMDocument, XmlDocumentRelease>;

// Parses `bytes`. `source` names the input in messages: a file path, or a
// description such as "(settings text)".
XmlDocumentPtr ParseHardenedXml(std::string_view bytes, std::string const & source,
                                XmlParseLimits const & limits);

// Reads a whole regular file of at most `maxBytes`. False when nothing
// stands at `path`; throws Exception naming the file for every other failure
// (a folder or device, too large, unreadable).
bool ReadWholeFile(std::string const & path, size_t maxBytes, std::string & bytes);

}  // namespace vx3
