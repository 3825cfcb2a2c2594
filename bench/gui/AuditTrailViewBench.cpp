// The audit-trail view's two figures. A trail of 10,000 events, from the
// end of a session until the next session's page has loaded in the view
// (the view's own road: the signals, the stylesheet beside the trail, the
// hardened transform, the page), beside a bare libxslt transform of the
// same file with the same stylesheet put into the same browser with
// SetPage. And 1,000 AddEvent calls with a view open on the trail, beside
// the same calls with no view. Part of talvo-bench-gui: WebKit needs a
// display.
#include <benchmark/benchmark.h>
#include <glib.h>
#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <unistd.h>

#include <memory>
#include <string>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/webview.h>

#include "Figures.h"
#include "audit/AuditTrailView.h"
#include "gui/GuiBench.h"
#include "utl/AuditTrail.h"
#include "utl/XercesXMLSection.h"

namespace {

TALVO_RATIO_LIMIT("AuditTrailPage10k", 1.2);
TALVO_RATIO_LIMIT("AuditTrailAddEventViewOpen", 1.05);

std::string BenchPath(std::string const & name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-" + name;
}

std::unique_ptr<AuditTrail> MakeTrail(std::string const & name, int events) {
  std::string const folder = BenchPath(name);
  ::mkdir(folder.c_str(), 0755);
  std::string const path = folder + "/trail.xml";
  ::unlink(path.c_str());
  auto * settings = new XercesXMLSection;
  settings->WriteInt("LogEvents", 1);
  auto trail = std::make_unique<AuditTrail>(path.c_str(), settings, BenchPath("keys"));
  trail->BeginSessionAndVerifySignature();
  for (int i = 0; i < events; ++i)
    trail->AddEvent("Sample measured.", "Plate 7, well B4, absorbance 0.4312", 0);
  trail->Save();
  return trail;
}

template <typename Done>
void RunUntil(Done done) {
  while (!done()) {
    g_main_context_iteration(nullptr, TRUE);
    wxTheApp->ProcessPendingEvents();
  }
}

// The web process lays out and paints a page after its load has ended, on
// the other core, for a while. The figure is the trail's own work with a
// view open, so both sides start from a quiet display.
void Settle() {
  bool done = false;
  g_timeout_add(
      1000,
      [](gpointer data) -> gboolean {
        *static_cast<bool *>(data) = true;
        return G_SOURCE_REMOVE;
      },
      &done);
  RunUntil([&done] { return done; });
}

// The view in a frame of its own. The frame goes at once when this does,
// so before the trail the figure made first, which the view points at.
struct ViewWindow {
  wxFrame * frame = nullptr;
  AuditTrailView * view = nullptr;

  ViewWindow() = default;
  ViewWindow(ViewWindow const &) = delete;
  ViewWindow & operator=(ViewWindow const &) = delete;
  ~ViewWindow() { Close(); }

  void Open() {
    frame = new wxFrame(nullptr, wxID_ANY, "Audit Trail", wxDefaultPosition, wxSize(900, 600));
    view = new AuditTrailView(frame, wxID_ANY);
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(view, 1, wxEXPAND);
    frame->SetSizer(sizer);
    frame->Show();
  }
  void Close() {
    DestroyNow(frame);
    frame = nullptr;
    view = nullptr;
  }
};

bool Loaded(AuditTrailView const & view) { return !view.IsBusy() && !view.IsUpdatePending(); }

bool Prepared(benchmark::State & state, ViewWindow const & window) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return false;
  }
  if (window.view->GetBrowser() == nullptr) {
    state.SkipWithError("no browser could be made");
    return false;
  }
  RunUntil([&] { return Loaded(*window.view); });
  return true;
}

void AuditTrailPage10k_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  std::unique_ptr<AuditTrail> trail = MakeTrail("page-candidate", 10000);
  ViewWindow window;
  window.Open();
  if (!Prepared(state, window)) return;
  window.view->SetAuditTrail(trail.get());
  RunUntil([&] { return Loaded(*window.view); });
  for (auto _ : state) {
    trail->EndSessionAndSave();
    trail->BeginSessionAndVerifySignature();  // the view loads the page anew
    RunUntil([&] { return Loaded(*window.view); });
  }
  if (window.view->GetShown() != AuditTrailView::Shown::TrailPage)
    state.SkipWithError("the view did not show the trail");
  window.Close();
  trail->Clear();
}
BENCHMARK(AuditTrailPage10k_candidate)
    ->Name("AuditTrailPage10k/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void AuditTrailPage10k_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  std::unique_ptr<AuditTrail> trail = MakeTrail("page-baseline", 10000);
  std::string const folder = BenchPath("page-baseline");
  {
    std::string const xsl = AuditTrail::GetStylesheet();
    FILE * out = std::fopen((folder + "/audit_trail.xsl").c_str(), "wb");
    std::fwrite(xsl.data(), 1, xsl.size(), out);
    std::fclose(out);
  }
  ViewWindow window;
  window.Open();
  if (!Prepared(state, window)) return;
  wxWebView & browser = *window.view->GetBrowser()->GetWebView();
  bool loaded = false;
  auto const onLoaded = [&loaded](wxWebViewEvent & event) {
    loaded = true;
    event.Skip();
  };
  browser.Bind(wxEVT_WEBVIEW_LOADED, onLoaded);
  for (auto _ : state) {
    trail->EndSessionAndSave();
    trail->BeginSessionAndVerifySignature();
    trail->Save();
    xsltStylesheet * sheet = xsltParseStylesheetFile(
        reinterpret_cast<xmlChar const *>((folder + "/audit_trail.xsl").c_str()));
    xmlDoc * doc = xmlReadFile((folder + "/trail.xml").c_str(), nullptr, XML_PARSE_NONET);
    xmlDoc * result = xsltApplyStylesheet(sheet, doc, nullptr);
    xmlChar * bytes = nullptr;
    int size = 0;
    xsltSaveResultToString(&bytes, &size, result, sheet);
    wxString const page = wxString::FromUTF8(reinterpret_cast<char const *>(bytes), size);
    xmlFree(bytes);
    xmlFreeDoc(result);
    xmlFreeDoc(doc);
    xsltFreeStylesheet(sheet);
    loaded = false;
    browser.SetPage(page, wxString());
    RunUntil([&loaded] { return loaded; });
  }
  browser.Unbind(wxEVT_WEBVIEW_LOADED, onLoaded);
  window.Close();
  trail->Clear();
}
BENCHMARK(AuditTrailPage10k_baseline)
    ->Name("AuditTrailPage10k/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void AddEvents(benchmark::State & state, bool withView) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  std::unique_ptr<AuditTrail> trail = MakeTrail(withView ? "add-view" : "add-bare", 100);
  ViewWindow window;
  if (withView) {
    window.Open();
    if (!Prepared(state, window)) return;
    window.view->SetAuditTrail(trail.get());
    RunUntil([&] { return Loaded(*window.view); });
  }
  Settle();
  for (auto _ : state) {
    for (int i = 0; i < 1000; ++i)
      trail->AddEvent("Sample measured.", "Plate 7, well B4, absorbance 0.4312", 0);
  }
  window.Close();
  trail->Clear();
}

void AuditTrailAddEventViewOpen_candidate(benchmark::State & state) { AddEvents(state, true); }
BENCHMARK(AuditTrailAddEventViewOpen_candidate)
    ->Name("AuditTrailAddEventViewOpen/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);

void AuditTrailAddEventViewOpen_baseline(benchmark::State & state) { AddEvents(state, false); }
BENCHMARK(AuditTrailAddEventViewOpen_baseline)
    ->Name("AuditTrailAddEventViewOpen/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);

}  // namespace
