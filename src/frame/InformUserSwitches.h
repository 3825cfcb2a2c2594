#pragma once
// The information messages a user switched off with "don't show again":
// key "<registry base>\UserCommInformUser" under HKEY_CURRENT_USER, one
// DWORD value a message, named by the message's id in decimal. A value of 0
// switches the message off; any other value, or none, lets it show.

#include "settings/RegistrySection.h"

class InformUserSwitches {
public:
  static constexpr char kKeyName[] = "UserCommInformUser";
  // Read, write, create sub-keys, enumerate, notify.
  static constexpr REGSAM kAccess = 0x2001F;

  // Opens the key, creating it when absent. Throws Exception "Registry Key
  // couldn't be created." when the store refuses.
  InformUserSwitches();

  bool IsSwitchedOff(unsigned long id) const;
  void SwitchOff(unsigned long id);

private:
  RegistrySection mSection;
};
