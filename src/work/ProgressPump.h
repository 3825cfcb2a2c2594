#pragma once
// The event pump of an operation that blocks the GUI thread (what
// Progress::MessageLoop runs). It keeps windows painted without letting the
// user reach the application:
// - GDK events pass through a filter put in front of GTK's handler for the
//   length of one pump: paints, configures, window-state, focus and the like
//   pass; user input (keys, buttons, motion and crossings, scroll, touch,
//   the close button) passes only to the allowed top-level windows (the
//   break dialog) and is otherwise copied and held.
// - wx timer ticks, idle and update-UI events are held by a wxEventFilter, and
//   wx's queue of pending events is suspended, so that no application code
//   runs; timers of allowed owners (the status spinner and gauge) tick on.
//   wx's GTK timers are timeout sources of GLib's default context, which the
//   pump has to iterate for GTK's redraws, so they cannot be left out of the
//   iteration; their ticks reach the application as wxEVT_TIMER through
//   ProcessEvent, and that is where they are held. A wxTimer subclass that
//   overrides Notify() does not go through ProcessEvent and runs in the pump.
// - Release() (when the active progress ends) puts the held input back at
//   the end of GDK's queue in the order it came, queues one tick for every
//   timer that ticked meanwhile, and wakes idle processing.

#include <cstddef>

class wxEvtHandler;
class wxWindow;

namespace progress_pump {

// Input to these top-level windows (and their children) passes.
void AllowWindow(wxWindow * topLevel);
void DisallowWindow(wxWindow * topLevel);
// Timer ticks whose owner is this handler pass.
void AllowTimerOwner(wxEvtHandler * owner);
void DisallowTimerOwner(wxEvtHandler * owner);

// One bounded pass over what GTK and GLib have ready. Does nothing off the
// GUI thread (asserts) or when called from inside itself.
void Pump();
// Replays what was held; see above.
void Release();

// What is held now (input events, timers with a tick).
std::size_t HeldInputCount();
std::size_t HeldTimerCount();
bool IsPumping();

}  // namespace progress_pump
