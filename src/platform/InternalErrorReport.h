#pragma once
// Where a failure that an exception guard stopped at a window's edge goes.
// The guard lives below the internal-error dialog, so the dialog registers
// itself here when the library that holds it is loaded; every program that
// links the user-interface library thus ends such failures in that dialog,
// whatever its application object.

#include <string>

// The text reported for a failure that is neither of the library's nor
// standard.
extern char const kUnknownExceptionText[];

// Shows `text` (UTF-8) as the description of an internal error.
using InternalErrorReporter = void (*)(std::string const & text);

// Installs `reporter` (null: none) and returns the former one.
InternalErrorReporter SetInternalErrorReporter(InternalErrorReporter reporter);

// Hands `text` to the reporter. Without one, the text goes to the log at the
// error level and into a plain error box, so that the failure is neither
// lost nor silent.
void ReportInternalError(std::string const & text);
