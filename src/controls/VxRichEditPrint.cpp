// VxRichEdit::Print: the control's text laid out for the page and printed
// page by page. The device is scaled so that one logical unit is a pixel of
// the screen: fonts keep the size they have on the screen, as the text
// measured there.

#include <algorithm>
#include <vector>

#include <wx/dc.h>
#include <wx/richtext/richtextbuffer.h>

#include "controls/CDC.h"
#include "controls/StandardFont.h"
#include "controls/VxRichEdit.h"

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kMarginTwips = 850;
constexpr double kMillimetresPerInch = 25.4;

struct PageRange {
  long start;
  long end;
  int top;  // of its first line in the laid-out text
};

// Splits the laid-out text into pages of `height`: a line that does not fit
// starts the next page.
std::vector<PageRange> Paginate(wxRichTextBuffer & buffer, int height) {
  std::vector<PageRange> pages;
  for (wxRichTextObjectList::compatibility_iterator node = buffer.GetChildren().GetFirst();
       node != nullptr; node = node->GetNext()) {
    auto * paragraph = wxDynamicCast(node->GetData(), wxRichTextParagraph);
    if (paragraph == nullptr) {
      continue;
    }
    for (wxRichTextLine const * line : paragraph->GetLines()) {
      int const top = line->GetAbsolutePosition().y;
      int const bottom = top + line->GetSize().y;
      wxRichTextRange const range = line->GetAbsoluteRange();
      if (pages.empty() || bottom - pages.back().top > height) {
        pages.push_back({range.GetStart(), range.GetEnd(), top});
      } else {
        pages.back().end = range.GetEnd();
      }
    }
  }
  return pages;
}

// The header 15 mm from the page's left edge at its top in font 3, the
// footer and the page number 15 mm from the edges, 10 mm above the bottom,
// in font 7; `pixelsPerInch` is the logical resolution.
void PrintHeaderFooter(wxDC & dc, wxString const & header, wxString const & footer, int page,
                       wxSize const & size, double pixelsPerInch) {
  int const edge = int(15 * pixelsPerInch / kMillimetresPerInch);
  int const above = int(10 * pixelsPerInch / kMillimetresPerInch);
  dc.SetTextForeground(*wxBLACK);
  if (wxFont const * font = StandardFont::GetFont(StandardFont::LargeBold)) {
    dc.SetFont(*font);
  }
  dc.DrawText(header, edge, 0);
  if (wxFont const * font = StandardFont::GetFont(StandardFont::Small)) {
    dc.SetFont(*font);
  }
  wxCoord width = 0;
  wxCoord height = 0;
  wxString const number = wxString::Format("%d", page);
  dc.GetTextExtent(number, &width, &height);
  dc.DrawText(footer, edge, size.y - above - height);
  dc.DrawText(number, size.x - edge - width, size.y - above - height);
}

}  // namespace

void VxRichEdit::Print(CDC & dc) {
  wxDC & out = dc.GetDC();
  double const surfacePpi = out.GetPPI().y > 0 ? out.GetPPI().y : 96.0;
  double const scaleX = dc.GetDeviceCaps(LOGPIXELSX) / surfacePpi;
  double const scaleY = dc.GetDeviceCaps(LOGPIXELSY) / surfacePpi;

  std::wstring const name = mPrintHeader.ToStdWstring();
  DOCINFOW const info{40, name.c_str(), nullptr, nullptr, 0};
  // The page in twips, whole inches as the device's units give them.
  int const pageWidth = dc.GetDeviceCaps(HORZRES) / dc.GetDeviceCaps(LOGPIXELSX) * kTwipsPerInch;
  int const pageHeight = dc.GetDeviceCaps(VERTRES) / dc.GetDeviceCaps(LOGPIXELSY) * kTwipsPerInch;
  auto const toLogical = [surfacePpi](int twips) {
    return int(twips * surfacePpi / kTwipsPerInch);
  };
  wxRect const text(toLogical(kMarginTwips), toLogical(kMarginTwips),
                    toLogical(pageWidth - 2 * kMarginTwips),
                    toLogical(pageHeight - 2 * kMarginTwips));
  wxSize const page(int(dc.GetDeviceCaps(HORZRES) / scaleX),
                    int(dc.GetDeviceCaps(VERTRES) / scaleY));

  if (dc.StartDoc(info) <= 0) {
    return;
  }
  out.SetUserScale(scaleX, scaleY);
  // Measuring: the text laid out for the page's width, on the device.
  wxRichTextBuffer buffer;
  buffer.Copy(GetBuffer());
  buffer.UpdateRanges();
  buffer.Invalidate(wxRICHTEXT_ALL);
  wxRichTextDrawingContext context(&buffer);
  buffer.Layout(out, context, text, text, wxRICHTEXT_FIXED_WIDTH | wxRICHTEXT_VARIABLE_HEIGHT);
  std::vector<PageRange> const pages =
      !buffer.GetText().empty() ? Paginate(buffer, text.height) : std::vector<PageRange>();
  int number = 1;
  for (PageRange const & range : pages) {
    if (dc.StartPage() <= 0) {
      break;
    }
    // The page's device context is new: its scale is set again.
    out.SetUserScale(scaleX, scaleY);
    PrintHeaderFooter(out, mPrintHeader, mPrintFooter, number++, page, surfacePpi);
    out.SetLogicalOrigin(0, range.top - text.y);
    out.SetClippingRegion(text.x, range.top, text.width, text.height);
    buffer.Draw(out, context, wxRichTextRange(range.start, range.end), wxRichTextSelection(),
                wxRect(text.x, range.top, text.width, text.height), 0,
                wxRICHTEXT_DRAW_IGNORE_CACHE);
    out.DestroyClippingRegion();
    out.SetLogicalOrigin(0, 0);
    dc.EndPage();
  }
  out.SetUserScale(1.0, 1.0);
  dc.EndDoc();
}
