#include "settings/VxValidateFolder.h"

#include <cctype>
#include <locale>

#include "platform/MessageBoxes.h"
#include "utl/ExceptionMessage.h"
#include "utl/Paths.h"

namespace {

wxString Text(ExceptionMessage const & message) {
  return wxString::FromUTF8(message.ToString(std::locale()));
}

bool StartsOrEndsWithSpace(std::string const & name) {
  auto const blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  return !name.empty() && (blank(name.front()) || blank(name.back()));
}

}  // namespace

bool VxValidateFolder(std::string const & path, wxWindow * parent) {
  int const kind = VxFileExist(path);
  if (kind == VxFile) {
    AfxMessageBox(Text(ExceptionMessage::translate(
                           "A file with the same name as the specified folder already exists.\n"
                           "{1}\nPlease change the folder name to something else.") %
                       path),
                  MB_ICONHAND);
    return false;
  }
  if (kind != VxNothing) return true;
  if (AfxMessageBox(
          Text(ExceptionMessage::translate(
                   "The specified folder '{1}' does not exist, do you want to create it?") %
               path),
          MB_YESNO | MB_ICONINFORMATION) != IDYES)
    return false;
  if (StartsOrEndsWithSpace(VxGetFileName(path))) {
    AfxMessageBox(Text(ExceptionMessage::translate(
                      "A folder name may not start or end with spaces, please change the folder "
                      "name.")),
                  MB_ICONHAND);
    return false;
  }
  if (!VxCreateFolder(path)) {
    AfxMessageBox(Text(ExceptionMessage::translate("The folder could not be created.")),
                  MB_ICONHAND);
    return false;
  }
  return true;
}
