#pragma once
// Writes a DOM document as UTF-8 XML text. Internal to the XML module.
//
// Why not Xerces' DOMLSSerializer: it writes a carriage return in text as a
// raw byte, which every parser turns into a line feed on reading, so a value
// would not come back as it was stored. Here text is escaped as XmlWriter.h
// says, so that every storable string round-trips exactly. Elements that
// hold other elements and no text but whitespace are indented two blanks a
// level (the whitespace is replaced by the indentation); everything else is
// written as it stands, so writing what was read and reading it again
// changes nothing. An attribute called "name" is written first, the others
// in the DOM's order.

#include <xercesc/dom/DOMDocument.hpp>

#include <string>

namespace vx3 {

std::string SerializeXml(xercesc::DOMDocument const & document);

}  // namespace vx3
