#include "frame/StandardUserComm.h"

#include <string>

#include <wx/utils.h>

#include "dialogs/CheckBoxMessageBox.h"
#include "dialogs/YesNoCancelAll.h"
#include "dialogs/YesNoDialog.h"
#include "frame/InformUserSwitches.h"
#include "frame/UserCommAnswers.h"
#include "frame/UserCommBoxes.h"
#include "platform/WinUser.h"
#include "utl/Utf.h"
#include "work/ProgressHidden.h"

namespace {

std::string Text(UserCommMessage const & message) { return message.ToString(std::locale()); }

std::wstring Wide(UserCommMessage const & message) { return vx3::Utf8ToWide(Text(message)); }

}  // namespace

StandardUserComm::~StandardUserComm() = default;

int StandardUserComm::AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                                   int defaultAnswer) {
  std::string const shownText = Text(text);
  if (user_comm::CountLines(shownText) > user_comm::kMaxQuestionLines)
    return AskUserYesNo(UserCommMessage(), text, caption, defaultAnswer);
  UINT const type = defaultAnswer == UserCommYes ? MB_YESNO | MB_ICONEXCLAMATION
                                                 : MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2;
  int result = 0;
  {
    ProgressHidden hidden;
    result = user_comm::ShowMessageBox(vx3::Utf8ToWide(shownText), Wide(caption), type);
  }
  return result == IDYES ? UserCommYes : UserCommNo;
}

int StandardUserComm::AskUserYesNo(UserCommMessage const & header, UserCommMessage const & text,
                                   UserCommMessage const & caption, int defaultAnswer) {
  ++mUsage;
  ProgressHidden hidden;
  YesNoDialog dialog(Wide(header).c_str(), Wide(text).c_str(), Wide(caption).c_str(), defaultAnswer,
                     user_comm::DialogParent());
  return dialog.DoModal() == IDOK ? UserCommYes : UserCommNo;
}

int StandardUserComm::AskWithButtons(UserCommMessage const & header, UserCommMessage const & text,
                                     UserCommMessage const & caption, int defaultAnswer,
                                     Buttons buttons) {
  YesNoCancelAll dialog(Wide(header).c_str(), Wide(text).c_str(), Wide(caption).c_str(),
                        user_comm::DefaultButtonFor(defaultAnswer), user_comm::DialogParent(),
                        buttons.yes, buttons.yesToAll, buttons.no, buttons.noToAll, buttons.cancel);
  ++mUsage;
  ProgressHidden hidden;
  dialog.DoModal(nullptr, nullptr, nullptr, YesNoCancelAll::None);
  return user_comm::AnswerFor(dialog.GetResult());
}

int StandardUserComm::AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                                        UserCommMessage const & text,
                                                        UserCommMessage const & caption,
                                                        int defaultAnswer) {
  return AskWithButtons(header, text, caption, defaultAnswer, {true, true, true, true, true});
}

int StandardUserComm::AskUserYesYesToAllCancel(UserCommMessage const & header,
                                               UserCommMessage const & text,
                                               UserCommMessage const & caption, int defaultAnswer) {
  return AskWithButtons(header, text, caption, defaultAnswer, {true, true, false, false, true});
}

int StandardUserComm::AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                                       UserCommMessage const & caption, int defaultAnswer) {
  return AskWithButtons(header, text, caption, defaultAnswer, {true, false, false, false, true});
}

void StandardUserComm::FatalError(UserCommMessage const & text, UserCommMessage const & caption) {
  ++mUsage;
  std::string const shownText = Text(text);
  if (shownText.empty()) return;
  ProgressHidden hidden;
  user_comm::ShowFatalOrInformation(shownText, Text(caption), false);
}

void StandardUserComm::InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                                  unsigned long id) {
  ++mUsage;
  std::string const shownText = Text(text);
  if (shownText.empty()) return;
  ProgressHidden hidden;
  if (id == 0) {
    user_comm::ShowFatalOrInformation(shownText, Text(caption), true);
    return;
  }
  // A message that can be switched off: the box has the application's name
  // as caption and is never a scrolling dialog.
  InformUserSwitches switches;
  if (switches.IsSwitchedOff(id)) return;
  bool switchOff = false;
  CheckBoxMessageBox(vx3::Utf8ToWide(shownText).c_str(), switchOff, MB_OK, nullptr, 0,
                     user_comm::DialogParent());
  if (switchOff) switches.SwitchOff(id);
}

void StandardUserComm::HourGlassOn() {
  UserComm::HourGlassOn();
  wxBeginBusyCursor();
}

void StandardUserComm::HourGlassOff() {
  // GTK keeps a cursor until it is taken back, so the channel that set it
  // takes it back when the depth returns to zero.
  if (HourGlassDepth() == 0) return;
  UserComm::HourGlassOff();
  wxEndBusyCursor();
}
