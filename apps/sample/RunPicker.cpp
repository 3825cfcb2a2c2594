#include "RunPicker.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <memory>
#include <vector>

#include "InstrumentsDialog.h"
#include "SampleCommands.h"
#include "lists/FilterListItems.h"
#include "lists/TrackFilterListCtrlPopup.h"
#include "utl/Translation.h"

std::string SampleRunNames::GetText(uint64_t index) const {
  // Six digits, so that the names sort and read like the lab's run numbers.
  std::string number = std::to_string(index + 1);
  if (number.size() < 6) number.insert(0, 6 - number.size(), '0');
  std::vector<char const *> const & instruments = SampleInstrumentNames();
  return "Run " + number + ", line " + std::to_string(1 + index % 4) + ", " +
         instruments[index % instruments.size()];
}

void AddPickRunCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kPickRunCommand, vx3::Tr("Menu command", "&Pick a run..."));
  auto const lastPicked = std::make_shared<uint64_t>(~uint64_t{0});
  frame.Bind(
      wxEVT_MENU,
      [&frame, lastPicked](wxCommandEvent &) {
        SampleRunNames const runs;
        uint64_t const picked =
            TrackFilterListCtrlPopup(&frame, wxPoint(-1, -1), runs, *lastPicked);
        if (picked >= runs.GetCount()) {
          frame.SetStatusText(vx3::Tr("No run picked."));
          return;
        }
        *lastPicked = picked;
        wxString text = vx3::Tr("Run picked: %1%");
        text.Replace("%1%", wxString::FromUTF8(runs.GetText(picked)));
        frame.SetStatusText(text);
      },
      kPickRunCommand);
}
