#pragma once
// The DOM of a parsed document turned into plain values (utl/XmlTree.h).
// Internal to the XML module.

#include <xercesc/dom/DOMDocument.hpp>

#include "utl/XmlTree.h"

namespace vx3 {

XmlTree ToXmlTree(xercesc::DOMDocument const & document);

}  // namespace vx3
