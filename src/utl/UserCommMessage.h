#pragma once
// The value every UserComm operation takes: an ExceptionMessageList that can
// be built from one message, so callers write
// `comm->InformUser(ExceptionMessage::translate("Done."), caption, 0)`.

#include "utl/ExceptionMessageList.h"

class UserCommMessage : public ExceptionMessageList {
public:
  UserCommMessage() = default;
  UserCommMessage(ExceptionMessage const & message) {
    *this << message;
  }  // NOLINT: implicit by design
  UserCommMessage(ExceptionMessageList const & messages)
      : ExceptionMessageList(messages) {}  // NOLINT
};
