// Rich text in and out of a rich edit: VxRichEdit::Read and Save of a
// 1 MB document of 10,000 formatted runs beside wxRichTextXMLHandler
// loading and saving the same document in the same control (followed by
// the same layout steps a file load takes). And the selection in
// user-perceived characters of a 100,000-character edit beside one
// Boost.Locale boundary pass over the same text. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include <wx/frame.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextxml.h>
#include <wx/sstream.h>
#include <boost/locale/boundary.hpp>
#include <boost/locale/generator.hpp>

#include "Figures.h"
#include "controls/RtfWriter.h"
#include "controls/VxEdit.h"
#include "controls/VxRichEdit.h"
#include "gui/GuiBench.h"

namespace {

TALVO_RATIO_LIMIT("RichEditRead", 1.0);
TALVO_RATIO_LIMIT("RichEditSave", 1.0);
TALVO_RATIO_LIMIT("GraphemeClusterSel", 1.2);

RichTextDocument MakeDocument() {
  RichTextDocument document;
  document.paragraphs.clear();
  std::wstring const words =
      L"Measured values of the run stay within their limits; the operator signs off. ";
  for (int p = 0; p < 1000; ++p) {
    RichTextParagraph & runs = document.paragraphs.emplace_back();
    for (int r = 0; r < 10; ++r) {
      RichTextRun run;
      run.format.bold = r % 2 == 1;
      run.format.underline = r % 3 == 1;
      run.format.autoColour = r % 4 != 0;
      run.format.colour = RGB(static_cast<BYTE>(r * 20), 0, 128);
      run.format.halfPoints = 20 + 2 * (r % 3);
      run.format.face = r % 2 == 0 ? L"Arial" : L"Times New Roman";
      run.text = words + std::to_wstring(p * 10 + r) + L" \u00e9";
      runs.push_back(run);
    }
  }
  return document;
}

struct Fixture {
  wxFrame * frame =
      new wxFrame(nullptr, wxID_ANY, "Rich text", wxDefaultPosition, wxSize(600, 400));
  VxRichEdit * edit = new VxRichEdit(frame, wxID_ANY);
  VxEdit * line = nullptr;
  std::string rtf;
  std::string xml;
  std::wstring text;
  Fixture() {
    edit->SetDocument(MakeDocument());
    rtf = WriteRtf(edit->GetDocument());
    wxStringOutputStream out;
    wxRichTextXMLHandler handler;
    handler.SaveFile(&edit->GetBuffer(), out);
    xml = out.GetString().utf8_string();
    for (int i = 0; text.size() < 100000; ++i)
      text += i % 7 == 0 ? L"e\u0301" : i % 11 == 0 ? L"\U0001F1EB\U0001F1F7" : L"a";
    line = new VxEdit(frame, wxID_ANY, wxString(text), wxDefaultPosition, wxDefaultSize,
                      wxTE_MULTILINE);
    line->SetSelection(10, static_cast<long>(line->GetLastPosition()));
    frame->Show();
  }
};

Fixture & Shown() {
  static Fixture fixture;
  return fixture;
}

void RichEditRead_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  for (auto _ : state) {
    std::istringstream in(f.rtf);
    f.edit->Read(in);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * f.rtf.size()));
}
BENCHMARK(RichEditRead_candidate)->Name("RichEditRead/candidate")->Unit(benchmark::kMillisecond);

void RichEditRead_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  wxRichTextXMLHandler handler;
  for (auto _ : state) {
    wxMemoryInputStream in(f.xml.data(), f.xml.size());
    f.edit->GetBuffer().ResetAndClearCommands();
    handler.LoadFile(&f.edit->GetBuffer(), in);
    f.edit->DiscardEdits();
    f.edit->SetInsertionPoint(0);
    f.edit->LayoutContent();
    f.edit->PositionCaret();
    f.edit->SetupScrollbars(true);
    f.edit->Refresh(false);
  }
}
BENCHMARK(RichEditRead_baseline)->Name("RichEditRead/baseline")->Unit(benchmark::kMillisecond);

void RichEditSave_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  f.edit->SetDocument(MakeDocument());
  for (auto _ : state) {
    std::ostringstream out;
    f.edit->Save(out);
    benchmark::DoNotOptimize(out.str().size());
  }
}
BENCHMARK(RichEditSave_candidate)->Name("RichEditSave/candidate")->Unit(benchmark::kMillisecond);

void RichEditSave_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  f.edit->SetDocument(MakeDocument());
  wxRichTextXMLHandler handler;
  for (auto _ : state) {
    wxStringOutputStream out;
    handler.SaveFile(&f.edit->GetBuffer(), out);
    benchmark::DoNotOptimize(out.GetString().size());
  }
}
BENCHMARK(RichEditSave_baseline)->Name("RichEditSave/baseline")->Unit(benchmark::kMillisecond);

void GraphemeClusterSel_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  for (auto _ : state) {
    int start = 0;
    int end = 0;
    f.line->GetGraphemeClusterSel(start, end);
    benchmark::DoNotOptimize(end);
  }
}
BENCHMARK(GraphemeClusterSel_candidate)
    ->Name("GraphemeClusterSel/candidate")
    ->Unit(benchmark::kMicrosecond);

void GraphemeClusterSel_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  boost::locale::generator generator;
  std::locale const locale = generator("en_US.UTF-8");
  namespace boundary = boost::locale::boundary;
  for (auto _ : state) {
    boundary::wssegment_index index(boundary::character, f.text.begin(), f.text.end(), locale);
    size_t count = 0;
    for (auto it = index.begin(); it != index.end(); ++it) ++count;
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(GraphemeClusterSel_baseline)
    ->Name("GraphemeClusterSel/baseline")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
