#pragma once
// The user's list separator, as lists of values are joined for reading.
// Linux locales name none, so it follows the decimal point: ";" where the
// decimal point is ",", else ",".

#include <string>

// For the decimal point `decimalPoint` (UTF-8).
std::string ListSeparatorFor(std::string const & decimalPoint);
// For the user's numeric locale (LC_ALL, LC_NUMERIC, LANG), whatever the
// process has set for itself.
std::string UserListSeparator();
