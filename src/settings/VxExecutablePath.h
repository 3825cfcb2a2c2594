#pragma once
// The executable's location as wide text, for code that hands it on as the
// platform's module functions did. Both are filled once, on the first call
// of either, and stay valid for the life of the process; empty when
// /proc/self/exe cannot be read. The UTF-8 forms are VxGetModuleFileName()
// and VxGetExecutableDirectory() of utl/Paths.h; the wide folder carries a
// W because the UTF-8 one holds the plain name.

// The full path of the running executable.
wchar_t const * VxGetExecutablePath();
// The same without the file name and its separator.
wchar_t const * VxGetExecutableDirectoryW();
