#pragma once
// The line under which printed pages say what printed them and when.

#include <string>

// "<application> <version> - [<text> - ]<local time> (UTC<offset in hours>)",
// e.g. "Analyzer 6.3.2 - Run 12 - 11/25/26 14:02:11 (UTC+1)". UTF-8.
std::string MakePrintFooter(char const * text);
