#pragma once
// The format language in which a user says how dates in imported data are
// written ("yyyy-MM-dd HH:mm:ss"): an item is a run of one repeated ASCII
// letter, everything else is a separator the user chooses freely. Items:
// "yyyy" "yy" "MMM" "MM" "M" "ddd" "dd" "d" "HH" "H" "hh" "h" "mm" "ss" "fff"
// "tt". The validator judges the letters only and does not ask for a
// complete date: "ss" alone is valid.

#include <string>
#include <vector>

namespace VxTimeUtl {

// The letter runs of `format` in their order, duplicates kept, case kept;
// every byte that is no ASCII letter ends a run and is dropped ("yyyy-MM"
// gives "yyyy" and "MM"; "yyyyMMdd" gives three). Bytes, not characters: a
// multi-byte UTF-8 character (or an invalid byte) is a separator.
std::vector<std::string> TokenizeDateFormat(std::string const & format);

// What is wrong with `format`, one translated message a problem, in the
// order the user is to read them: nothing usable, repeated groups, unknown
// items, "h"/"hh" without "tt". Empty when the format is valid.
std::vector<std::string> FindDateFormatProblems(std::string const & format);

// True when `format` (UTF-8, any bytes) is valid. Otherwise every problem
// has been shown in its own framework message box (AfxMessageBox, MB_OK), so
// one call can show several boxes.
bool ValidateFormatString(std::string const & format);

}  // namespace VxTimeUtl
