#pragma once
// Asks the user for a date format until a valid one is given.

#include <string>

namespace VxTimeUtl {

// Runs the date format dialog with `heading`, `sample` and `initial` (UTF-8)
// until the format given is valid (DateFormatValidation.h): after the boxes
// of an invalid format the dialog opens again with what was typed. True with
// the format in `result`; false when the user cancels (`result` untouched).
bool GetUserFormatString(std::string const & heading, std::string const & sample,
                         std::string const & initial, std::string & result);

}  // namespace VxTimeUtl
