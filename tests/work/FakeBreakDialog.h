#pragma once
// A break dialog that records what Progress sends it, with the arguments
// read at the moment they arrive.

#include <cstdint>
#include <vector>

#include <wx/string.h>

#include "work/Progress.h"
#include "work/ProgressBreakDialog.h"

struct SentMessage {
  unsigned int message;
  std::uintptr_t wParam;
  float first, second;  // the value (kSetValue); the scale (kSetRange)
  wxString text;        // the title (kSetTitle)
};

class FakeBreakDialog : public ProgressBreakDialog {
public:
  bool IsWindow() const override { return alive; }
  wxWindow * Window() const override { return window; }
  std::intptr_t Send(Message message, std::uintptr_t wParam, void const * lParam) override {
    SentMessage sent{message, wParam, 0, 0, wxString()};
    auto const * floats = static_cast<float const *>(lParam);
    if (message == kSetValue || message == kSetRange) sent.first = floats[0];
    if (message == kSetRange) sent.second = floats[1];
    if (message == kSetTitle) sent.text = static_cast<wchar_t const *>(lParam);
    if (message == kStart) progress = static_cast<Progress *>(const_cast<void *>(lParam));
    if (message == kStop) progress = nullptr;
    messages.push_back(sent);
    return 0;
  }
  std::vector<unsigned int> Kinds() const {
    std::vector<unsigned int> kinds;
    for (auto const & sent : messages) kinds.push_back(sent.message);
    return kinds;
  }

  bool alive = true;
  wxWindow * window = nullptr;
  Progress * progress = nullptr;
  std::vector<SentMessage> messages;
};
