#include "work/ProgressPump.h"

#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/thread.h>
#include <wx/timer.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace progress_pump {
namespace {

// Enough passes to reach GTK's redraw sources behind a burst of events, few
// enough that a report returns quickly while the X server keeps sending.
constexpr int kMaxIterations = 64;

struct HeldTimer {
  wxWeakRef<wxEvtHandler> owner;
  std::unique_ptr<wxEvent> tick;
};

std::vector<wxWindow *> gAllowedWindows;
std::vector<wxEvtHandler *> gAllowedTimerOwners;
std::vector<GdkEvent *> gHeldInput;
std::vector<HeldTimer> gHeldTimers;
bool gIdleHeld = false;
bool gPumping = false;

bool IsUserInput(GdkEventType type) {
  switch (type) {
    case GDK_MOTION_NOTIFY:
    case GDK_ENTER_NOTIFY:  // crossings go with the motion that caused them,
    case GDK_LEAVE_NOTIFY:  // so that a replayed click finds its button hovered
    case GDK_BUTTON_PRESS:
    case GDK_2BUTTON_PRESS:
    case GDK_3BUTTON_PRESS:
    case GDK_BUTTON_RELEASE:
    case GDK_KEY_PRESS:
    case GDK_KEY_RELEASE:
    case GDK_SCROLL:
    case GDK_DELETE:  // the window manager's close button
    case GDK_TOUCH_BEGIN:
    case GDK_TOUCH_UPDATE:
    case GDK_TOUCH_END:
    case GDK_TOUCH_CANCEL:
    case GDK_TOUCHPAD_SWIPE:
    case GDK_TOUCHPAD_PINCH:
    case GDK_PAD_BUTTON_PRESS:
    case GDK_PAD_BUTTON_RELEASE:
    case GDK_PAD_RING:
    case GDK_PAD_STRIP:
    case GDK_PAD_GROUP_MODE:
    case GDK_DRAG_ENTER:
    case GDK_DRAG_LEAVE:
    case GDK_DRAG_MOTION:
    case GDK_DROP_START: return true;
    default: return false;
  }
}

bool GoesToAllowedWindow(GdkEvent const * event) {
  if (event->any.window == nullptr) return false;
  GdkWindow * const top = gdk_window_get_toplevel(event->any.window);
  for (wxWindow * window : gAllowedWindows) {
    GtkWidget * const widget = window->GetHandle();
    if (widget != nullptr && gtk_widget_get_window(widget) == top) return true;
  }
  return false;
}

void FilterGdkEvent(GdkEvent * event, gpointer) {
  if (IsUserInput(event->type) && !GoesToAllowedWindow(event)) {
    gHeldInput.push_back(gdk_event_copy(event));
    return;
  }
  gtk_main_do_event(event);
}

// Holds what would run application code: timer ticks, idle and update-UI.
class HoldingFilter : public wxEventFilter {
public:
  int FilterEvent(wxEvent & event) override {
    wxEventType const type = event.GetEventType();
    if (type == wxEVT_TIMER) {
      auto * const owner = dynamic_cast<wxEvtHandler *>(event.GetEventObject());
      if (owner == nullptr || Contains(gAllowedTimerOwners, owner)) return Event_Skip;
      auto const & timer = static_cast<wxTimerEvent &>(event).GetTimer();
      bool const already =
          std::any_of(gHeldTimers.begin(), gHeldTimers.end(), [&](HeldTimer const & held) {
            return held.owner.get() == owner &&
                   &static_cast<wxTimerEvent &>(*held.tick).GetTimer() == &timer;
          });
      if (!already) gHeldTimers.push_back({owner, std::unique_ptr<wxEvent>(event.Clone())});
      return Event_Ignore;
    }
    if (type == wxEVT_IDLE || type == wxEVT_UPDATE_UI) {
      gIdleHeld = true;
      return Event_Ignore;
    }
    return Event_Skip;
  }

  template <class T>
  static bool Contains(std::vector<T *> const & list, T * item) {
    return std::find(list.begin(), list.end(), item) != list.end();
  }
};

// Everything a pump changes, put back whatever happens inside it. GDK has
// no way to read the handler it calls; the one it is restored to is GTK's
// own, which is also what wx restores after a yield.
class PumpScope {
public:
  PumpScope() {
    gPumping = true;
    wxEvtHandler::AddFilter(&mFilter);
    if (wxTheApp != nullptr) wxTheApp->SuspendProcessingOfPendingEvents();
    gdk_event_handler_set(&FilterGdkEvent, nullptr, nullptr);
  }
  ~PumpScope() {
    // GTK installs its handler with this very cast; the extra argument is ignored.
    auto const toolkitHandler = reinterpret_cast<void (*)()>(&gtk_main_do_event);
    gdk_event_handler_set(reinterpret_cast<GdkEventFunc>(toolkitHandler), nullptr, nullptr);
    if (wxTheApp != nullptr) wxTheApp->ResumeProcessingOfPendingEvents();
    wxEvtHandler::RemoveFilter(&mFilter);
    gPumping = false;
  }
  PumpScope(PumpScope const &) = delete;
  PumpScope & operator=(PumpScope const &) = delete;

private:
  HoldingFilter mFilter;
};

template <class T>
void Remove(std::vector<T *> & list, T * item) {
  list.erase(std::remove(list.begin(), list.end(), item), list.end());
}

}  // namespace

void AllowWindow(wxWindow * topLevel) {
  if (!HoldingFilter::Contains(gAllowedWindows, topLevel)) gAllowedWindows.push_back(topLevel);
}
void DisallowWindow(wxWindow * topLevel) { Remove(gAllowedWindows, topLevel); }
void AllowTimerOwner(wxEvtHandler * owner) {
  if (!HoldingFilter::Contains(gAllowedTimerOwners, owner)) gAllowedTimerOwners.push_back(owner);
}
void DisallowTimerOwner(wxEvtHandler * owner) { Remove(gAllowedTimerOwners, owner); }

void Pump() {
  wxCHECK_RET(wxThread::IsMain(), "the event pump runs on the GUI thread only");
  if (gPumping || gdk_display_get_default() == nullptr) return;
  PumpScope scope;
  for (int i = 0; i < kMaxIterations && g_main_context_iteration(nullptr, FALSE); ++i) {}
}

void Release() {
  wxCHECK_RET(wxThread::IsMain(), "held events are replayed on the GUI thread only");
  std::vector<GdkEvent *> input;
  input.swap(gHeldInput);
  for (GdkEvent * event : input) {
    gdk_event_put(event);
    gdk_event_free(event);
  }
  std::vector<HeldTimer> timers;
  timers.swap(gHeldTimers);
  for (HeldTimer & held : timers)
    if (wxEvtHandler * owner = held.owner.get()) owner->QueueEvent(held.tick.release());
  if (gIdleHeld && wxTheApp != nullptr) wxTheApp->WakeUpIdle();
  gIdleHeld = false;
}

std::size_t HeldInputCount() { return gHeldInput.size(); }
std::size_t HeldTimerCount() { return gHeldTimers.size(); }
bool IsPumping() { return gPumping; }

}  // namespace progress_pump
