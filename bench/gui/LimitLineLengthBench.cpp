// LimitLineLength::ByPixels on a text of 2,000 words in 400 pixels, beside
// the greedy wrap of a static text control: split at blanks, measure the
// line with the next word, break when it overflows. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/init.h>

#include <cstdint>
#include <string>

#include "Figures.h"
#include "dialogs/LimitLineLength.h"
#include "gui/GuiBench.h"

namespace {

TALVO_TIME_LIMIT("LimitLineLengthByPixels", 2e6);

size_t const WidthLimit = 400;

// Prose-like: 2,000 words of 1 to 4 syllables from a fixed seed, sentences
// of 6 to 21 words, a paragraph break every 150 words.
std::wstring TwoThousandWords() {
  wchar_t const * const syllables[] = {L"ka", L"lo",  L"mer", L"in",  L"ta", L"ve",  L"dor",
                                       L"si", L"pra", L"nu",  L"gel", L"es", L"tro", L"qua"};
  uint32_t seed = 12345;
  auto next = [&seed](uint32_t range) {
    seed = seed * 1664525u + 1013904223u;
    return (seed >> 8) % range;
  };
  std::wstring text;
  size_t sentenceLeft = 6 + next(16);
  for (int word = 0; word < 2000; ++word) {
    for (uint32_t s = 0, count = 1 + next(4); s < count; ++s) text += syllables[next(14)];
    if (--sentenceLeft == 0) {
      text += L'.';
      sentenceLeft = 6 + next(16);
    }
    text += (word + 1) % 150 == 0 ? L'\n' : L' ';
  }
  return text;
}

struct Measuring {
  wxBitmap bitmap{8, 8};
  wxMemoryDC dc{bitmap};
  Measuring() { dc.SetFont(wxFont(wxFontInfo(9).Family(wxFONTFAMILY_SWISS))); }
};

void LimitLineLengthByPixels_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Measuring measuring;
  std::wstring const text = TwoThousandWords();
  for (auto _ : state)
    benchmark::DoNotOptimize(LimitLineLength::ByPixels(text, measuring.dc, WidthLimit));
}
BENCHMARK(LimitLineLengthByPixels_candidate)
    ->Name("LimitLineLengthByPixels/candidate")
    ->Unit(benchmark::kMillisecond);

void LimitLineLengthByPixels_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Measuring measuring;
  wxString const text(TwoThousandWords());
  for (auto _ : state) {
    wxString wrapped;
    wxString line;
    size_t start = 0;
    while (start < text.length()) {
      size_t end = text.find_first_of(" \n", start);
      if (end == wxString::npos) end = text.length();
      wxString const word = text.substr(start, end - start);
      wxCoord width = 0;
      measuring.dc.GetTextExtent(line.empty() ? word : line + ' ' + word, &width, nullptr);
      if (!line.empty() && static_cast<size_t>(width) > WidthLimit) {
        wrapped += line + '\n';
        line = word;
      } else {
        line = line.empty() ? word : line + ' ' + word;
      }
      if (end < text.length() && text[end] == '\n') {
        wrapped += line + '\n';
        line.clear();
      }
      start = end + 1;
    }
    benchmark::DoNotOptimize(wrapped += line);
  }
}
BENCHMARK(LimitLineLengthByPixels_baseline)
    ->Name("LimitLineLengthByPixels/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
