// The property list beside wx's property grid: a full repaint of 40 rows,
// filling 100 categories of 100 items, and a selection change that builds
// the new row's editor. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/propgrid/propgrid.h>
#include <wx/propgrid/props.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemManager.h"
#include "properties/PropertyItemString.h"
#include "properties/PropertyListCtrl.h"

namespace {

TALVO_RATIO_LIMIT("PropertyListPaint40Rows", 0.5);
TALVO_RATIO_LIMIT("PropertyListFill100x100", 0.5);
TALVO_RATIO_LIMIT("PropertyListSelectEditor", 0.3);

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

class Settings : public PropertyItemManager {
public:
  Settings(int categories, int items) {
    for (int c = 0; c < categories; ++c) {
      PropertyItemCategory * category =
          AddPropertyCategory(wxString::Format("Category %d", c).wc_str(), L"", true);
      for (int i = 0; i < items; ++i) {
        auto * item = new PropertyItemString(wxString::Format("Setting %d of %d", i, c).wc_str(),
                                             unsigned(c * items + i + 1), L"");
        item->SetData(wxString::Format("value %d", i));
        category->AddPropertyItem(item);
      }
    }
  }
  void LoadProperties() override {}
  void StoreProperties() override {}
};

void FillGrid(wxPropertyGrid & grid, int categories, int items) {
  for (int c = 0; c < categories; ++c) {
    grid.Append(new wxPropertyCategory(wxString::Format("Category %d", c)));
    for (int i = 0; i < items; ++i)
      grid.Append(new wxStringProperty(wxString::Format("Setting %d of %d", i, c), wxPG_LABEL,
                                       wxString::Format("value %d", i)));
  }
}

// A shown frame whose client area fits 40 rows of either kind.
struct Host {
  std::unique_ptr<wxFrame, void (*)(wxFrame *)> frame{
      new wxFrame(nullptr, wxID_ANY, "Bench", wxPoint(0, 0), wxSize(420, 1000)),
      [](wxFrame * f) { DestroyNow(f); }};
  void Show(wxWindow & view, int rowsHeight) {
    frame->SetClientSize(420, rowsHeight);
    view.SetSize(frame->GetClientSize());
    frame->Show();
    for (int i = 0; i < 500 && !view.IsShownOnScreen(); ++i) wxTheApp->Yield();
    for (int i = 0; i < 20; ++i) wxTheApp->Yield();
  }
};

// 4 categories of 9 items: 40 rows.
constexpr int kPaintCategories = 4;
constexpr int kPaintItems = 9;

void PropertyListPaint40Rows_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  // The settings outlive the list, which points at them.
  Settings settings(kPaintCategories, kPaintItems);
  Host host;
  auto * list = new PropertyListCtrl(host.frame.get(), wxID_ANY);
  list->SetPropertyItemManager(&settings);
  host.Show(*list, 1000);
  // Then as high as the 40 rows and the details pane.
  host.Show(*list, list->GetItemRect(size_t(list->GetCount() - 1)).GetBottom() + 1 + 64 + 4);
  if (list->GetVisibleRowsEnd() - list->GetVisibleRowsBegin() < 40) {
    state.SkipWithError("not every row in view");
    return;
  }
  for (auto _ : state) {
    list->Refresh(false);
    list->Update();
  }
  list->ResetContent();
}
BENCHMARK(PropertyListPaint40Rows_candidate)
    ->Name("PropertyListPaint40Rows/candidate")
    ->Unit(benchmark::kMillisecond);

void PropertyListPaint40Rows_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Host host;
  auto * grid = new wxPropertyGrid(host.frame.get(), wxID_ANY);
  FillGrid(*grid, kPaintCategories, kPaintItems);
  host.Show(*grid, grid->GetRowHeight() * 40 + 4);
  for (auto _ : state) {
    grid->Refresh(false);
    grid->Update();
  }
}
BENCHMARK(PropertyListPaint40Rows_baseline)
    ->Name("PropertyListPaint40Rows/baseline")
    ->Unit(benchmark::kMillisecond);

void PropertyListFill100x100_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Settings settings(100, 100);
  Host host;
  auto * list = new PropertyListCtrl(host.frame.get(), wxID_ANY);
  host.Show(*list, 600);
  for (auto _ : state) {
    list->SetPropertyItemManager(&settings);
    list->Update();
    state.PauseTiming();
    list->ResetContent();
    state.ResumeTiming();
  }
}
BENCHMARK(PropertyListFill100x100_candidate)
    ->Name("PropertyListFill100x100/candidate")
    ->Unit(benchmark::kMillisecond);

void PropertyListFill100x100_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Host host;
  auto * grid = new wxPropertyGrid(host.frame.get(), wxID_ANY);
  host.Show(*grid, 600);
  for (auto _ : state) {
    FillGrid(*grid, 100, 100);
    grid->Update();
    state.PauseTiming();
    grid->Clear();
    state.ResumeTiming();
  }
}
BENCHMARK(PropertyListFill100x100_baseline)
    ->Name("PropertyListFill100x100/baseline")
    ->Unit(benchmark::kMillisecond);

// Two text rows, selected in turn: the old editor goes, the new one comes.
void PropertyListSelectEditor_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  Settings settings(kPaintCategories, kPaintItems);
  Host host;
  auto * list = new PropertyListCtrl(host.frame.get(), wxID_ANY);
  list->SetPropertyItemManager(&settings);
  host.Show(*list, 600);
  unsigned id = 1;
  for (auto _ : state) {
    list->SetCurSelByID(id);
    id = id == 1 ? 2 : 1;
  }
  list->ResetContent();
}
BENCHMARK(PropertyListSelectEditor_candidate)
    ->Name("PropertyListSelectEditor/candidate")
    ->Unit(benchmark::kMillisecond);

void PropertyListSelectEditor_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Host host;
  auto * grid = new wxPropertyGrid(host.frame.get(), wxID_ANY);
  FillGrid(*grid, kPaintCategories, kPaintItems);
  host.Show(*grid, 600);
  wxPGProperty * rows[2] = {grid->GetPropertyByName("Setting 0 of 0"),
                            grid->GetPropertyByName("Setting 1 of 0")};
  int next = 0;
  for (auto _ : state) {
    grid->SelectProperty(rows[next], true);
    next = 1 - next;
  }
}
BENCHMARK(PropertyListSelectEditor_baseline)
    ->Name("PropertyListSelectEditor/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
