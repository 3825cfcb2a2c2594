// The tree view (CTreeCtrl) beside wx's generic tree, which is what GTK
// would give otherwise: walking 20,000 siblings, inserting 100,000 items in
// 1,000 groups, and painting a page of 40 rows. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/treectrl.h>  // on GTK: wxGenericTreeCtrl

#include "Figures.h"
#include "gui/GuiBench.h"
#include "platform/commctrl/CTreeCtrl.h"

namespace {

TALVO_RATIO_LIMIT("TreeWalkSiblings", 0.02);
TALVO_TIME_LIMIT("TreeWalkSiblings", 1e6);
TALVO_RATIO_LIMIT("TreeInsertGroups", 1.0);
TALVO_RATIO_LIMIT("TreePaintPage", 1.0);

constexpr int Siblings = 20000;
constexpr int Groups = 1000;
constexpr int PerGroup = 99;  // with the groups themselves: 100,000 items
constexpr int PageRows = 40;

// A frame holding one tree of either kind, big enough for a page of rows.
struct Host {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "tree bench", wxPoint(0, 0), wxSize(400, 900));
  ~Host() { DestroyNow(frame); }
  Host() = default;
  Host(Host const &) = delete;
  Host & operator=(Host const &) = delete;
};

bool NeedDisplay(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

wxString const & Label(int i) {
  static std::vector<wxString> const labels = [] {
    std::vector<wxString> all;
    all.reserve(Siblings);
    for (int n = 0; n < Siblings; ++n) all.push_back(wxString::Format("Run %05d of the batch", n));
    return all;
  }();
  return labels[static_cast<size_t>(i % Siblings)];
}

void TreeWalkSiblings_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new CTreeCtrl(host.frame, wxID_ANY);
  for (int i = 0; i < Siblings; ++i) tree->InsertItem(Label(i));
  for (auto _ : state) {
    int count = 0;
    for (HTREEITEM item = tree->GetRootItem(); item; item = tree->GetNextItem(item, TVGN_NEXT))
      ++count;
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(TreeWalkSiblings_candidate)
    ->Name("TreeWalkSiblings/candidate")
    ->Unit(benchmark::kMillisecond);

void TreeWalkSiblings_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new wxGenericTreeCtrl(host.frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                      wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT);
  wxTreeItemId const root = tree->AddRoot("root");
  for (int i = 0; i < Siblings; ++i) tree->AppendItem(root, Label(i));
  for (auto _ : state) {
    int count = 0;
    wxTreeItemIdValue cookie;
    for (wxTreeItemId item = tree->GetFirstChild(root, cookie); item.IsOk();
         item = tree->GetNextSibling(item))
      ++count;
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(TreeWalkSiblings_baseline)
    ->Name("TreeWalkSiblings/baseline")
    ->Unit(benchmark::kMillisecond);

void TreeInsertGroups_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new CTreeCtrl(host.frame, wxID_ANY);
  for (auto _ : state) {
    for (int g = 0; g < Groups; ++g) {
      HTREEITEM const group = tree->InsertItem(Label(g));
      for (int i = 0; i < PerGroup; ++i) tree->InsertItem(Label(i), group);
    }
    state.PauseTiming();
    tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeInsertGroups_candidate)
    ->Name("TreeInsertGroups/candidate")
    ->Unit(benchmark::kMillisecond);

void TreeInsertGroups_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new wxGenericTreeCtrl(host.frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                      wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT);
  for (auto _ : state) {
    wxTreeItemId const root = tree->AddRoot("root");
    for (int g = 0; g < Groups; ++g) {
      wxTreeItemId const group = tree->AppendItem(root, Label(g));
      for (int i = 0; i < PerGroup; ++i) tree->AppendItem(group, Label(i));
    }
    state.PauseTiming();
    tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeInsertGroups_baseline)
    ->Name("TreeInsertGroups/baseline")
    ->Unit(benchmark::kMillisecond);

// A page of 40 rows, shown and painted through the toolkit, in a tree of
// 1,000 groups with the first one open.
template <class Fill>
void PaintPage(benchmark::State & state, wxWindow * tree, Fill fill) {
  fill();
  auto * frame = static_cast<wxFrame *>(tree->GetParent());
  frame->SetClientSize(400, PageRows * 20);
  frame->Show();
  for (int i = 0; i < 500 && !tree->IsShownOnScreen(); ++i) wxTheApp->Yield();
  for (int i = 0; i < 20; ++i) wxTheApp->Yield();
  for (auto _ : state) {
    tree->Refresh(false);
    tree->Update();
  }
}

void TreePaintPage_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new CTreeCtrl(host.frame, wxID_ANY);
  PaintPage(state, tree, [tree] {
    HTREEITEM first{};
    for (int g = 0; g < Groups; ++g) {
      HTREEITEM const group = tree->InsertItem(Label(g));
      if (g == 0) first = group;
      for (int i = 0; i < PerGroup; ++i) tree->InsertItem(Label(i), group);
    }
    tree->Expand(first, TVE_EXPAND);
  });
}
BENCHMARK(TreePaintPage_candidate)->Name("TreePaintPage/candidate")->Unit(benchmark::kMillisecond);

void TreePaintPage_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  Host host;
  auto * tree = new wxGenericTreeCtrl(host.frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                      wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT);
  PaintPage(state, tree, [tree] {
    wxTreeItemId const root = tree->AddRoot("root");
    wxTreeItemId first;
    for (int g = 0; g < Groups; ++g) {
      wxTreeItemId const group = tree->AppendItem(root, Label(g));
      if (g == 0) first = group;
      for (int i = 0; i < PerGroup; ++i) tree->AppendItem(group, Label(i));
    }
    tree->Expand(first);
  });
}
BENCHMARK(TreePaintPage_baseline)->Name("TreePaintPage/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
