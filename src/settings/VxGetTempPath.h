#pragma once
// The application's folder for temporary files.

#include <string>

// "<temp>/<registry key>/<application>/<version>/[<subFolder>/]", with a
// trailing separator: <temp> is $TMPDIR when it is an absolute path, /tmp
// otherwise (an empty or relative $TMPDIR is ignored, so the function has
// nothing to fail on), and the rest is the registry base's path under
// "SOFTWARE" ("Karvinel/<App>/<Ver>"). The folder is created when it is
// missing; whether that worked is not tested, the caller's first write
// finds out.
std::string VxGetTempPath(std::string const & subFolder);
