#pragma once
// The channel that asks and informs with dialogs: what an interactive
// application installs with UserComm::SetUserComm.
//
// Yes/No questions up to 30 lines are a message box, longer ones the
// scrolling YesNoDialog; questions with more answers are YesNoCancelAll.
// Fatal errors and information below 20 lines are a message box, longer
// ones FatalErrorDialog. An information with an id other than 0 carries a
// "don't show again" box; a message switched off that way is remembered
// under "<registry base>\UserCommInformUser" (HKEY_CURRENT_USER), one DWORD
// value 0 named by the decimal id. The progress dialog is hidden while any
// of these is up. Empty texts are refused silently.
//
// The usage counter tells how many dialogs were raised for the channel:
// every question but the short Yes/No (a message box), every fatal error and
// every information counts on entry, an empty one too.

#include "utl/UserComm.h"

class StandardUserComm : public UserComm {
public:
  StandardUserComm() = default;
  StandardUserComm(StandardUserComm const &) = default;
  StandardUserComm & operator=(StandardUserComm const &) = default;
  ~StandardUserComm() override;

  int AskUserYesNo(UserCommMessage const & header, UserCommMessage const & text,
                   UserCommMessage const & caption, int defaultAnswer) override;
  int AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                   int defaultAnswer) override;
  int AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                        UserCommMessage const & text,
                                        UserCommMessage const & caption,
                                        int defaultAnswer) override;
  int AskUserYesYesToAllCancel(UserCommMessage const & header, UserCommMessage const & text,
                               UserCommMessage const & caption, int defaultAnswer) override;
  int AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                       UserCommMessage const & caption, int defaultAnswer) override;
  void FatalError(UserCommMessage const & text, UserCommMessage const & caption) override;
  void InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                  unsigned long id) override;
  // The busy cursor over all windows while the depth is above zero.
  void HourGlassOn() override;
  void HourGlassOff() override;

  int GetUsage() const { return mUsage; }
  void ResetUsage() { mUsage = 0; }

private:
  struct Buttons {
    bool yes, yesToAll, no, noToAll, cancel;
  };
  int AskWithButtons(UserCommMessage const & header, UserCommMessage const & text,
                     UserCommMessage const & caption, int defaultAnswer, Buttons buttons);

  int mUsage = 0;
};
