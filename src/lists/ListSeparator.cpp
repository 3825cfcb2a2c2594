#include "lists/ListSeparator.h"

#include <langinfo.h>
#include <locale.h>

std::string ListSeparatorFor(std::string const & decimalPoint) {
  return decimalPoint == "," ? ";" : ",";
}

std::string UserListSeparator() {
  locale_t const user = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (user == nullptr) return ListSeparatorFor(".");  // an unknown locale: C's rules
  std::string const point = nl_langinfo_l(RADIXCHAR, user);
  freelocale(user);
  return ListSeparatorFor(point);
}
