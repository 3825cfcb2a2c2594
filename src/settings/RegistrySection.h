#pragma once
// A ConfigurationSection on one open registry key: how the library keeps
// per-user switches and defaults under the application's registry base.
//
// Text keys are REG_SZ (wchar_t text with its terminator), integers and
// bools REG_DWORD; floats, doubles and vectors are REG_SZ in the text forms of
// ConfigurationSection. Every open and create uses the section's access mask.
//
// The registry algorithms are kept as the family has always had them, quirks
// included, because callers rely on them:
// - IsEmpty is true when the key HAS at least one value (sub-keys are not
//   looked at): it is no emptiness test.
// - ChangeSection(name) cuts the path after its last "\" and appends `name`
//   as it is: below a parent path the name brings its own "\".
// - DeleteSection enumerates sub-keys with a buffer one short for the
//   longest name and steps its index after each deletion, so a key with
//   sub-keys is not removed (false); a key without is.
// - Copy opens a second handle on the same key with an empty path, so the
//   copy cannot DeleteSection or ChangeSection by path.
// - Flush does nothing (true); WriteToSection does nothing (false).
// A section made by Copy or CreateSubSection has its source's key as parent
// key, so it must not outlive the source if it is to use its path.

#include <string>
#include <vector>

#include "platform/WinReg.h"
#include "utl/ConfigurationSection.h"

class RegistrySection : public ConfigurationSection {
public:
  // An unopened section: no keys, access KEY_READ, empty path.
  RegistrySection();
  // Opens `path` under `parent`; if that fails and `create` is set, creates
  // it. Throws Exception "Registry Key not found." (not created) or
  // "Registry Key couldn't be created.".
  RegistrySection(HKEY parent, char const * path, REGSAM access, bool create);
  // Closes the section's key; the parent key is never closed here.
  ~RegistrySection() override;

  // The constructor's work for a section built empty; false where it throws.
  bool Open(HKEY parent, char const * path, REGSAM access, bool create);

  ConfigurationSection * Copy() const override;
  void ChangeSection(char const * name) override;
  // The indexed section is the sub-key "name index".
  bool ChangeSubSection(char const * name, int index) override;
  bool ChangeSubSection(char const * name) override;
  ConfigurationSection * CreateSubSection(char const * name, int index) const override;
  ConfigurationSection * CreateSubSection(char const * name) const override;
  bool SupportsSubSections() const override;
  bool DeleteKey(char const * name) override;
  bool DeleteSection() override;
  bool Flush() const override;
  bool IsEmpty() const override;
  // `index` is ignored.
  bool HasSection(char const * name, int index) const override;
  bool HasKey(char const * name) const override;
  bool ReadBool(char const * name, bool & value) const override;
  bool ReadInt(char const * name, int & value) const override;
  bool ReadKey(char const * name, std::wstring & value) const override;
  bool ReadKey(char const * name, std::string & value) const override;
  bool WriteBool(char const * name, bool value) override;
  bool WriteInt(char const * name, int value) override;
  bool WriteKey(char const * name, wchar_t const * value) override;
  bool WriteKey(char const * name, char const * value) override;
  using ConfigurationSection::WriteKey;
  bool WriteToSection(ConfigurationSection * target) const override;

  // The sub-keys' names in the registry's order (sorted without regard to
  // case); empty when the key cannot be asked.
  virtual std::vector<std::string> GetSectionNames() const;

private:
  HKEY mParentKey = nullptr;
  HKEY mKey = nullptr;
  REGSAM mAccess = KEY_READ;
  std::string mPath;
};
