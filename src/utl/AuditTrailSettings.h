#pragma once
// The persistent settings of an audit trail, kept in a ConfigurationSection
// (the project's, or the global one the user interface assembles from the
// user's and the administrator's settings). The user interface reads and
// writes the fields directly, then calls Save.
//
// Keys: "LogEvents" (int), "PromptForExtendedUserInfo" (bool), "LockedUI"
// (bool), and "ExtendedUserInfo" (text; read only here, the user interface
// writes it).

#include <memory>
#include <string>

class ConfigurationSection;

class AuditTrailSettings {
public:
  // Takes ownership of `section`, which may be null (nothing is then read
  // or written).
  explicit AuditTrailSettings(ConfigurationSection * section);
  virtual ~AuditTrailSettings();
  AuditTrailSettings(AuditTrailSettings const &) = delete;
  AuditTrailSettings & operator=(AuditTrailSettings const &) = delete;

  // Reads the keys; a key that is absent leaves its field as it is.
  void Load();
  // Writes the log level and the two flags, and flushes the section.
  void Save();

  ConfigurationSection * GetSection() const { return mSection.get(); }

  // Zero or less: off. Above zero: on, and events of a level below it are
  // recorded (level 1 records the level-0 events the library itself adds).
  int mLogLevel = 0;
  // Set together with the level: ask for extended user information at the
  // start of each session.
  bool mPromptForExtendedUserInfo = false;
  // The user may not change or clear the trail.
  bool mLocked = false;
  // Shown in the session's first event.
  std::string mExtendedUserInfo;

private:
  std::unique_ptr<ConfigurationSection> mSection;
};
