// Three texts from anywhere, separated by newlines: CompareNumber must be a
// strict total order on them (antisymmetric, zero only for identical texts,
// transitive). The other case-insensitive operations ride along:
// CompareNoCase is antisymmetric, a text contains its end without regard
// to case, ToLowerCase gives valid UTF-8.
#include <cstdint>
#include <locale>
#include <string>

#include "utl/Utf.h"
#include "utl/VxStdString.h"

namespace {

int Sign(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::string texts[3];
  size_t from = 0;
  for (int i = 0; i < 3 && from <= input.size(); ++i) {
    size_t const end = i < 2 ? input.find('\n', from) : std::string::npos;
    texts[i] = input.substr(from, end == std::string::npos ? std::string::npos : end - from);
    from = end == std::string::npos ? input.size() + 1 : end + 1;
  }
  std::locale const locale;
  int order[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      order[i][j] = Sign(VxStdString::CompareNumber(texts[i], texts[j], locale));
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      Check(order[i][j] == -order[j][i]);
      Check((order[i][j] == 0) == (texts[i] == texts[j]));
      for (int k = 0; k < 3; ++k) {
        if (order[i][j] <= 0 && order[j][k] <= 0) Check(order[i][k] <= 0);
      }
      int const noCase = Sign(VxStdString::CompareNoCase(texts[i], texts[j], locale));
      Check(noCase == -Sign(VxStdString::CompareNoCase(texts[j], texts[i], locale)));
      if (texts[i] == texts[j]) Check(noCase == 0);
    }
  }
  Check(VxStdString::ContainsNoCase(texts[0] + texts[1], texts[1], locale));
  std::string const lower = VxStdString::ToLowerCase(texts[2], locale);
  Check(vx3::SanitizeUtf8(lower) == lower);
  return 0;
}
