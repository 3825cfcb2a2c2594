#include "lists/ListSortOrder.h"

#include <locale>
#include <numeric>
#include <utility>

#include "utl/VxStdString.h"

std::vector<int> QuickSortTexts(std::vector<std::string> & texts, bool ascending, int low,
                                int high) {
  int const count = static_cast<int>(texts.size());
  if (high == -1) high = count - 1;
  if (low < 0 || high >= count || high <= low) return {};

  std::vector<int> origin(static_cast<size_t>(high - low + 1));
  std::iota(origin.begin(), origin.end(), low);
  auto exchange = [&](int a, int b) {
    std::swap(texts[static_cast<size_t>(a)], texts[static_cast<size_t>(b)]);
    std::swap(origin[static_cast<size_t>(a - low)], origin[static_cast<size_t>(b - low)]);
  };
  std::locale const locale;
  // -1, 0 or 1 in the direction of the sort: "less" means "comes first".
  auto order = [&](std::string const & a, std::string const & b) {
    int const c = VxStdString::CompareNumber(a, b, locale);
    return ascending ? c : -c;
  };

  // The ranges still to partition. Each is partitioned independently of the
  // others, so working from a stack of ranges instead of recursing gives
  // the same result without depending on the depth of the call stack.
  std::vector<std::pair<int, int>> pending{{low, high}};
  while (!pending.empty()) {
    auto const [first, last] = pending.back();
    pending.pop_back();
    int i = first;
    int j = last;
    int const middle = first + (last - first) / 2;
    std::string const pivot = texts[static_cast<size_t>(middle)];
    while (i <= j) {
      while (i < last && order(texts[static_cast<size_t>(i)], pivot) < 0) ++i;
      while (j > first && order(texts[static_cast<size_t>(j)], pivot) > 0) --j;
      if (i <= j) {
        if (i != j && texts[static_cast<size_t>(i)] != texts[static_cast<size_t>(j)])
          exchange(i, j);
        ++i;
        --j;
      }
    }
    if (first < j) pending.emplace_back(first, j);
    if (i < last) pending.emplace_back(i, last);
  }
  return origin;
}
