// The backstage print page's preview beside wx's print preview, showing the
// same one-page printout: a heading and 60 shaded rows of text on A4, drawn
// at 600 units an inch. Each run makes the preview with its tool bar in a
// shown frame, draws the page to fit 560 x 440 pixels and paints it
// (Refresh + Update). The candidate draws through the printout contract and
// the page device; the baseline through a wxPrintout in wxPrintPreview, its
// canvas and its control bar, as wx's preview frame shows them. Part of
// talvo-bench-gui: it needs a display.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

#include <wx/cmndata.h>
#include <wx/dc.h>
#include <wx/frame.h>
#include <wx/print.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "printing/PrintOut.h"
#include "printing/PrintPreviewPane.h"

namespace {

TALVO_RATIO_LIMIT("BackstagePreviewPage", 1.0);

constexpr int kPageWidth = 4960;  // A4 at 600 units an inch
constexpr int kPageHeight = 7016;
wxSize const kArea(560, 440);

// The page both previews show, in units of 1/600 inch.
void DrawPage(wxDC & dc) {
  wxFont heading(wxFontInfo(18).Family(wxFONTFAMILY_SWISS).Bold());
  wxFont body(wxFontInfo(10).Family(wxFONTFAMILY_SWISS));
  // Point sizes are for the screen; the page has 600 units an inch.
  double const scale = 600.0 / dc.GetPPI().y;
  heading.SetFractionalPointSize(heading.GetFractionalPointSize() * scale);
  body.SetFractionalPointSize(body.GetFractionalPointSize() * scale);
  dc.SetFont(heading);
  dc.SetTextForeground(wxColour(0x1F, 0x4E, 0x79));
  dc.DrawText("Runs of series 12", 600, 500);
  dc.SetFont(body);
  dc.SetPen(*wxTRANSPARENT_PEN);
  for (int row = 0; row < 60; ++row) {
    int const y = 900 + row * 100;
    if (row % 2 == 1) {
      dc.SetBrush(wxBrush(wxColour(0xDD, 0xEB, 0xF7)));
      dc.DrawRectangle(600, y, kPageWidth - 1200, 100);
    }
    dc.SetTextForeground(row % 7 == 3 ? *wxRED : *wxBLACK);
    dc.DrawText(wxString::Format("Run %d", row + 1), 650, y + 10);
    dc.DrawText(wxString::Format("%.3f mg/l", 0.125 * row), 2400, y + 10);
  }
}

// One page, drawn on the device's wxDC as it is.
class BenchPrintOut : public PrintOut {
public:
  void BeginPrinting() override {}
  std::string GetDocumentName() override { return "Runs"; }
  bool ContinuePrinting(int page) override { return page == 1; }
  void PrintPage(int, RECT const &, DWORD) override { DrawPage(mDevice->GetDC()); }
  void GetPageInfo(int & minPage, int & maxPage, int & from, int & to) override {
    minPage = maxPage = 1;
    from = to = 0;
  }
  void Reserved() override {}
  void PrepareDevice(CDC & dc, wxSize const &) override { mDevice = &dc; }
  void StartDocument(int, int, DWORD) override {}
  void EndDocument() override {}
  void EndPrinting() override {}

private:
  CDC * mDevice = nullptr;
};

class BenchPrintout : public wxPrintout {
public:
  BenchPrintout() : wxPrintout("Runs") {}
  bool OnPrintPage(int) override {
    FitThisSizeToPaper(wxSize(kPageWidth, kPageHeight));
    DrawPage(*GetDC());
    ++pagesDrawn;
    return true;
  }
  static inline int pagesDrawn = 0;
  bool HasPage(int page) override { return page == 1; }
  void GetPageInfo(int * minPage, int * maxPage, int * from, int * to) override {
    *minPage = *maxPage = *from = *to = 1;
  }
};

struct Frame {
  Frame() {
    frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0));
    frame->SetClientSize(kArea);
    frame->Show();
  }
  ~Frame() { DestroyNow(frame); }
  Frame(Frame const &) = delete;
  Frame & operator=(Frame const &) = delete;
  wxFrame * frame;
};

wxPrintData A4() {
  wxPrintData data;
  data.SetPaperId(wxPAPER_A4);
  data.SetOrientation(wxPORTRAIT);
  return data;
}

void BackstagePreviewPage_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host;
  wxPrintData const printer = A4();
  for (auto _ : state) {
    auto * pane = new PrintPreviewPane(host.frame, wxID_ANY, std::make_unique<BenchPrintOut>());
    pane->SetSize(wxRect(wxPoint(0, 0), kArea));
    if (!pane->Render(printer)) state.SkipWithError("the preview drew nothing");
    pane->Refresh();
    pane->Update();
    pane->Destroy();
  }
}
BENCHMARK(BackstagePreviewPage_candidate)
    ->Name("BackstagePreviewPage/candidate")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

void BackstagePreviewPage_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host;
  wxPrintData printer = A4();
  for (auto _ : state) {
    auto * preview = new wxPrintPreview(new BenchPrintout, nullptr, &printer);
    // As wx's preview frame shows it: its control bar above the canvas.
    auto * bar = new wxPreviewControlBar(preview, wxPREVIEW_DEFAULT, host.frame);
    bar->CreateButtons();
    bar->SetSize(0, 0, kArea.x, wxDefaultCoord);
    int const barHeight = bar->GetSize().y;
    auto * canvas = new wxPreviewCanvas(preview, host.frame, wxPoint(0, barHeight),
                                        wxSize(kArea.x, kArea.y - barHeight));
    preview->SetCanvas(canvas);
    // The zoom at which the page fills the same area as the candidate's.
    int screenX = 0;
    int screenY = 0;
    preview->GetPrintout()->GetPPIScreen(&screenX, &screenY);
    double const onScreenWidth = 210.0 / 25.4 * std::max(screenX, 1);
    double const onScreenHeight = 297.0 / 25.4 * std::max(screenY, 1);
    int const zoom =
        static_cast<int>(100.0 * std::min((kArea.x - 32) / onScreenWidth,
                                          (kArea.y - barHeight - 32) / onScreenHeight));
    preview->SetZoom(std::max(10, zoom));
    int const drawnBefore = BenchPrintout::pagesDrawn;
    // wx draws the page when its canvas is idle; here at once.
    preview->UpdatePageRendering();
    canvas->Refresh();
    canvas->Update();
    if (!preview->IsOk() || BenchPrintout::pagesDrawn == drawnBefore)
      state.SkipWithError("wx's preview drew nothing");
    canvas->Destroy();
    bar->Destroy();
    delete preview;
  }
}
BENCHMARK(BackstagePreviewPage_baseline)
    ->Name("BackstagePreviewPage/baseline")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

}  // namespace
