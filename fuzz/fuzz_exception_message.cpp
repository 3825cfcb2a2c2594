// Message texts and arguments from outside (catalogs, file names, user
// input): substitution and Why must take any bytes without failing.
#include <cstdint>
#include <string>

#include "utl/Exception.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  // The first line is the message id, every further line one argument;
  // a line starting with '#' is an int argument.
  size_t start = input.find('\n');
  ExceptionMessage message = ExceptionMessage::translate(input.substr(0, start).c_str());
  while (start != std::string::npos) {
    size_t const end = input.find('\n', start + 1);
    std::string const argument = input.substr(start + 1, end - start - 1);
    if (!argument.empty() && argument[0] == '#') {
      message % static_cast<int>(argument.size() * 7919);
    } else {
      message % argument;
    }
    start = end;
  }
  ExceptionMessageList list;
  list << message << message;
  Exception const exception(list);
  std::string const why = exception.Why(std::locale::classic());
  // Substitution only ever adds argument text; the result is valid UTF-8
  // (the sanitizers check memory, this checks the promise).
  std::string const again = exception.Why(std::locale::classic());
  if (why != again) __builtin_trap();
  return 0;
}
