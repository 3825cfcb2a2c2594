// Favourites read back from a file: FavouriteBuilder::Load over 10,000
// stored items (half commands, half files) beside bare ReadKey/ReadInt of
// the same keys, so the factory, the prototype copies and the items' own
// Load cost at most 30 % more than reading the values themselves.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "Figures.h"
#include "favourites/FavouriteBuilder.h"
#include "utl/XercesXMLSection.h"

namespace {

TALVO_RATIO_LIMIT("FavouriteBuilderLoad", 1.3);

constexpr int kItems = 10000;

using Sections = std::vector<boost::shared_ptr<ConfigurationSection>>;

// The file as SaveFavourites writes it, parsed once; the figure is the
// reading of its sections.
struct StoredFavourites {
  XercesXMLSection file;
  std::unique_ptr<Sections> rows;

  StoredFavourites() {
    std::unique_ptr<ConfigurationSection> const root(file.CreateSubSection("Favourites"));
    for (int i = 0; i < kItems; ++i) {
      std::unique_ptr<ConfigurationSection> const row(
          root->CreateSubSection("FavouriteItem", i + 1));
      if (i % 2 == 0) {
        row->WriteKey("Name", (L"Run report " + std::to_wstring(i)).c_str());
        row->WriteKey("Type", L"CommandItem");
        row->WriteInt("CommandID", 32768 + (i % 500));
      } else {
        row->WriteKey("Name", (L"Measurement " + std::to_wstring(i)).c_str());
        row->WriteKey("Type", L"FileItem");
        std::wstring const path =
            L"/home/analyst/runs/measurement-" + std::to_wstring(i) + L".vart";
        row->WriteKey("File", path.c_str());
      }
    }
    rows.reset(root->GetAllSubSections("FavouriteItem"));
  }
};

StoredFavourites const & Stored() {
  static StoredFavourites const stored;
  return stored;
}

void FavouriteBuilderLoad_candidate(benchmark::State & state) {
  Sections const & rows = *Stored().rows;
  FavouriteBuilder const & builder = *FavouriteBuilder::Instance();
  for (auto _ : state) {
    int built = 0;
    for (auto const & row : rows) {
      std::unique_ptr<FavouriteItem> const item(builder.Load(row.get()));
      built += item != nullptr ? 1 : 0;
    }
    // A builder that made nothing would be fast for the wrong reason.
    if (built != kItems) {
      state.SkipWithError("the builder did not rebuild every item");
      return;
    }
  }
  state.SetItemsProcessed(state.iterations() * kItems);
}
BENCHMARK(FavouriteBuilderLoad_candidate)
    ->Name("FavouriteBuilderLoad/candidate")
    ->Unit(benchmark::kMillisecond);

void FavouriteBuilderLoad_baseline(benchmark::State & state) {
  Sections const & rows = *Stored().rows;
  for (auto _ : state) {
    for (auto const & row : rows) {
      std::wstring type;
      std::wstring name;
      std::wstring file;
      int command = 0;
      row->ReadKey("Type", type);
      row->ReadKey("Name", name);
      if (type == L"CommandItem")
        row->ReadInt("CommandID", command);
      else
        row->ReadKey("File", file);
      benchmark::DoNotOptimize(name.data());
      benchmark::DoNotOptimize(file.data());
      benchmark::DoNotOptimize(command);
    }
  }
  state.SetItemsProcessed(state.iterations() * kItems);
}
BENCHMARK(FavouriteBuilderLoad_baseline)
    ->Name("FavouriteBuilderLoad/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
