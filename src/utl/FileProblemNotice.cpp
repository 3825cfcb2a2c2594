#include "utl/FileProblemNotice.h"

#include <locale>
#include <mutex>
#include <set>

#include "utl/Log.h"
#include "utl/UserComm.h"

namespace vx3 {

namespace {

std::mutex gMutex;
std::set<std::string> & Told() {
  static std::set<std::string> told;
  return told;
}

}  // namespace

bool ReportFileProblem(char const * className, char const * functionName, std::string const & path,
                       ExceptionMessage const & message) {
  Log::WriteMessage(className, functionName, message.ToString(std::locale::classic()), Log::Error,
                    true);
  return TellFileProblemOnce(path, message);
}

bool TellFileProblemOnce(std::string const & path, ExceptionMessage const & message) {
  UserComm * channel = UserComm::GetUserComm();
  if (channel == nullptr) return false;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    if (!Told().insert(path).second) return false;
  }
  // Outside the lock: a dialog may run a loop that reports another file.
  channel->InformUser(message, ExceptionMessage::translate("Damaged file"), 0);
  return true;
}

void ForgetReportedFiles() {
  std::lock_guard<std::mutex> lock(gMutex);
  Told().clear();
}

}  // namespace vx3
