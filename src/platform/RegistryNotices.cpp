#include "platform/RegistryNotices.h"

#include <atomic>
#include <mutex>
#include <utility>

#include <wx/thread.h>

#include "utl/FileProblemNotice.h"
#include "utl/Log.h"
#include "utl/UserComm.h"

namespace registry {

namespace {

struct Notice {
  ExceptionMessage text;
  std::string hive;
};

std::mutex gMutex;
// Read without the lock by every access of a predefined key.
std::atomic<bool> gAnyPending{false};
std::vector<Notice> & Pending() {
  static std::vector<Notice> pending;
  return pending;
}

}  // namespace

void AddNotice(ExceptionMessage const & notice, std::string const & hive) {
  Log::WriteMessage("Registry", "Open", notice.ToString(std::locale::classic()), Log::Error, true);
  std::lock_guard<std::mutex> lock(gMutex);
  Pending().push_back({notice, hive});
  gAnyPending = true;
}

std::vector<ExceptionMessage> TakeNotices() {
  std::vector<Notice> taken;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    taken.swap(Pending());
    gAnyPending = false;
  }
  std::vector<ExceptionMessage> texts;
  texts.reserve(taken.size());
  for (Notice & notice : taken) texts.push_back(std::move(notice.text));
  return texts;
}

void TellNotices() {
  // A channel may show a dialog, which only the GUI thread can: a worker's
  // first access leaves the notices for the next access on the main thread.
  if (!gAnyPending || UserComm::GetUserComm() == nullptr || !wxThread::IsMain()) return;
  std::vector<Notice> taken;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    taken.swap(Pending());
    gAnyPending = false;
  }
  for (Notice const & notice : taken) vx3::TellFileProblemOnce(notice.hive, notice.text);
}

}  // namespace registry
