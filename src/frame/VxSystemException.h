#pragma once
// A processor or system exception turned into the family's failure type, so
// that the guards and callers catch it as any Exception.

#include "utl/Exception.h"

struct _EXCEPTION_POINTERS;

class VxSystemException : public Exception {
public:
  explicit VxSystemException(Exception const & other);
  explicit VxSystemException(ExceptionMessageList const & messages);
  ~VxSystemException() override;

  VxSystemException * Clone() const override;
};

// Throws a VxSystemException reading "A system exception occurred: " and the
// text of `code`. Made for a structured-exception translator; the library
// installs none, the application does, once a thread. `pointers` is unused.
[[noreturn]] void VxSETranslator(unsigned int code, _EXCEPTION_POINTERS * pointers);
