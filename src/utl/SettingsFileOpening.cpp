#include "utl/SettingsFileOpening.h"

#include <sys/stat.h>

#include <cstdio>

#include "utl/DamagedCopyName.h"
#include "utl/Exception.h"
#include "utl/FileProblemNotice.h"
#include "utl/Paths.h"
#include "utl/WholeFile.h"
#include "utl/XercesXMLSection.h"
#include "utl/XmlModule.h"
#include "utl/XmlTree.h"

namespace vx3 {

namespace {

constexpr char kClass[] = "SettingsFile";

// Whether the failure to open `path` says the file itself is damaged: its
// bytes can be read and the parser is there, so the parser refused them.
bool ProvedDamaged(std::string const & path) {
  try {
    std::string bytes;
    if (!ReadWholeFile(path, XmlParseLimits().maxBytes, bytes)) return false;
    GetXmlModule().StartParser();
    return true;
  } catch (Exception const &) {
    return false;
  }
}

// Renames the damaged file to a free "<path>.damaged-<time>[-n]" name;
// "" when it cannot be moved (or is no longer the file that was read).
std::string MoveAside(std::string const & path, ino_t inode) {
  struct stat now {};
  if (::stat(path.c_str(), &now) != 0 || now.st_ino != inode) return "";
  std::string const aside = DamagedCopyName(path);
  return std::rename(path.c_str(), aside.c_str()) == 0 ? aside : "";
}

}  // namespace

std::unique_ptr<XercesXMLSection> OpenUserSettingsFile(std::string const & path) {
  struct stat before {};
  bool const present = ::stat(path.c_str(), &before) == 0;
  std::string reason;
  try {
    return std::make_unique<XercesXMLSection>(path.c_str(), true);
  } catch (Exception const & failure) {
    reason = failure.Why();
  }
  std::string const aside = present && ProvedDamaged(path) ? MoveAside(path, before.st_ino) : "";
  if (!aside.empty()) {
    ReportFileProblem(kClass, "OpenUserSettingsFile", path,
                      ExceptionMessage::translate(
                          "The settings file {1} is damaged and was kept as {2}. The settings of "
                          "this session are saved in a new file. Reason: {3}") %
                          path % aside % reason);
    try {
      return std::make_unique<XercesXMLSection>(path.c_str(), true);
    } catch (Exception const &) {
      return nullptr;  // another process put a file there meanwhile
    }
  }
  ReportFileProblem(kClass, "OpenUserSettingsFile", path,
                    ExceptionMessage::translate(
                        "The settings file {1} cannot be read and is left as it is. The settings "
                        "of this session will not be saved. Reason: {2}") %
                        path % reason);
  return nullptr;
}

std::unique_ptr<XercesXMLSection> OpenSharedSettingsFile(std::string const & path) {
  try {
    return std::make_unique<XercesXMLSection>(path.c_str(), true);
  } catch (Exception const & failure) {
    ReportFileProblem(kClass, "OpenSharedSettingsFile", path,
                      ExceptionMessage::translate(
                          "The settings file for all users {1} cannot be read, and its settings "
                          "are not used. Reason: {2}") %
                          path % failure.Why());
    return nullptr;
  }
}

}  // namespace vx3
