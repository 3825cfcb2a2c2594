#include "platform/RegistryStore.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <mutex>
#include <vector>

#include "utl/Paths.h"

namespace registry {

namespace {

std::string Environment(char const * name) {
  char const * value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::mutex gHivesMutex;
std::unique_ptr<Hive> gUserHive;
std::unique_ptr<Hive> gSystemHive;

// Handles are small multiples of 4, as on Windows, far from the predefined
// keys (0x80000000 and up, sign-extended).
constexpr uintptr_t kFirstHandle = 0x1000;

std::mutex gHandlesMutex;
struct Slot {
  OpenKey key;
  bool used = false;
};
std::vector<Slot> gSlots;
std::vector<size_t> gFreeSlots;

bool SlotOf(HKEY handle, size_t & slot) {
  auto const value = reinterpret_cast<uintptr_t>(handle);
  if (value < kFirstHandle || (value - kFirstHandle) % 4 != 0) return false;
  slot = (value - kFirstHandle) / 4;
  return slot < gSlots.size() && gSlots[slot].used;
}

}  // namespace

std::string UserHivePath() {
  std::string overridden = Environment("TALVO_REGISTRY_USER_HIVE");
  if (!overridden.empty()) return overridden;
  std::string config = Environment("XDG_CONFIG_HOME");
  if (config.empty()) {
    std::string home = Environment("HOME");
    if (home.empty()) {
      struct passwd const * user = ::getpwuid(::getuid());
      home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
    }
    config = VxPathAppend(home, ".config");
  }
  return VxPathAppend(config, "Karvinel/registry/user.db");
}

std::string SystemHivePath() {
  std::string const overridden = Environment("TALVO_REGISTRY_SYSTEM_HIVE");
  return overridden.empty() ? "/etc/xdg/Karvinel/registry/system.db" : overridden;
}

Hive & UserHive() {
  std::lock_guard<std::mutex> lock(gHivesMutex);
  if (!gUserHive) gUserHive = std::make_unique<Hive>(UserHivePath(), true);
  return *gUserHive;
}

Hive & SystemHive() {
  std::lock_guard<std::mutex> lock(gHivesMutex);
  if (!gSystemHive) gSystemHive = std::make_unique<Hive>(SystemHivePath(), false);
  return *gSystemHive;
}

void CloseHives() {
  {
    std::lock_guard<std::mutex> lock(gHandlesMutex);
    gSlots.clear();
    gFreeSlots.clear();
  }
  std::lock_guard<std::mutex> lock(gHivesMutex);
  gUserHive.reset();
  gSystemHive.reset();
}

HKEY AddHandle(OpenKey const & key) {
  std::lock_guard<std::mutex> lock(gHandlesMutex);
  size_t slot;
  if (!gFreeSlots.empty()) {
    slot = gFreeSlots.back();
    gFreeSlots.pop_back();
  } else {
    slot = gSlots.size();
    gSlots.emplace_back();
  }
  gSlots[slot].key = key;
  gSlots[slot].used = true;
  return reinterpret_cast<HKEY>(kFirstHandle + 4 * slot);
}

bool FindHandle(HKEY handle, OpenKey & key) {
  std::lock_guard<std::mutex> lock(gHandlesMutex);
  size_t slot;
  if (!SlotOf(handle, slot)) return false;
  key = gSlots[slot].key;
  return true;
}

bool RemoveHandle(HKEY handle) {
  std::lock_guard<std::mutex> lock(gHandlesMutex);
  size_t slot;
  if (!SlotOf(handle, slot)) return false;
  gSlots[slot].used = false;
  gFreeSlots.push_back(slot);
  return true;
}

}  // namespace registry
