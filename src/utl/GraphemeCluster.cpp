// User-perceived characters: extended grapheme clusters by ICU's character
// break iterator, on the UTF-8 bytes directly (UText), so that boundaries
// are byte offsets.
#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <cstdint>

#include "utl/CaseFolding.h"
#include "utl/CharacterBreaks.h"
#include "utl/Utf.h"
#include "utl/VxStdString.h"

namespace VxStdString {

namespace {

// Calls `boundary(offset)` for each cluster boundary after the start of
// `text` (valid UTF-8), in order, until it returns false.
template <typename Visit>
void ForEachBoundary(std::string_view text, Visit boundary) {
  if (vx3::IsAscii(text)) {
    // Every ASCII character is a cluster of its own, except "\r\n".
    for (size_t at = 0; at < text.size();) {
      at += text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
      if (!boundary(at)) return;
    }
    return;
  }
  icu::BreakIterator * const breaks = CharacterBreaks();
  UErrorCode status = U_ZERO_ERROR;
  UText * const utext =
      breaks != nullptr
          ? utext_openUTF8(nullptr, text.data(), static_cast<int64_t>(text.size()), &status)
          : nullptr;
  if (utext != nullptr && U_SUCCESS(status)) breaks->setText(utext, status);
  if (utext == nullptr || U_FAILURE(status)) {
    // Without ICU's rules, code points are the best guess.
    for (size_t at = 0; at < text.size();) {
      vx3::DecodeUtf8(text, at);
      if (!boundary(at)) break;
    }
  } else {
    breaks->first();
    for (int32_t at = breaks->next(); at != icu::BreakIterator::DONE; at = breaks->next())
      if (!boundary(static_cast<size_t>(at))) break;
  }
  if (utext != nullptr) utext_close(utext);
}

}  // namespace

size_t GraphemeClusterCount(std::string const & text, std::locale const &) {
  std::string const clean = vx3::SanitizeUtf8(text);
  size_t count = 0;
  ForEachBoundary(clean, [&](size_t) {
    ++count;
    return true;
  });
  return count;
}

std::string GraphemeClusterSubString(std::string const & text, size_t first, size_t count,
                                     std::locale const &) {
  if (count == 0) return std::string();
  std::string const clean = vx3::SanitizeUtf8(text);
  size_t const last = count > SIZE_MAX - first ? SIZE_MAX : first + count;
  size_t begin = first == 0 ? 0 : clean.size();
  size_t end = clean.size();
  size_t seen = 0;
  ForEachBoundary(clean, [&](size_t at) {
    ++seen;
    if (seen == first) begin = at;
    if (seen == last) {
      end = at;
      return false;
    }
    return true;
  });
  return begin < end ? clean.substr(begin, end - begin) : std::string();
}

}  // namespace VxStdString
