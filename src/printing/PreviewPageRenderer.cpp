#include "printing/PreviewPageRenderer.h"

#include <boost/locale/encoding_utf.hpp>

#include "printing/PrintOut.h"

std::unique_ptr<PageDevice> RenderPreviewPages(PrintOut & out, PaperFormat const & paper,
                                               double pixelsPerInch, int maxPages) {
  std::unique_ptr<PageDevice> device = PageDevice::ForImages(paper, pixelsPerInch);
  int minPage = 0;
  int maxPage = 0;
  int first = 0;
  int last = 0;
  out.GetPageInfo(minPage, maxPage, first, last);
  int const width = device->GetDeviceCaps(HORZRES);
  int const height = device->GetDeviceCaps(VERTRES);
  out.PrepareDevice(*device, wxSize(width, height));
  out.BeginPrinting();
  std::wstring const name = boost::locale::conv::utf_to_utf<wchar_t>(out.GetDocumentName());
  DOCINFOW const info{static_cast<int>(sizeof(DOCINFOW)), name.c_str(), nullptr, nullptr, 0};
  int status = device->StartDoc(info);
  int const firstPage = minPage != 0 ? minPage : 1;
  // A preview prints everything: no page range, no selection.
  out.StartDocument(firstPage, firstPage + maxPages - 1, 0);
  RECT const printable{0, 0, width, height};
  // The printout says when it ends; a known last page ends it too.
  int const lastPage = maxPage >= firstPage ? maxPage : firstPage + maxPages - 1;
  for (int page = firstPage; status > 0 && page < firstPage + maxPages && page <= lastPage;
       ++page) {
    if (!out.ContinuePrinting(page)) break;
    status = device->StartPage();
    if (status > 0) out.PrintPage(page, printable, 0);
    if (status > 0) {
      int const ended = device->EndPage();
      status = ended == 0 ? 1 : ended;
    }
  }
  if (status > 0) device->EndDoc();
  out.EndDocument();
  out.EndPrinting();
  if (status <= 0 || !device->Close()) return nullptr;
  return device;
}
