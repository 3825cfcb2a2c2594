#include "platform/PostedWindowMessages.h"

#include <wx/app.h>
#include <wx/toplevel.h>

#include <deque>
#include <mutex>

namespace {

std::mutex gMutex;
std::deque<MSG> gQueue;
bool gDrainQueued = false;

bool Contains(wxWindow const * root, wxWindow const * window) {
  if (root == window) return true;
  for (wxWindow const * child : root->GetChildren())
    if (Contains(child, window)) return true;
  return false;
}

// A window pointer posted from another thread may be gone by now: only a
// window still in some top-level window's tree gets its message.
bool IsLiveWindow(wxWindow const * window) {
  for (wxWindow const * top : wxTopLevelWindows)
    if (!top->IsBeingDeleted() && Contains(top, window)) return true;
  return false;
}

bool Matches(MSG const & queued, wxWindow * window, UINT filterMin, UINT filterMax) {
  if (window != nullptr && queued.window != window) return false;
  if (filterMin == 0 && filterMax == 0) return true;
  return queued.message >= filterMin && queued.message <= filterMax;
}

// Delivers what was queued when the drain was asked for, and what comes
// while it runs, one message at a time, so that a handler that peeks or
// posts sees the queue as it is.
void Drain() {
  for (;;) {
    MSG next;
    {
      std::lock_guard<std::mutex> lock(gMutex);
      if (gQueue.empty()) {
        gDrainQueued = false;
        return;
      }
      next = gQueue.front();
      gQueue.pop_front();
    }
    if (next.window != nullptr && IsLiveWindow(next.window))
      SendWindowMessage(next.window, next.message, next.wParam, next.lParam);
  }
}

}  // namespace

bool PostWindowMessage(wxWindow * window, UINT message, std::uintptr_t wParam,
                       std::intptr_t lParam) {
  wxAppConsole * app = wxAppConsole::GetInstance();
  if (app == nullptr) return false;
  bool wake = false;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    gQueue.push_back(MSG{window, message, wParam, lParam});
    wake = !gDrainQueued;
    gDrainQueued = true;
  }
  // CallAfter queues a pending event: safe from any thread.
  if (wake) app->CallAfter(&Drain);
  return true;
}

bool PeekWindowMessage(MSG * message, wxWindow * window, UINT filterMin, UINT filterMax,
                       UINT removeFlags) {
  std::lock_guard<std::mutex> lock(gMutex);
  for (auto it = gQueue.begin(); it != gQueue.end(); ++it) {
    if (!Matches(*it, window, filterMin, filterMax)) continue;
    if (message != nullptr) *message = *it;
    if ((removeFlags & PM_REMOVE) != 0) gQueue.erase(it);
    return true;
  }
  return false;
}

std::size_t PendingWindowMessageCount() {
  std::lock_guard<std::mutex> lock(gMutex);
  return gQueue.size();
}
