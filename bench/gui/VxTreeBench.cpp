// The family's tree beside wx's generic tree and beside plain walks of its
// own: walking siblings, inserting in groups, checking a large branch,
// painting a page with items of their own colour and font, and loading the
// text form. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/treectrl.h>
// After treectrl.h, which declares the generic tree's base.
#include <wx/generic/treectlg.h>

#include <memory>
#include <sstream>
#include <string>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "lists/VxTreeCtrl.h"

namespace {

TALVO_RATIO_LIMIT("VxTreeWalkSiblings", 0.02);
TALVO_TIME_LIMIT("VxTreeWalkSiblings", 1e6);
TALVO_RATIO_LIMIT("VxTreeInsertGroups", 1.0);
TALVO_RATIO_LIMIT("VxTreeSetCheckBranch", 2.0);
TALVO_RATIO_LIMIT("VxTreePaintPage", 1.0);
TALVO_RATIO_LIMIT("VxTreeTextLoad", 1.3);

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

// A shown frame holding the tree under test.
template <class Tree, class... Args>
struct Hosted {
  std::unique_ptr<wxFrame, void (*)(wxFrame *)> frame{
      new wxFrame(nullptr, wxID_ANY, "Bench", wxPoint(0, 0), wxSize(400, 800)),
      [](wxFrame * f) { DestroyNow(f); }};
  Tree * tree;
  explicit Hosted(Args... args) : tree(new Tree(frame.get(), wxID_ANY, args...)) {
    frame->Show();
    tree->SetSize(frame->GetClientSize());
  }
};

// --- Walking 20,000 siblings --------------------------------------------------

void TreeWalkSiblings_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  for (int i = 0; i < 20000; ++i) host.tree->InsertItem("Item");
  for (auto _ : state) {
    int count = 0;
    for (HTREEITEM at = host.tree->GetRootItem(); at; at = host.tree->GetNextItem(at)) ++count;
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(TreeWalkSiblings_candidate)
    ->Name("VxTreeWalkSiblings/candidate")
    ->Unit(benchmark::kMicrosecond);

void TreeWalkSiblings_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<wxGenericTreeCtrl, wxPoint, wxSize, long> host(wxDefaultPosition, wxDefaultSize,
                                                        wxTR_HIDE_ROOT | wxTR_DEFAULT_STYLE);
  wxTreeItemId const root = host.tree->AddRoot("root");
  for (int i = 0; i < 20000; ++i) host.tree->AppendItem(root, "Item");
  for (auto _ : state) {
    int count = 0;
    wxTreeItemIdValue cookie;
    for (wxTreeItemId at = host.tree->GetFirstChild(root, cookie); at.IsOk();
         at = host.tree->GetNextSibling(at))
      ++count;
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(TreeWalkSiblings_baseline)
    ->Name("VxTreeWalkSiblings/baseline")
    ->Unit(benchmark::kMicrosecond);

// --- Inserting 100,000 items in 1,000 groups ------------------------------------

void TreeInsertGroups_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  for (auto _ : state) {
    for (int g = 0; g < 1000; ++g) {
      HTREEITEM const group = host.tree->InsertItem("Group");
      for (int i = 0; i < 99; ++i) host.tree->InsertItem("Item", group);
    }
    state.PauseTiming();
    host.tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeInsertGroups_candidate)
    ->Name("VxTreeInsertGroups/candidate")
    ->Unit(benchmark::kMillisecond);

void TreeInsertGroups_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<wxGenericTreeCtrl, wxPoint, wxSize, long> host(wxDefaultPosition, wxDefaultSize,
                                                        wxTR_HIDE_ROOT | wxTR_DEFAULT_STYLE);
  for (auto _ : state) {
    wxTreeItemId const root = host.tree->AddRoot("root");
    for (int g = 0; g < 1000; ++g) {
      wxTreeItemId const group = host.tree->AppendItem(root, "Group");
      for (int i = 0; i < 99; ++i) host.tree->AppendItem(group, "Item");
    }
    state.PauseTiming();
    host.tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeInsertGroups_baseline)
    ->Name("VxTreeInsertGroups/baseline")
    ->Unit(benchmark::kMillisecond);

// --- SetCheck on a node with 100,000 descendants -----------------------------------

HTREEITEM BuildCheckBranch(VxTreeCtrl & tree) {
  HTREEITEM const top = tree.InsertItem("Top");
  for (int g = 0; g < 1000; ++g) {
    HTREEITEM const group = tree.InsertItem("Group", top);
    for (int i = 0; i < 99; ++i) tree.InsertItem("Item", group);
  }
  tree.SetCheck(top, VxTreeCtrl::Uncheck);
  return top;
}

void TreeSetCheckBranch_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl, DWORD> host(TVS_HASBUTTONS | TVS_CHECKBOXES);
  HTREEITEM const top = BuildCheckBranch(*host.tree);
  for (auto _ : state) host.tree->SetCheck(top, VxTreeCtrl::ToggleCheck);
}
BENCHMARK(TreeSetCheckBranch_candidate)
    ->Name("VxTreeSetCheckBranch/candidate")
    ->Unit(benchmark::kMillisecond);

// A plain visit: every descendant's state read once, in display order.
void TreeSetCheckBranch_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl, DWORD> host(TVS_HASBUTTONS | TVS_CHECKBOXES);
  HTREEITEM const top = BuildCheckBranch(*host.tree);
  for (auto _ : state) {
    UINT sum = 0;
    for (HTREEITEM at = host.tree->GetNextItem(top); at; at = host.tree->GetNextItem(at))
      sum += host.tree->GetItemState(at, TVIS_STATEIMAGEMASK);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(TreeSetCheckBranch_baseline)
    ->Name("VxTreeSetCheckBranch/baseline")
    ->Unit(benchmark::kMillisecond);

// --- Painting a page of 40 rows, 10 with their own colour or font ---------------------

// Paints the page through the toolkit once per iteration. The window must
// be on screen first: until it is, Update() paints nothing and the figure
// would time an empty round trip to the X server.
void PaintPages(benchmark::State & state, wxWindow & tree) {
  for (int i = 0; i < 500 && !tree.IsShownOnScreen(); ++i) wxTheApp->Yield();
  for (int i = 0; i < 20; ++i) wxTheApp->Yield();
  int64_t paints = 0;
  tree.Bind(wxEVT_PAINT, [&paints](wxPaintEvent & event) {
    ++paints;
    event.Skip();
  });
  for (auto _ : state) {
    tree.Refresh();
    tree.Update();
  }
  if (paints < state.iterations()) state.SkipWithError("the page was not painted every time");
}

void TreePaintPage_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  host.tree->SetSize(400, 40 * host.tree->GetItemHeight());
  LOGFONTW font{};
  wcscpy(font.lfFaceName, L"Serif");
  for (int i = 0; i < 40; ++i) {
    HTREEITEM const item = host.tree->InsertItem(wxString::Format("Run %d of the project", i));
    if (i % 4 == 0) host.tree->SetItemColor(item, RGB(200, 0, 0));
    if (i % 8 == 2) host.tree->SetItemFont(item, font);
  }
  PaintPages(state, *host.tree);
}
BENCHMARK(TreePaintPage_candidate)
    ->Name("VxTreePaintPage/candidate")
    ->Unit(benchmark::kMicrosecond);

void TreePaintPage_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<wxGenericTreeCtrl, wxPoint, wxSize, long> host(wxDefaultPosition, wxDefaultSize,
                                                        wxTR_HIDE_ROOT | wxTR_DEFAULT_STYLE);
  wxTreeItemId const root = host.tree->AddRoot("root");
  for (int i = 0; i < 40; ++i) {
    wxTreeItemId const item =
        host.tree->AppendItem(root, wxString::Format("Run %d of the project", i));
    if (i % 4 == 0) host.tree->SetItemTextColour(item, wxColour(200, 0, 0));
    if (i % 8 == 2) host.tree->SetItemFont(item, wxFont(wxFontInfo(9).FaceName("Serif")));
  }
  host.tree->SetSize(400, 40 * 20);
  PaintPages(state, *host.tree);
}
BENCHMARK(TreePaintPage_baseline)->Name("VxTreePaintPage/baseline")->Unit(benchmark::kMicrosecond);

// --- Loading 100,000 lines of text beside inserting the same items --------------------

std::string HundredThousandLines() {
  std::string text;
  for (int g = 0; g < 1000; ++g) {
    text += "Group " + std::to_string(g) + "\r\n";
    for (int i = 0; i < 99; ++i) text += "\tItem " + std::to_string(i) + "\r\n";
  }
  return text;
}

void TreeTextLoad_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  std::string const text = HundredThousandLines();
  for (auto _ : state) {
    std::istringstream in(text);
    host.tree->Serialize(in);
    state.PauseTiming();
    host.tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeTextLoad_candidate)->Name("VxTreeTextLoad/candidate")->Unit(benchmark::kMillisecond);

void TreeTextLoad_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Hosted<VxTreeCtrl> host;
  for (auto _ : state) {
    for (int g = 0; g < 1000; ++g) {
      HTREEITEM const group = host.tree->InsertItem(wxString::Format("Group %d", g));
      for (int i = 0; i < 99; ++i) host.tree->InsertItem(wxString::Format("Item %d", i), group);
    }
    state.PauseTiming();
    host.tree->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeTextLoad_baseline)->Name("VxTreeTextLoad/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
