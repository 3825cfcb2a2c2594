#include "crash/MiniDumper.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "crash/CrashSignals.h"
#include "crash/MinidumpWriter.h"
#include "crash/StandardDumpName.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"

extern char ** environ;  // NOLINT(readability-redundant-declaration): POSIX names it only here

namespace {

struct State {
  bool initialized = false;
  int dumpType = 0;
  MiniDumper::NameProvider nameProvider;
  MiniDumper::SuccessCallback onSuccess;
  MiniDumper::FailureCallback onFailure;
  // Set in the writer process.
  wxString path;
  int error = 0;
};

State & TheState() {
  static State state;
  return state;
}

bool WriteDump(CrashContext const & crash) {
  State & state = TheState();
  try {
    if (state.nameProvider) state.path = state.nameProvider();
  } catch (...) {
    state.path.clear();  // a throwing name provider names nothing
  }
  if (state.path.empty()) return false;
  state.error = minidump::WriteMinidumpFile(state.path.utf8_string(), crash, state.dumpType);
  return state.error == 0;
}

void Report(bool written) {
  State & state = TheState();
  if (state.path.empty()) return;
  try {
    if (written && state.onSuccess) state.onSuccess(state.path.wc_str());
    if (!written && state.onFailure)
      state.onFailure(state.path.wc_str(),
                      static_cast<unsigned long>(state.error != 0 ? state.error : EIO));
  } catch (...) {
    // The process ends either way.
  }
}

std::string ReportProgram() {
  std::string beside = VxPathAppend(VxGetExecutableDirectory(), "talvo-crash-report");
  if (::access(beside.c_str(), X_OK) == 0) return beside;
  return "talvo-crash-report";  // looked up on PATH
}

}  // namespace

void MiniDumper::Initialize() {
  Initialize([] { return wxString::FromUTF8(StandardDumpName()); }, &MiniDumper::ShowCrashReport,
             FailureCallback(), minidump::kTypeStacks);
}

void MiniDumper::Initialize(NameProvider const & nameProvider, SuccessCallback const & onSuccess,
                            FailureCallback const & onFailure, int dumpType) {
  State & state = TheState();
  if (state.initialized) return;
  state.initialized = true;
  state.nameProvider = nameProvider;
  state.onSuccess = onSuccess;
  state.onFailure = onFailure;
  state.dumpType = dumpType;
  CrashWriter writer;
  writer.write = &WriteDump;
  writer.report = &Report;
  InstallCrashHandlers(writer);
}

bool MiniDumper::IsInitialized() { return TheState().initialized; }

void MiniDumper::ShowCrashReport(wchar_t const * path) {
  std::string const program = ReportProgram();
  std::string const application = VxSystemInfo::GetApplicationName();
  std::string const version = VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull);
  std::string const dump = path != nullptr ? wxString(path).utf8_string() : std::string();
  std::vector<char *> argv;
  std::string name = "talvo-crash-report", app = "--application", ver = "--version";
  argv = {name.data(), app.data(), const_cast<char *>(application.c_str()), ver.data(),
          const_cast<char *>(version.c_str())};
  if (!dump.empty()) argv.push_back(const_cast<char *>(dump.c_str()));
  argv.push_back(nullptr);
  pid_t child = 0;
  if (::posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0) return;
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {}
}
