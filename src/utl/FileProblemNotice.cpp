#include "utl/FileProblemNotice.h"

#include <locale>
#include <mutex>
#include <set>
#include <vector>

#include "utl/Log.h"
#include "utl/UserComm.h"

namespace vx3 {

namespace {

struct Waiting {
  std::string path;
  ExceptionMessage message;
};

std::mutex gMutex;
bool gHeld = false;
std::set<std::string> & Told() {
  static std::set<std::string> told;
  return told;
}
std::vector<Waiting> & WaitingForChannel() {
  static std::vector<Waiting> waiting;
  return waiting;
}

void Tell(UserComm & channel, ExceptionMessage const & message) {
  channel.InformUser(message, ExceptionMessage::translate("Damaged file"), 0);
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
  {
    std::lock_guard<std::mutex> lock(gMutex);
    if (!Told().insert(path).second) return false;
    if (channel == nullptr || gHeld) {
      WaitingForChannel().push_back({path, message});
      return false;
    }
  }
  // Outside the lock: a dialog may run a loop that reports another file.
  Tell(*channel, message);
  return true;
}

void TellWaitingFileProblems(UserComm & channel) {
  std::vector<Waiting> waiting;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    if (gHeld || WaitingForChannel().empty()) return;
    waiting.swap(WaitingForChannel());
  }
  for (Waiting const & problem : waiting) Tell(channel, problem.message);
}

void HoldFileProblems() {
  std::lock_guard<std::mutex> lock(gMutex);
  gHeld = true;
}

void ReleaseFileProblems() {
  {
    std::lock_guard<std::mutex> lock(gMutex);
    gHeld = false;
  }
  if (UserComm * channel = UserComm::GetUserComm()) TellWaitingFileProblems(*channel);
}

void ForgetReportedFiles() {
  std::lock_guard<std::mutex> lock(gMutex);
  Told().clear();
  WaitingForChannel().clear();
  gHeld = false;
}

}  // namespace vx3
