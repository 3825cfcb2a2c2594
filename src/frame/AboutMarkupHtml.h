#pragma once
// Turns about markup (AboutMarkupReader.h) into the HTML that wxHtmlWindow
// lays out: mixed fonts within a wrapped paragraph with links need a
// rich-text layout, and wxHtmlWindow does that in-process in milliseconds.
//
// Every text and attribute value is escaped, so nothing in the markup can
// open an element, a script or a style of its own. Links keep their
// target as written (the click decides what may open); a picture appears
// only through `resolvePicture`, which maps an Image's Source to the
// address of a picture it has put in place (or to nothing, and the picture
// is left out), so the page never reads a file or the network.

#include <functional>
#include <string>

#include "frame/AboutMarkupReader.h"

using AboutPictureResolver = std::function<std::string(std::string const & source)>;

// A complete page (UTF-8).
std::string RenderAboutMarkupHtml(AboutMarkup const & markup,
                                  AboutPictureResolver const & resolvePicture);

// `text` with & < > " ' written as character references.
std::string EscapeAboutHtml(std::string const & text);
