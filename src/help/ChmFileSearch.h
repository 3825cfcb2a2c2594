#pragma once
// Where a compiled help file named by an application is looked for, the
// first place that has it winning:
//   1. the name itself;
//   2. (the base name: what follows the last "/" or "\")
//   3. the base name in the program's folder (/proc/self/exe);
//   4. in the current folder;
//   5. in the folder named by the value <base> of the key
//      "Software\Compiled Help" under HKEY_LOCAL_MACHINE;
//   6. in "help" under the shared folder: the value "SharedDir" of
//      "Software\Setup" under HKEY_LOCAL_MACHINE, else the first XDG data
//      folder ($XDG_DATA_DIRS, default /usr/local/share);
//   7. the entry <base> of the section "[files]" of "hh.ini" in the
//      all-users configuration folder: "path,prompt". A missing file with a
//      prompt is asked for (OK and Cancel, stop icon) until it is there or
//      the user cancels; the path is then the result even if absent, so
//      that a help file on a removable disc can be asked for.

#include <functional>
#include <string>
#include <string_view>

constexpr wchar_t const * kChmFolderKey = L"Software\\Compiled Help";
constexpr wchar_t const * kSharedFolderKey = L"Software\\Setup";

struct ChmFileSearchPlaces {
  std::string programFolder;
  std::string currentFolder;
  std::string sharedFolderFallback;  // the first XDG data folder
  std::string hhIniPath;
  // Shows the prompt of "hh.ini"; returns IDOK (1) to look again.
  std::function<int(std::string const & prompt)> ask;
};

// The places of this process; `ask` shows a message box.
ChmFileSearchPlaces CurrentChmFileSearchPlaces();

// Steps 1 to 7 above; `result` gets the full path when true.
bool FindChmFile(std::string const & name, std::string & result);
bool FindChmFile(std::string const & name, std::string & result,
                 ChmFileSearchPlaces const & places);

// The value of `key` in the section "[files]" of an "hh.ini" text (section
// and key without regard to ASCII case, the value trimmed); false when
// there is none.
bool ReadHhIniFilesEntry(std::string_view ini, std::string_view key, std::string & value);
