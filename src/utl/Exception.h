#pragma once
// The one failure type of the family: thrown by value, caught by reference.

#include <locale>
#include <string>

#include "utl/ExceptionMessage.h"
#include "utl/ExceptionMessageList.h"

class Exception {
public:
  Exception();
  explicit Exception(ExceptionMessage const & message);
  explicit Exception(ExceptionMessageList const & messages);
  Exception(Exception const & other);
  Exception & operator=(Exception const & other);
  virtual ~Exception();

  // A new heap copy of the most derived object; the caller owns it.
  virtual Exception * Clone() const;

  // The message text in that locale. Never throws, whatever the arguments
  // and the catalogs.
  std::string Why(std::locale const & locale = std::locale()) const noexcept;

  ExceptionMessageList const & Messages() const { return mMessages; }

private:
  ExceptionMessageList mMessages;
};
