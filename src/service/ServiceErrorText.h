#pragma once
// The system's text of a Win32 error code, as a service logs it: the text
// alone, white space cut from its end, or "Unknown error." (the code is
// logged beside it by the caller, so it is not repeated here).

#include <string>

namespace VxService {

std::string GetErrorText(unsigned long code);

}  // namespace VxService
