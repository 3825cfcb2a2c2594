#pragma once
// Writes a RichTextDocument as rich text (RTF) that RtfReader and other
// readers take: a font table of the faces used (the first one the default),
// a colour table (entry 0 the automatic colour), character formatting as
// changes between runs, text beyond ASCII as \uN? in UTF-16 units, and
// pictures as hex \pict groups.

#include <string>

#include "controls/RichTextDocument.h"

std::string WriteRtf(RichTextDocument const & document);
