#pragma once
// A file of the user's that the program could not use as it is (a damaged
// settings file, registry hive or customization package): the reason and
// the path go to the log every time, and the person at the screen is told
// once per file and process through the current UserComm, so that a file
// read again and again does not ask again and again. A problem met before
// the application installed a channel (a package is read first thing at
// start) waits and is told through the first channel installed.

#include <string>

#include "utl/ExceptionMessage.h"

class UserComm;

namespace vx3 {

// `message` names the file and the reason, and says what became of the
// file; `path` is the file it is about. `className` and `functionName` name
// the writer in the log. True when the person was told by this call.
bool ReportFileProblem(char const * className, char const * functionName, std::string const & path,
                       ExceptionMessage const & message);
// The telling alone, for a writer that logged the problem already.
bool TellFileProblemOnce(std::string const & path, ExceptionMessage const & message);

// Tells the problems that waited for a channel through `channel`; called by
// UserComm::SetUserComm. Nothing while the problems are held.
void TellWaitingFileProblems(UserComm & channel);

// An application holds the problems during its start, so that no box comes
// up before its main window (and then behind it); they wait, channel or
// not, until released, and are then told through the current channel.
void HoldFileProblems();
void ReleaseFileProblems();

// Forgets which files were told about and what waits: for tests.
void ForgetReportedFiles();

}  // namespace vx3
