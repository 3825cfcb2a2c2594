#pragma once
// Rich text as the RTF reader produces it and the writer takes it: the
// paragraphs of a document, each a row of runs of one character format.
// It needs no display, so the reader and writer can be checked and fuzzed
// without one; VxRichEdit converts it to and from its control's buffer.

#include <cstddef>
#include <string>
#include <vector>

#include "platform/WinGdi.h"

struct RichTextFormat {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool autoColour = true;  // the control's text colour; `colour` unused
  COLORREF colour = 0;
  int halfPoints = 24;  // RTF's \fs unit
  std::wstring face;    // empty: the control's own face

  bool operator==(RichTextFormat const & other) const;
  bool operator!=(RichTextFormat const & other) const { return !(*this == other); }
};

enum class RichTextPicture { None, Png, Jpeg };

// Text, or a picture (then `text` is empty). In text, '\n' is a line break
// inside the paragraph and '\t' a tab.
struct RichTextRun {
  RichTextFormat format;
  std::wstring text;
  RichTextPicture picture = RichTextPicture::None;
  std::string pictureBytes;  // the PNG or JPEG file as it came
  int widthTwips = 0;        // the picture's intended size; 0: its own
  int heightTwips = 0;

  bool operator==(RichTextRun const & other) const;
};

using RichTextParagraph = std::vector<RichTextRun>;

struct RichTextDocument {
  // Never empty: an empty document is one empty paragraph.
  std::vector<RichTextParagraph> paragraphs{RichTextParagraph()};

  // Characters as a text control counts them: code points, one for each
  // paragraph break and one for each picture.
  size_t CharacterCount() const;
  // The text alone, paragraphs separated by '\n'.
  std::wstring PlainText() const;
  bool operator==(RichTextDocument const & other) const { return paragraphs == other.paragraphs; }
};

// The most characters a rich edit loads (Read and SetRichEditResource).
constexpr size_t kRichTextCharacterLimit = 1048576;
