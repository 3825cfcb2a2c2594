#include "xml/XercesSettingsDocument.h"

#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMText.hpp>

#include <algorithm>

#include "utl/AtomicFile.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/WholeFile.h"
#include "utl/XmlText.h"
#include "xml/XercesStart.h"
#include "xml/XmlDomWriter.h"

namespace vx3 {

namespace {

using xercesc::DOMNode;
using Dom = xercesc::DOMElement;
using Element = XmlSettingsDocument::Element;

constexpr char16_t kKeyTag[] = u"Key";
constexpr char16_t kSectionTag[] = u"Section";
constexpr char16_t kNameAttribute[] = u"name";
constexpr char16_t kIndexAttribute[] = u"index";

// The handles given out are the DOM's elements.
Dom * In(Element * element) { return reinterpret_cast<Dom *>(element); }
Dom const * In(Element const * element) { return reinterpret_cast<Dom const *>(element); }
Element * Out(Dom * element) { return reinterpret_cast<Element *>(element); }
std::vector<Element *> Out(std::vector<Dom *> const & elements) {
  std::vector<Element *> result;
  result.reserve(elements.size());
  for (Dom * element : elements) result.push_back(Out(element));
  return result;
}

std::u16string_view View(XMLCh const * text) {
  return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

Dom * NextElement(DOMNode * node) {
  while (node != nullptr && node->getNodeType() != DOMNode::ELEMENT_NODE)
    node = node->getNextSibling();
  return static_cast<Dom *>(node);
}
Dom * FirstChildElement(Dom const * section) { return NextElement(section->getFirstChild()); }
Dom * NextSiblingElement(Dom const * element) { return NextElement(element->getNextSibling()); }

bool IsKey(Dom const * element) { return View(element->getTagName()) == kKeyTag; }
bool IsSection(Dom const * element) { return View(element->getTagName()) == kSectionTag; }

std::u16string_view NameOfElement(Dom const * element) {
  return View(element->getAttribute(kNameAttribute));
}

bool IndexOfElement(Dom const * element, int & index) {
  std::u16string_view const text = View(element->getAttribute(kIndexAttribute));
  if (text.empty()) {
    index = 1;
    return true;
  }
  return ParseInt(XmlToUtf8(text), index);
}

// Sections and the root hold keys and sections, never text: whitespace in
// them is indentation, which the writer makes anew.
std::vector<std::u16string> const & LayoutElements() {
  static std::vector<std::u16string> const names = {kSectionTag,
                                                    Utf8ToXml(XmlSettingsDocument::RootName())};
  return names;
}

XmlDocumentPtr CreateEmptyDocument() {
  StartXerces();
  xercesc::DOMImplementation * implementation =
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"Core");
  std::u16string const root = Utf8ToXml(XmlSettingsDocument::RootName());
  XmlDocumentPtr document(implementation->createDocument(nullptr, root.c_str(), nullptr));
  document->getDocumentElement()->setAttribute(u"format", u"1");
  return document;
}

}  // namespace

XercesSettingsDocument::XercesSettingsDocument() { Adopt(CreateEmptyDocument()); }

XercesSettingsDocument::XercesSettingsDocument(std::string path, bool missingIsEmpty)
    : mPath(std::move(path)) {
  XmlParseLimits const limits;
  std::string bytes;
  if (!ReadWholeFile(mPath, limits.maxBytes, bytes)) {
    if (!missingIsEmpty)
      throw Exception(ExceptionMessage::translate("The settings file {1} does not exist.") % mPath);
    Adopt(CreateEmptyDocument());
    return;
  }
  XmlDocumentPtr document = ParseHardenedXml(bytes, mPath, limits, LayoutElements());
  std::string const root = XmlToUtf8(document->getDocumentElement()->getTagName());
  if (root != RootName())
    throw Exception(ExceptionMessage::translate(
                        "The file {1} is no settings file: its root element is <{2}>, not <{3}>.") %
                    mPath % root % std::string(RootName()));
  Adopt(std::move(document));
}

std::shared_ptr<XercesSettingsDocument> XercesSettingsDocument::FromString(std::string_view xml) {
  std::string const source = "(settings text)";
  XmlDocumentPtr document = ParseHardenedXml(xml, source, XmlParseLimits(), LayoutElements());
  std::string const root = XmlToUtf8(document->getDocumentElement()->getTagName());
  if (root != RootName())
    throw Exception(ExceptionMessage::translate(
                        "The file {1} is no settings file: its root element is <{2}>, not <{3}>.") %
                    source % root % std::string(RootName()));
  auto result = std::make_shared<XercesSettingsDocument>();
  result->Adopt(std::move(document));
  return result;
}

void XercesSettingsDocument::Adopt(XmlDocumentPtr document) {
  mOldChildren.clear();
  mRemoved = Removed();
  mIndexes.clear();
  mNames.clear();
  mDocument = std::move(document);
}

std::u16string_view XercesSettingsDocument::Intern(std::u16string_view name) {
  return *mNames.emplace(name).first;
}

Element * XercesSettingsDocument::Root() const { return Out(mDocument->getDocumentElement()); }

Element * XercesSettingsDocument::Parent(Element * section) const {
  DOMNode * parent = In(section)->getParentNode();
  return parent != nullptr && parent->getNodeType() == DOMNode::ELEMENT_NODE
             ? Out(static_cast<Dom *>(parent))
             : nullptr;
}

std::u16string_view XercesSettingsDocument::NameOf(Element const * element) const {
  return NameOfElement(In(element));
}

bool XercesSettingsDocument::IsIndexed(Element const * element) const {
  return In(element)->getAttributeNode(kIndexAttribute) != nullptr;
}

bool XercesSettingsDocument::IndexOf(Element const * element, int & index) const {
  return IndexOfElement(In(element), index);
}

std::u16string XercesSettingsDocument::KeyValue(Element const * key) const {
  DOMNode const * first = In(key)->getFirstChild();
  if (first == nullptr) return std::u16string();
  if (first->getNextSibling() == nullptr) return std::u16string(View(first->getNodeValue()));
  std::u16string value;
  for (DOMNode const * child = first; child != nullptr; child = child->getNextSibling())
    if (child->getNodeType() == DOMNode::TEXT_NODE ||
        child->getNodeType() == DOMNode::CDATA_SECTION_NODE)
      value += View(child->getNodeValue());
  return value;
}

XercesSettingsDocument::ChildIndex * XercesSettingsDocument::ExistingIndex(Dom * section) {
  auto const found = mIndexes.find(section);
  return found == mIndexes.end() ? nullptr : &found->second;
}

XercesSettingsDocument::ChildIndex & XercesSettingsDocument::IndexFor(Dom * section) {
  ChildIndex * const existing = ExistingIndex(section);
  return existing != nullptr ? *existing : BuildIndex(section);
}

XercesSettingsDocument::ChildIndex & XercesSettingsDocument::BuildIndex(Dom * section) {
  ChildIndex & index = mIndexes[section];
  index = ChildIndex();
  for (Dom * child = FirstChildElement(section); child != nullptr;
       child = NextSiblingElement(child)) {
    if (IsKey(child)) {
      if (!index.keys.emplace(NameOfElement(child), child).second) index.hasDuplicates = true;
    } else if (IsSection(child)) {
      int number = 0;
      if (IndexOfElement(child, number) &&
          !index.sections[NameOfElement(child)].emplace(number, child).second)
        index.hasDuplicates = true;
    }
  }
  return index;
}

Element * XercesSettingsDocument::FindKey(Element * section, std::u16string_view name) {
  return Out(FindKeyElement(In(section), name));
}

Dom * XercesSettingsDocument::FindKeyElement(Dom * section, std::u16string_view name) {
  ChildIndex const & index = IndexFor(section);
  auto const found = index.keys.find(name);
  return found == index.keys.end() ? nullptr : found->second;
}

Element * XercesSettingsDocument::FindSection(Element * section, std::u16string_view name,
                                              int number) {
  return Out(FindSectionElement(In(section), name, number));
}

Dom * XercesSettingsDocument::FindSectionElement(Dom * section, std::u16string_view name,
                                                 int number) {
  ChildIndex const & index = IndexFor(section);
  auto const named = index.sections.find(name);
  if (named == index.sections.end()) return nullptr;
  auto const found = named->second.find(number);
  return found == named->second.end() ? nullptr : found->second;
}

Element * XercesSettingsDocument::ProvideSection(Element * parent, std::u16string_view name,
                                                 int number, bool indexed) {
  Dom * section = In(parent);
  if (Dom * existing = FindSectionElement(section, name, number)) return Out(existing);
  Dom * old = TakeOldChild(section, false, name, number, indexed);
  if (old == nullptr) old = ReviveRemoved(section, name, number, indexed);
  if (old != nullptr) {
    IndexFor(section).sections[Intern(name)].emplace(number, old);
    StartRewrite(old);
    return Out(old);
  }
  Dom * child = mDocument->createElement(kSectionTag);
  child->setAttribute(kNameAttribute, std::u16string(name).c_str());
  if (indexed) child->setAttribute(kIndexAttribute, Utf8ToXml(FormatInt(number)).c_str());
  section->appendChild(child);
  IndexFor(section).sections[Intern(name)].emplace(number, child);
  // A new section is empty: its index starts so, without a look at it.
  mIndexes.emplace(child, ChildIndex());
  return Out(child);
}

std::vector<Element *> XercesSettingsDocument::Sections(Element * section,
                                                        std::u16string_view name) {
  return Out(SectionElements(In(section), name));
}

std::vector<Dom *> XercesSettingsDocument::SectionElements(Dom * section,
                                                           std::u16string_view name) {
  std::vector<std::pair<int, Dom *>> numbered;
  if (ChildIndex * index = ExistingIndex(section)) {
    auto const named = index->sections.find(name);
    if (named != index->sections.end()) numbered.assign(named->second.begin(), named->second.end());
  } else {
    for (Dom * child = FirstChildElement(section); child != nullptr;
         child = NextSiblingElement(child)) {
      int number = 0;
      if (IsSection(child) && NameOfElement(child) == name && IndexOfElement(child, number))
        numbered.emplace_back(number, child);
    }
  }
  // Index order; of equal indexes the first in the document stays.
  std::stable_sort(numbered.begin(), numbered.end(),
                   [](auto const & a, auto const & b) { return a.first < b.first; });
  numbered.erase(std::unique(numbered.begin(), numbered.end(),
                             [](auto const & a, auto const & b) { return a.first == b.first; }),
                 numbered.end());
  std::vector<Dom *> result;
  result.reserve(numbered.size());
  for (auto const & entry : numbered) result.push_back(entry.second);
  return result;
}

int XercesSettingsDocument::CountSections(Element * section, std::u16string_view name) {
  if (ChildIndex * index = ExistingIndex(In(section))) {
    auto const named = index->sections.find(name);
    return named == index->sections.end() ? 0 : static_cast<int>(named->second.size());
  }
  return static_cast<int>(SectionElements(In(section), name).size());
}

std::vector<Element *> XercesSettingsDocument::ChildKeys(Element * section) const {
  DropOldChildren();
  std::vector<Element *> keys;
  for (Dom * child = FirstChildElement(In(section)); child != nullptr;
       child = NextSiblingElement(child))
    if (IsKey(child)) keys.push_back(Out(child));
  return keys;
}

std::vector<Element *> XercesSettingsDocument::ChildSections(Element * section) const {
  DropOldChildren();
  std::vector<Element *> sections;
  for (Dom * child = FirstChildElement(In(section)); child != nullptr;
       child = NextSiblingElement(child))
    if (IsSection(child)) sections.push_back(Out(child));
  return sections;
}

bool XercesSettingsDocument::HasChildren(Element * section) const {
  DropOldChildren();
  for (Dom * child = FirstChildElement(In(section)); child != nullptr;
       child = NextSiblingElement(child))
    if (IsKey(child) || IsSection(child)) return true;
  return false;
}

void XercesSettingsDocument::SetKey(Element * parent, std::u16string_view name,
                                    std::u16string_view value) {
  Dom * section = In(parent);
  mRemoved = Removed();
  std::u16string const text(value);
  if (Dom * key = FindKeyElement(section, name)) {
    key->setTextContent(text.c_str());
    return;
  }
  if (Dom * key = TakeOldChild(section, true, name, 0, false)) {
    DOMNode * const first = key->getFirstChild();
    if (!text.empty() && first != nullptr && first->getNextSibling() == nullptr &&
        first->getNodeType() == DOMNode::TEXT_NODE) {
      // The same key again: its text changes in place, the cheapest change.
      static_cast<xercesc::DOMText *>(first)->setData(text.c_str());
    } else {
      // As a new key: no text node for an empty value.
      while (DOMNode * child = key->getFirstChild()) key->removeChild(child)->release();
      if (!text.empty()) key->appendChild(mDocument->createTextNode(text.c_str()));
    }
    if (ChildIndex * index = ExistingIndex(section)) index->keys.emplace(Intern(name), key);
    return;
  }
  Dom * key = mDocument->createElement(kKeyTag);
  key->setAttribute(kNameAttribute, std::u16string(name).c_str());
  if (!text.empty()) key->appendChild(mDocument->createTextNode(text.c_str()));
  section->appendChild(key);
  if (ChildIndex * index = ExistingIndex(section)) index->keys.emplace(Intern(name), key);
}

bool XercesSettingsDocument::RemoveKey(Element * parent, std::u16string_view name) {
  DropOldChildren();
  mRemoved = Removed();
  Dom * section = In(parent);
  ChildIndex * index = ExistingIndex(section);
  std::vector<Dom *> doomed;
  if (index != nullptr && !index->hasDuplicates) {
    auto const found = index->keys.find(name);
    if (found == index->keys.end()) return false;
    doomed.push_back(found->second);
    index->keys.erase(found);
  } else {
    // Every key of that name goes, so no hidden duplicate comes to light.
    for (Dom * child = FirstChildElement(section); child != nullptr;
         child = NextSiblingElement(child))
      if (IsKey(child) && NameOfElement(child) == name) doomed.push_back(child);
    if (index != nullptr) mIndexes.erase(section);
  }
  for (Dom * key : doomed) {
    section->removeChild(key);
    // No section object stands on a key element, so it can go at once.
    key->release();
  }
  return !doomed.empty();
}

Element * XercesSettingsDocument::RemoveSection(Element * removed) {
  DropOldChildren();
  Dom * child = In(removed);
  Dom * parent = In(Parent(removed));
  if (parent == nullptr) return nullptr;
  mRemoved = Removed{parent, child};
  if (ChildIndex * index = ExistingIndex(parent)) {
    int number = 0;
    auto const named = index->sections.find(NameOfElement(child));
    if (index->hasDuplicates) {
      mIndexes.erase(parent);
    } else if (named != index->sections.end() && IndexOfElement(child, number)) {
      named->second.erase(number);
      if (named->second.empty()) index->sections.erase(named);
    }
  }
  // Section objects may still stand on the removed element or below it, so
  // it is not released: it lives, detached, as long as the document.
  parent->removeChild(child);
  return Out(parent);
}

std::string XercesSettingsDocument::Serialize() const {
  DropOldChildren();
  return SerializeXml(*mDocument);
}

Dom * XercesSettingsDocument::ReviveRemoved(Dom * parent, std::u16string_view name, int number,
                                            bool indexed) {
  Removed const removed = mRemoved;
  mRemoved = Removed();
  if (removed.parent != parent || removed.section->getParentNode() != nullptr) return nullptr;
  int stored = 0;
  if (NameOfElement(removed.section) != name || IsIndexed(Out(removed.section)) != indexed ||
      !IndexOfElement(removed.section, stored) || stored != number)
    return nullptr;
  parent->appendChild(removed.section);
  return removed.section;
}

void XercesSettingsDocument::StartRewrite(Dom * section) {
  // Its old children are out of sight until a write takes them up.
  mIndexes[section] = ChildIndex();
  if (DOMNode * const first = section->getFirstChild()) mOldChildren[section] = first;
}

namespace {

// Drops `from` and the siblings after it. A section is not released: section
// objects may still stand on it (as on any removed section).
void DropFrom(Dom * section, DOMNode * from) {
  while (from != nullptr) {
    DOMNode * const next = from->getNextSibling();
    section->removeChild(from);
    if (from->getNodeType() != DOMNode::ELEMENT_NODE || !IsSection(static_cast<Dom *>(from)))
      from->release();
    from = next;
  }
}

}  // namespace

Dom * XercesSettingsDocument::TakeOldChild(Dom * section, bool key, std::u16string_view name,
                                           int number, bool indexed) {
  if (mOldChildren.empty()) return nullptr;
  auto const found = mOldChildren.find(section);
  if (found == mOldChildren.end()) return nullptr;
  DOMNode * at = found->second;
  // Text and comments between old children are not kept, as in a new section.
  while (at != nullptr && at->getNodeType() != DOMNode::ELEMENT_NODE) {
    DOMNode * const next = at->getNextSibling();
    section->removeChild(at)->release();
    at = next;
  }
  auto * const old = static_cast<Dom *>(at);
  int stored = 0;
  bool const same =
      old != nullptr && (key ? IsKey(old) : IsSection(old)) && NameOfElement(old) == name &&
      (key || (IsIndexed(Out(old)) == indexed && IndexOfElement(old, stored) && stored == number));
  if (!same) {
    DropFrom(section, at);
    mOldChildren.erase(found);
    return nullptr;
  }
  if (DOMNode * const next = old->getNextSibling())
    found->second = next;
  else
    mOldChildren.erase(found);
  return old;
}

void XercesSettingsDocument::DropOldChildren() const {
  for (auto const & [section, first] : mOldChildren) DropFrom(section, first);
  mOldChildren.clear();
}

bool XercesSettingsDocument::Flush() const {
  if (mPath.empty()) return false;
  WriteFileAtomically(mPath, Serialize());
  return true;
}

}  // namespace vx3
