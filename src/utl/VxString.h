#pragma once
// Free functions on wide text (wchar_t is UTF-32 on Linux, wxString stands
// for the original's CString): heap strings, splitting, and numbers written
// and read the same way whatever locale the process has installed.

#include <wx/string.h>

#include "utl/WildCardCompare.h"

namespace VxString {

// One shared empty string, for functions that return a reference.
wxString const & Empty();

// A heap copy of `text`, to be released with `delete[]`; null for null.
wchar_t * vxstrdup(wchar_t const * text);

// Releases `target` (with `delete[]`) and replaces it by a copy of `value`
// (null for null). `value` may point into `target`. Returns the new target.
wchar_t * SetStr(wchar_t *& target, wchar_t const * value);

// Appends `value` to the heap string `target`, reallocating it; a null
// target is taken as empty, a null value changes nothing. `value` may point
// into `target`. Returns the new target, released with `delete[]`.
wchar_t * ConcatStr(wchar_t *& target, wchar_t const * value);

// Returns the part of `text` before the first `separator` and removes it and
// the separator from `text`. Without a separator: all of `text`, which is
// left empty.
wxString SplitString(wxString & text, wchar_t separator);

// Parse the whole text as a decimal number; ASCII white space around it is
// ignored, anything else that is not part of the number makes the text no
// number. On failure (no number, null text, a value the type cannot hold)
// they return false and leave `value` untouched.
//  - ToInt: an optional sign and ASCII digits ("010" is ten).
//  - ToFloat: an optional sign, digits with an optional "." (never the
//    locale's decimal comma) and an optional exponent. "inf", "nan" and hex
//    are no numbers; neither is a value so large it would become infinite or
//    so small it would become zero (denormals are kept).
bool ToInt(wchar_t const * text, int & value);
bool ToFloat(wchar_t const * text, float & value);

// `value` through `format`, followed by `suffix` (null: none). The format is
// printf's and must hold exactly one conversion for the type, with optional
// flags, width and precision of at most three digits each, and any literal
// text ("%%" for a percent sign): d i o u x X for int, f F e E g G a A for
// double. Any other format (null, no conversion, two, "*", a length
// modifier, a wrong type) is replaced by "%d" or "%g". The decimal point is
// always ".", as ToFloat reads it.
wxString ToString(int value, wchar_t const * format, wchar_t const * suffix);
wxString ToString(double value, wchar_t const * format, wchar_t const * suffix);

}  // namespace VxString
