#include "Figures.h"

namespace bench {

namespace {
std::vector<Limit> & Table() {
  static std::vector<Limit> table;
  return table;
}
}  // namespace

int RegisterRatioLimit(std::string figure, double maxRatio) {
  Table().push_back(Limit{std::move(figure), maxRatio, 0});
  return 0;
}

int RegisterTimeLimit(std::string figure, double maxNanoseconds) {
  Table().push_back(Limit{std::move(figure), 0, maxNanoseconds});
  return 0;
}

std::vector<Limit> const & Limits() { return Table(); }

}  // namespace bench
