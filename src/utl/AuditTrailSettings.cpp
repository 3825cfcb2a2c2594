#include "utl/AuditTrailSettings.h"

#include "utl/ConfigurationSection.h"

namespace {
constexpr char kLogEvents[] = "LogEvents";
constexpr char kPrompt[] = "PromptForExtendedUserInfo";
constexpr char kLocked[] = "LockedUI";
constexpr char kExtendedUserInfo[] = "ExtendedUserInfo";
}  // namespace

AuditTrailSettings::AuditTrailSettings(ConfigurationSection * section) : mSection(section) {}

AuditTrailSettings::~AuditTrailSettings() = default;

void AuditTrailSettings::Load() {
  if (!mSection) return;
  mSection->ReadInt(kLogEvents, mLogLevel);
  mSection->ReadBool(kPrompt, mPromptForExtendedUserInfo);
  mSection->ReadBool(kLocked, mLocked);
  mSection->ReadKey(kExtendedUserInfo, mExtendedUserInfo);
}

void AuditTrailSettings::Save() {
  if (!mSection) return;
  mSection->WriteInt(kLogEvents, mLogLevel);
  mSection->WriteBool(kPrompt, mPromptForExtendedUserInfo);
  mSection->WriteBool(kLocked, mLocked);
  mSection->Flush();
}
