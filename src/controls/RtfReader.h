#pragma once
// Reads rich text (RTF) into a RichTextDocument.
//
// Understood: groups and "\*" destinations (unknown ones are skipped), the
// font table with each font's \fcharset, the colour table, \ansicpg, bold,
// italic, underline, \cf, \f, \fs, \plain, \par, \line, \tab, \uN with \ucN
// (negative N and surrogate pairs), \'hh in the current font's code page
// (else the document's \ansicpg), \binN, and PNG and JPEG pictures.
//
// Damaged input never throws: the result holds what was read up to the
// fault and a message saying what is wrong (unbalanced or too deeply nested
// groups, a number or \bin beyond bounds, bad hex digits, a font or colour
// missing from its table, a NUL byte, text beyond the character limit).

#include <cstddef>
#include <string_view>

#include "controls/RichTextDocument.h"
#include "utl/ExceptionMessage.h"

struct RtfReadResult {
  RichTextDocument document;
  // Empty id: the whole input was read.
  ExceptionMessage failure;

  bool Complete() const { return failure.Id().empty(); }
};

// `start` is the format of text before any formatting word (the control's
// current character format when inserting).
RtfReadResult ReadRtf(std::string_view rtf, size_t characterLimit = kRichTextCharacterLimit,
                      RichTextFormat const & start = RichTextFormat());

// Groups may nest this deep; deeper input is refused.
constexpr int kRtfMaxGroupDepth = 1000;
