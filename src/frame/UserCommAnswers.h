#pragma once
// How the answers of a channel (UserCommAnswer) meet the buttons of
// YesNoCancelAll, both ways.

#include "dialogs/YesNoCancelAll.h"

namespace user_comm {

// The button that a question's default answer puts the focus on; None for
// UserCommNone and for values that are no answer.
YesNoCancelAll::ButtonPressed DefaultButtonFor(int defaultAnswer);

// The answer that a pressed button gives; Cancel for anything but the four
// answering buttons.
int AnswerFor(YesNoCancelAll::ButtonPressed pressed);

}  // namespace user_comm
