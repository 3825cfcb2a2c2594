#pragma once
// Opening the settings files of an application so that a damaged one costs
// the user nothing and is never silent.
//
// The user's own file: a file that is there, can be read and is no settings
// document (broken XML, cut short, another root) is renamed aside as
// "<name>.damaged-<UTC time>", byte for byte, and the session gets a new,
// empty tree at the old path, so that what the session changes is kept in a
// new file the next start reads. A file that cannot be read at all (no
// permission, too large, the XML module missing) is no proof of damage: it is
// left where it is and the session's settings are not saved (null).
// Either way the log gets a line with the path and the parser's reason, and
// the user is told once per file (FileProblemNotice.h).
//
// The all-users file belongs to the administrator: when it cannot be used it
// is only reported, never moved, and its settings are not used (null).

#include <memory>
#include <string>

class XercesXMLSection;

namespace vx3 {

std::unique_ptr<XercesXMLSection> OpenUserSettingsFile(std::string const & path);
std::unique_ptr<XercesXMLSection> OpenSharedSettingsFile(std::string const & path);

}  // namespace vx3
