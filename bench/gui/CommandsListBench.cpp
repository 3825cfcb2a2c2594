// Filling the add-command dialog's commands list with 1,000 commands beside
// wxListBox::Set of the same texts. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/frame.h>
#include <wx/listbox.h>

#include <vector>

#include "Figures.h"
#include "favourites/CommandsListBox.h"
#include "gui/GuiBench.h"

namespace {

TALVO_RATIO_LIMIT("CommandsListFill", 1.0);

constexpr int Commands = 1000;

std::vector<CommandsListBox::CommandRow> Rows() {
  std::vector<CommandsListBox::CommandRow> rows;
  rows.reserve(Commands);
  for (int i = 0; i < Commands; ++i)
    rows.push_back({wxString::Format("Command %d of the menu", i), wxIcon(),
                    static_cast<unsigned>(100 + i), i});
  return rows;
}

void CommandsListFill_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("needs a display");
  auto * frame = new wxFrame(nullptr, wxID_ANY, "commands", wxPoint(0, 0), wxSize(400, 600));
  auto * list = new CommandsListBox(frame, wxID_ANY, wxPoint(0, 0), wxSize(380, 560));
  frame->Show();
  std::vector<CommandsListBox::CommandRow> const rows = Rows();
  for (auto _ : state) {
    list->SetRows(rows);
    list->ResetContent();
  }
  frame->Destroy();
}
BENCHMARK(CommandsListFill_candidate)->Name("CommandsListFill/candidate");

void CommandsListFill_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("needs a display");
  auto * frame = new wxFrame(nullptr, wxID_ANY, "commands", wxPoint(0, 0), wxSize(400, 600));
  auto * list = new wxListBox(frame, wxID_ANY, wxPoint(0, 0), wxSize(380, 560));
  frame->Show();
  wxArrayString texts;
  for (auto const & row : Rows()) texts.Add(row.text);
  for (auto _ : state) {
    list->Set(texts);
    list->Clear();
  }
  frame->Destroy();
}
BENCHMARK(CommandsListFill_baseline)->Name("CommandsListFill/baseline");

}  // namespace
