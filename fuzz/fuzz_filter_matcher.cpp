// A filter and texts from anywhere: the first line is the filter, the other
// lines are texts. Beyond not crashing: a filter and the same filter given
// twice as alternatives agree, and a quoted text finds itself.
#include <cstdint>
#include <string>
#include <vector>

#include "utl/FilterMatcher.h"
#include "utl/KarvinFilterValidator.h"
#include "utl/Utf.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  size_t const newline = input.find('\n');
  std::string const filter = input.substr(0, newline);
  std::vector<std::string> texts;
  for (size_t from = newline; from != std::string::npos;) {
    size_t const end = input.find('\n', from + 1);
    texts.push_back(input.substr(from + 1, end == std::string::npos ? end : end - from - 1));
    from = end;
  }

  FilterMatcher::Problem const problem = FilterMatcher::FindProblem(filter);
  KarvinFilterValidator validator;
  if (validator.IsValid(filter.c_str()) != (problem == FilterMatcher::Problem::None) &&
      filter.find('\0') == std::string::npos)
    __builtin_trap();

  FilterMatcher const matcher(filter);
  // An unclosed quotation mark would swallow the " | " that follows.
  bool const canRepeat = problem != FilterMatcher::Problem::UnclosedQuote;
  FilterMatcher const twice(filter + " | " + filter);
  for (std::string const & text : texts) {
    bool const matched = matcher.MatchString(text);
    if (canRepeat && twice.MatchString(text) != matched) __builtin_trap();
    if (text.find_first_of("\"*?") == std::string::npos) {
      bool const empty = vx3::SanitizeUtf8(text).empty();
      if (!FilterMatcher("\"" + text + "\"").MatchString(text)) __builtin_trap();
      if (FilterMatcher("-\"" + text + "\"").MatchString(text) != empty) __builtin_trap();
    }
  }
  return 0;
}
