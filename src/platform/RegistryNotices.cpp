#include "platform/RegistryNotices.h"

#include <mutex>
#include <utility>

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
std::vector<Notice> & Pending() {
  static std::vector<Notice> pending;
  return pending;
}

}  // namespace

void AddNotice(ExceptionMessage const & notice, std::string const & hive) {
  Log::WriteMessage("Registry", "Open", notice.ToString(std::locale::classic()), Log::Error, true);
  std::lock_guard<std::mutex> lock(gMutex);
  Pending().push_back({notice, hive});
}

std::vector<ExceptionMessage> TakeNotices() {
  std::vector<Notice> taken;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    taken.swap(Pending());
  }
  std::vector<ExceptionMessage> texts;
  for (Notice & notice : taken) texts.push_back(std::move(notice.text));
  return texts;
}

void TellNotices() {
  if (UserComm::GetUserComm() == nullptr) return;
  std::vector<Notice> taken;
  {
    std::lock_guard<std::mutex> lock(gMutex);
    if (Pending().empty()) return;
    taken.swap(Pending());
  }
  for (Notice const & notice : taken) vx3::TellFileProblemOnce(notice.hive, notice.text);
}

}  // namespace registry
