#include "audit/AuditTrailSettingsUI.h"

#include <pwd.h>
#include <unistd.h>

#include <boost/format.hpp>
#include <memory>
#include <vector>

#include <wx/string.h>

#include "dialogs/CFileDialog.h"
#include "dialogs/DontShowAgainMessageBox.h"
#include "dialogs/VxInputDialog.h"
#include "frame/AppProfile.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "settings/RegistryBaseKeyName.h"
#include "settings/RegistrySection.h"
#include "utl/AuditTrail.h"
#include "utl/AuditTrailSettings.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"
#include "utl/XercesXMLSection.h"

namespace {

constexpr char kLogEvents[] = "LogEvents";
constexpr char kPrompt[] = "PromptForExtendedUserInfo";
constexpr char kLocked[] = "LockedUI";
constexpr char kExtendedUserInfo[] = "ExtendedUserInfo";
constexpr int kMaxUserInfo = 255;
constexpr REGSAM kReadAccess = 0x20019;
constexpr REGSAM kWriteAccess = 0x20006;
// OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_EXPLORER | OFN_ENABLESIZING
constexpr DWORD kSaveFlags = 8423430;

std::string ProfileSection() {
  return (boost::format("%1%\\%2%") % "AuditTrail" % "ExtendedUserInfo").str();
}

wxString FromUtf8(std::string const & text) { return wxString::FromUTF8(text.data(), text.size()); }

// The administrator's key opened for reading, or null.
std::unique_ptr<RegistrySection> OpenMachineKey() {
  auto section = std::make_unique<RegistrySection>();
  if (!section->Open(HKEY_LOCAL_MACHINE, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                     kReadAccess, false))
    return nullptr;
  return section;
}

// A flag of the administrator's that only turns on: written unless the
// section has it true already.
void MergeFlag(RegistrySection const & machine, ConfigurationSection * section, char const * name) {
  bool admin = false;
  if (!machine.ReadBool(name, admin)) return;
  bool user = false;
  if (!section->ReadBool(name, user) || !user) section->WriteBool(name, admin);
}

void ShowProblem(Exception const & error) {
  AfxMessageBox(FromUtf8(error.Why()), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace

std::string AuditTrailSettingsUI::GetRegistryKeyPath() {
  return (boost::format("%1%\\%2%\\") % GetRegistryBaseKeyName() % "AuditTrail").str();
}

std::string AuditTrailSettingsUI::GetLoginName() {
  long const bufferSize = sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(bufferSize > 0 ? static_cast<size_t>(bufferSize) : 16384);
  passwd entry{};
  passwd * found = nullptr;
  if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
    return std::to_string(geteuid());  // an account without a name: its number
  std::string name = found->pw_name;
  if (name.size() > kMaxUserInfo) name.resize(kMaxUserInfo);
  return name;
}

std::string AuditTrailSettingsUI::GetExtendedUserInfo() {
  return GetExtendedUserInfo(GetLoginName().c_str());
}

std::string AuditTrailSettingsUI::GetExtendedUserInfo(char const * user) {
  if (user == nullptr || *user == '\0') return {};
  return AppProfile::GetProfileString(ProfileSection().c_str(), user, "");
}

void AuditTrailSettingsUI::SetExtendedUserInfo(char const * info) {
  SetExtendedUserInfo(GetLoginName().c_str(), info);
}

void AuditTrailSettingsUI::SetExtendedUserInfo(char const * user, char const * info) {
  if (user == nullptr || *user == '\0' || info == nullptr) return;
  AppProfile::WriteProfileString(ProfileSection().c_str(), user, info);
}

std::string AuditTrailSettingsUI::EditExtendedUserInfo(AuditTrailSettings * settings,
                                                       bool & promptChanged, wxWindow * parent) {
  promptChanged = false;
  std::string const user = GetLoginName();
  wxString value = FromUtf8(GetExtendedUserInfo(user.c_str()));
  wxString const title = vx3::Tr("Edit Extended User Information");
  wxString const prompt = wxString::FromUTF8(
      (boost::format(vx3::Tr("Enter more information about the current user ('%1%'). This "
                             "information will be added to the Audit Trail at the beginning of "
                             "each session.")
                         .utf8_string()) %
       user)
          .str());
  VxInputDialog dialog(parent, title.wc_str(), prompt.wc_str(), L"", value, kMaxUserInfo);
  if (dialog.DoModal() == IDOK) {
    std::string info = value.utf8_string();
    SetExtendedUserInfo(user.c_str(), info.c_str());
    return info;
  }
  if (settings != nullptr && !settings->mLocked && parent == nullptr &&
      AfxMessageBox(vx3::Tr("Do you want to disable the prompting for extended user info on the "
                            "current project?"),
                    MB_YESNO | MB_ICONQUESTION) == IDYES) {
    settings->mPromptForExtendedUserInfo = false;
    settings->Save();
    promptChanged = true;
  }
  return {};
}

bool AuditTrailSettingsUI::GetPromptForExtendedUserInfo() {
  bool prompt = false;
  for (HKEY const root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    try {
      RegistrySection const section(root, GetRegistryKeyPath().c_str(), kReadAccess, false);
      section.ReadBool(kPrompt, prompt);
      if (prompt) return true;
    } catch (Exception const &) {
      // An absent key is an absent value.
    }
  }
  return prompt;
}

void AuditTrailSettingsUI::SetPromptForExtendedUserInfo(bool prompt) {
  try {
    // The administrator's key when this account may write it (the store
    // answers ERROR_ACCESS_DENIED otherwise), else the user's own.
    RegistrySection section;
    if (!section.Open(HKEY_LOCAL_MACHINE, GetRegistryKeyPath().c_str(), kWriteAccess, true) &&
        !section.Open(HKEY_CURRENT_USER, GetRegistryKeyPath().c_str(), kWriteAccess, true))
      return;
    section.WriteBool(kPrompt, prompt);
  } catch (Exception const &) {
    // Registry failures are silent.
  }
}

ConfigurationSection * AuditTrailSettingsUI::GetGlobalAuditTrailSettings() {
  XercesXMLSection root;
  ConfigurationSection * section = root.CreateSubSection("dummy");
  ApplyAdminSettingsOnUserSettings(section);
  return section;
}

void AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(ConfigurationSection * section) {
  if (section == nullptr) return;
  if (std::unique_ptr<RegistrySection> const machine = OpenMachineKey()) {
    int admin = 0;
    if (machine->ReadInt(kLogEvents, admin)) {
      // The administrator's 1 turns logging on for whoever has it off; 2 or
      // more imposes itself.
      int user = 0;
      if (!section->ReadInt(kLogEvents, user) || user == 0 || admin >= 2)
        section->WriteInt(kLogEvents, admin);
    }
    MergeFlag(*machine, section, kPrompt);
    MergeFlag(*machine, section, kLocked);
  }
  section->WriteKey(kExtendedUserInfo, GetExtendedUserInfo().c_str());
}

void AuditTrailSettingsUI::SetAuditTrailLogLevel(AuditTrail * trail, int level, bool prompt) {
  if (trail == nullptr) return;
  AuditTrailSettings & settings = trail->mSettings;
  bool const wasOn = settings.mLogLevel > 0;
  if (level <= 0 && wasOn) trail->AddEvent("Audit Trail turned off.", "", 0);  // while still on
  settings.mLogLevel = level;
  settings.mPromptForExtendedUserInfo = prompt;
  settings.Save();
  settings.Load();
  if (level > 0) {
    if (wasOn) return;
    trail->PrepareForLogging();
    trail->Load();
    trail->BeginSessionAndVerifySignature();
    trail->AddEvent("Audit Trail turned on.", "", 0);
  } else {
    if (!wasOn) return;
    trail->EndSessionAndSave();
  }
  trail->BroadCastChange();
}

void AuditTrailSettingsUI::ClearAuditTrail(AuditTrail * trail) {
  if (trail == nullptr) return;
  if (trail->mSettings.mLocked) {
    AfxMessageBox(vx3::Tr("The Audit Trail is locked and cannot be cleared."));
    return;
  }
  if (AfxMessageBox(vx3::Tr("You are about to clear the entire Audit Trail of this project. Do "
                            "you want to continue?"),
                    MB_YESNO | MB_ICONEXCLAMATION) != IDYES)
    return;
  try {
    trail->Clear();
  } catch (Exception const & error) {
    ShowProblem(error);
  }
}

void AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(AuditTrail * trail) {
  wxString const nothing = vx3::Tr("Nothing to save. The audit trail is empty.");
  if (trail == nullptr) {
    AfxMessageBox(nothing);
    return;
  }
  try {
    if (trail->IsEmpty()) trail->Load();
  } catch (Exception const & error) {
    ShowProblem(error);
    return;
  }
  if (trail->IsEmpty() || trail->mSettings.mLogLevel < 1) {
    AfxMessageBox(nothing);
    return;
  }
  wxString const fileName = wxString::FromUTF8(
      (boost::format(vx3::Tr("%1% Audit Trail").utf8_string()) % VxSystemInfo::GetApplicationName())
          .str());
  wxString const filter = vx3::Tr("XML Files (*.xml)|*.xml||");
  CFileDialog dialog(FALSE, L"xml", fileName.wc_str(), kSaveFlags, filter.wc_str());
  if (dialog.DoModal() != IDOK) return;
  try {
    trail->SaveAs(dialog.GetPathName().utf8_string().c_str());
  } catch (Exception const & error) {
    ShowProblem(error);
    return;
  }
  VxDontShowAgainMessageBox(L"ShowAuditTrailSaveMessage",
                            vx3::Tr("The Audit Trail has been saved together with a .XSL "
                                    "file.\n\nTo view the .XML file, you must store the .XSL file "
                                    "in the same folder.")
                                .wc_str(),
                            MB_OK | MB_ICONINFORMATION);
}
