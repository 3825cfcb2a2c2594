#pragma once
// The application's log: timestamped lines in a file under the per-user
// state folder, $XDG_STATE_HOME/Karvinel/<application>/<application>.log
// ($XDG_STATE_HOME defaults to ~/.local/state). Service threads write too, so
// every call is thread-safe, and a call never throws: logging must not turn
// a failure into another one.
//
// Lines at or above the level named by the environment variable
// TALVO_LOG_STDERR (0 to 4) are copied to stderr as well.

#include <string>

class Log {
public:
  enum Importance {
    Routine = 0,  // routine traffic
    Normal = 1,   // normal events
    Notice = 2,   // worth a look
    Error = 3,    // errors that carry the text of a caught Exception
    Failure = 4,  // failures of a service or its set-up
  };

  // `flush`: the line must reach the disk before the call returns, because
  // the process may be stopped at any moment (a stop or shutdown request).
  static void WriteMessage(char const * className, char const * functionName, char const * text,
                           Importance level, bool flush);
  static void WriteMessage(char const * className, char const * functionName,
                           std::string const & text, Importance level, bool flush);

  // Where the lines go now (follows the application name).
  static std::string GetLogFilePath();
};
