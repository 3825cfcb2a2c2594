#pragma once
// The application profile: user-interface state (window placements, columns,
// "don't show again" answers) kept per user in the registry store, under
// HKEY_CURRENT_USER\<GetRegistryBaseKeyName()>\<section>. Integers are
// REG_DWORD values, texts REG_SZ. Needs no display, so services and tools
// share an application's profile.

#include <string>

#include "platform/WinReg.h"

namespace AppProfile {

// The application's key, created if absent, opened for reading and writing;
// null when the store refuses. The caller closes it with RegCloseKey.
HKEY GetAppRegistryKey();
// The key of one section below it, the same way.
HKEY GetSectionKey(char const * section);

// The REG_DWORD `entry` of `section`; `defaultValue` when it is absent or of
// another type.
int GetProfileInt(char const * section, char const * entry, int defaultValue);
// The REG_SZ `entry` of `section`; `defaultValue` (null: "") when it is
// absent or of another type.
std::string GetProfileString(char const * section, char const * entry, char const * defaultValue);

bool WriteProfileInt(char const * section, char const * entry, int value);
// A null `entry` removes the whole section; a null `value` removes the entry.
// Removing what is not there succeeds and creates no key.
bool WriteProfileString(char const * section, char const * entry, char const * value);

}  // namespace AppProfile
