#include "html/AppLink.h"

#include <string>

#include <wx/app.h>
#include <wx/window.h>

namespace {

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool ParseAppLink(std::string_view url, wxString & name) {
  static constexpr std::string_view kScheme = "app:";
  if (url.size() < kScheme.size()) return false;
  for (size_t i = 0; i < kScheme.size(); ++i)
    if (Lower(url[i]) != kScheme[i]) return false;
  std::string_view const rest = url.substr(kScheme.size());
  std::string bytes;
  bytes.reserve(rest.size());
  for (size_t i = 0; i < rest.size(); ++i) {
    int const high = rest[i] == '%' && i + 2 < rest.size() ? HexValue(rest[i + 1]) : -1;
    int const low = high >= 0 ? HexValue(rest[i + 2]) : -1;
    if (low < 0) {
      bytes += rest[i];
      continue;
    }
    bytes += static_cast<char>(high * 16 + low);
    i += 2;
  }
  wxString decoded = wxString::FromUTF8(bytes.data(), bytes.size());
  if (decoded.empty() && !bytes.empty()) decoded = wxString::FromUTF8(rest.data(), rest.size());
  if (decoded.empty() && !rest.empty())
    decoded = wxString(rest.data(), wxConvISO8859_1, rest.size());
  name = decoded;
  return true;
}

void QueueAppCommand(AppCommandMap const & commands, wchar_t const * name, wxWindow * target) {
  auto const found = commands.find(name);
  if (found == commands.end()) return;
  if (target == nullptr) target = wxTheApp->GetTopWindow();
  if (target == nullptr) return;
  target->GetEventHandler()->QueueEvent(
      new wxCommandEvent(wxEVT_MENU, static_cast<int>(found->second)));
}
