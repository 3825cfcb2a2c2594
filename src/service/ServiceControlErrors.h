#pragma once
// The texts with which the service control explains a failed system call:
// per operation, the codes that operation is known to meet. Other codes
// take the system's text (GetErrorText).

namespace VxService {

// The system function an operation of NTServiceControl stands for
// ("OpenService" for "OpenServiceW"...); null for an unknown operation.
char const * SystemFunctionOf(char const * operation);

// The operation's own text for `code`, or null.
char const * ServiceControlErrorText(char const * operation, unsigned long code);

}  // namespace VxService
