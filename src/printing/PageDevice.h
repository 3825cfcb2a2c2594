#pragma once
// The device pages are printed on: a CDC on cairo, 600 units an inch with
// the origin at the paper's top-left corner, drawn through a wxGCDC over the
// page's cairo context (text stays text and pictures stay pictures in a
// PDF). Where the pages go is the output's business:
//   ForPdf      one PDF file for everything printed before Close, however
//               many documents were started; written beside its place and
//               renamed over it, so a failed run leaves the old file alone;
//   ForImages   pictures in memory at a resolution of the caller's (previews);
//   ForPrinter  a printer of CUPS through a GTK print job per document; the
//               printer makes the copies (Escape GETSETCOPYCOUNT).

#include <memory>
#include <string>
#include <vector>

#include <wx/image.h>

#include "controls/CDC.h"
#include "utl/ExceptionMessage.h"

class wxGCDC;
class PageOutput;
// cairo's types, declared as cairo declares them, so that users of this
// header need not find cairo's.
typedef struct _cairo cairo_t;                  // NOLINT(modernize-use-using)
typedef struct _cairo_surface cairo_surface_t;  // NOLINT(modernize-use-using)

struct PaperFormat {
  double widthMm = 210.0;  // portrait: the shorter side; A4 by default
  double heightMm = 297.0;
  bool landscape = false;  // the longer side across
};

class PageDevice : public CDC {
public:
  static constexpr int UnitsPerInch = 600;

  static std::unique_ptr<PageDevice> ForPdf(std::string const & path, PaperFormat paper = {});
  static std::unique_ptr<PageDevice> ForImages(PaperFormat paper, double pixelsPerInch);
  static std::unique_ptr<PageDevice> ForPrinter(std::string const & printer,
                                                PaperFormat paper = {});

  PageDevice(std::unique_ptr<PageOutput> output, PaperFormat paper);
  ~PageDevice() override;  // closes

  int GetDeviceCaps(int index) const override;
  int StartDoc(DOCINFOW const & info) override;
  int StartPage() override;
  int EndPage() override;
  int EndDoc() override;
  int AbortDoc() override;
  int Escape(int escape, int inSize, void const * in, void * out) override;
  int SetStretchBltMode(int mode) override;
  int StretchDIBits(int x, int y, int width, int height, int xSource, int ySource, int sourceWidth,
                    int sourceHeight, void const * bits, void const * bitmapInfo, UINT usage,
                    DWORD rop) override;
  wxDC & GetDC() override;

  // The page's cairo context in device units; null when no page is open.
  cairo_t * GetCairoContext() const { return mPage; }

  // Ends an open document and finishes the output (the PDF is renamed into
  // place). False when anything of the run failed; Error() says what.
  // Later calls do nothing more and give the same answer.
  bool Close();
  ExceptionMessage const & Error() const { return mError; }

  int PageWidth() const { return mWidth; }    // HORZRES
  int PageHeight() const { return mHeight; }  // VERTRES
  int PagesPrinted() const { return mPagesPrinted; }
  int Copies() const { return mCopies; }

  // ForImages: every page ended so far, in order.
  std::vector<wxImage> PageImages() const;
  // ForImages: the ARGB32 surface of page `index` (owned by the device).
  cairo_surface_t * PageSurface(std::size_t index) const;

private:
  void Fail(ExceptionMessage message);

  std::unique_ptr<PageOutput> mOutput;
  std::unique_ptr<wxGCDC> mDc;
  cairo_surface_t * mMeasureSurface = nullptr;
  cairo_t * mPage = nullptr;
  PaperFormat mPaper;
  int mWidth = 0;
  int mHeight = 0;
  bool mDocOpen = false;
  bool mClosed = false;
  bool mFailed = false;
  int mStretchMode = COLORONCOLOR;
  int mCopies = 1;
  int mPagesPrinted = 0;
  ExceptionMessage mError;
};
