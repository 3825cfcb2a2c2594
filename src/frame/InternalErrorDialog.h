#pragma once
// The last-resort dialog at the end of every exception guard.

#include <string>

class CException;

// The text shown for a failure that is neither of the library's nor standard.
extern char const kUnknownExceptionText[];

// Shows `text` as the description of an internal error.
void ShowInternalErrorDialog(std::string const & text);

// The text of a framework exception (CExceptionHelper::GetErrorMessage);
// here so that the guard template needs no more than this header.
std::string FrameworkExceptionText(CException * e);
