#include "datetime/UserFormatString.h"

#include "datetime/DateFormatValidation.h"
#include "datetime/SpecifyDateFormat.h"
#include "platform/WinUser.h"
#include "utl/Utf.h"

namespace VxTimeUtl {

bool GetUserFormatString(std::string const & heading, std::string const & sample,
                         std::string const & initial, std::string & result) {
  std::string current = initial;
  for (;;) {
    SpecifyDateFormat dialog(heading, sample, current);
    if (dialog.DoModal() != IDOK) return false;
    std::string const given = vx3::WideToUtf8(dialog.GetDateFormatW().ToStdWstring());
    if (ValidateFormatString(given)) {
      result = given;
      return true;
    }
    current = given;
  }
}

}  // namespace VxTimeUtl
