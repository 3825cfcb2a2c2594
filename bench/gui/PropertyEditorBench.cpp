// The in-place editors of a property row, each created over a value cell
// and destroyed, as the property list does on every selection change,
// beside a bare wxTextCtrl made and destroyed in the same place. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <functional>

#include <wx/frame.h>
#include <wx/textctrl.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "properties/PropertyInPlaceBrowseForColor.h"
#include "properties/PropertyInPlaceBrowseForFile.h"
#include "properties/PropertyInPlaceBrowseForFolderCollection.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceEdit.h"

namespace {

TALVO_RATIO_LIMIT("PropertyEditorEdit", 1.5);
TALVO_RATIO_LIMIT("PropertyEditorCombo", 1.0);
TALVO_RATIO_LIMIT("PropertyEditorFolder", 1.5);
TALVO_RATIO_LIMIT("PropertyEditorFolderCollection", 1.5);
TALVO_RATIO_LIMIT("PropertyEditorFile", 1.5);
TALVO_RATIO_LIMIT("PropertyEditorColor", 1.5);

RECT const kCell{120, 40, 360, 60};

wxWindow & Parent() {
  static wxFrame * const frame = [] {
    auto * shown =
        new wxFrame(nullptr, wxID_ANY, "Property editors", wxDefaultPosition, wxSize(500, 300));
    shown->Show();
    return shown;
  }();
  return *frame;
}

void CreateAndDestroy(benchmark::State & state,
                      std::function<wxWindow *(wxWindow &)> const & make) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  wxWindow & parent = Parent();
  for (auto _ : state) delete make(parent);
}

void Baseline(benchmark::State & state) {
  CreateAndDestroy(state, [](wxWindow & parent) {
    return new wxTextCtrl(&parent, 1, "1250", wxPoint(kCell.left + 3, kCell.top + 2),
                          wxSize(kCell.right - kCell.left - 6, 16), wxBORDER_NONE);
  });
}

#define PROPERTY_EDITOR_FIGURE(figure, make)                                                \
  void figure##_candidate(benchmark::State & state) { CreateAndDestroy(state, make); }      \
  BENCHMARK(figure##_candidate)->Name(#figure "/candidate")->Unit(benchmark::kMicrosecond); \
  BENCHMARK(Baseline)->Name(#figure "/baseline")->Unit(benchmark::kMicrosecond)

PROPERTY_EDITOR_FIGURE(PropertyEditorEdit, [](wxWindow & parent) -> wxWindow * {
  return PropertyInPlaceEdit::CreateInPlaceControl(L"1250", &parent, kCell, 0, nullptr, nullptr);
});

PROPERTY_EDITOR_FIGURE(PropertyEditorCombo, [](wxWindow & parent) -> wxWindow * {
  auto * combo = PropertyInPlaceComboBox::CreateInPlaceControl(&parent, kCell);
  combo->AddString(L"No", 0);
  combo->AddString(L"Yes", 1);
  combo->SetCurSel(1, false);
  combo->ResetListBoxHeight();
  return combo;
});

PROPERTY_EDITOR_FIGURE(PropertyEditorFolder, [](wxWindow & parent) -> wxWindow * {
  return new PropertyInPlaceBrowseForFolder(&parent, kCell, "/srv/data/runs");
});

PROPERTY_EDITOR_FIGURE(PropertyEditorFolderCollection, [](wxWindow & parent) -> wxWindow * {
  return new PropertyInPlaceBrowseForFolderCollection(&parent, kCell, "Folders",
                                                      "Search in:", "/srv/a;/srv/b;");
});

PROPERTY_EDITOR_FIGURE(PropertyEditorFile, [](wxWindow & parent) -> wxWindow * {
  return new PropertyInPlaceBrowseForFile(&parent, kCell, "/srv/data/runs/run7.csv");
});

PROPERTY_EDITOR_FIGURE(PropertyEditorColor, [](wxWindow & parent) -> wxWindow * {
  return new PropertyInPlaceBrowseForColor(&parent, kCell, 0x3366CC);
});

}  // namespace
