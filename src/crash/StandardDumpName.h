#pragma once
// The dump file a crash of the running application goes to:
// "<temp>/Karvinel/<App>/<Ver>/Crash diagnostics/<App>_<version>-<ms>.dmp",
// the version with "_" for ".", <ms> the milliseconds since the system
// started, as a signed 32-bit number. The folder is made when missing.
//
// Never throws: with no usable temp folder it gives "", and a folder that
// cannot be made gives the folder itself (which then cannot be written, so
// the failure is reported).

#include <string>

std::string StandardDumpName();

// Its parts, for callers that name the file themselves.
std::string DumpFileName(std::string const & application, std::string const & version,
                         unsigned int millisecondsSinceBoot);
unsigned int MillisecondsSinceBoot();
