#include "utl/Exception.h"

Exception::Exception() = default;
Exception::Exception(ExceptionMessage const & message) { mMessages << message; }
Exception::Exception(ExceptionMessageList const & messages) : mMessages(messages) {}
Exception::Exception(Exception const & other) = default;
Exception & Exception::operator=(Exception const & other) = default;
Exception::~Exception() = default;

Exception * Exception::Clone() const { return new Exception(*this); }

std::string Exception::Why(std::locale const & locale) const noexcept {
  return mMessages.ToString(locale);
}
