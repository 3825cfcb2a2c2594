#pragma once
// What the tree figures share: a shown frame holding the tree under test,
// and the painting of its page through the toolkit.

#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>

#include <cstdint>
#include <memory>

#include "gui/GuiBench.h"

namespace tree_bench {

inline bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

// A shown frame holding the tree under test; `args` follow the parent and id.
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

// Paints the page through the toolkit once per iteration. The window must
// be on screen first: until it is, Update() paints nothing and the figure
// would time an empty round trip to the X server.
inline void PaintPages(benchmark::State & state, wxWindow & tree) {
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

}  // namespace tree_bench
