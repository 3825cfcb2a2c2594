#include "settings/LaunchURL.h"

#include <wx/utils.h>

#include <cctype>

#include "utl/Utf.h"

namespace {

bool LaunchWithDesktop(std::string const & target) {
  wxString const text = wxString::FromUTF8(target.data(), target.size());
  return VxHasUrlScheme(target) ? wxLaunchDefaultBrowser(text) : wxLaunchDefaultApplication(text);
}

VxUrlLauncher & CurrentLauncher() {
  static VxUrlLauncher launcher = LaunchWithDesktop;
  return launcher;
}

bool IsAsciiAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

}  // namespace

VxUrlLauncher VxSetUrlLauncher(VxUrlLauncher launcher) {
  VxUrlLauncher previous = std::move(CurrentLauncher());
  CurrentLauncher() = launcher ? std::move(launcher) : VxUrlLauncher(LaunchWithDesktop);
  return previous;
}

bool VxHasUrlScheme(std::string const & target) {
  if (target.empty() || !IsAsciiAlpha(target[0])) return false;
  std::string::size_type position = 1;
  while (position < target.size() &&
         (IsAsciiAlpha(target[position]) || (target[position] >= '0' && target[position] <= '9') ||
          target[position] == '+' || target[position] == '-' || target[position] == '.'))
    ++position;
  return position >= 2 && position < target.size() && target[position] == ':';
}

bool LaunchURL(wchar_t const * url, bool flag) {
  if (url != nullptr) CurrentLauncher()(vx3::WideToUtf8(url));
  return true;
}
