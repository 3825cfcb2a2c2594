#include "platform/RegistryNotices.h"

#include <mutex>

#include "utl/Log.h"

namespace registry {

namespace {

std::mutex gMutex;
std::vector<ExceptionMessage> & Pending() {
  static std::vector<ExceptionMessage> pending;
  return pending;
}

}  // namespace

void AddNotice(ExceptionMessage const & notice) {
  Log::WriteMessage("Registry", "Open", notice.ToString(std::locale::classic()), Log::Error, true);
  std::lock_guard<std::mutex> lock(gMutex);
  Pending().push_back(notice);
}

std::vector<ExceptionMessage> TakeNotices() {
  std::lock_guard<std::mutex> lock(gMutex);
  std::vector<ExceptionMessage> taken;
  taken.swap(Pending());
  return taken;
}

}  // namespace registry
