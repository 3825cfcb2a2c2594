#include "CrashCommands.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "SampleCommands.h"
#include "utl/Translation.h"

void CrashByNullWrite() {
  int volatile * volatile nowhere = nullptr;  // volatile: the fault cannot be proved away
  *nowhere = 1;
  std::abort();  // not reached
}

void CrashByAbort() { std::abort(); }

void CrashByWorkerException() {
  std::thread worker([] { throw std::runtime_error("The sample's worker failed on purpose."); });
  worker.join();
  std::abort();  // not reached: the exception ends the process in the worker
}

void AddCrashCommands(wxMenu & help, wxFrame & frame) {
  auto * crash = new wxMenu;
  crash->Append(kCrashNullWriteCommand, vx3::Tr("Menu command", "&Null write"));
  crash->Append(kCrashAbortCommand, vx3::Tr("Menu command", "&Abort"));
  crash->Append(kCrashWorkerExceptionCommand, vx3::Tr("Menu command", "&Worker exception"));
  help.AppendSubMenu(crash, vx3::Tr("Menu command", "&Crash now"));
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { CrashByNullWrite(); }, kCrashNullWriteCommand);
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { CrashByAbort(); }, kCrashAbortCommand);
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { CrashByWorkerException(); }, kCrashWorkerExceptionCommand);
}
