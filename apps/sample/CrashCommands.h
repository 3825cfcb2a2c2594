#pragma once
// Help > Crash now: three ways an application dies (a write through a null
// pointer, abort, an exception nobody catches on a worker thread). With
// crash capture on (the sample starts it in OnInit), each leaves a dump in
// the temp folder's "Crash diagnostics" and then shows the crash report.

class wxFrame;
class wxMenu;

void AddCrashCommands(wxMenu & help, wxFrame & frame);

// What the commands do, for the tests that run them in a process of their own.
[[noreturn]] void CrashByNullWrite();
[[noreturn]] void CrashByAbort();
[[noreturn]] void CrashByWorkerException();
