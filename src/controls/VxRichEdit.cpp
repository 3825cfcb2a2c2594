#include "controls/VxRichEdit.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include <wx/sizer.h>
#include <wx/stattext.h>

#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"
#include "platform/ResourceModule.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"

namespace {

char16_t const * const kFaces[] = {u"Arial", u"Times New Roman", u"Courier New"};

std::string Utf8Path(wchar_t const * path) { return wxString(path).utf8_string(); }

// Rich text handed over as wide text: 7-bit characters as they are, others
// as \uN? so that the reader sees them whatever the code page.
std::string RtfBytes(wchar_t const * text) {
  std::string bytes;
  for (; *text != 0; ++text) {
    auto const c = static_cast<char32_t>(*text);
    if (c < 0x80) {
      bytes += static_cast<char>(c);
    } else if (c < 0x10000) {
      bytes += "\\u" +
               std::to_string(c >= 0x8000 ? static_cast<int>(c) - 0x10000 : static_cast<int>(c)) +
               '?';
    } else {
      char32_t const v = c - 0x10000;
      bytes += "\\u" + std::to_string(static_cast<int>(0xD800 + (v >> 10)) - 0x10000) + '?';
      bytes += "\\u" + std::to_string(static_cast<int>(0xDC00 + (v & 0x3FF)) - 0x10000) + '?';
    }
  }
  return bytes;
}

RichTextDocument PlainDocument(wchar_t const * text, RichTextFormat const & format) {
  RichTextDocument document;
  RichTextRun run;
  run.format = format;
  auto flush = [&] {
    if (!run.text.empty()) document.paragraphs.back().push_back(run);
    run.text.clear();
  };
  for (; *text != 0; ++text) {
    if (*text == L'\r') continue;
    if (*text == L'\n') {
      flush();
      document.paragraphs.emplace_back();
    } else {
      run.text += *text;
    }
  }
  flush();
  return document;
}

}  // namespace

VxRichEdit::VxRichEdit(wxWindow * parent, wxWindowID id, wxPoint const & position,
                       wxSize const & size, long style)
    : wxRichTextCtrl(parent, id, wxString(), position, size, style) {}

VxRichEdit::~VxRichEdit() = default;

int VxRichEdit::CreateFromStatic(unsigned int id, wxWindow * parent) {
  wxWindow * const found = parent != nullptr ? parent->FindWindow(static_cast<int>(id)) : nullptr;
  auto * const label = dynamic_cast<wxStaticText *>(found);
  if (label == nullptr) return 0;
  wxRect const rect = label->GetRect();
  if (!Create(parent, static_cast<int>(id), wxString(), rect.GetPosition(), rect.GetSize(),
              wxRE_MULTILINE | wxRE_READONLY | wxVSCROLL))
    return 0;
  if (wxSizer * const sizer = label->GetContainingSizer()) sizer->Replace(label, this);
  label->Destroy();
  return 1;
}

void VxRichEdit::SetRichEditResource(unsigned int id, unsigned int type) {
  std::string const bytes = LoadResourceBytes(AfxGetResourceHandle(), id, type);
  if (bytes.empty()) return;
  RtfReadResult read = ReadRtf(bytes, kRichTextCharacterLimit, CurrentFormat());
  mReadFailure = read.failure;
  SetDocument(read.document);
}

void VxRichEdit::InsertText(wchar_t const * text, TextFormat format) {
  if (text == nullptr) return;
  RichTextDocument document;
  switch (format) {
    case RichText:
      document = ReadRtf(RtfBytes(text), kRichTextCharacterLimit, CurrentFormat()).document;
      break;
    case PlainText:
    case UnicodeText: document = PlainDocument(text, CurrentFormat()); break;
    default: return;
  }
  if (HasSelection()) DeleteSelectedContent();
  long const position = GetInsertionPoint();
  wxRichTextParagraphLayoutBox fragment;
  FillRichTextBuffer(document, fragment);
  fragment.SetPartialParagraph(true);
  GetFocusObject()->InsertParagraphsWithUndo(&GetBuffer(), position, fragment, this, 0);
  SetInsertionPoint(position + static_cast<long>(document.CharacterCount()));
}

void VxRichEdit::Read(std::istream & in) {
  std::string const bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  ReadBytes(bytes);
}

bool VxRichEdit::Read(wchar_t const * path) {
  std::ifstream in(Utf8Path(path), std::ios::binary);
  if (!in) return false;
  Read(in);
  return !in.bad() && mReadFailure.Id().empty();
}

void VxRichEdit::ReadBytes(std::string const & rtf) {
  RtfReadResult read = ReadRtf(rtf);
  mReadFailure = read.failure;
  SetDocument(read.document);
}

void VxRichEdit::Save(std::ostream & out) { out << WriteRtf(GetDocument()); }

bool VxRichEdit::Save(wchar_t const * path) {
  try {
    vx3::WriteFileAtomically(Utf8Path(path), WriteRtf(GetDocument()));
    return true;
  } catch (Exception const &) {
    return false;
  }
}

RichTextDocument VxRichEdit::GetDocument() const {
  return DocumentFromRichTextBuffer(const_cast<VxRichEdit *>(this)->GetBuffer());
}

void VxRichEdit::SetDocument(RichTextDocument const & document) {
  GetBuffer().ResetAndClearCommands();
  FillRichTextBuffer(document, GetBuffer());
  // What loading a file does after the buffer is filled.
  DiscardEdits();
  SetInsertionPoint(0);
  LayoutContent();
  PositionCaret();
  SetupScrollbars(true);
  Refresh(false);
}

_charformatw * VxRichEdit::GetCurrentCharFormat() {
  if (mCharFormat) return mCharFormat.get();
  mCharFormat = std::make_unique<CHARFORMAT2W>();
  std::memset(mCharFormat.get(), 0, sizeof(CHARFORMAT2W));
  CHARFORMAT2W & format = *mCharFormat;
  format.cbSize = sizeof(CHARFORMAT2W);
  format.dwMask = CFM_ALL;
  // The format at the start of the selection.
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  wxRichTextAttr attr;
  GetStyle(from, attr);
  if (attr.HasFontWeight() && attr.GetFontWeight() >= wxFONTWEIGHT_BOLD)
    format.dwEffects |= CFE_BOLD;
  if (attr.HasFontItalic() && attr.GetFontStyle() == wxFONTSTYLE_ITALIC)
    format.dwEffects |= CFE_ITALIC;
  if (attr.HasFontUnderlined() && attr.GetFontUnderlined()) format.dwEffects |= CFE_UNDERLINE;
  if (attr.HasTextColour() && attr.GetTextColour().IsOk())
    format.crTextColor = static_cast<COLORREF>(attr.GetTextColour().GetRGB());
  else
    format.dwEffects |= CFE_AUTOCOLOR;
  format.yHeight = (attr.HasFontPointSize() ? attr.GetFontSize() : 12) * 20;
  std::wstring const face =
      attr.HasFontFaceName() ? attr.GetFontFaceName().ToStdWstring() : std::wstring();
  for (size_t i = 0; i < face.size() && i + 1 < LF_FACESIZE; ++i)
    format.szFaceName[i] = static_cast<char16_t>(face[i]);
  return mCharFormat.get();
}

void VxRichEdit::SetBold(bool bold) {
  CHARFORMAT2W & format = *GetCurrentCharFormat();
  format.dwEffects = bold ? format.dwEffects | CFE_BOLD : format.dwEffects & ~CFE_BOLD;
  format.dwMask |= CFM_BOLD;
}

void VxRichEdit::SetUnderline(bool underline) {
  CHARFORMAT2W & format = *GetCurrentCharFormat();
  format.dwEffects =
      underline ? format.dwEffects | CFE_UNDERLINE : format.dwEffects & ~CFE_UNDERLINE;
  format.dwMask |= CFM_UNDERLINE;
}

void VxRichEdit::SetTextColor(COLORREF colour) {
  CHARFORMAT2W & format = *GetCurrentCharFormat();
  format.crTextColor = colour;
  format.dwMask |= CFM_COLOR;
  format.dwEffects &= ~CFE_AUTOCOLOR;
}

void VxRichEdit::SetFontSize(int points) {
  CHARFORMAT2W & format = *GetCurrentCharFormat();
  format.yHeight = points * 20;
  format.dwMask |= CFM_SIZE;
}

void VxRichEdit::SetFont(Font font) {
  CHARFORMAT2W & format = *GetCurrentCharFormat();
  if (font < Arial || font > CourierNew) return;
  std::u16string const face(kFaces[font]);
  std::memset(format.szFaceName, 0, sizeof format.szFaceName);
  std::memcpy(format.szFaceName, face.data(), face.size() * sizeof(char16_t));
  format.dwMask |= CFM_FACE;
}

// The current character format as the reader's and inserter's start.
RichTextFormat VxRichEdit::CurrentFormat() const {
  RichTextFormat result;
  if (!mCharFormat) return result;
  CHARFORMAT2W const & format = *mCharFormat;
  if ((format.dwMask & CFM_BOLD) != 0) result.bold = (format.dwEffects & CFE_BOLD) != 0;
  if ((format.dwMask & CFM_ITALIC) != 0) result.italic = (format.dwEffects & CFE_ITALIC) != 0;
  if ((format.dwMask & CFM_UNDERLINE) != 0)
    result.underline = (format.dwEffects & CFE_UNDERLINE) != 0;
  if ((format.dwMask & CFM_COLOR) != 0 && (format.dwEffects & CFE_AUTOCOLOR) == 0) {
    result.autoColour = false;
    result.colour = format.crTextColor;
  }
  if ((format.dwMask & CFM_SIZE) != 0 && format.yHeight > 0)
    result.halfPoints = format.yHeight / 10;
  if ((format.dwMask & CFM_FACE) != 0) {
    for (char16_t c : format.szFaceName) {
      if (c == 0) break;
      result.face += static_cast<wchar_t>(c);  // face names lie in the BMP
    }
  }
  return result;
}
