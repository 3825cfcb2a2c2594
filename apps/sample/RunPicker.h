#pragma once
// The sample's "Pick a run" command: the filter popup over a million
// measurement runs. The run picked, or that none was, shows in the frame's
// status bar, and the next pick starts on the last run picked.

#include <cstdint>
#include <string>

#include "lists/FilterListItems.h"

class wxFrame;
class wxMenu;

// The sample's runs by name: "Run 000042, line 3, Balance".
class SampleRunNames : public FilterListItems {
public:
  static constexpr uint64_t kCount = 1000000;
  uint64_t GetCount() const override { return kCount; }
  std::string GetText(uint64_t index) const override;
};

// Appends the command to `menu`; `frame` handles it and shows the outcome.
void AddPickRunCommand(wxMenu & menu, wxFrame & frame);
