// An HTML information dialog with a 100 KB page, from the call to the page
// loaded in its view. Beside it a bare wxDialog holding a wxWebView given
// the same page with SetPage, also shown until the page is loaded. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <string>

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/webview.h>

#include "Figures.h"
#include "dialogs/InfoDialog.h"
#include "gui/GuiBench.h"
#include "gui/ModalUntil.h"
#include "html/VxHtmlView.h"

namespace {

TALVO_RATIO_LIMIT("InfoDialogHtmlOpen", 1.1);

constexpr char kTitle[] = "Runs of the year";
constexpr char kBaseUrl[] = "file:///runs/";

// About 100 KB: a title and a table of 1,000 runs.
std::wstring const & Page() {
  static std::wstring const page = [] {
    std::wstring html = L"<html><head><title>" + wxString(kTitle).ToStdWstring() +
                        L"</title></head><body><h1>Runs</h1><table>";
    for (int run = 1; html.size() < 100'000; ++run)
      html += L"<tr><td>Run " + std::to_wstring(run) +
              L"</td><td>2026-05-01</td><td>Balance 2</td><td>within limits</td></tr>";
    return html + L"</table></body></html>";
  }();
  return page;
}

// Loaded: the browser has reported a finished load and the view has
// nothing waiting (its first load is its blank document).
ModalUntil::Arm ViewLoaded() {
  return [](wxDialog & dialog, std::function<void()> const & done) {
    auto * view = dynamic_cast<VxHtmlView *>(dialog.FindWindow(InfoDialog::kTextPlaceId));
    if (view == nullptr || view->GetBrowser() == nullptr) return;
    view->GetBrowser()->Bind(wxEVT_WEBVIEW_LOADED, [view, &dialog, done](wxWebViewEvent & e) {
      e.Skip();
      dialog.CallAfter([view, done] {
        if (view->GetPageState() == VxHtmlView::PageState::Ready && !view->IsPending()) done();
      });
    });
  };
}

// Loaded: the load of the page given, which the base URL tells from the
// browser's first, blank document (the title is not known yet when the
// load is reported).
ModalUntil::Arm PageLoaded(wxWebView * browser) {
  return [browser](wxDialog &, std::function<void()> const & done) {
    browser->Bind(wxEVT_WEBVIEW_LOADED, [done](wxWebViewEvent & e) {
      e.Skip();
      if (e.GetURL() == kBaseUrl) done();
    });
  };
}

void InfoDialogHtmlOpen_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  ModalUntil hook(ViewLoaded());
  for (auto _ : state) {
    InfoDialog dialog(L"Runs");
    dialog.SetText(Page().c_str(), InfoDialog::Html);
    benchmark::DoNotOptimize(dialog.DoModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the page did not load");
}
BENCHMARK(InfoDialogHtmlOpen_candidate)
    ->Name("InfoDialogHtmlOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void InfoDialogHtmlOpen_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  wxString const page(Page());
  bool timedOut = false;
  for (auto _ : state) {
    wxDialog dialog(nullptr, wxID_ANY, "Runs", wxDefaultPosition, wxSize(560, 420));
    wxWebView * browser = wxWebView::New(&dialog, wxID_ANY);
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(browser, 1, wxEXPAND);
    dialog.SetSizer(sizer);
    browser->SetPage(page, kBaseUrl);
    ModalUntil hook(PageLoaded(browser));
    benchmark::DoNotOptimize(dialog.ShowModal());
    timedOut = timedOut || hook.TimedOut();
  }
  if (timedOut) state.SkipWithError("the page did not load");
}
BENCHMARK(InfoDialogHtmlOpen_baseline)
    ->Name("InfoDialogHtmlOpen/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
