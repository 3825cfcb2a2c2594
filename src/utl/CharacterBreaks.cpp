#include "utl/CharacterBreaks.h"

#include <memory>

icu::BreakIterator * CharacterBreaks() {
  thread_local std::unique_ptr<icu::BreakIterator> const iterator = [] {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> made(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) made.reset();
    return made;
  }();
  return iterator.get();
}
