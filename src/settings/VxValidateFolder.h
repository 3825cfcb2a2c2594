#pragma once
// Making sure that a folder the user named exists, asking before creating it.

#include <string>

class wxWindow;

// True when a folder stands at `path`, or the user agreed to create it and it
// was created. Says why not in a message box on the framework road
// (AfxMessageBox) otherwise: a file stands there; the user declined; the last
// path element starts or ends with white space; the folder could not be
// created. `parent` is kept for callers; the framework road owns its boxes by
// the main window.
bool VxValidateFolder(std::string const & path, wxWindow * parent);
