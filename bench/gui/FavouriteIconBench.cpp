// Icons of file favourites: FavouritesManager::GetIcon for 1,000 files of 20
// types, warm (each type's icon already looked up once), beside
// wxMimeTypesManager asked for the same files' icons. The manager keeps one
// icon per content type, so a long list costs a name guess and a lookup a
// file: at most a fifth of the peer, and under 2 µs a file. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include <wx/icon.h>
#include <wx/iconloc.h>
#include <wx/mimetype.h>

#include "Figures.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouritesManager.h"
#include "gui/GuiBench.h"

namespace {

constexpr int kFiles = 1000;

TALVO_RATIO_LIMIT("FavouriteFileIcons", 0.2);
TALVO_TIME_LIMIT("FavouriteFileIcons", 2000.0 * kFiles);

wchar_t const * const kExtensions[20] = {L"txt", L"csv", L"png",  L"jpg", L"pdf", L"html", L"xml",
                                         L"zip", L"gz",  L"tar",  L"c",   L"cpp", L"h",    L"py",
                                         L"sh",  L"svg", L"json", L"odt", L"ods", L"mp3"};

std::vector<wxString> const & Files() {
  static std::vector<wxString> const files = [] {
    std::vector<wxString> list;
    list.reserve(kFiles);
    for (int i = 0; i < kFiles; ++i)
      list.push_back(wxString::Format(L"/home/analyst/runs/file-%d.%ls", i, kExtensions[i % 20]));
    return list;
  }();
  return files;
}

void FavouriteFileIcons_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  FavouritesManager manager;
  std::vector<std::unique_ptr<FavouriteFileItem>> items;
  for (wxString const & file : Files())
    items.push_back(
        std::make_unique<FavouriteFileItem>(wxFileNameFromPath(file).wc_str(), file.wc_str()));
  wxIcon normal;
  wxIcon expanded;
  for (auto const & item : items) manager.GetIcon(item.get(), normal, expanded);  // warm
  for (auto _ : state) {
    for (auto const & item : items) {
      manager.GetIcon(item.get(), normal, expanded);
      benchmark::DoNotOptimize(normal.IsOk());
    }
  }
  state.SetItemsProcessed(state.iterations() * kFiles);
}
BENCHMARK(FavouriteFileIcons_candidate)
    ->Name("FavouriteFileIcons/candidate")
    ->Unit(benchmark::kMicrosecond);

// What wx offers for the same question: the file type by extension, its
// icon's location, and the icon loaded from there, for every file.
void FavouriteFileIcons_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  for (auto _ : state) {
    for (wxString const & file : Files()) {
      wxIcon icon;
      std::unique_ptr<wxFileType> const type(
          wxTheMimeTypesManager->GetFileTypeFromExtension(file.AfterLast('.')));
      wxIconLocation location;
      if (type && type->GetIcon(&location) && location.IsOk()) icon = wxIcon(location);
      benchmark::DoNotOptimize(icon.IsOk());
    }
  }
  state.SetItemsProcessed(state.iterations() * kFiles);
}
BENCHMARK(FavouriteFileIcons_baseline)
    ->Name("FavouriteFileIcons/baseline")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
