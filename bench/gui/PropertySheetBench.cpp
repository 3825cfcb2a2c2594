// Property sheets. "PropertySheetOpen": a sheet of 10 pages from the call to
// its first paint, beside wxPropertySheetDialog with the same 10 pages, each
// built from the same template before it shows (wx's sheet needs every page
// at AddPage). "PropertiesSwitch": the Properties window switching between
// two handlers that share 3 of their 5 pages, beside the same switch with
// no page shared (every page removed and added anew). Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include <wx/bookctrl.h>
#include <wx/panel.h>
#include <wx/propdlg.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "gui/ModalUntil.h"
#include "platform/ResourceModule.h"
#include "properties/VxModelessPropertySheet.h"
#include "properties/VxPropertiesHandler.h"
#include "properties/VxPropertyPage.h"
#include "properties/VxPropertySheet.h"

namespace {

TALVO_RATIO_LIMIT("PropertySheetOpen", 0.5);
TALVO_RATIO_LIMIT("PropertiesSwitch", 0.5);

constexpr unsigned kPageTemplate = 9800;
constexpr int kPages = 10;

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

void PropertySheetOpen_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    std::vector<std::unique_ptr<VxPropertyPage>> pages;
    pages.reserve(kPages);
    VxPropertySheet sheet(L"Settings");
    for (int i = 0; i < kPages; ++i) {
      pages.push_back(std::make_unique<VxPropertyPage>(kPageTemplate));
      sheet.AddPage(pages.back().get());
    }
    benchmark::DoNotOptimize(sheet.DoModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the sheet did not paint");
}
BENCHMARK(PropertySheetOpen_candidate)
    ->Name("PropertySheetOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void PropertySheetOpen_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    wxPropertySheetDialog sheet(nullptr, wxID_ANY, "Settings", wxDefaultPosition, wxDefaultSize,
                                wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
    sheet.CreateButtons(wxOK | wxCANCEL | wxHELP);
    for (int i = 0; i < kPages; ++i) {
      auto * page = new wxPanel(sheet.GetBookCtrl());
      LoadPageTemplate(*page, kPageTemplate);
      sheet.GetBookCtrl()->AddPage(page, "Settings");
    }
    sheet.LayoutDialog();
    benchmark::DoNotOptimize(sheet.ShowModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the sheet did not paint");
}
BENCHMARK(PropertySheetOpen_baseline)
    ->Name("PropertySheetOpen/baseline")
    ->Unit(benchmark::kMillisecond);

class PagesHandler : public VxPropertiesHandler {
public:
  explicit PagesHandler(std::vector<VxPropertyPage *> pages) : mPages(std::move(pages)) {}
  void AddPropertyPages(VxModelessPropertySheet & sheet) override {
    for (VxPropertyPage * page : mPages) sheet.AddRefCountedPage(page);
  }
  VxPropertyPage * ChooseActivePage(VxPropertyPage * previous) override {
    for (VxPropertyPage * page : mPages)
      if (page == previous) return previous;
    return mPages.front();
  }
  BasePropertyPageHelper * GetPropertyPageHelper() override { return nullptr; }

private:
  std::vector<VxPropertyPage *> mPages;
};

// Switches the shown Properties window between `first` and `second`, the
// active page being the first one's first page; fails when a page that both
// have was built again.
void Switch(benchmark::State & state, PagesHandler & first, PagesHandler & second,
            VxPropertyPage & watched, bool watchedKept) {
  VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
  sheet->Create();
  sheet->ChangePropertiesHandler(&first);
  wxWindow * const window = watched.GetSafeHwnd();
  for (auto _ : state) {
    sheet->ChangePropertiesHandler(&second);
    sheet->ChangePropertiesHandler(&first);
    sheet->Update();  // what a switch shows is drawn
  }
  if (watchedKept && watched.GetSafeHwnd() != window)
    state.SkipWithError("a shared page was built again");
  VxModelessPropertySheet::Release();
}

std::vector<VxPropertyPage *> Pointers(std::vector<std::unique_ptr<VxPropertyPage>> & pages,
                                       size_t from, size_t to) {
  std::vector<VxPropertyPage *> pointers;
  pointers.reserve(to - from);
  for (size_t i = from; i < to; ++i) pointers.push_back(pages[i].get());
  return pointers;
}

void PropertiesSwitch_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  // 0-2 shared, 3-4 the first handler's, 5-6 the second's.
  std::vector<std::unique_ptr<VxPropertyPage>> pages;
  pages.reserve(7);
  for (int i = 0; i < 7; ++i) pages.push_back(std::make_unique<VxPropertyPage>(kPageTemplate));
  PagesHandler first(Pointers(pages, 0, 5));
  std::vector<VxPropertyPage *> secondPages = Pointers(pages, 0, 3);
  secondPages.push_back(pages[5].get());
  secondPages.push_back(pages[6].get());
  PagesHandler second(secondPages);
  Switch(state, first, second, *pages[0], true);
}
BENCHMARK(PropertiesSwitch_candidate)
    ->Name("PropertiesSwitch/candidate")
    ->Unit(benchmark::kMillisecond);

void PropertiesSwitch_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  std::vector<std::unique_ptr<VxPropertyPage>> pages;
  pages.reserve(10);
  for (int i = 0; i < 10; ++i) pages.push_back(std::make_unique<VxPropertyPage>(kPageTemplate));
  PagesHandler first(Pointers(pages, 0, 5));
  PagesHandler second(Pointers(pages, 5, 10));
  Switch(state, first, second, *pages[0], false);
}
BENCHMARK(PropertiesSwitch_baseline)
    ->Name("PropertiesSwitch/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
