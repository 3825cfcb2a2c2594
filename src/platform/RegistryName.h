#pragma once
// Names of registry keys and values as the store keeps them: the text as
// given, in UTF-8, and its folded form (each character upper-cased by the
// simple Unicode mapping, as Windows compares registry names), by which names
// are compared and sub-keys sorted.

#include <string>
#include <vector>

#include "platform/WinTypes.h"

namespace registry {

struct Name {
  std::string text;
  std::string folded;
};

// A value name (null is the default value, ""). ERROR_INVALID_PARAMETER when
// it is longer than REG_MAX_VALUE_NAME_LENGTH or holds a character that is no
// Unicode scalar value.
LONG ParseValueName(wchar_t const * name, Name & out);

// The elements of a key path separated by "\" (null or "" is no element). One
// trailing separator is allowed; ERROR_BAD_PATHNAME for a leading separator
// or an empty element, ERROR_INVALID_PARAMETER for an element longer than
// REG_MAX_KEY_NAME_LENGTH or a character that is no Unicode scalar value.
LONG ParseKeyPath(wchar_t const * path, std::vector<Name> & elements);

}  // namespace registry
