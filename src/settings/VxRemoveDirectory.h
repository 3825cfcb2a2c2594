#pragma once
// Removing a folder with everything in it.

#include <string>

// Removes the folder `path` and everything beneath it. A symbolic link
// inside is removed as a link: the walk never follows one, so nothing
// outside the folder is touched, even when a link is swapped in meanwhile.
// A failure clears the result but the walk goes on, so as much as possible
// goes. True only if everything, the folder included, was removed. A `path`
// that is itself a symbolic link, or no folder, is left alone and gives
// false.
bool VxRemoveDirectory(std::string const & path);
