#include "utl/ExceptionMessageList.h"

ExceptionMessageList::ExceptionMessageList() = default;
ExceptionMessageList::ExceptionMessageList(ExceptionMessageList const & other) = default;
ExceptionMessageList & ExceptionMessageList::operator=(ExceptionMessageList const & other) =
    default;
ExceptionMessageList::~ExceptionMessageList() = default;

ExceptionMessageList & ExceptionMessageList::operator<<(ExceptionMessage const & message) {
  mMessages.push_back(message);
  return *this;
}

ExceptionMessageList & ExceptionMessageList::operator<<(ExceptionMessageList const & messages) {
  if (&messages == this) {
    std::vector<ExceptionMessage> const copy(mMessages);
    mMessages.insert(mMessages.end(), copy.begin(), copy.end());
  } else {
    mMessages.insert(mMessages.end(), messages.mMessages.begin(), messages.mMessages.end());
  }
  return *this;
}

std::string ExceptionMessageList::ToString(std::locale const & locale) const noexcept {
  std::string text;
  try {
    for (auto const & message : mMessages) text += message.ToString(locale);
  } catch (...) {
    // Out of memory: what was joined so far is the best we can say.
  }
  return text;
}
