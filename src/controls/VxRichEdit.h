#pragma once
// A rich text box that shows, inserts, loads and saves rich text (RTF) with
// the library's own reader and writer. Loading stops at 1,048,576
// characters. Faces are asked for by their Windows names ("Arial", "Times
// New Roman", "Courier New"), which stay in the data; fontconfig picks the
// installed substitute for display.

#include <iosfwd>
#include <memory>

#include <wx/richtext/richtextctrl.h>

#include "controls/RichTextDocument.h"
#include "platform/CharFormat.h"
#include "utl/ExceptionMessage.h"

class CDC;

class VxRichEdit : public wxRichTextCtrl {
public:
  enum TextFormat { RichText = 0, PlainText = 1, UnicodeText = 2 };
  enum Font { Arial = 0, TimesNewRoman = 1, CourierNew = 2 };

  VxRichEdit() = default;
  VxRichEdit(wxWindow * parent, wxWindowID id, wxPoint const & position = wxDefaultPosition,
             wxSize const & size = wxDefaultSize, long style = wxRE_MULTILINE);
  ~VxRichEdit() override;

  // Replaces the static control `id` on `parent` by a read-only rich edit
  // with the same id and rectangle. 0 when there is no such control.
  int CreateFromStatic(unsigned int id, wxWindow * parent);

  // Replaces the whole text by rich text resource `id` of `type` of the
  // current resource module; nothing happens when it has none.
  virtual void SetRichEditResource(unsigned int id, unsigned int type = 23);
  // At the selection, in the current character format: RTF, or plain text
  // (both plain formats). Other format values insert nothing.
  void InsertText(wchar_t const * text, TextFormat format);

  // Replace the whole text by rich text. What could be read stays even when
  // the input is damaged; ReadFailure() then says why.
  void Read(std::istream & in);
  // False when the file cannot be opened or read or its rich text is
  // damaged.
  bool Read(wchar_t const * path);
  void Save(std::ostream & out);
  // False when the file cannot be written.
  bool Save(wchar_t const * path);
  // Empty id after a complete read.
  ExceptionMessage const & ReadFailure() const { return mReadFailure; }

  // Change the current character format, used by the next insert.
  void SetBold(bool bold);
  void SetUnderline(bool underline);
  void SetTextColor(COLORREF colour);
  void SetFontSize(int points);
  void SetFont(Font font);
  using wxRichTextCtrl::SetFont;
  _charformatw * GetCurrentCharFormat();

  // Prints the whole text on `dc` (controls/VxRichEditPrint.cpp): pages of
  // the device with margins of 850 twips, the text at the size it has on
  // the screen, each page under the print header and over the footer.
  void Print(CDC & dc);
  void SetPrintHeader(wxString const & header) { mPrintHeader = header; }
  void SetPrintFootter(wxString const & footer) { mPrintFooter = footer; }

  // The whole text as a document, and a document as the whole text.
  RichTextDocument GetDocument() const;
  void SetDocument(RichTextDocument const & document);

private:
  void ReadBytes(std::string const & rtf);
  RichTextFormat CurrentFormat() const;

  std::unique_ptr<CHARFORMAT2W> mCharFormat;
  ExceptionMessage mReadFailure;
  wxString mPrintHeader;
  wxString mPrintFooter;
};

// The buffer conversions VxRichEdit uses (for tests and benchmarks).
void FillRichTextBuffer(RichTextDocument const & document, wxRichTextParagraphLayoutBox & box);
RichTextDocument DocumentFromRichTextBuffer(wxRichTextParagraphLayoutBox const & box);
