#include "utl/KarvinFilterValidator.h"

#include "utl/UserComm.h"

KarvinFilterValidator::KarvinFilterValidator() = default;

KarvinFilterValidator::~KarvinFilterValidator() = default;

bool KarvinFilterValidator::IsValid(char const * text) {
  mProblem = FilterMatcher::FindProblem(text != nullptr ? text : "");
  return mProblem == FilterMatcher::Problem::None;
}

void KarvinFilterValidator::Error(wxWindow *) {
  UserComm * const channel = UserComm::GetUserComm();
  if (channel == nullptr) return;
  channel->InformUser(MessageFor(mProblem), ExceptionMessage::translate("Filter"), 0);
}

ExceptionMessage KarvinFilterValidator::MessageFor(FilterMatcher::Problem problem) {
  using Problem = FilterMatcher::Problem;
  switch (problem) {
    case Problem::UnclosedQuote:
      return ExceptionMessage::translate(
          "The filter has a quotation mark that is not closed. Add the closing quotation mark.");
    case Problem::MinusWithoutText:
      return ExceptionMessage::translate(
          "The filter has a minus sign with no text after it. Write the text to exclude right "
          "after the minus sign, or put the minus sign in quotation marks to search for it.");
    case Problem::EmptyQuotes:
      return ExceptionMessage::translate(
          "The filter has a pair of quotation marks with nothing between them.");
    case Problem::EmptyAlternative:
      return ExceptionMessage::translate(
          "The filter has a vertical bar with no text on one of its sides. Write an alternative "
          "on each side of the vertical bar.");
    case Problem::None: break;
  }
  return ExceptionMessage::translate("The text is not a valid filter.");
}
