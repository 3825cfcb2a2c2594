#include "utl/XercesXMLSection.h"

#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Utf.h"
#include "utl/XmlSettingsDocument.h"
#include "utl/XmlText.h"

namespace {

using vx3::XmlSettingsDocument;
using Element = XmlSettingsDocument::Element;

std::u16string Name(char const * name) {
  return vx3::Utf8ToXml(name == nullptr ? std::string_view() : std::string_view(name));
}

// A name or value that an XML document can hold, or nothing.
bool Storable(char const * text, std::u16string & converted) {
  converted = Name(text);
  return vx3::IsXmlStorable(converted);
}

std::u16string StorableName(char const * name) {
  std::u16string converted;
  if (!Storable(name, converted))
    throw Exception(ExceptionMessage::translate("The name {1} cannot be stored in an XML file.") %
                    vx3::SanitizeUtf8(name == nullptr ? "" : name));
  return converted;
}

}  // namespace

XercesXMLSection::XercesXMLSection()
    : mDocument(XmlSettingsDocument::Create()), mElement(mDocument->Root()) {}

XercesXMLSection::XercesXMLSection(char const * path, bool createIfMissing)
    : mDocument(XmlSettingsDocument::Open(path == nullptr ? "" : path, createIfMissing)),
      mElement(mDocument->Root()) {}

XercesXMLSection::XercesXMLSection(std::shared_ptr<XmlSettingsDocument> document,
                                   XmlSectionElement * element)
    : mDocument(std::move(document)), mElement(element) {}

XercesXMLSection::~XercesXMLSection() = default;

XercesXMLSection * XercesXMLSection::CreateXMLSectionFromString(char const * xml) {
  auto document = XmlSettingsDocument::FromString(xml == nullptr ? "" : xml);
  Element * root = document->Root();
  return new XercesXMLSection(std::move(document), root);
}

char const * XercesXMLSection::KarvinelXMLExtension() { return "kvxml"; }

ConfigurationSection * XercesXMLSection::Copy() const {
  return new XercesXMLSection(mDocument, mElement);
}

void XercesXMLSection::ChangeSection(char const * name) {
  Element * parent = mDocument->Parent(mElement);
  std::u16string converted;
  if (parent == nullptr || !Storable(name, converted)) return;
  mElement = mDocument->ProvideSection(parent, converted, 1, false);
}

bool XercesXMLSection::ChangeSubSection(char const * name, int index) {
  Element * child = mDocument->FindSection(mElement, Name(name), index);
  if (child == nullptr) return false;
  mElement = child;
  return true;
}

bool XercesXMLSection::ChangeSubSection(char const * name) { return ChangeSubSection(name, 1); }

ConfigurationSection * XercesXMLSection::CreateSubSection(char const * name, int index) const {
  Element * child = mDocument->ProvideSection(mElement, StorableName(name), index, true);
  return new XercesXMLSection(mDocument, child);
}

ConfigurationSection * XercesXMLSection::CreateSubSection(char const * name) const {
  Element * child = mDocument->ProvideSection(mElement, StorableName(name), 1, false);
  return new XercesXMLSection(mDocument, child);
}

std::vector<boost::shared_ptr<ConfigurationSection>> * XercesXMLSection::GetAllSubSections(
    char const * name) const {
  auto * sections = new std::vector<boost::shared_ptr<ConfigurationSection>>();
  for (Element * child : mDocument->Sections(mElement, Name(name)))
    sections->emplace_back(new XercesXMLSection(mDocument, child));
  return sections;
}

int XercesXMLSection::NumSubSections(char const * name) const {
  return mDocument->CountSections(mElement, Name(name));
}

bool XercesXMLSection::SupportsSubSections() const { return true; }

bool XercesXMLSection::DeleteKey(char const * name) {
  return mDocument->RemoveKey(mElement, Name(name));
}

bool XercesXMLSection::DeleteSection() {
  Element * parent = mDocument->RemoveSection(mElement);
  if (parent == nullptr) return false;
  mElement = parent;
  return true;
}

bool XercesXMLSection::Flush() const {
  try {
    return mDocument->Flush();
  } catch (Exception const & failure) {
    Log::WriteMessage("XercesXMLSection", "Flush", failure.Why(), Log::Error, false);
    return false;
  }
}

bool XercesXMLSection::IsEmpty() const { return !mDocument->HasChildren(mElement); }

bool XercesXMLSection::HasSection(char const * name, int index) const {
  return mDocument->FindSection(mElement, Name(name), index) != nullptr;
}

bool XercesXMLSection::HasKey(char const * name) const {
  return mDocument->FindKey(mElement, Name(name)) != nullptr;
}

bool XercesXMLSection::ReadKey(char const * name, std::wstring & value) const {
  std::string text;
  if (!ReadKey(name, text)) return false;
  value = vx3::Utf8ToWide(text);
  return true;
}

bool XercesXMLSection::ReadKey(char const * name, std::string & value) const {
  Element const * key = mDocument->FindKey(mElement, Name(name));
  if (key == nullptr) return false;
  value = vx3::XmlToUtf8(mDocument->KeyValue(key));
  return true;
}

bool XercesXMLSection::WriteKey(char const * name, wchar_t const * value) {
  return WriteKey(name, vx3::WideToUtf8(value == nullptr ? L"" : value).c_str());
}

bool XercesXMLSection::WriteKey(char const * name, char const * value) {
  std::u16string convertedName;
  std::u16string convertedValue;
  if (!Storable(name, convertedName) || !Storable(value, convertedValue)) return false;
  mDocument->SetKey(mElement, convertedName, convertedValue);
  return true;
}

namespace {

bool CopyInto(XmlSettingsDocument & document, Element * source, ConfigurationSection & target) {
  bool complete = true;
  for (Element * key : document.ChildKeys(source)) {
    std::string const name = vx3::XmlToUtf8(document.NameOf(key));
    complete = target.WriteKey(name.c_str(), vx3::XmlToUtf8(document.KeyValue(key))) && complete;
  }
  for (Element * section : document.ChildSections(source)) {
    int index = 1;
    if (!document.IndexOf(section, index)) continue;
    std::string const name = vx3::XmlToUtf8(document.NameOf(section));
    std::unique_ptr<ConfigurationSection> child(document.IsIndexed(section)
                                                    ? target.CreateSubSection(name.c_str(), index)
                                                    : target.CreateSubSection(name.c_str()));
    complete = child && CopyInto(document, section, *child) && complete;
  }
  return complete;
}

}  // namespace

bool XercesXMLSection::WriteToSection(ConfigurationSection * target) const {
  if (target == nullptr) return false;
  // Copying a section into itself or below itself would never end.
  if (auto * xml = dynamic_cast<XercesXMLSection *>(target); xml && xml->mDocument == mDocument)
    for (Element * at = xml->mElement; at != nullptr; at = mDocument->Parent(at))
      if (at == mElement) return false;
  try {
    return CopyInto(*mDocument, mElement, *target);
  } catch (Exception const &) {
    return false;
  }
}

std::string XercesXMLSection::ToXmlString() const { return mDocument->Serialize(); }

std::string XercesXMLSection::GetFileName() const { return mDocument->Path(); }
