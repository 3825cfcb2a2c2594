#pragma once
// A channel that writes down what it is told: the process's channel while
// it lives. Unless told otherwise it first forgets which damaged files were
// told about (and what waited for a channel), so that every test starts as
// a fresh process would.

#include <locale>
#include <string>
#include <vector>

#include "utl/FileProblemNotice.h"
#include "utl/MuteUserComm.h"

class CollectingUserComm : public MuteUserComm {
public:
  enum Start { Fresh, TakingWhatWaits };
  explicit CollectingUserComm(Start start = Fresh) {
    if (start == Fresh) vx3::ForgetReportedFiles();
    mPrevious = UserComm::SetUserComm(this);
  }
  ~CollectingUserComm() override { UserComm::SetUserComm(mPrevious); }
  CollectingUserComm(CollectingUserComm const &) = delete;
  CollectingUserComm & operator=(CollectingUserComm const &) = delete;

  void InformUser(UserCommMessage const & text, UserCommMessage const &, unsigned long) override {
    told.push_back(text.ToString(std::locale::classic()));
  }

  void FatalError(UserCommMessage const & text, UserCommMessage const &) override {
    told.push_back("fatal: " + text.ToString(std::locale::classic()));
  }

  std::vector<std::string> told;

private:
  UserComm * mPrevious = nullptr;
};
