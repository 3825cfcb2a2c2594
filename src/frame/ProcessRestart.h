#pragma once
// How the internal-error dialog ends the program: start the executable anew
// (optionally) and leave at once. Both steps are replaceable so that tests
// neither relaunch nor end themselves.

#include <functional>

// Starts the executable again; a failure is ignored (the process ends all the
// same). The default spawns /proc/self/exe with this process's arguments.
using RestartLauncher = std::function<void()>;
// Ends the process with `status`; the default is _exit: nothing is flushed
// and no destructors run, since the state is suspect after a failure.
using ProcessExit = std::function<void(int status)>;

// Each installs its argument (empty: the default) and returns the former one.
RestartLauncher SetRestartLauncher(RestartLauncher launcher);
ProcessExit SetProcessExit(ProcessExit exit);

void LaunchRestart();
void EndProcessNow(int status);
