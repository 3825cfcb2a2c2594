// The about dialog from the call to its first paint, beside
// wxGenericAboutDialog with the same name, version, notices and picture,
// also to its first paint. And the sample's about markup read, turned into
// HTML and laid out by an HTML window, beside the layout alone of the same
// HTML written by hand: the reading must stay under 2 ms. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <string>

#include <wx/aboutdlg.h>
#include <wx/filesys.h>
#include <wx/frame.h>
#include <wx/fs_mem.h>
#include <wx/generic/aboutdlgg.h>
#include <wx/html/htmlwin.h>

#include "Figures.h"
#include "frame/AboutDialog.h"
#include "frame/AboutMarkupHtml.h"
#include "frame/AboutMarkupReader.h"
#include "gui/GuiBench.h"
#include "gui/ModalUntil.h"
#include "platform/ResourceModule.h"
#include "utl/VxSystemInfo.h"

namespace {

TALVO_RATIO_LIMIT("AboutDialogOpen", 1.0);
TALVO_TIME_LIMIT("AboutMarkupRender", 2e6);

constexpr unsigned int kPicture = 13024;
wchar_t const FirstNotice[] = L"Copyright \u00a9 Karvinel. All rights reserved.";
wchar_t const SecondNotice[] =
    L"This program is protected by copyright law. Copying or passing on this program, or any "
    L"part of it, without permission is not allowed.";

void AboutDialogOpen_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    AboutDialog dialog(nullptr, "Analyzer", kPicture, FirstNotice, SecondNotice, true);
    benchmark::DoNotOptimize(dialog.DoModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(AboutDialogOpen_candidate)
    ->Name("AboutDialogOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void AboutDialogOpen_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    wxAboutDialogInfo info;
    info.SetName("Analyzer");
    info.SetVersion("6.3.2 (build 1234)");
    info.SetCopyright(FirstNotice);
    info.SetDescription(SecondNotice);
    wxIcon icon;
    icon.CopyFromBitmap(LoadResourceBitmap(kPicture));
    info.SetIcon(icon);
    wxGenericAboutDialog dialog(info, nullptr);
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(AboutDialogOpen_baseline)
    ->Name("AboutDialogOpen/baseline")
    ->Unit(benchmark::kMillisecond);

// The sample package's markup with its picture replaced by its icon number,
// as the package hands it out.
std::string const & SampleMarkup() {
  static std::string const markup = [] {
    std::ifstream file(TALVO_SAMPLE_PACKAGE_DIR "/about_us.xaml", std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    std::string text = bytes.str();
    std::string const name = "file://app-48.png";
    if (size_t const at = text.find(name); at != std::string::npos)
      text.replace(at, name.size(), "1");
    return text;
  }();
  return markup;
}

// A hidden frame with an HTML window of the maker's page size, and the
// picture in place.
wxHtmlWindow & Page() {
  static wxHtmlWindow * page = [] {
    wxFileSystem::AddHandler(new wxMemoryFSHandler);
    wxMemoryFSHandler::AddFile("bench-about-1.png", LoadResourceBitmap(kPicture),
                               wxBITMAP_TYPE_PNG);
    auto * frame = new wxFrame(nullptr, wxID_ANY, "about markup");
    return new wxHtmlWindow(frame, wxID_ANY, wxDefaultPosition, wxSize(480, 300));
  }();
  return *page;
}

std::string Resolve(std::string const &) { return "memory:bench-about-1.png"; }

void AboutMarkupRender_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  if (SampleMarkup().empty()) {
    state.SkipWithError("the sample's about_us.xaml is missing");
    return;
  }
  wxHtmlWindow & page = Page();
  for (auto _ : state) {
    AboutMarkup const markup = ReadAboutMarkup(SampleMarkup(), "(sample)");
    page.SetPage(wxString::FromUTF8(RenderAboutMarkupHtml(markup, Resolve)));
  }
}
BENCHMARK(AboutMarkupRender_candidate)
    ->Name("AboutMarkupRender/candidate")
    ->Unit(benchmark::kMicrosecond);

void AboutMarkupRender_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  wxHtmlWindow & page = Page();
  // The same page as the reader writes it, ready made.
  wxString const html = wxString::FromUTF8(
      RenderAboutMarkupHtml(ReadAboutMarkup(SampleMarkup(), "(sample)"), Resolve));
  for (auto _ : state) page.SetPage(html);
}
BENCHMARK(AboutMarkupRender_baseline)
    ->Name("AboutMarkupRender/baseline")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
