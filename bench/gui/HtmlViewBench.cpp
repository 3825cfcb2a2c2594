// A 2 MB table put into an HTML view with its style, until the view shows
// it (SetHTML: the style read into the view's model, the page composed and
// put in, the document loaded), beside putting the same composed page into
// the same view's browser with SetPage and waiting for its document. Both
// wait on GTK's main loop, as an application's event loop would. Part of
// talvo-bench-gui: WebKit needs a display.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/webview.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "html/HtmlPageText.h"
#include "html/IHTMLDocumentUtilities.h"
#include "html/VxHtmlView.h"

namespace {

TALVO_RATIO_LIMIT("HtmlViewSetHtml", 1.05);

constexpr size_t kTableBytes = 2 * 1024 * 1024;

wxString const & Css() {
  static wxString const css =
      "table { border-collapse: collapse; font-family: sans-serif }\n"
      "td { border: 1px solid #ccc; padding: 1px 4px }\n"
      "td.value { text-align: right; color: #1a4d80 }\n";
  return css;
}

wxString const & Table() {
  static wxString const table = [] {
    wxString html = "<table>";
    for (int row = 0; html.length() < kTableBytes; ++row)
      html +=
          wxString::Format("<tr><td>%d</td><td>Run %05d</td><td class=value>%d.%03d</td></tr>\n",
                           row, row, row % 997, row % 1000);
    return html + "</table>";
  }();
  return table;
}

// One frame with a view, made once: both sides use the same view.
VxHtmlView * View() {
  static VxHtmlView * const view = [] {
    auto * frame = new wxFrame(nullptr, wxID_ANY, "HTML view", wxDefaultPosition, wxSize(800, 600));
    auto * made = new VxHtmlView(frame, wxID_ANY);
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(made, 1, wxEXPAND);
    frame->SetSizer(sizer);
    frame->Show();
    return made;
  }();
  return view;
}

template <typename Done>
void RunUntil(Done done) {
  while (!done()) {
    g_main_context_iteration(nullptr, TRUE);
    wxTheApp->ProcessPendingEvents();
  }
}

bool Shown(VxHtmlView const & view) {
  return view.GetPageState() == VxHtmlView::PageState::Ready && !view.IsPending();
}

bool Prepared(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return false;
  }
  VxHtmlView * view = View();
  if (view->GetBrowser() == nullptr) {
    state.SkipWithError("no browser could be made");
    return false;
  }
  RunUntil([view] { return Shown(*view); });  // the first about:blank
  return true;
}

void HtmlViewSetHtml_candidate(benchmark::State & state) {
  if (!Prepared(state)) return;
  VxHtmlView & view = *View();
  std::wstring const html = Table().ToStdWstring();
  std::wstring const css = Css().ToStdWstring();
  for (auto _ : state) {
    view.SetHTML(html.c_str(), css.c_str());
    RunUntil([&view] { return Shown(view); });
  }
}
BENCHMARK(HtmlViewSetHtml_candidate)
    ->Name("HtmlViewSetHtml/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

void HtmlViewSetHtml_baseline(benchmark::State & state) {
  if (!Prepared(state)) return;
  wxWebView & browser = *View()->GetBrowser();
  // The page SetHTML composes, with the style as the view's model writes it.
  wxString css;
  IHTMLDocumentUtilities::SetCSSText(View()->GetDocumentStyle(), Css());
  IHTMLDocumentUtilities::GetCSSText(View()->GetDocumentStyle(), &css);
  wxString const page = ComposeHtmlPage(Table(), css);
  bool loaded = false;
  auto const onLoaded = [&loaded](wxWebViewEvent & event) {
    loaded = true;
    event.Skip();
  };
  browser.Bind(wxEVT_WEBVIEW_LOADED, onLoaded);
  for (auto _ : state) {
    loaded = false;
    browser.SetPage(page, wxString());
    RunUntil([&loaded] { return loaded; });
  }
  browser.Unbind(wxEVT_WEBVIEW_LOADED, onLoaded);
}
BENCHMARK(HtmlViewSetHtml_baseline)
    ->Name("HtmlViewSetHtml/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace
