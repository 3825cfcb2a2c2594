// Settings files: load and save beside a bare Xerces-C DOM parse and
// serialisation of the same file, and the growth of indexed sections from
// 10,000 to 30,000 and 100,000: the time per section must stay flat, within
// a fifth, as the file grows.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstdlib>
#include <memory>
#include <string>

#include "Figures.h"
#include "utl/XercesXMLSection.h"

namespace {

TALVO_RATIO_LIMIT("SettingsLoadSave", 1.5);
TALVO_RATIO_LIMIT("IndexedSectionsGrowth", 12);
TALVO_RATIO_LIMIT("IndexedSectionsMiddle", 3.6);

std::string BenchPath(char const * name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-" + name;
}

// 10,000 keys in 100 sections, the values of realistic length.
std::string const & TenThousandKeysFile() {
  static std::string const path = [] {
    std::string file = BenchPath("settings.kvxml");
    XercesXMLSection root(file.c_str(), true);
    for (int s = 0; s < 100; ++s) {
      std::unique_ptr<ConfigurationSection> section(
          root.CreateSubSection(("Subsystem" + std::to_string(s)).c_str()));
      for (int k = 0; k < 100; ++k)
        section->WriteKey(("Setting" + std::to_string(k)).c_str(),
                          "value " + std::to_string(s * 100 + k) + " of a typical length");
    }
    root.Flush();
    return file;
  }();
  return path;
}

void SettingsLoadSave_candidate(benchmark::State & state) {
  std::string const & path = TenThousandKeysFile();
  for (auto _ : state) {
    XercesXMLSection root(path.c_str(), false);
    benchmark::DoNotOptimize(root.Flush());
  }
}
BENCHMARK(SettingsLoadSave_candidate)
    ->Name("SettingsLoadSave/candidate")
    ->Unit(benchmark::kMillisecond);

void SettingsLoadSave_baseline(benchmark::State & state) {
  using namespace xercesc;
  std::string const & path = TenThousandKeysFile();
  std::string const copy = BenchPath("settings-bare.xml");
  XMLPlatformUtils::Initialize();
  {
    DOMImplementation * implementation = DOMImplementationRegistry::getDOMImplementation(u"LS");
    for (auto _ : state) {
      XercesDOMParser parser;
      parser.parse(path.c_str());
      DOMLSSerializer * serializer = implementation->createLSSerializer();
      DOMLSOutput * output = implementation->createLSOutput();
      LocalFileFormatTarget target(copy.c_str());
      output->setByteStream(&target);
      serializer->write(parser.getDocument(), output);
      output->release();
      serializer->release();
    }
  }
  XMLPlatformUtils::Terminate();
  ::unlink(copy.c_str());
}
BENCHMARK(SettingsLoadSave_baseline)
    ->Name("SettingsLoadSave/baseline")
    ->Unit(benchmark::kMillisecond);

// Create `count` favourites-like indexed sections, flush, reload, read all.
void IndexedSections(benchmark::State & state, int count) {
  std::string const path = BenchPath("indexed.kvxml");
  // Both sizes start from a heap that holds nothing of an earlier run, so
  // that the smaller one does not reuse pages the larger one mapped.
  ::malloc_trim(0);
  for (auto _ : state) {
    ::unlink(path.c_str());
    {
      XercesXMLSection root(path.c_str(), true);
      std::unique_ptr<ConfigurationSection> favourites(root.CreateSubSection("Favourites"));
      for (int i = 1; i <= count; ++i) {
        std::unique_ptr<ConfigurationSection> item(
            favourites->CreateSubSection("FavouriteItem", i));
        item->WriteKey("Name", "Item " + std::to_string(i));
        item->WriteKey("Type", "FileItem");
        item->WriteInt("_IndentLevel", i % 3);
      }
      root.Flush();
    }
    XercesXMLSection reloaded(path.c_str(), false);
    reloaded.ChangeSubSection("Favourites");
    int const found = reloaded.NumSubSections("FavouriteItem");
    long long sum = 0;
    for (int i = 1; i <= found; ++i) {
      std::unique_ptr<ConfigurationSection> item(
          reloaded.CopyAndChangeSubSection("FavouriteItem", i));
      std::string name;
      int level = 0;
      item->ReadKey("Name", name);
      item->ReadInt("_IndentLevel", level);
      sum += level + static_cast<long long>(name.size());
    }
    if (found != count) state.SkipWithError("sections lost");
    benchmark::DoNotOptimize(sum);
  }
  ::unlink(path.c_str());
}

void IndexedSectionsGrowth_candidate(benchmark::State & state) { IndexedSections(state, 100000); }
BENCHMARK(IndexedSectionsGrowth_candidate)
    ->Name("IndexedSectionsGrowth/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void IndexedSectionsGrowth_baseline(benchmark::State & state) { IndexedSections(state, 10000); }
BENCHMARK(IndexedSectionsGrowth_baseline)
    ->Name("IndexedSectionsGrowth/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// The size between, so that a growth shows where it starts.
void IndexedSectionsMiddle_candidate(benchmark::State & state) { IndexedSections(state, 30000); }
BENCHMARK(IndexedSectionsMiddle_candidate)
    ->Name("IndexedSectionsMiddle/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

BENCHMARK(IndexedSectionsGrowth_baseline)
    ->Name("IndexedSectionsMiddle/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace
