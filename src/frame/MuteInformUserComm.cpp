#include "frame/MuteInformUserComm.h"

#include <unordered_set>

#include "frame/InformUserSwitches.h"

void MuteInformUserComm::InformUser(UserCommMessage const & text, UserCommMessage const &,
                                    unsigned long id) {
  if (id != 0 && InformUserSwitches().IsSwitchedOff(id)) return;
  AddString(text);
}

std::string MuteInformUserComm::GetInformUserMessages(std::locale const & locale) const {
  if (mMessages.empty()) return std::string();
  std::string result = mHeader.ToString(locale);
  std::string const prefix = mPrefix.ToString(locale);
  std::unordered_set<std::string> seen;
  for (UserCommMessage const & message : mMessages) {
    std::string text = message.ToString(locale);
    if (!seen.insert(text).second) continue;
    result += prefix;
    result += text;
    result += '\n';
  }
  return result;
}
