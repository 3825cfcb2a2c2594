#include "printing/BackstagePaneUtils.h"

#include <array>
#include <locale>
#include <string>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/font.h>
#include <wx/fontenum.h>
#include <wx/settings.h>

#include "platform/MessageBoxes.h"
#include "utl/Translation.h"

namespace BackstagePaneUtils {

namespace {

ClipboardAccess & CurrentAccess() {
  static ClipboardAccess access;
  return access;
}

bool OpenClipboard() {
  auto const & step = CurrentAccess().open;
  return step ? step() : wxTheClipboard->Open();
}

bool EmptyClipboard() {
  auto const & step = CurrentAccess().empty;
  if (step) return step();
  wxTheClipboard->Clear();
  return true;
}

bool SetClipboardText(wxString const & text) {
  auto const & step = CurrentAccess().setText;
  return step ? step(text) : wxTheClipboard->SetData(new wxTextDataObject(text));
}

void CloseClipboard() {
  auto const & step = CurrentAccess().close;
  if (step)
    step();
  else
    wxTheClipboard->Close();
}

void TellCopyFailed(wxWindow * window, char const * why) {
  std::wstring const text = vx3::Tr(why).ToStdWstring();
  std::wstring const caption = vx3::Tr("Copy text").ToStdWstring();
  MessageBoxW(window, text.c_str(), caption.c_str(), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace

bool CopyTextToClipboard(wxWindow * window, wchar_t const * text) {
  if (!OpenClipboard()) {
    TellCopyFailed(window,
                   "Cannot open the Clipboard. Another program might be using the Clipboard.");
    return false;
  }
  bool copied = false;
  if (!EmptyClipboard())
    TellCopyFailed(window,
                   "Cannot empty the Clipboard. Another program might be using the Clipboard.");
  else if (!SetClipboardText(text != nullptr ? wxString(text) : wxString()))
    TellCopyFailed(window, "Unable to set Clipboard data.");
  else
    copied = true;
  CloseClipboard();
  return copied;
}

void InsertCommas(std::int64_t value, wchar_t * buffer, unsigned int size) {
  if (buffer == nullptr || size == 0) return;
  wchar_t const separator = std::use_facet<std::numpunct<wchar_t>>(std::locale()).thousands_sep();
  // The magnitude as unsigned, so that the smallest value has one too.
  std::uint64_t magnitude =
      value < 0 ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
  std::array<wchar_t, 32> reversed{};  // 19 digits, 6 separators, a sign
  std::size_t length = 0;
  int digits = 0;
  do {
    if (digits > 0 && digits % 3 == 0) reversed[length++] = separator;
    reversed[length++] = static_cast<wchar_t>(L'0' + magnitude % 10);
    magnitude /= 10;
    ++digits;
  } while (magnitude != 0);
  if (value < 0) reversed[length++] = L'-';
  std::size_t written = 0;
  while (written < length && written + 1 < size) {
    buffer[written] = reversed[length - 1 - written];
    ++written;
  }
  buffer[written] = L'\0';
}

void InitFonts(wxFont & regular, wxFont & caption) {
  wxFont const gui = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  wxString face = gui.GetFaceName();
  for (char const * wanted : {"Segoe UI Light", "Segoe UI", "Tahoma"})
    if (wxFontEnumerator::IsValidFacename(wanted)) {
      face = wanted;
      break;
    }
  regular = gui;
  regular.SetFaceName(face);
  caption = regular;
  caption.SetFractionalPointSize(regular.GetFractionalPointSize() * 1.6);
}

ClipboardAccess SetClipboardAccess(ClipboardAccess access) {
  std::swap(access, CurrentAccess());
  return access;
}

}  // namespace BackstagePaneUtils
