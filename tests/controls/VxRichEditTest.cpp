// The rich edit on a real control: loading and saving through files and
// streams, inserting in the current character format, the format block's
// bits, and replacing a static control.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "controls/RtfReader.h"
#include "controls/VxRichEdit.h"

namespace {

std::string const kSample =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil Courier New;}}"
    "{\\colortbl ;\\red0\\green128\\blue0;}"
    "\\fs20 Plain {\\b bold} {\\ul under} {\\cf1 green} {\\f1 mono} \\u8364?\\par second}";

struct Window {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Rich edit");
  VxRichEdit * edit = new VxRichEdit(frame, 300);
  ~Window() { frame->Destroy(); }
};

std::string TempPath(char const * name) {
  char const * dir = std::getenv("TMPDIR");
  return std::string(dir != nullptr ? dir : "/tmp") + "/" + name;
}

TEST(VxRichEdit, WhatIsSavedLoadsBackWithItsFormats) {
  Window window;
  std::istringstream in(kSample);
  window.edit->Read(in);
  EXPECT_TRUE(window.edit->ReadFailure().Id().empty());
  EXPECT_EQ(window.edit->GetValue(), wxString(L"Plain bold under green mono \u20ac\nsecond"));

  std::string const path = TempPath("saved.rtf");
  std::wstring const wide = wxString::FromUTF8(path).ToStdWstring();
  ASSERT_TRUE(window.edit->Save(wide.c_str()));
  Window other;
  ASSERT_TRUE(other.edit->Read(wide.c_str()));
  RichTextDocument const document = other.edit->GetDocument();
  EXPECT_EQ(document, window.edit->GetDocument());
  RichTextDocument const expected = ReadRtf(kSample).document;
  ASSERT_EQ(document.paragraphs.size(), expected.paragraphs.size());
  for (size_t p = 0; p < expected.paragraphs.size(); ++p) {
    ASSERT_EQ(document.paragraphs[p].size(), expected.paragraphs[p].size()) << p;
    for (size_t r = 0; r < expected.paragraphs[p].size(); ++r) {
      RichTextRun const & run = document.paragraphs[p][r];
      EXPECT_EQ(run.text, expected.paragraphs[p][r].text);
      EXPECT_TRUE(run.format == expected.paragraphs[p][r].format)
          << p << "/" << r << " bold " << run.format.bold << " underline " << run.format.underline
          << " auto " << run.format.autoColour << " size " << run.format.halfPoints;
    }
  }
}

TEST(VxRichEdit, DamagedOrMissingFilesFailButKeepWhatWasRead) {
  Window window;
  std::string const path = TempPath("damaged.rtf");
  std::ofstream(path, std::ios::binary) << "{\\rtf1 kept text\\cf5 lost}";
  std::wstring const wide = wxString::FromUTF8(path).ToStdWstring();
  EXPECT_FALSE(window.edit->Read(wide.c_str()));
  EXPECT_EQ(window.edit->GetValue(), "kept text");
  EXPECT_FALSE(window.edit->ReadFailure().Id().empty());

  EXPECT_FALSE(window.edit->Read(L"/nonexistent/notes.rtf"));
  EXPECT_EQ(window.edit->GetValue(), "kept text") << "a file that does not open changes nothing";
  EXPECT_FALSE(window.edit->Save(L"/nonexistent/folder/notes.rtf"));
}

TEST(VxRichEdit, ReadingStopsAtTheCharacterLimit) {
  Window window;
  std::istringstream in("{\\rtf1 " + std::string(kRichTextCharacterLimit + 10, 'x') + "}");
  window.edit->Read(in);
  EXPECT_EQ(window.edit->GetLastPosition(), static_cast<long>(kRichTextCharacterLimit));
  EXPECT_FALSE(window.edit->ReadFailure().Id().empty());
}

TEST(VxRichEdit, InsertsAtTheSelectionInTheCurrentFormat) {
  struct Case {
    int format;
    wchar_t const * text;
    wchar_t const * result;
  };
  Case const cases[] = {
      {VxRichEdit::RichText, L"{\\rtf1 {\\b new} \u00e9}", L"abnew \u00e9ef"},
      {VxRichEdit::PlainText, L"one\r\ntwo", L"abone\ntwoef"},
      {VxRichEdit::UnicodeText, L"\u00e9\u20ac", L"ab\u00e9\u20acef"},
      {7, L"ignored", L"abcdef"},
  };
  for (Case const & c : cases) {
    Window window;
    window.edit->SetValue("abcdef");
    window.edit->SetSelection(2, 4);
    window.edit->SetBold(true);
    window.edit->SetTextColor(RGB(200, 0, 0));
    window.edit->InsertText(c.text, static_cast<VxRichEdit::TextFormat>(c.format));
    EXPECT_EQ(window.edit->GetValue(), wxString(c.result)) << c.format;
    if (c.format != 7) {
      RichTextRun const & inserted = window.edit->GetDocument().paragraphs.at(0).at(1);
      EXPECT_TRUE(inserted.format.bold) << c.format;
      EXPECT_FALSE(inserted.format.autoColour) << c.format;
      EXPECT_EQ(inserted.format.colour, RGB(200, 0, 0)) << c.format;
    }
  }
}

TEST(VxRichEdit, CharacterFormatBlockKeepsItsBits) {
  Window window;
  CHARFORMAT2W const & format = *window.edit->GetCurrentCharFormat();
  EXPECT_EQ(format.cbSize, 116u);
  EXPECT_EQ(format.dwMask, 0xF800001Fu);
  EXPECT_NE(format.dwEffects & CFE_AUTOCOLOR, 0u) << "a new control has the automatic colour";

  window.edit->SetBold(true);
  window.edit->SetUnderline(true);
  EXPECT_EQ(format.dwEffects & (CFE_BOLD | CFE_UNDERLINE), CFE_BOLD | CFE_UNDERLINE);
  window.edit->SetBold(false);
  EXPECT_EQ(format.dwEffects & CFE_BOLD, 0u);
  window.edit->SetTextColor(RGB(1, 2, 3));
  EXPECT_EQ(format.crTextColor, RGB(1, 2, 3));
  EXPECT_EQ(format.dwEffects & CFE_AUTOCOLOR, 0u);
  window.edit->SetFontSize(14);
  EXPECT_EQ(format.yHeight, 280) << "twips";

  window.edit->SetFont(VxRichEdit::CourierNew);
  EXPECT_EQ(std::u16string(format.szFaceName), u"Courier New");
  window.edit->SetFont(static_cast<VxRichEdit::Font>(3));
  EXPECT_EQ(std::u16string(format.szFaceName), u"Courier New") << "an unknown font leaves the name";

  window.edit->InsertText(L"x", VxRichEdit::PlainText);
  RichTextFormat const inserted = window.edit->GetDocument().paragraphs.at(0).at(0).format;
  EXPECT_EQ(inserted.face, L"Courier New");
  EXPECT_EQ(inserted.halfPoints, 28);
  EXPECT_TRUE(inserted.underline);
  EXPECT_FALSE(inserted.bold);
}

TEST(VxRichEdit, ReplacesAStaticControlInItsPlace) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Static");
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * label = new wxStaticText(frame, 4711, "placeholder", wxPoint(5, 6), wxSize(120, 40));
  sizer->Add(label, 1, wxEXPAND);
  frame->SetSizer(sizer);
  wxRect const rect = label->GetRect();

  auto * missing = new VxRichEdit;
  EXPECT_EQ(missing->CreateFromStatic(4712, frame), 0);
  delete missing;

  auto * edit = new VxRichEdit;
  ASSERT_NE(edit->CreateFromStatic(4711, frame), 0);
  EXPECT_EQ(frame->FindWindow(4711), edit);
  EXPECT_EQ(edit->GetRect(), rect);
  EXPECT_FALSE(edit->IsEditable());
  EXPECT_EQ(edit->GetContainingSizer(), sizer);
  frame->Destroy();
}

}  // namespace
