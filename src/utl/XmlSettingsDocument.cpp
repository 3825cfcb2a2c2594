#include "utl/XmlSettingsDocument.h"

#include "utl/XmlModule.h"

namespace vx3 {

std::shared_ptr<XmlSettingsDocument> XmlSettingsDocument::Create() {
  return GetXmlModule().CreateSettings();
}

std::shared_ptr<XmlSettingsDocument> XmlSettingsDocument::Open(std::string const & path,
                                                               bool missingIsEmpty) {
  return GetXmlModule().OpenSettings(path, missingIsEmpty);
}

std::shared_ptr<XmlSettingsDocument> XmlSettingsDocument::FromString(std::string_view xml) {
  return GetXmlModule().ParseSettings(xml);
}

}  // namespace vx3
