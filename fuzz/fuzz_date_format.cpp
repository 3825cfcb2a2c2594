// Date formats typed by a user (any bytes): the tokens are the letter runs of
// the input and nothing else, and the validator's answer agrees with the
// boxes it shows: valid exactly when no box came. A locale's pattern turned
// into the format language, if it has any item, is always valid.
#include <cstdint>
#include <string>

#include "datetime/DateFormatValidation.h"
#include "platform/MessageBoxes.h"
#include "utl/StrftimePattern.h"

namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

void CheckTokens(std::string const & input) {
  std::string letters;
  for (char c : input)
    if (IsLetter(c)) letters += c;
  std::string joined;
  for (std::string const & token : VxTimeUtl::TokenizeDateFormat(input)) {
    if (token.empty()) __builtin_trap();
    if (token.find_first_not_of(token.front()) != std::string::npos) __builtin_trap();
    joined += token;
  }
  if (joined != letters) __builtin_trap();
}

size_t CountBoxes(std::string const & format, bool & valid) {
  size_t boxes = 0;
  FrameworkMessageBoxHandler const former =
      SetFrameworkMessageBoxHandler([&boxes](wxString const & text, UINT, UINT) {
        if (text.empty()) __builtin_trap();
        ++boxes;
        return IDOK;
      });
  valid = VxTimeUtl::ValidateFormatString(format);
  SetFrameworkMessageBoxHandler(former);
  return boxes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  CheckTokens(input);
  bool valid = false;
  size_t const boxes = CountBoxes(input, valid);
  if (valid != (boxes == 0) || boxes > 4) __builtin_trap();
  // (Only separators, such as "%%" gives, are not a format at all.)
  std::string const converted = VxTimeUtl::FromStrftimePattern(input);
  if (!VxTimeUtl::TokenizeDateFormat(converted).empty() &&
      (CountBoxes(converted, valid) != 0 || !valid))
    __builtin_trap();
  return 0;
}
