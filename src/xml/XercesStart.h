#pragma once
// Xerces-C needs XMLPlatformUtils::Initialize before any use. It counts its
// Initialize and Terminate calls, but the calls themselves are not
// thread-safe. The XML module initialises it exactly once per process, from
// whichever thread comes first (std::call_once), and never terminates it:
// DOM documents may live in static objects until the very end of the
// process, and a Terminate during static destruction would pull the ground
// from under them. Other code in the process may still pair its own
// Initialize and Terminate calls; the count keeps our initialisation alive.

namespace vx3 {

// Initialises Xerces-C on first call; cheap afterwards. Throws Exception if
// Xerces cannot start (no transcoding service, out of memory); the next
// call tries again.
void StartXerces();

}  // namespace vx3
