#pragma once
// The hives of this process and the handles open on their keys.
//
// Where the hives lie:
//   HKEY_CURRENT_USER   $TALVO_REGISTRY_USER_HIVE, or
//                       $XDG_CONFIG_HOME/Karvinel/registry/user.db
//                       ($XDG_CONFIG_HOME defaults to ~/.config)
//   HKEY_LOCAL_MACHINE  $TALVO_REGISTRY_SYSTEM_HIVE, or
//                       /etc/xdg/Karvinel/registry/system.db
// The variables let tests (tests/harness/run-isolated) and tools point at
// other files. The system hive deliberately does not follow $XDG_CONFIG_DIRS:
// an administrator's settings stay where the administrator put them.

#include <string>

#include "platform/RegistryHive.h"
#include "platform/WinReg.h"

namespace registry {

std::string UserHivePath();
std::string SystemHivePath();

// Made on first use, at the location the environment names then.
Hive & UserHive();
Hive & SystemHive();

// Closes both hives and every handle (which then gives
// ERROR_INVALID_HANDLE); the next use opens the hives again, where the
// environment names them then. For tools and tests: no other thread may use
// the registry meanwhile, and no transaction may be open.
void CloseHives();

// A handle's key: its hive, its row, and the rights it was opened with.
struct OpenKey {
  Hive * hive = nullptr;
  KeyId id = 0;
  REGSAM access = 0;
};

HKEY AddHandle(OpenKey const & key);
// False for a handle that is not (or no longer) open. Predefined keys are
// not in the table.
bool FindHandle(HKEY handle, OpenKey & key);
bool RemoveHandle(HKEY handle);
// The key any handle stands on, predefined keys included (for
// HKEY_CLASSES_ROOT, the classes key): for code of the store that works on
// the hive directly. ERROR_INVALID_HANDLE, or the code of finding the key.
LONG FindKey(HKEY handle, OpenKey & key);

}  // namespace registry
