#include "controls/RichTextDocument.h"

bool RichTextFormat::operator==(RichTextFormat const & other) const {
  return bold == other.bold && italic == other.italic && underline == other.underline &&
         autoColour == other.autoColour && (autoColour || colour == other.colour) &&
         halfPoints == other.halfPoints && face == other.face;
}

bool RichTextRun::operator==(RichTextRun const & other) const {
  return format == other.format && text == other.text && picture == other.picture &&
         pictureBytes == other.pictureBytes && widthTwips == other.widthTwips &&
         heightTwips == other.heightTwips;
}

size_t RichTextDocument::CharacterCount() const {
  size_t count = paragraphs.size() - 1;
  for (auto const & paragraph : paragraphs)
    for (auto const & run : paragraph)
      count += run.picture != RichTextPicture::None ? 1 : run.text.size();
  return count;
}

std::wstring RichTextDocument::PlainText() const {
  std::wstring text;
  for (size_t p = 0; p < paragraphs.size(); ++p) {
    if (p > 0) text += L'\n';
    for (auto const & run : paragraphs[p]) text += run.text;
  }
  return text;
}
