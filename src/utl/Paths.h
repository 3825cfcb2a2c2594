#pragma once
// Path and file helpers on UTF-8 paths with "/" separators. Rules written
// for the last path element or a doubled separator keep their logic with "/".

#include <string>

// The folder part of `path`, without a trailing separator ("/a/b/c.txt" ->
// "/a/b", "/c" -> "/", "c.txt" -> "").
std::string VxGetDirectory(std::string path);
// The last element of `path` ("/a/b/c.txt" -> "c.txt"; "/a/b/" -> "").
std::string VxGetFileName(std::string const & path);
// The extension of the last element without the point ("a.tar.gz" -> "gz");
// empty when there is none or the name only starts with a point (".profile").
std::string VxGetFileExtension(std::string const & path);
// `directory` and `name` joined with exactly one separator.
std::string VxPathAppend(std::string directory, std::string name);
// Creates the folder and its missing parents; true when it exists afterwards.
bool VxCreateFolder(std::string const & path);

enum VxFileKind { VxNothing = 0, VxFolder = 1, VxFile = 2 };
// 0 if nothing stands there, 2 for a file (or anything else that is no
// folder), 1 for a folder. Links are followed.
int VxFileExist(std::string const & path);

// The full path of the running executable (/proc/self/exe); empty if it
// cannot be found.
std::string VxGetModuleFileName();
// The folder of the running executable; empty if it cannot be found.
std::string VxGetExecutableDirectory();
