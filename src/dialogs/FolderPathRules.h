#pragma once
// The rules by which the folder dialogs read what a user typed or what a
// caller stored, on UTF-8 paths with "/" separators. Windows rules keep
// their logic with "/": a doubled separator marks a network path there and
// is refused unless allowed; a folder handed back ends with a separator.

#include <string>
#include <vector>

namespace FolderPathRules {

// True when two separators stand side by side anywhere ("//host/share", "/a//b").
bool HasDoubleSeparator(std::string const & path);

// `path` without one trailing separator; the root "/" stays as it is.
std::string CutTrailingSeparator(std::string path);

// `path` ending with exactly the separator it has, or one added; "" stays "".
std::string WithTrailingSeparator(std::string path);

// What a user typed, made absolute: "~" and "~/..." start at `home`, a
// relative path starts at `currentFolder`. Leading and trailing white space
// is not part of the path the user meant and goes.
std::string ResolveTypedFolder(std::string const & typed, std::string const & currentFolder,
                               std::string const & home);

// `path` fit to stand in one line of a message: invalid UTF-8 shows as
// U+FFFD and control characters (a line feed in a folder name) as escapes
// ("\n", "\x07"), so a message never breaks or hides part of a name.
std::string DisplayablePath(std::string const & path);

// A list of folders in the stored form, each ended by ";" ("/a;/b;"): the
// pieces trimmed of white space, empty ones dropped. The last piece may
// lack its ";".
std::vector<std::string> SplitFolderList(std::string const & list);
// The stored form of `folders`: each followed by ";", empty ones skipped.
std::string JoinFolderList(std::vector<std::string> const & folders);
// True when `folder` can stand in that list and be read back as itself:
// no ";" in it and no white space at either end.
bool FitsFolderList(std::string const & folder);

}  // namespace FolderPathRules
