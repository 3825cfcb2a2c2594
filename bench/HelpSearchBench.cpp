// The help window's finding figures without a display: the index filter of
// 5,000 keywords for one keystroke (under 5 ms), beside a scan of every
// folded keyword for the prefix; and a two-word search over 2,000 topics
// (under 10 ms), beside a scan of every topic's folded text for both words.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "help/HelpIndex.h"
#include "help/HelpSearch.h"
#include "utl/CaseFolding.h"

namespace {

TALVO_TIME_LIMIT("HelpIndexFilter", 5e6);
TALVO_TIME_LIMIT("HelpSearch", 10e6);

constexpr int kKeywords = 5000;
constexpr int kTopics = 2000;
constexpr int kWordsPerTopic = 300;

// Words of a data-analysis help text, made up from syllables.
std::vector<std::string> const & Vocabulary() {
  static std::vector<std::string> const words = [] {
    char const * const syllables[] = {"cal",  "ib",   "ra",  "tion", "se", "ries", "run",  "peak",
                                      "base", "line", "sam", "ple",  "in", "te",   "gral", "Ä"};
    std::mt19937 random(7);
    std::vector<std::string> made;
    for (int i = 0; i < 3000; ++i) {
      std::string word;
      for (int s = 0, n = 2 + static_cast<int>(random() % 3); s < n; ++s)
        word += syllables[random() % 16];
      made.push_back(word);
    }
    return made;
  }();
  return words;
}

Sitemap Keywords() {
  Sitemap map;
  std::mt19937 random(11);
  for (int i = 0; i < kKeywords; ++i) {
    std::string const & word = Vocabulary()[random() % Vocabulary().size()];
    map.entries.push_back(SitemapEntry{word + " " + std::to_string(i), {"t.htm"}, {}});
  }
  map.entryCount = kKeywords;
  return map;
}

// What a user types, one keystroke more each time.
std::vector<std::string> const kTyped{"c", "ca", "cal", "cali", "calib", "s", "se", "ser"};

void HelpIndexFilter_candidate(benchmark::State & state) {
  HelpIndex const index(Keywords());
  size_t keystroke = 0;
  for (auto _ : state) {
    HelpIndexRange const range = index.Filter(kTyped[keystroke++ % kTyped.size()]);
    benchmark::DoNotOptimize(range.first);
  }
}
BENCHMARK(HelpIndexFilter_candidate)
    ->Name("HelpIndexFilter/candidate")
    ->Unit(benchmark::kMicrosecond);

void HelpIndexFilter_baseline(benchmark::State & state) {
  std::vector<std::u32string> folded;
  for (SitemapEntry const & entry : Keywords().entries) {
    folded.emplace_back();
    vx3::AppendFoldedFull(entry.name, folded.back());
  }
  size_t keystroke = 0;
  for (auto _ : state) {
    std::u32string prefix;
    vx3::AppendFoldedFull(kTyped[keystroke++ % kTyped.size()], prefix);
    size_t matches = 0;
    for (std::u32string const & keyword : folded)
      matches += keyword.compare(0, prefix.size(), prefix) == 0 ? 1 : 0;
    benchmark::DoNotOptimize(matches);
  }
}
BENCHMARK(HelpIndexFilter_baseline)
    ->Name("HelpIndexFilter/baseline")
    ->Unit(benchmark::kMicrosecond);

std::vector<std::string> const & TopicTexts() {
  static std::vector<std::string> const texts = [] {
    std::mt19937 random(3);
    std::vector<std::string> made;
    for (int t = 0; t < kTopics; ++t) {
      std::string text;
      for (int w = 0; w < kWordsPerTopic; ++w)
        text += Vocabulary()[random() % Vocabulary().size()] + " ";
      made.push_back(text);
    }
    return made;
  }();
  return texts;
}

std::string const kQuery = Vocabulary()[10] + " " + Vocabulary()[20];

void HelpSearch_candidate(benchmark::State & state) {
  HelpSearchIndex index;
  for (int t = 0; t < kTopics; ++t) index.AddTopic(static_cast<uint32_t>(t), TopicTexts()[t]);
  index.Finish();
  for (auto _ : state) {
    std::vector<uint32_t> const found = index.Find(kQuery);
    benchmark::DoNotOptimize(found.data());
  }
}
BENCHMARK(HelpSearch_candidate)->Name("HelpSearch/candidate")->Unit(benchmark::kMicrosecond);

void HelpSearch_baseline(benchmark::State & state) {
  std::vector<std::string> folded;
  for (std::string const & text : TopicTexts()) {
    std::u32string codes;
    vx3::AppendFoldedFull(text, codes);
    folded.push_back(vx3::Utf32ToUtf8(codes));
  }
  std::vector<std::string> const words = SplitHelpWords(kQuery);
  for (auto _ : state) {
    std::vector<uint32_t> found;
    for (size_t t = 0; t < folded.size(); ++t) {
      bool all = true;
      for (std::string const & word : words) all = all && folded[t].find(word) != std::string::npos;
      if (all) found.push_back(static_cast<uint32_t>(t));
    }
    benchmark::DoNotOptimize(found.data());
  }
}
BENCHMARK(HelpSearch_baseline)->Name("HelpSearch/baseline")->Unit(benchmark::kMicrosecond);

// Building the word index on first use, for the record: a few thousand
// topics must index in well under a second.
void HelpWordIndexBuild_candidate(benchmark::State & state) {
  for (auto _ : state) {
    HelpSearchIndex index;
    for (int t = 0; t < kTopics; ++t) index.AddTopic(static_cast<uint32_t>(t), TopicTexts()[t]);
    index.Finish();
    benchmark::DoNotOptimize(index.WordCount());
  }
}
BENCHMARK(HelpWordIndexBuild_candidate)
    ->Name("HelpWordIndexBuild/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace
