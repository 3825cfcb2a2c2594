#pragma once
// Window messages posted rather than sent: PostWindowMessage may be called
// from any thread and returns at once; the GUI thread delivers the messages
// later, in the order they were posted, each as SendWindowMessage would.
// They travel through wx's queue of pending events, so an operation that
// holds that queue (a progress pump) holds them too. PeekWindowMessage looks
// at the messages not yet delivered and may take one out, with the filters
// of the platform's message queue.

#include <cstdint>

#include "platform/WindowMessage.h"

constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT PM_NOREMOVE = 0x0000;
constexpr UINT PM_REMOVE = 0x0001;

struct MSG {
  wxWindow * window = nullptr;
  UINT message = 0;
  std::uintptr_t wParam = 0;
  std::intptr_t lParam = 0;
};

// Queues the message for `window`; false when there is no application to
// deliver it. A window destroyed before delivery gets nothing.
bool PostWindowMessage(wxWindow * window, UINT message, std::uintptr_t wParam = 0,
                       std::intptr_t lParam = 0);

// The first pending message for `window` (null: for any window) whose
// number lies in filterMin..filterMax; 0 and 0 take any number. With
// PM_REMOVE it leaves the queue. False when none matches.
bool PeekWindowMessage(MSG * message, wxWindow * window, UINT filterMin, UINT filterMax,
                       UINT removeFlags);

// The messages not yet delivered.
std::size_t PendingWindowMessageCount();
