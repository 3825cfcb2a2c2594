#pragma once
// Plain registry reads and writes without a ConfigurationSection. Names and
// paths are UTF-8; paths separate keys with "\".

#include <string>
#include <vector>

#include "platform/WinReg.h"

// Writes the text `value` as the REG_SZ value `name` of `subKey` (created if
// absent); a null `name` writes the key's default value. True only if every
// step succeeded.
bool VxSetRegKey(HKEY root, char const * subKey, char const * value, char const * name);

// The value `name` of `subKey` (null: the default value) as text: a REG_DWORD
// in decimal, anything else read as wide text. `defaultValue` (or "" if that
// is null) when the key or the value cannot be read.
std::string VxGetRegKey(HKEY root, char const * subKey, char const * name,
                        char const * defaultValue);

// Removes `subKey` with everything under it; a Win32 code. ERROR_BADKEY for a
// null or empty `subKey`, which touches nothing.
int VxDeleteRegKey(HKEY root, char const * subKey);

// Removes a value. True when the key does not open (nothing to delete);
// otherwise whether the value was removed.
bool VxDeleteRegValue(HKEY root, char const * subKey, char const * name);

// Append the names of the sub-keys (sorted) or of the values (in creation
// order) of `subKey`, stopping at the first that cannot be read (a name of
// 260 characters or more); false when the key does not open.
bool VxGetRegSubKeys(HKEY root, char const * subKey, std::vector<std::string> & names);
bool VxGetRegValues(HKEY root, char const * subKey, std::vector<std::string> & names);

// The application's installation folder: the value "Path" of
// "<registry base>\Install" under HKEY_LOCAL_MACHINE, read into a buffer of
// 130 characters (the original's 260 bytes). Throws Exception when it cannot
// be read.
std::string RegGetInstallationPath();

// Tests that the class `clsid` is registered under HKEY_CLASSES_ROOT\CLSID
// and that the file named by the default value of its InProcServer32 key
// exists (an empty value passes); throws Exception naming `name` (or
// "ActiveX control") otherwise. The server key is the sub-key beneath the
// class key: opened by its name, since beneath any key but HKEY_CLASSES_ROOT a
// path that starts with "\" is ERROR_BAD_PATHNAME.
void VerifyRegistered(_GUID const & clsid, std::string name);
