// VxRichEdit::Print on the page device: every line of the text once, in
// order, across the page breaks, each page under the header and over the
// footer; an empty text prints no page.
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

#include <wx/frame.h>

#include "PdfTools.h"
#include "controls/VxRichEdit.h"
#include "printing/PageDevice.h"

TEST(RichEditPrint, PrintsEveryLineOnceAcrossThePages) {
  char const * folder = std::getenv("TMPDIR");
  std::string const path = std::string(folder != nullptr ? folder : "/tmp") + "/rich.pdf";
  wxFrame frame(nullptr, wxID_ANY, "Notes");
  auto * edit = new VxRichEdit(&frame, wxID_ANY);
  wxString text;
  for (int i = 1; i <= 150; ++i) {
    text += wxString::Format("Measured line %d of the notes\n", i);
  }
  edit->SetValue(text);
  edit->SetPrintHeader("Notes header");
  edit->SetPrintFootter("Notes footer");
  {
    auto device = PageDevice::ForPdf(path);
    edit->Print(*device);
    ASSERT_TRUE(device->Close());
  }
  int const pages = pdf_tools::PageCount(path);
  EXPECT_GE(pages, 2);
  std::string const printed = pdf_tools::Text(path);
  // Lines in order, none twice, none lost at a break.
  std::regex const line("Measured line (\\d+) of the notes");
  int expected = 1;
  for (auto match = std::sregex_iterator(printed.begin(), printed.end(), line);
       match != std::sregex_iterator(); ++match) {
    EXPECT_EQ(std::stoi((*match)[1]), expected);
    ++expected;
  }
  EXPECT_EQ(expected, 151);
  auto count = [&printed](std::string const & what) {
    int n = 0;
    for (std::size_t at = printed.find(what); at != std::string::npos;
         at = printed.find(what, at + 1))
      ++n;
    return n;
  };
  EXPECT_EQ(count("Notes header"), pages);
  EXPECT_EQ(count("Notes footer"), pages);

  auto empty = PageDevice::ForImages({}, 10);
  edit->SetValue("");
  edit->Print(*empty);
  EXPECT_EQ(empty->PagesPrinted(), 0);
}
