#include "printing/PrintWindow.h"

#include <algorithm>

#include <wx/dc.h>
#include <wx/window.h>
#include <boost/locale/encoding_utf.hpp>

#include "controls/WindowSnapshot.h"
#include "pictures/DibBitmap.h"
#include "platform/WinUser.h"
#include "printing/PrintDIB.h"
#include "printing/PrintDialog.h"
#include "printing/PrintFooter.h"

namespace {

struct DibFreer {
  void operator()(DibBlock * dib) const { GlobalFree(dib); }
};

void TextCentred(wxDC & dc, wxString const & text, int pageWidth, int y) {
  wxCoord width = 0;
  wxCoord height = 0;
  dc.GetTextExtent(text, &width, &height);
  dc.DrawText(text, (pageWidth - width) / 2, y);
}

}  // namespace

void PrintWindow(wxWindow const * window, char const * title, char const * document) {
  if (window == nullptr) {
    return;
  }
  // Capturing reads the window, it does not change it.
  std::unique_ptr<DibBlock, DibFreer> const dib(
      ImageToDIB(CaptureWindowImage(const_cast<wxWindow &>(*window))));
  if (!dib) {
    return;
  }
  CPrintDialog dialog(false, 0x14000C, nullptr);
  if (dialog.DoModal() != IDOK) {
    return;
  }
  int const copies = dialog.GetCopies();
  std::unique_ptr<CDC> const dc = dialog.TakeDC();
  if (!dc) {
    return;
  }
  wxDC & out = dc->GetDC();
  wxFont const font = dc->CreatePointFont(100, "Arial");
  wxFont const former = out.GetFont();
  int const pageWidth = dc->GetDeviceCaps(HORZRES);
  int pageHeight = dc->GetDeviceCaps(VERTRES);
  std::wstring const name =
      boost::locale::conv::utf_to_utf<wchar_t>(std::string(document != nullptr ? document : ""));
  DOCINFOW const info{sizeof(DOCINFOW), name.c_str(), nullptr, nullptr, 0};
  if (dc->StartDoc(info) <= 0) {
    return;
  }
  auto const * header = static_cast<BITMAPINFOHEADER const *>(GlobalLock(dib.get()));
  float const dibWidth = float(header->biWidth);
  float const dibHeight = float(header->biHeight < 0 ? -header->biHeight : header->biHeight);
  for (int copy = 0; copy < copies; ++copy) {
    if (dc->StartPage() <= 0) {
      break;
    }
    out.SetFont(font);
    wxString const footer = wxString::FromUTF8(MakePrintFooter(nullptr));
    // The height of the footer's line, measured with one character more, as
    // the line is given with its terminator.
    wxCoord width = 0;
    wxCoord line = 0;
    out.GetTextExtent(footer + " ", &width, &line);
    TextCentred(out, footer, pageWidth, 3 * line);
    TextCentred(out, wxString::FromUTF8(title != nullptr ? title : ""), pageWidth, 4 * line);
    // The room below the heading shrinks again with every copy: a later
    // copy's picture is scaled for less height. Kept so.
    pageHeight -= 7 * line;
    float xScale = float(dc->GetDeviceCaps(LOGPIXELSX)) / 100;
    float yScale = float(dc->GetDeviceCaps(LOGPIXELSY)) / 100;
    float const heightRatio = dibHeight * yScale / float(pageHeight);
    float const widthRatio = dibWidth * xScale / float(pageWidth);
    float const larger = std::max(heightRatio, widthRatio);
    if (larger >= 1) {
      xScale /= larger;
      yScale /= larger;
    }
    PrintDIB(dib.get(), 3, static_cast<unsigned short>(xScale), static_cast<unsigned short>(yScale),
             dc.get(), 7 * line);
    dc->EndPage();
    if (former.IsOk()) {
      out.SetFont(former);
    }
  }
  dc->EndDoc();
}
