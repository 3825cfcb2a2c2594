#include "dialogs/DontShowAgainMessageBox.h"

#include <string>

#include "dialogs/CustomMessageBoxDlg.h"
#include "frame/AppProfile.h"
#include "utl/ConfigurationSection.h"
#include "utl/Utf.h"

namespace {

constexpr wchar_t kSection[] = L"DontShowAgainMessages";
constexpr char kSectionUtf8[] = "DontShowAgainMessages";
constexpr int kNothingStored = -1;

int StoredAnswer(wchar_t const * key) {
  if (key == nullptr) return kNothingStored;
  return AppProfile::GetProfileInt(kSectionUtf8, vx3::WideToUtf8(key).c_str(), kNothingStored);
}

// Shows the box with its check box unticked; `ticked` tells how it was left.
int AskWithCheckBox(wchar_t const * text, unsigned int type, wchar_t const * yesText,
                    wchar_t const * noText, bool & ticked) {
  CustomMessageBoxDlg box(type);
  box.SetText(text != nullptr ? text : L"");
  box.ShowCheckBox(true);
  unsigned int const kind = type & MB_TYPEMASK;
  if (kind == MB_YESNOCANCEL || kind == MB_YESNO) {
    if (yesText != nullptr) box.SetButtonText(IDYES, yesText);
    if (noText != nullptr) box.SetButtonText(IDNO, noText);
  }
  int const result = box.DoModal();
  ticked = box.GetCheckState() != 0;
  return result;
}

}  // namespace

wchar_t const * GetDontShowAgainRegistrySection() { return kSection; }

bool ShowDontShowAgainMessage(wchar_t const * key) { return StoredAnswer(key) == kNothingStored; }

int VxDontShowAgainMessageBox(wchar_t const * key, wchar_t const * text, unsigned int type,
                              wchar_t const * yesText, wchar_t const * noText) {
  int const stored = StoredAnswer(key);
  if (stored != kNothingStored) return stored;
  bool ticked = false;
  int const result = AskWithCheckBox(text, type, yesText, noText, ticked);
  if (result != IDCANCEL && ticked && key != nullptr)
    AppProfile::WriteProfileInt(kSectionUtf8, vx3::WideToUtf8(key).c_str(), result);
  return result;
}

int VxDontShowAgainMessageBox(ConfigurationSection * section, char const * key,
                              wchar_t const * text, unsigned int type, wchar_t const * yesText,
                              wchar_t const * noText) {
  bool const usable = section != nullptr && key != nullptr;
  int stored = kNothingStored;
  if (usable && section->HasKey(key) && section->ReadInt(key, stored)) return stored;
  bool ticked = false;
  int const result = AskWithCheckBox(text, type, yesText, noText, ticked);
  if (result != IDCANCEL && ticked && usable) section->WriteInt(key, result);
  return kNothingStored;
}
