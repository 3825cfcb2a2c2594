#include "harness/GuiTestUtilities.h"

#include <chrono>
#include <vector>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace gui_test {

namespace {

void DispatchOnce() {
  // Without a running loop (tests call us from main) a temporary one
  // dispatches GTK's events.
  wxEventLoopBase * active = wxEventLoopBase::GetActive();
  if (active != nullptr) {
    active->YieldFor(wxEVT_CATEGORY_ALL);
    return;
  }
  wxEventLoop loop;
  wxEventLoopActivator activate(&loop);
  while (loop.Pending()) loop.Dispatch();
  wxTheApp->ProcessPendingEvents();
  loop.ProcessIdle();
}

}  // namespace

void Flush() { DispatchOnce(); }

bool WaitUntil(std::function<bool()> const & condition, int timeoutMs) {
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return condition();
    DispatchOnce();
    wxMilliSleep(2);  // let the X server answer; this is polling, not a wait for time
  }
  return true;
}

bool ShowAndWait(wxWindow & window, int timeoutMs) {
  // A frame is often covered by its children, so a paint of any window of
  // the tree counts.
  bool painted = false;
  auto onPaint = [&painted](wxPaintEvent & event) {
    painted = true;
    event.Skip();
  };
  std::vector<wxWindow *> tree{&window};
  for (size_t i = 0; i < tree.size(); ++i)
    for (wxWindow * child : tree[i]->GetChildren()) tree.push_back(child);
  for (wxWindow * w : tree) w->Bind(wxEVT_PAINT, onPaint);
  window.Show();
  window.Raise();
  bool const ok = WaitUntil([&] { return window.IsShownOnScreen() && painted; }, timeoutMs);
  for (wxWindow * w : tree) w->Unbind(wxEVT_PAINT, onPaint);
  // One more round so that every child has painted too.
  Flush();
  return ok;
}

void Click(wxWindow & window, int id) {
  wxWindow * button = window.FindWindow(id);
  ASSERT_NE(button, nullptr) << "no control " << id;
  wxCommandEvent click(wxEVT_BUTTON, id);
  click.SetEventObject(button);
  button->ProcessWindowEvent(click);
}

void PressKey(wxWindow & window, int keyCode) {
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = keyCode;
  key.SetEventObject(&window);
  window.ProcessWindowEvent(key);
}

}  // namespace gui_test
