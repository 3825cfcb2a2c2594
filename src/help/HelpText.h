#pragma once
// Text as compiled help files hold it: UTF-8 in files made by current tools,
// Windows-1252 in older ones, with no mark to tell them apart.

#include <string>
#include <string_view>

namespace vx3::help {

// `bytes` as UTF-8: unchanged when they are valid UTF-8, else read as
// Windows-1252.
std::string HelpTextToUtf8(std::string_view bytes);

// Equality of ASCII names without regard to case ("Local", "LOCAL").
bool EqualsAsciiNoCase(std::string_view a, std::string_view b);

}  // namespace vx3::help
