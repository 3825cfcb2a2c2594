// The favourites tree beside the bare work it stands on: loading 10,000
// favourites in three levels (FavouriteBuilder::Load and InsertItem of the
// same rows), saving them (the same keys written straight into the
// section, Flush included), an idle pass over 5,000 rows of which 1,000 are
// files (the 1,000 stat calls it needs) and painting 40 rows (a plain
// VxTreeCtrl with the same rows and icons). Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <sys/stat.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <boost/shared_ptr.hpp>

#include "Figures.h"
#include "favourites/FavouriteBuilder.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "gui/TreeBenchHost.h"
#include "utl/XercesXMLSection.h"

namespace {

TALVO_RATIO_LIMIT("FavouritesTreeLoad", 1.3);
TALVO_RATIO_LIMIT("FavouritesTreeSave", 1.2);
TALVO_RATIO_LIMIT("FavouritesIdlePass", 1.5);
TALVO_RATIO_LIMIT("FavouritesTreePaint", 1.1);

constexpr int kLoadRows = 10000;
using Sections = std::vector<boost::shared_ptr<ConfigurationSection>>;

using tree_bench::Hosted;
using tree_bench::PaintPages;
using tree_bench::Started;

// Level of row i: folders of 10 sub-folders of 10 leaves, three levels.
int LevelOf(int i) { return i % 111 == 0 ? 0 : (i % 111 - 1) % 11 == 0 ? 1 : 2; }

std::string TempFile(char const * name) {
  return (wxFileName::GetTempDir() + "/" + name).utf8_string();
}

// The stored form of the bench's rows, as the tree writes them: folders on
// the first two levels, commands below.
void WriteRows(ConfigurationSection & root) {
  for (int i = 0; i < kLoadRows; ++i) {
    std::unique_ptr<ConfigurationSection> const row(root.CreateSubSection("FavouriteItem", i + 1));
    int const level = LevelOf(i);
    row->WriteKey("Name", (L"Favourite " + std::to_wstring(i)).c_str());
    if (level < 2) {
      row->WriteKey("Type", L"FavouritesFolder");
      row->WriteBool("TreatAsItem", false);
      row->WriteKey("EmptyFolderText", L"");
      row->WriteKey("DefaultItemType", L"");
    } else {
      row->WriteKey("Type", L"CommandItem");
      row->WriteInt("CommandID", 32768 + i % 500);
    }
    row->WriteInt("_IndentLevel", level);
    row->WriteInt("_Style", level == 0 ? 2 : 0);
  }
}

struct StoredTree {
  XercesXMLSection file;
  std::unique_ptr<Sections> rows;
  StoredTree() {
    std::unique_ptr<ConfigurationSection> const root(file.CreateSubSection("Favourites"));
    WriteRows(*root);
    rows.reset(root->GetAllSubSections("FavouriteItem"));
  }
};

StoredTree const & Stored() {
  static StoredTree const stored;
  return stored;
}

// --- Loading ------------------------------------------------------------------

void Load_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  FavouritesManager manager;  // outlives the tree, which tells it when it goes away
  Hosted<FavouritesTree> host;
  host.tree->SetFavouritesManager(&manager);
  auto * const section = const_cast<XercesXMLSection *>(&Stored().file);
  for (auto _ : state) {
    host.tree->Serialize(section, false, -1);
    state.PauseTiming();
    if (host.tree->GetCount() != kLoadRows) state.SkipWithError("rows were lost");
    host.tree->DeleteTree();
    state.ResumeTiming();
  }
}
BENCHMARK(Load_candidate)->Name("FavouritesTreeLoad/candidate")->Unit(benchmark::kMillisecond);

void Load_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  FavouriteBuilder const & builder = *FavouriteBuilder::Instance();
  for (auto _ : state) {
    // The rows are found in the file, as the tree finds them.
    std::unique_ptr<ConfigurationSection> const root(
        Stored().file.CopyAndChangeSubSection("Favourites"));
    std::unique_ptr<Sections> const rows(root->GetAllSubSections("FavouriteItem"));
    HTREEITEM parents[3] = {TVI_ROOT, TVI_ROOT, TVI_ROOT};
    for (auto const & row : *rows) {
      int level = 0;
      row->ReadInt("_IndentLevel", level);
      FavouriteItem * const item = builder.Load(row.get());
      HTREEITEM const inserted = host.tree->InsertItem(item->GetName(), parents[level], TVI_LAST);
      host.tree->SetItemData(inserted, reinterpret_cast<DWORD_PTR>(item));
      if (level < 2) parents[level + 1] = inserted;
    }
    state.PauseTiming();
    for (HTREEITEM at = host.tree->GetRootItem(); at; at = host.tree->GetNextItem(at))
      delete reinterpret_cast<FavouriteItem *>(host.tree->GetItemData(at));
    host.tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(Load_baseline)->Name("FavouritesTreeLoad/baseline")->Unit(benchmark::kMillisecond);

// --- Saving -------------------------------------------------------------------

void Save_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  FavouritesManager manager;
  Hosted<FavouritesTree> host;
  host.tree->SetFavouritesManager(&manager);
  host.tree->Serialize(const_cast<XercesXMLSection *>(&Stored().file), false, -1);
  std::string const path = TempFile("bench-favourites-candidate.xml");
  for (auto _ : state) {
    XercesXMLSection file(path.c_str(), true);
    host.tree->Serialize(&file, true, -1);
    if (!file.Flush()) state.SkipWithError("the file was not written");
  }
  std::remove(path.c_str());
}
BENCHMARK(Save_candidate)->Name("FavouritesTreeSave/candidate")->Unit(benchmark::kMillisecond);

void Save_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  std::string const path = TempFile("bench-favourites-baseline.xml");
  for (auto _ : state) {
    XercesXMLSection file(path.c_str(), true);
    std::unique_ptr<ConfigurationSection> const root(file.CreateSubSection("Favourites"));
    root->WriteKey("AppName", "Bench");
    root->WriteKey("Version", "1.0");
    WriteRows(*root);
    if (!file.Flush()) state.SkipWithError("the file was not written");
  }
  std::remove(path.c_str());
}
BENCHMARK(Save_baseline)->Name("FavouritesTreeSave/baseline")->Unit(benchmark::kMillisecond);

// --- An idle pass ---------------------------------------------------------------

constexpr int kIdleRows = 5000;
constexpr int kIdleFiles = 1000;

std::vector<std::string> const & IdleFiles() {
  static std::vector<std::string> const files = [] {
    std::vector<std::string> made;
    made.reserve(kIdleFiles);
    for (int i = 0; i < kIdleFiles; ++i) {
      made.push_back(TempFile(("bench-favourite-" + std::to_string(i) + ".txt").c_str()));
      if (FILE * const file = std::fopen(made.back().c_str(), "w")) std::fclose(file);
    }
    return made;
  }();
  return files;
}

// Rows as stored: (type, level, name or path).
struct Row {
  char const * type;
  int level;
  std::string text;
};

void LoadRows(FavouritesTree & tree, std::vector<Row> const & rows) {
  XercesXMLSection file;
  {
    std::unique_ptr<ConfigurationSection> const root(file.CreateSubSection("Favourites"));
    int number = 1;
    for (Row const & row : rows) {
      std::unique_ptr<ConfigurationSection> const out(
          root->CreateSubSection("FavouriteItem", number++));
      out->WriteKey("Type", row.type);
      out->WriteKey("Name", row.text.c_str());
      if (std::string(row.type) == "FileItem") out->WriteKey("File", row.text.c_str());
      out->WriteInt("_IndentLevel", row.level);
    }
  }
  tree.Serialize(&file, false, -1);
}

void IdlePass_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  FavouritesManager manager;
  Hosted<FavouritesTree> host;
  host.tree->SetFavouritesManager(&manager);
  std::vector<std::string> const & files = IdleFiles();
  std::vector<Row> rows;
  rows.reserve(kIdleRows);
  for (int i = 0; i < kIdleRows; ++i) {
    if (i % 50 == 0)
      rows.push_back({"FavouritesFolder", 0, "Folder"});
    else if (i % 5 == 1 && i / 5 < kIdleFiles)
      rows.push_back({"FileItem", 1, files[size_t(i / 5)]});
    else
      rows.push_back({"FavouritesFolder", 1, "Sub"});
  }
  LoadRows(*host.tree, rows);
  host.tree->UpdateAllItems();
  UINT const count = host.tree->GetCount();
  for (auto _ : state) {
    host.tree->UpdateAllItems();
    if (host.tree->GetCount() != count) state.SkipWithError("the pass changed the tree");
  }
}
BENCHMARK(IdlePass_candidate)->Name("FavouritesIdlePass/candidate")->Unit(benchmark::kMicrosecond);

void IdlePass_baseline(benchmark::State & state) {
  std::vector<std::string> const & files = IdleFiles();
  for (auto _ : state) {
    int found = 0;
    for (std::string const & path : files) {
      struct stat status {};
      found += ::stat(path.c_str(), &status) == 0 ? 1 : 0;
    }
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(IdlePass_baseline)->Name("FavouritesIdlePass/baseline")->Unit(benchmark::kMicrosecond);

// --- Painting 40 rows -----------------------------------------------------------

void Paint_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  FavouritesManager manager;
  Hosted<FavouritesTree> host;
  host.tree->SetFavouritesManager(&manager);
  host.tree->SetSize(400, 40 * host.tree->GetItemHeight());
  std::vector<Row> rows;
  rows.reserve(40);
  for (int i = 0; i < 40; ++i) rows.push_back({"FileItem", 0, IdleFiles()[size_t(i)]});
  LoadRows(*host.tree, rows);
  host.tree->ClearSelection();
  PaintPages(state, *host.tree);
}
BENCHMARK(Paint_candidate)->Name("FavouritesTreePaint/candidate")->Unit(benchmark::kMicrosecond);

void Paint_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  FavouritesManager manager;
  Hosted<VxTreeCtrl> host;
  host.tree->SetImageList(&manager.GetStandardImageList(), TVSIL_NORMAL);
  host.tree->SetSize(400, 40 * host.tree->GetItemHeight());
  for (int i = 0; i < 40; ++i)
    host.tree->InsertItem(wxString::FromUTF8(IdleFiles()[size_t(i)]),
                          FavouritesManager::kMissingFileIconImage,
                          FavouritesManager::kMissingFileIconImage);
  PaintPages(state, *host.tree);
  host.tree->SetImageList(nullptr, TVSIL_NORMAL);
}
BENCHMARK(Paint_baseline)->Name("FavouritesTreePaint/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
