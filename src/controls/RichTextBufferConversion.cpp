// RichTextDocument to and from a wxRichTextCtrl buffer: one paragraph
// object for each paragraph and one text or image object for each run, made
// directly rather than inserted piece by piece through the control.
#include <algorithm>

#include <wx/richtext/richtextbuffer.h>

#include "controls/VxRichEdit.h"

namespace {

wxRichTextAttr AttrOf(RichTextFormat const & format) {
  wxRichTextAttr attr;
  attr.SetFontWeight(format.bold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
  attr.SetFontStyle(format.italic ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
  attr.SetFontUnderlined(format.underline);
  attr.SetFontPointSize((format.halfPoints + 1) / 2);
  if (!format.autoColour)
    attr.SetTextColour(
        wxColour(GetRValue(format.colour), GetGValue(format.colour), GetBValue(format.colour)));
  if (!format.face.empty()) attr.SetFontFaceName(wxString(format.face));
  return attr;
}

RichTextFormat FormatOf(wxRichTextAttr const & attr) {
  RichTextFormat format;
  format.bold = attr.HasFontWeight() && attr.GetFontWeight() >= wxFONTWEIGHT_BOLD;
  format.italic = attr.HasFontItalic() && attr.GetFontStyle() == wxFONTSTYLE_ITALIC;
  format.underline = attr.HasFontUnderlined() && attr.GetFontUnderlined();
  if (attr.HasTextColour() && attr.GetTextColour().IsOk()) {
    format.autoColour = false;
    format.colour = static_cast<COLORREF>(attr.GetTextColour().GetRGB());
  }
  if (attr.HasFontPointSize()) format.halfPoints = attr.GetFontSize() * 2;
  if (attr.HasFontFaceName()) format.face = attr.GetFontFaceName().ToStdWstring();
  return format;
}

wxRichTextImage * ImageOf(RichTextRun const & run, wxRichTextParagraph * paragraph,
                          wxRichTextAttr const & attr) {
  wxRichTextImageBlock block;
  auto * data = new unsigned char[run.pictureBytes.size()];
  std::copy(run.pictureBytes.begin(), run.pictureBytes.end(), data);
  block.SetData(data);
  block.SetDataSize(run.pictureBytes.size());
  block.SetImageType(run.picture == RichTextPicture::Png ? wxBITMAP_TYPE_PNG : wxBITMAP_TYPE_JPEG);
  auto * image = new wxRichTextImage(block, paragraph);
  image->SetAttributes(attr);
  return image;
}

}  // namespace

void FillRichTextBuffer(RichTextDocument const & document, wxRichTextParagraphLayoutBox & box) {
  box.DeleteChildren();
  for (RichTextParagraph const & runs : document.paragraphs) {
    auto * paragraph = new wxRichTextParagraph(&box);
    for (RichTextRun const & run : runs) {
      wxRichTextAttr attr = AttrOf(run.format);
      if (run.picture != RichTextPicture::None) {
        paragraph->AppendChild(ImageOf(run, paragraph, attr));
        continue;
      }
      wxString text(run.text);
      text.Replace(wxT("\n"), wxString(wxRichTextLineBreakChar));
      paragraph->AppendChild(new wxRichTextPlainText(text, paragraph, &attr));
    }
    if (runs.empty()) paragraph->AppendChild(new wxRichTextPlainText(wxString(), paragraph));
    box.AppendChild(paragraph);
  }
  box.UpdateRanges();
  box.Invalidate(wxRICHTEXT_ALL);
}

RichTextDocument DocumentFromRichTextBuffer(wxRichTextParagraphLayoutBox const & box) {
  RichTextDocument document;
  document.paragraphs.clear();
  for (wxRichTextObject const * child : box.GetChildren()) {
    auto const * paragraph = wxDynamicCast(child, wxRichTextParagraph);
    if (paragraph == nullptr) continue;
    RichTextParagraph & runs = document.paragraphs.emplace_back();
    for (wxRichTextObject const * object : paragraph->GetChildren()) {
      RichTextRun run;
      // The paragraph's and the run's own attributes, not the control's
      // basic style (its theme colour is no choice of the text's).
      wxRichTextAttr attr = paragraph->GetAttributes();
      attr.Apply(object->GetAttributes());
      run.format = FormatOf(attr);
      if (auto const * text = wxDynamicCast(object, wxRichTextPlainText)) {
        if (text->GetText().empty()) continue;
        run.text = text->GetText().ToStdWstring();
        for (wchar_t & c : run.text)
          if (c == wxRichTextLineBreakChar) c = L'\n';
        if (!runs.empty() && runs.back().picture == RichTextPicture::None &&
            runs.back().format == run.format) {
          runs.back().text += run.text;
          continue;
        }
      } else if (auto * image =
                     wxDynamicCast(const_cast<wxRichTextObject *>(object), wxRichTextImage)) {
        wxRichTextImageBlock const & block = image->GetImageBlock();
        wxBitmapType const type = block.GetImageType();
        if (!block.IsOk() || (type != wxBITMAP_TYPE_PNG && type != wxBITMAP_TYPE_JPEG)) continue;
        run.picture = type == wxBITMAP_TYPE_PNG ? RichTextPicture::Png : RichTextPicture::Jpeg;
        run.pictureBytes.assign(reinterpret_cast<char const *>(block.GetData()),
                                block.GetDataSize());
      } else {
        continue;
      }
      runs.push_back(std::move(run));
    }
  }
  if (document.paragraphs.empty()) document.paragraphs.emplace_back();
  return document;
}
