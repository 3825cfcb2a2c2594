#pragma once
// Names in help files (tags, parameters, commands) are ASCII and compared
// without regard to case ("Local", "LOCAL").

#include <string_view>

namespace vx3::help {

bool EqualsAsciiNoCase(std::string_view a, std::string_view b);

}  // namespace vx3::help
