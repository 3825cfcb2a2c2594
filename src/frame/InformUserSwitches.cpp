#include "frame/InformUserSwitches.h"

#include <string>

#include "settings/RegistryBaseKeyName.h"

InformUserSwitches::InformUserSwitches()
    : mSection(HKEY_CURRENT_USER, (GetRegistryBaseKeyName() + "\\" + kKeyName).c_str(), kAccess,
               true) {}

bool InformUserSwitches::IsSwitchedOff(unsigned long id) const {
  int value = 1;
  return mSection.ReadInt(std::to_string(id).c_str(), value) && value == 0;
}

void InformUserSwitches::SwitchOff(unsigned long id) {
  mSection.WriteInt(std::to_string(id).c_str(), 0);
}
