#include "frame/UserCommAnswers.h"

#include "utl/UserComm.h"

namespace user_comm {

YesNoCancelAll::ButtonPressed DefaultButtonFor(int defaultAnswer) {
  switch (defaultAnswer) {
    case UserCommYes: return YesNoCancelAll::Yes;
    case UserCommYesToAll: return YesNoCancelAll::YesToAll;
    case UserCommNo: return YesNoCancelAll::No;
    case UserCommNoToAll: return YesNoCancelAll::NoToAll;
    case UserCommCancel: return YesNoCancelAll::Cancel;
    default: return YesNoCancelAll::None;
  }
}

int AnswerFor(YesNoCancelAll::ButtonPressed pressed) {
  switch (pressed) {
    case YesNoCancelAll::Yes: return UserCommYes;
    case YesNoCancelAll::No: return UserCommNo;
    case YesNoCancelAll::YesToAll: return UserCommYesToAll;
    case YesNoCancelAll::NoToAll: return UserCommNoToAll;
    default: return UserCommCancel;
  }
}

}  // namespace user_comm
