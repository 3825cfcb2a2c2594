#include "settings/VxValidateFolder.h"

#include <cctype>
#include <locale>

#include "platform/MessageBoxes.h"
#include "utl/ExceptionMessage.h"
#include "utl/Paths.h"
#include "utl/Translation.h"

namespace {

wxString Text(ExceptionMessage const & message) {
  return wxString::FromUTF8(message.ToString(std::locale()));
}

// A plain box on `parent`: it shows exactly this caption and is never muted,
// since every box here either asks or explains why the folder was refused.
int Box(wxWindow * parent, wxString const & text, wxString const & caption, UINT type) {
  return MessageBoxW(parent, text.wc_str(), caption.wc_str(), type);
}

bool StartsOrEndsWithSpace(std::string const & name) {
  auto const blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  return !name.empty() && (blank(name.front()) || blank(name.back()));
}

}  // namespace

bool VxValidateFolder(std::string const & path, wxWindow * parent) {
  int const kind = VxFileExist(path);
  if (kind == VxFile) {
    Box(parent,
        Text(ExceptionMessage::translate(
                 "A file with the same name as the specified folder already exists.\n"
                 "{1}\nPlease change the folder name to something else.") %
             path),
        vx3::Tr("Select Folder"), MB_ICONHAND);
    return false;
  }
  if (kind != VxNothing) return true;
  if (Box(parent,
          Text(ExceptionMessage::translate(
                   "The specified folder '{1}' does not exist, do you want to create it?") %
               path),
          vx3::Tr("Select Folder"), MB_YESNO | MB_ICONINFORMATION) != IDYES)
    return false;
  if (StartsOrEndsWithSpace(VxGetFileName(path))) {
    Box(parent,
        Text(ExceptionMessage::translate(
            "A folder name may not start or end with spaces, please change the folder name.")),
        vx3::Tr("Select Folder"), MB_ICONHAND);
    return false;
  }
  if (!VxCreateFolder(path)) {
    Box(parent, Text(ExceptionMessage::translate("The folder could not be created.")),
        vx3::Tr("Create Folder"), MB_ICONHAND);
    return false;
  }
  return true;
}
