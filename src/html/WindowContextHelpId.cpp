#include "html/WindowContextHelpId.h"

#include <wx/window.h>

#include <mutex>
#include <unordered_map>

namespace {

// Keyed by window; an entry goes with its window's destroy event, so that a
// later window at the same address does not inherit it. Windows live on the
// GUI thread, but the lock keeps a stray call from elsewhere harmless.
std::mutex gLock;
std::unordered_map<wxWindow const *, uint32_t> gIds;

void Forget(wxWindow const * window) {
  std::lock_guard<std::mutex> guard(gLock);
  gIds.erase(window);
}

}  // namespace

bool VxSetWindowContextHelpId(wxWindow * window, uint32_t contextHelpId) {
  if (window == nullptr) return false;
  bool watched;
  {
    std::lock_guard<std::mutex> guard(gLock);
    watched = gIds.count(window) != 0;
    if (contextHelpId == 0)
      gIds.erase(window);
    else
      gIds[window] = contextHelpId;
  }
  if (contextHelpId != 0 && !watched) {
    // Destroy events of children reach their parents too; only the window's
    // own ends its entry.
    window->Bind(wxEVT_DESTROY, [window](wxWindowDestroyEvent & event) {
      if (event.GetEventObject() == window) Forget(window);
      event.Skip();
    });
  }
  return true;
}

uint32_t VxGetWindowContextHelpId(wxWindow const * window) {
  std::lock_guard<std::mutex> guard(gLock);
  auto const found = gIds.find(window);
  return found == gIds.end() ? 0 : found->second;
}
