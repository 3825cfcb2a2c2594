#pragma once
// Texts of framework exceptions and of system error codes.

#include <string>

class CException;

namespace CExceptionHelper {

// The exception's message, white space cut from its end; "Unknown error."
// when it gives none.
std::string GetErrorMessage(CException * e);

// The system's text of a Win32 error code with the code in decimal after it:
// "Access is denied. (5)", "Unknown error. (12345)".
std::string GetErrorText(unsigned long code);

}  // namespace CExceptionHelper
