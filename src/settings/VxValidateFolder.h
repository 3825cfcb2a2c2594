#pragma once
// Making sure that a folder the user named exists, asking before creating it.

#include <string>

class wxWindow;

// True when a folder stands at `path`, or the user agreed to create it and it
// was created. Asks, and says why not, in plain message boxes (MessageBoxW)
// owned by `parent`, captioned "Select Folder" ("Create Folder" when the
// folder could not be made) and never muted: a file stands there; the user
// declined; the last path element starts or ends with white space; the folder
// could not be created.
bool VxValidateFolder(std::string const & path, wxWindow * parent);
