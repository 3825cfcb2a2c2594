#pragma once
// A channel that asks with dialogs (as StandardUserComm) but collects
// information in memory instead of showing it, for the caller to show at
// the end of a run (GetInformUserMessages).
//
// Messages that the user switched off ("don't show again", see
// InformUserSwitches.h) are dropped; the caption of an information is not
// kept.

#include <locale>
#include <string>
#include <vector>

#include "frame/StandardUserComm.h"

class MuteInformUserComm : public StandardUserComm {
public:
  void InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                  unsigned long id) override;

  // The collected text in `locale`: the header, then for each message that
  // differs from all earlier ones the prefix, the message and "\n". Empty
  // without messages. The header brings its own separator, if it wants one.
  virtual std::string GetInformUserMessages(std::locale const & locale) const;

  void SetHeader(UserCommMessage const & header) { mHeader = header; }
  void SetPrefix(UserCommMessage const & prefix) { mPrefix = prefix; }
  void AddString(UserCommMessage const & message) { mMessages.push_back(message); }
  // Forgets the collected messages (header and prefix stay).
  void Empty() { mMessages.clear(); }

protected:
  std::vector<UserCommMessage> const & Messages() const { return mMessages; }

private:
  UserCommMessage mHeader;
  std::vector<UserCommMessage> mMessages;
  UserCommMessage mPrefix;
};
