#pragma once
// Xerces-C needs XMLPlatformUtils::Initialize before any use. It counts its
// Initialize and Terminate calls, but the calls themselves are not
// thread-safe. This library initialises it exactly once per process, from
// whichever thread comes first (std::call_once), and never terminates it:
// DOM documents may live in static objects until the very end of the process,
// and a Terminate during static destruction would pull the ground from under
// them. Other code in the process may still pair its own Initialize and
// Terminate calls; the count keeps our initialisation alive.

namespace vx3 {

// Initialises Xerces-C on first call; cheap afterwards. Throws Exception if
// Xerces cannot start (no transcoding service, out of memory).
void EnsureXercesInitialized();

// Starts that initialisation on a worker thread and returns at once, so that
// it overlaps the application's own start (opening the display), which
// mostly waits for the X server. Xerces builds its character-class tables
// when it starts, several milliseconds of work. A later
// EnsureXercesInitialized waits for the worker; a failure there is simply
// retried by that call. The process waits for the worker at exit.
void StartXercesInitialization();

}  // namespace vx3
