#include "utl/XmlSettingsDocument.h"

#include <algorithm>

#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMText.hpp>

#include "utl/AtomicFile.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/XercesRuntime.h"
#include "utl/XmlText.h"
#include "utl/XmlWriter.h"

namespace vx3 {

namespace {

using xercesc::DOMNode;
using Element = XmlSettingsDocument::Element;

constexpr char16_t kKeyTag[] = u"Key";
constexpr char16_t kSectionTag[] = u"Section";
constexpr char16_t kNameAttribute[] = u"name";
constexpr char16_t kIndexAttribute[] = u"index";

std::u16string_view View(XMLCh const * text) {
  return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

Element * NextElement(DOMNode * node) {
  while (node != nullptr && node->getNodeType() != DOMNode::ELEMENT_NODE)
    node = node->getNextSibling();
  return static_cast<Element *>(node);
}
Element * FirstChildElement(Element const * section) {
  return NextElement(section->getFirstChild());
}
Element * NextSiblingElement(Element const * element) {
  return NextElement(element->getNextSibling());
}

bool IsKey(Element const * element) { return View(element->getTagName()) == kKeyTag; }
bool IsSection(Element const * element) { return View(element->getTagName()) == kSectionTag; }

XmlDocumentPtr CreateEmptyDocument() {
  EnsureXercesInitialized();
  xercesc::DOMImplementation * implementation =
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"Core");
  std::u16string const root = Utf8ToXml(XmlSettingsDocument::RootName());
  XmlDocumentPtr document(implementation->createDocument(nullptr, root.c_str(), nullptr));
  document->getDocumentElement()->setAttribute(u"format", u"1");
  return document;
}

}  // namespace

XmlSettingsDocument::XmlSettingsDocument() { Adopt(CreateEmptyDocument()); }

XmlSettingsDocument::XmlSettingsDocument(std::string path, bool missingIsEmpty)
    : mPath(std::move(path)) {
  XmlParseLimits const limits;
  std::string bytes;
  if (!ReadWholeFile(mPath, limits.maxBytes, bytes)) {
    if (!missingIsEmpty)
      throw Exception(ExceptionMessage::translate("The settings file {1} does not exist.") % mPath);
    Adopt(CreateEmptyDocument());
    return;
  }
  XmlDocumentPtr document = ParseHardenedXml(bytes, mPath, limits);
  std::string const root = XmlToUtf8(document->getDocumentElement()->getTagName());
  if (root != RootName())
    throw Exception(ExceptionMessage::translate(
                        "The file {1} is no settings file: its root element is <{2}>, not <{3}>.") %
                    mPath % root % std::string(RootName()));
  Adopt(std::move(document));
}

std::shared_ptr<XmlSettingsDocument> XmlSettingsDocument::FromString(std::string_view xml) {
  std::string const source = "(settings text)";
  XmlDocumentPtr document = ParseHardenedXml(xml, source, XmlParseLimits());
  std::string const root = XmlToUtf8(document->getDocumentElement()->getTagName());
  if (root != RootName())
    throw Exception(ExceptionMessage::translate(
                        "The file {1} is no settings file: its root element is <{2}>, not <{3}>.") %
                    source % root % std::string(RootName()));
  auto result = std::make_shared<XmlSettingsDocument>();
  result->Adopt(std::move(document));
  return result;
}

void XmlSettingsDocument::Adopt(XmlDocumentPtr document) {
  mIndexes.clear();
  mDocument = std::move(document);
}

Element * XmlSettingsDocument::Parent(Element * section) const {
  DOMNode * parent = section->getParentNode();
  return parent != nullptr && parent->getNodeType() == DOMNode::ELEMENT_NODE
             ? static_cast<Element *>(parent)
             : nullptr;
}

std::u16string_view XmlSettingsDocument::NameOf(Element const * element) {
  return View(element->getAttribute(kNameAttribute));
}

bool XmlSettingsDocument::IsIndexed(Element const * element) {
  return element->getAttributeNode(kIndexAttribute) != nullptr;
}

bool XmlSettingsDocument::IndexOf(Element const * element, int & index) {
  std::u16string_view const text = View(element->getAttribute(kIndexAttribute));
  if (text.empty()) {
    index = 1;
    return true;
  }
  return ParseInt(XmlToUtf8(text), index);
}

std::u16string XmlSettingsDocument::KeyValue(Element const * key) {
  DOMNode const * first = key->getFirstChild();
  if (first == nullptr) return std::u16string();
  if (first->getNextSibling() == nullptr) return std::u16string(View(first->getNodeValue()));
  std::u16string value;
  for (DOMNode const * child = first; child != nullptr; child = child->getNextSibling())
    if (child->getNodeType() == DOMNode::TEXT_NODE ||
        child->getNodeType() == DOMNode::CDATA_SECTION_NODE)
      value += View(child->getNodeValue());
  return value;
}

XmlSettingsDocument::ChildIndex * XmlSettingsDocument::IndexFor(Element * section) {
  auto const found = mIndexes.find(section);
  return found == mIndexes.end() ? nullptr : &found->second;
}

XmlSettingsDocument::ChildIndex & XmlSettingsDocument::BuildIndex(Element * section) {
  ChildIndex & index = mIndexes[section];
  index = ChildIndex();
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child)) {
    if (IsKey(child)) {
      if (!index.keys.emplace(NameOf(child), child).second) index.hasDuplicates = true;
    } else if (IsSection(child)) {
      int number = 0;
      if (IndexOf(child, number) && !index.sections[NameOf(child)].emplace(number, child).second)
        index.hasDuplicates = true;
    }
  }
  return index;
}

Element * XmlSettingsDocument::FindKey(Element * section, std::u16string_view name) {
  if (ChildIndex * index = IndexFor(section)) {
    auto const found = index->keys.find(name);
    return found == index->keys.end() ? nullptr : found->second;
  }
  int seen = 0;
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child)) {
    if (++seen > kIndexThreshold) {
      ChildIndex const & index = BuildIndex(section);
      auto const found = index.keys.find(name);
      return found == index.keys.end() ? nullptr : found->second;
    }
    if (IsKey(child) && NameOf(child) == name) return child;
  }
  return nullptr;
}

Element * XmlSettingsDocument::FindSection(Element * section, std::u16string_view name,
                                           int number) {
  auto const lookUp = [&](ChildIndex const & index) -> Element * {
    auto const named = index.sections.find(name);
    if (named == index.sections.end()) return nullptr;
    auto const found = named->second.find(number);
    return found == named->second.end() ? nullptr : found->second;
  };
  if (ChildIndex * index = IndexFor(section)) return lookUp(*index);
  int seen = 0;
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child)) {
    if (++seen > kIndexThreshold) return lookUp(BuildIndex(section));
    int childNumber = 0;
    if (IsSection(child) && NameOf(child) == name && IndexOf(child, childNumber) &&
        childNumber == number)
      return child;
  }
  return nullptr;
}

Element * XmlSettingsDocument::ProvideSection(Element * section, std::u16string_view name,
                                              int number, bool indexed) {
  if (Element * existing = FindSection(section, name, number)) return existing;
  Element * child = mDocument->createElement(kSectionTag);
  child->setAttribute(kNameAttribute, std::u16string(name).c_str());
  if (indexed) child->setAttribute(kIndexAttribute, Utf8ToXml(FormatInt(number)).c_str());
  section->appendChild(child);
  if (ChildIndex * index = IndexFor(section)) index->sections[NameOf(child)].emplace(number, child);
  return child;
}

std::vector<Element *> XmlSettingsDocument::Sections(Element * section, std::u16string_view name) {
  std::vector<std::pair<int, Element *>> numbered;
  if (ChildIndex * index = IndexFor(section)) {
    auto const named = index->sections.find(name);
    if (named != index->sections.end()) numbered.assign(named->second.begin(), named->second.end());
  } else {
    for (Element * child = FirstChildElement(section); child != nullptr;
         child = NextSiblingElement(child)) {
      int number = 0;
      if (IsSection(child) && NameOf(child) == name && IndexOf(child, number))
        numbered.emplace_back(number, child);
    }
  }
  // Index order; of equal indexes the first in the document stays.
  std::stable_sort(numbered.begin(), numbered.end(),
                   [](auto const & a, auto const & b) { return a.first < b.first; });
  numbered.erase(std::unique(numbered.begin(), numbered.end(),
                             [](auto const & a, auto const & b) { return a.first == b.first; }),
                 numbered.end());
  std::vector<Element *> result;
  result.reserve(numbered.size());
  for (auto const & entry : numbered) result.push_back(entry.second);
  return result;
}

int XmlSettingsDocument::CountSections(Element * section, std::u16string_view name) {
  if (ChildIndex * index = IndexFor(section)) {
    auto const named = index->sections.find(name);
    return named == index->sections.end() ? 0 : static_cast<int>(named->second.size());
  }
  return static_cast<int>(Sections(section, name).size());
}

std::vector<Element *> XmlSettingsDocument::ChildKeys(Element * section) const {
  std::vector<Element *> keys;
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child))
    if (IsKey(child)) keys.push_back(child);
  return keys;
}

std::vector<Element *> XmlSettingsDocument::ChildSections(Element * section) const {
  std::vector<Element *> sections;
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child))
    if (IsSection(child)) sections.push_back(child);
  return sections;
}

bool XmlSettingsDocument::HasChildren(Element * section) const {
  for (Element * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child))
    if (IsKey(child) || IsSection(child)) return true;
  return false;
}

void XmlSettingsDocument::SetKey(Element * section, std::u16string_view name,
                                 std::u16string_view value) {
  std::u16string const text(value);
  if (Element * key = FindKey(section, name)) {
    key->setTextContent(text.c_str());
    return;
  }
  Element * key = mDocument->createElement(kKeyTag);
  key->setAttribute(kNameAttribute, std::u16string(name).c_str());
  if (!text.empty()) key->appendChild(mDocument->createTextNode(text.c_str()));
  section->appendChild(key);
  if (ChildIndex * index = IndexFor(section)) index->keys.emplace(NameOf(key), key);
}

bool XmlSettingsDocument::RemoveKey(Element * section, std::u16string_view name) {
  ChildIndex * index = IndexFor(section);
  std::vector<Element *> doomed;
  if (index != nullptr && !index->hasDuplicates) {
    auto const found = index->keys.find(name);
    if (found == index->keys.end()) return false;
    doomed.push_back(found->second);
    index->keys.erase(found);
  } else {
    // Every key of that name goes, so no hidden duplicate comes to light.
    for (Element * child = FirstChildElement(section); child != nullptr;
         child = NextSiblingElement(child))
      if (IsKey(child) && NameOf(child) == name) doomed.push_back(child);
    if (index != nullptr) mIndexes.erase(section);
  }
  for (Element * key : doomed) {
    section->removeChild(key);
    // No section object stands on a key element, so it can go at once.
    key->release();
  }
  return !doomed.empty();
}

Element * XmlSettingsDocument::RemoveSection(Element * child) {
  Element * parent = Parent(child);
  if (parent == nullptr) return nullptr;
  if (ChildIndex * index = IndexFor(parent)) {
    int number = 0;
    auto const named = index->sections.find(NameOf(child));
    if (index->hasDuplicates) {
      mIndexes.erase(parent);
    } else if (named != index->sections.end() && IndexOf(child, number)) {
      named->second.erase(number);
      if (named->second.empty()) index->sections.erase(named);
    }
  }
  // Section objects may still stand on the removed element or below it, so
  // it is not released: it lives, detached, as long as the document.
  parent->removeChild(child);
  return parent;
}

std::string XmlSettingsDocument::Serialize() const { return SerializeXml(*mDocument); }

bool XmlSettingsDocument::Flush() const {
  if (mPath.empty()) return false;
  WriteFileAtomically(mPath, Serialize());
  return true;
}

}  // namespace vx3
