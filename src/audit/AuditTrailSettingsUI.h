#pragma once
// The user side of the audit-trail settings: reading and writing the
// current user's and the administrator's settings, and the few questions
// and dialogs around turning a trail on and off, clearing it and saving a
// copy. No state; everything is static.
//
// The administrator's policy lies in HKEY_LOCAL_MACHINE under
// "<registry base>\AuditTrail\" ("LogEvents" REG_DWORD, the flags
// "PromptForExtendedUserInfo" and "LockedUI" as REG_DWORD), imposed with
// `talvo-reg import`. It merges one way over the user's settings: it can turn
// things on, never off, except a log level of 2 or more, which imposes
// itself. A value of another type counts as absent. Registry failures are
// silent.
//
// Each user's extended information (shown in the first event of every
// session) lies in the application profile, section
// "AuditTrail\ExtendedUserInfo", under the login name.

#include <string>

class AuditTrail;
class AuditTrailSettings;
class ConfigurationSection;
class wxWindow;

class AuditTrailSettingsUI {
public:
  AuditTrailSettingsUI() = delete;

  // "<registry base>\AuditTrail\", trailing separator included.
  static std::string GetRegistryKeyPath();
  // The password-database name of the effective user (never $USER), at most
  // 255 characters.
  static std::string GetLoginName();

  static std::string GetExtendedUserInfo();
  // Empty when there is none.
  static std::string GetExtendedUserInfo(char const * user);
  static void SetExtendedUserInfo(char const * info);
  // Does nothing for a null or empty `user` or a null `info`.
  static void SetExtendedUserInfo(char const * user, char const * info);
  // Asks the user for the login name's extended information and stores it;
  // returns it, or empty when the user cancelled. Cancelled without a parent
  // and with `settings` unlocked, it offers to stop prompting on this
  // project (`promptChanged` then true and `settings` saved).
  static std::string EditExtendedUserInfo(AuditTrailSettings * settings, bool & promptChanged,
                                          wxWindow * parent);

  // The administrator's true first, else the user's; false when neither.
  static bool GetPromptForExtendedUserInfo();
  // Written to the administrator's key, or to the user's when that is
  // refused; nothing when both are.
  static void SetPromptForExtendedUserInfo(bool prompt);

  // The settings that hold when no trail is open: an empty section with the
  // administrator's settings merged in. The caller owns it.
  static ConfigurationSection * GetGlobalAuditTrailSettings();
  static void ApplyAdminSettingsOnUserSettings(ConfigurationSection * section);

  // Turns `trail` on (level above 0) or off, with the prompt flag; see the
  // source for the order. An Exception from verifying the trail as it is
  // turned on reaches the caller.
  static void SetAuditTrailLogLevel(AuditTrail * trail, int level, bool prompt);
  // Asks, then clears; refuses a locked trail. Null does nothing.
  static void ClearAuditTrail(AuditTrail * trail);
  // Saves a sealed copy with its stylesheet where the user chooses.
  static void AuditTrailViewSaveAsDialog(AuditTrail * trail);
};
