#include "frame/VxSystemException.h"

#include "frame/SystemExceptionCodes.h"

VxSystemException::VxSystemException(Exception const & other) : Exception(other) {}

VxSystemException::VxSystemException(ExceptionMessageList const & messages) : Exception(messages) {}

VxSystemException::~VxSystemException() = default;

VxSystemException * VxSystemException::Clone() const { return new VxSystemException(*this); }

void VxSETranslator(unsigned int code, _EXCEPTION_POINTERS *) {
  ExceptionMessageList messages;
  messages << ExceptionMessage::translate("A system exception occurred: ")
           << ExceptionMessage::translate(SystemExceptionText(code));
  throw VxSystemException(messages);
}
