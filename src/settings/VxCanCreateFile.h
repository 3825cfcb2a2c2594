#pragma once
// Whether a file can be written where a caller means to write it.

#include <string>

// Stores what stands at `path` (VxFileExist: 0 nothing, 1 folder, 2 file) in
// `existed` when given. An existing file must open for reading and writing;
// where nothing stands, a file must be creatable, and the file made for the
// test is removed again. A folder gives false and leaves `error` alone; a
// failed open stores its reason in `error` when given. Nothing is changed in
// an existing file.
bool VxCanCreateFile(std::string const & path, std::string * error, int * existed);
