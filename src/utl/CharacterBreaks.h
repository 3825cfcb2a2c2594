#pragma once
// ICU's character break iterator (extended grapheme clusters, root rules),
// one a thread: making one loads the rules, and the string functions and
// the edit controls ask once per position. Null when ICU cannot make one.

#include <unicode/brkiter.h>

icu::BreakIterator * CharacterBreaks();
