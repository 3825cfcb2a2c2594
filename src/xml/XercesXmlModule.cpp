// The entry point of the XML module (utl/XmlModule.h): what TALVOutl calls
// once it has loaded libTALVOxml.so.
#include "utl/XmlModule.h"
#include "xml/HardenedXmlParser.h"
#include "xml/XercesSettingsDocument.h"
#include "xml/XercesStart.h"
#include "xml/XmlTreeReader.h"

namespace vx3 {

namespace {

class XercesXmlModule : public XmlModule {
public:
  void StartParser() override { StartXerces(); }

  std::shared_ptr<XmlSettingsDocument> CreateSettings() override {
    return std::make_shared<XercesSettingsDocument>();
  }

  std::shared_ptr<XmlSettingsDocument> OpenSettings(std::string const & path,
                                                    bool missingIsEmpty) override {
    return std::make_shared<XercesSettingsDocument>(path, missingIsEmpty);
  }

  std::shared_ptr<XmlSettingsDocument> ParseSettings(std::string_view xml) override {
    return XercesSettingsDocument::FromString(xml);
  }

  XmlTree ParseTree(std::string_view bytes, std::string const & source,
                    XmlParseLimits const & limits) override {
    return ToXmlTree(*ParseHardenedXml(bytes, source, limits));
  }
};

}  // namespace

}  // namespace vx3

extern "C" __attribute__((visibility("default"))) vx3::XmlModule * TalvoXmlModule() {
  static vx3::XercesXmlModule module;
  return &module;
}
