#include "help/HelpText.h"

#include "utl/CaseFolding.h"

namespace vx3::help {

bool EqualsAsciiNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
  return true;
}

}  // namespace vx3::help
