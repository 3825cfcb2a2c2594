#include "frame/MuteAskUserComm.h"

#include <locale>
#include <string>

#include "frame/UserCommBoxes.h"
#include "work/ProgressHidden.h"

void MuteAskUserComm::FatalError(UserCommMessage const & text, UserCommMessage const & caption) {
  std::string const shownText = text.ToString(std::locale());
  if (shownText.empty()) return;
  ProgressHidden hidden;
  user_comm::ShowFatalOrInformation(shownText, caption.ToString(std::locale()), false);
}
