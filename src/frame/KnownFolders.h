#pragma once
// The folders where applications keep their data, as the XDG base-directory
// rules place them: per-user data in $XDG_CONFIG_HOME (default ~/.config),
// data for all users in the first folder of $XDG_CONFIG_DIRS (default
// /etc/xdg). A relative path in either variable is ignored, as those rules
// require. Each returns an empty string when no folder can be named (no
// home folder at all); nothing is created here.

#include <string>

namespace vx3 {

std::string UserDataFolder();
std::string CommonDataFolder();

}  // namespace vx3
