#include "printing/PrintPreviewPane.h"

#include <algorithm>

#include <cairo.h>

#include <wx/cmndata.h>
#include <wx/dcclient.h>
#include <wx/menu.h>
#include <wx/toolbar.h>

#include "controls/VxMenu.h"
#include "platform/WinUser.h"
#include "printing/PageDevice.h"
#include "printing/PreviewPageRenderer.h"
#include "printing/PrintOut.h"
#include "printing/PrinterDeviceDefaults.h"
#include "utl/Translation.h"

namespace {

constexpr int kGap = 16;    // around and between the pages
constexpr int kShadow = 4;  // the shadow's offset
constexpr int kPageCountMenuBase = 100;

wxColour const kGround(0xD8, 0xDB, 0xE0);
wxColour const kShadowColour(0x90, 0x94, 0x9C);

}  // namespace

PrintPreviewPane::PrintPreviewPane(wxWindow * parent, wxWindowID id,
                                   std::unique_ptr<PrintOut> printOut)
    : wxWindow(parent, id, wxDefaultPosition, wxDefaultSize, wxFULL_REPAINT_ON_RESIZE),
      mPrintOut(std::move(printOut)) {
  // Painted whole by OnPaint; GTK buffers the window, so nothing flickers.
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  mToolBar = new wxToolBar(this, kToolBarId, wxDefaultPosition, wxDefaultSize,
                           wxTB_HORIZONTAL | wxTB_TEXT | wxTB_NOICONS | wxTB_FLAT);
  mToolBar->AddTool(kOnePageTool, vx3::Tr("Print preview", "One page"), wxNullBitmap,
                    vx3::Tr("Print options", "One page preview"));
  mToolBar->AddTool(kPageCountTool, vx3::Tr("Print preview", "Pages"), wxNullBitmap,
                    vx3::Tr("Print options", "Select number of pages to preview"));
  mToolBar->Realize();
  mToolBar->Bind(
      wxEVT_TOOL, [this](wxCommandEvent &) { SetPagesShown(1); }, kOnePageTool);
  mToolBar->Bind(
      wxEVT_TOOL, [this](wxCommandEvent &) { OnPageCountTool(); }, kPageCountTool);
  Bind(wxEVT_PAINT, &PrintPreviewPane::OnPaint, this);
  Bind(wxEVT_SIZE, &PrintPreviewPane::OnSize, this);
}

PrintPreviewPane::~PrintPreviewPane() = default;

wxRect PrintPreviewPane::PageArea() const {
  wxSize const client = GetClientSize();
  int const top = mToolBar->GetSize().y;
  return {0, top, client.x, std::max(0, client.y - top)};
}

bool PrintPreviewPane::Render(wxPrintData const & printer) {
  mPrinter = std::make_unique<wxPrintData>(printer);
  mDevice.reset();
  mPageCount = 0;
  PaperFormat const paper = PaperOf(printer);
  double const widthInches = (paper.landscape ? paper.heightMm : paper.widthMm) / 25.4;
  double const heightInches = (paper.landscape ? paper.widthMm : paper.heightMm) / 25.4;
  // The resolution at which the pages shown side by side fill the area.
  wxRect const area = PageArea();
  mRenderedFor = area.GetSize();
  double const across = (area.width - kGap * (mPagesShown + 1)) / (widthInches * mPagesShown);
  double const down = (area.height - 2 * kGap) / heightInches;
  double const pixelsPerInch = std::max(1.0, std::min(across, down));
  mDevice = RenderPreviewPages(*mPrintOut, paper, pixelsPerInch, mPagesShown);
  if (mDevice) {
    mPageCount = mDevice->PagesPrinted();
    if (cairo_surface_t * first = mDevice->PageSurface(0))
      mPageSize =
          wxSize(cairo_image_surface_get_width(first), cairo_image_surface_get_height(first));
  }
  Refresh();
  return mPageCount > 0;
}

void PrintPreviewPane::SetPrintOut(std::unique_ptr<PrintOut> printOut) {
  // The pictures were drawn by the old printout on a device it may still
  // point to: both go together.
  mDevice.reset();
  mPageCount = 0;
  mPrintOut = std::move(printOut);
}

void PrintPreviewPane::SetPagesShown(int count) {
  count = std::clamp(count, 1, kMaxPagesShown);
  if (count == mPagesShown) return;
  mPagesShown = count;
  if (mPrinter) Render(*mPrinter);
}

void PrintPreviewPane::OnPageCountTool() {
  wxMenu popup;
  for (int count = 1; count <= kMaxPagesShown; ++count)
    popup
        .AppendRadioItem(kPageCountMenuBase + count,
                         wxString::Format(vx3::Tr("Print preview", "%d pages"), count))
        ->Check(count == mPagesShown);
  wxRect const tools = mToolBar->GetScreenRect();
  int const chosen = VxMenu::TrackPopupMenu(&popup, TPM_LEFTALIGN | TPM_RETURNCMD, tools.GetLeft(),
                                            tools.GetBottom() + 1, this, nullptr);
  if (chosen > kPageCountMenuBase) SetPagesShown(chosen - kPageCountMenuBase);
}

void PrintPreviewPane::OnSize(wxSizeEvent & event) {
  mToolBar->SetSize(0, 0, GetClientSize().x, wxDefaultCoord);
  // The pages are drawn for the size they fill; a new size draws them anew.
  if (mPrinter && PageArea().GetSize() != mRenderedFor) Render(*mPrinter);
  event.Skip();
}

wxImage PrintPreviewPane::PageImage(int index) const {
  if (!mDevice || index < 0 || index >= mPageCount) return {};
  return mDevice->PageImages()[static_cast<std::size_t>(index)];
}

void PrintPreviewPane::OnPaint(wxPaintEvent &) {
  wxPaintDC dc(this);
  // The pages are cairo pictures already: they go onto the window's cairo
  // context as they are, not through images and bitmaps.
  auto * cairo = static_cast<cairo_t *>(dc.GetImpl()->GetCairoContext());
  if (cairo == nullptr) return;
  cairo_save(cairo);
  cairo_set_source_rgb(cairo, kGround.Red() / 255.0, kGround.Green() / 255.0,
                       kGround.Blue() / 255.0);
  cairo_paint(cairo);
  wxRect const area = PageArea();
  int const width = mPageCount * mPageSize.x + kGap * (mPageCount - 1);
  int x = area.x + std::max(kGap, (area.width - width) / 2);
  int const y = area.y + std::max(kGap, (area.height - mPageSize.y) / 2);
  for (int index = 0; index < mPageCount; ++index) {
    cairo_surface_t * page = mDevice->PageSurface(static_cast<std::size_t>(index));
    if (page == nullptr) break;
    cairo_set_source_rgb(cairo, kShadowColour.Red() / 255.0, kShadowColour.Green() / 255.0,
                         kShadowColour.Blue() / 255.0);
    cairo_rectangle(cairo, x + kShadow, y + kShadow, mPageSize.x, mPageSize.y);
    cairo_fill(cairo);
    cairo_set_source_surface(cairo, page, x, y);
    cairo_paint(cairo);
    x += mPageSize.x + kGap;
  }
  cairo_restore(cairo);
}
