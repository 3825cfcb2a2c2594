// A help topic shown by the help control (NavigateChm: the "its:" address
// served from the help file) until the browser's load event, beside the
// same control's browser loading the same files extracted to disk through
// a file: URL. Part of talvo-bench-gui: WebKit needs a display.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/webview.h>

#include "ChmWriter.h"
#include "Figures.h"
#include "gui/GuiBench.h"
#include "help/CHHCtrl.h"

namespace fs = std::filesystem;

namespace {

TALVO_RATIO_LIMIT("NavigateChmTopic", 1.2);

// A topic of 200 KB with a style sheet and a picture, as a help file and as
// the same files on disk.
fs::path const & Folder() {
  static fs::path const folder = [] {
    char const * tmp = std::getenv("TMPDIR");
    fs::path made = fs::path(tmp != nullptr ? tmp : "/tmp") / "talvo-bench-chm-topic";
    fs::create_directories(made / "files");
    std::string page = "<html><head><link rel=stylesheet href=style.css></head><body>";
    for (int row = 0; page.size() < 200000; ++row)
      page += "<p>Row " + std::to_string(row) + ": the help topic text goes on.</p>\n";
    page += "<img src=picture.bmp></body></html>";
    std::string const css = "body { font-family: sans-serif } p { margin: 2px }";
    std::string picture(54 + 64 * 64 * 3, '\x40');  // a plain 64x64 BMP
    picture.replace(0, 2, "BM");
    auto const put = [&picture](std::size_t at, std::uint32_t v) {
      for (int i = 0; i < 4; ++i) picture[at + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
    };
    put(2, static_cast<std::uint32_t>(picture.size()));
    put(6, 0);
    put(10, 54);
    put(14, 40);
    put(18, 64);
    put(22, 64);
    put(26, 1 | (24 << 16));
    put(30, 0);
    std::vector<chmwriter::ChmFile> const files = {
        {"/topic.htm", page}, {"/style.css", css}, {"/picture.bmp", picture}};
    for (auto const & f : files) {
      std::ofstream out(made / "files" / f.name.substr(1), std::ios::binary);
      out << f.bytes;
    }
    std::ofstream out(made / "topic.chm", std::ios::binary);
    out << chmwriter::BuildChm(files);
    return made;
  }();
  return folder;
}

CHHCtrl * Control() {
  static CHHCtrl * const control = [] {
    auto * frame = new wxFrame(nullptr, wxID_ANY, "Help", wxDefaultPosition, wxSize(800, 600));
    auto * made = new CHHCtrl;
    std::wstring const path = (Folder() / "topic.chm").wstring();
    made->Create(frame, wxRect(0, 0, 800, 600), wxID_ANY, path.c_str());
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(made, 1, wxEXPAND);
    frame->SetSizer(sizer);
    frame->Show();
    return made;
  }();
  return control;
}

template <typename Done>
void RunUntil(Done done) {
  while (!done()) {
    g_main_context_iteration(nullptr, TRUE);
    wxTheApp->ProcessPendingEvents();
  }
}

// Counts the browser's load events, the same for both sides.
struct LoadCounter {
  explicit LoadCounter(wxWebView & view) : browser(view) {
    browser.Bind(wxEVT_WEBVIEW_LOADED, &LoadCounter::OnLoaded, this);
  }
  ~LoadCounter() { browser.Unbind(wxEVT_WEBVIEW_LOADED, &LoadCounter::OnLoaded, this); }
  void OnLoaded(wxWebViewEvent & event) {
    ++loads;
    event.Skip();
  }
  void Wait(int before) {
    RunUntil([this, before] { return loads > before; });
  }
  wxWebView & browser;
  int loads = 0;
};

bool Prepared(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return false;
  }
  if (Control()->GetBrowser() == nullptr) {
    state.SkipWithError("no browser could be made");
    return false;
  }
  return true;
}

void NavigateChmTopic_candidate(benchmark::State & state) {
  if (!Prepared(state)) return;
  LoadCounter counter(*Control()->GetBrowser()->GetWebView());
  for (auto _ : state) {
    int const before = counter.loads;
    Control()->NavigateChm(L"/topic.htm");
    counter.Wait(before);
  }
}
BENCHMARK(NavigateChmTopic_candidate)
    ->Name("NavigateChmTopic/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

void NavigateChmTopic_baseline(benchmark::State & state) {
  if (!Prepared(state)) return;
  LoadCounter counter(*Control()->GetBrowser()->GetWebView());
  wxString const url = "file://" + (Folder() / "files" / "topic.htm").string();
  for (auto _ : state) {
    int const before = counter.loads;
    Control()->GetBrowser()->LoadURL(url);
    counter.Wait(before);
  }
}
BENCHMARK(NavigateChmTopic_baseline)
    ->Name("NavigateChmTopic/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

}  // namespace
