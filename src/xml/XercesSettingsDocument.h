#pragma once
// XmlSettingsDocument on a Xerces-C DOM, with an index of each section's
// children. Internal to the XML module.
//
// Lookups: the first lookup in a section gives it a hash index of its keys
// and of its sub-sections by name and then by index, built once and kept up
// to date by every change; a section made here starts with an empty one.
// Reading an element's name from the DOM costs far more than a hash
// lookup, and a row of a favourites file is read key by key, so even small
// sections are indexed. Each lookup in a favourites file of 100,000 items
// is O(1) and nothing is quadratic; listing all sections of a name sorts
// them by index.

#include <xercesc/dom/DOMElement.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "utl/XmlSettingsDocument.h"
#include "xml/HardenedXmlParser.h"

namespace vx3 {

class XercesSettingsDocument : public XmlSettingsDocument {
public:
  // An empty tree with no file.
  XercesSettingsDocument();
  // See XmlSettingsDocument::Open and FromString.
  XercesSettingsDocument(std::string path, bool missingIsEmpty);
  static std::shared_ptr<XercesSettingsDocument> FromString(std::string_view xml);

  std::string const & Path() const override { return mPath; }
  Element * Root() const override;
  Element * Parent(Element * section) const override;
  Element * FindKey(Element * section, std::u16string_view name) override;
  Element * FindSection(Element * section, std::u16string_view name, int index) override;
  Element * ProvideSection(Element * section, std::u16string_view name, int index,
                           bool indexed) override;
  std::vector<Element *> Sections(Element * section, std::u16string_view name) override;
  int CountSections(Element * section, std::u16string_view name) override;
  std::vector<Element *> ChildKeys(Element * section) const override;
  std::vector<Element *> ChildSections(Element * section) const override;
  std::u16string_view NameOf(Element const * element) const override;
  bool IndexOf(Element const * element, int & index) const override;
  bool IsIndexed(Element const * element) const override;
  std::u16string KeyValue(Element const * key) const override;
  void SetKey(Element * section, std::u16string_view name, std::u16string_view value) override;
  bool RemoveKey(Element * section, std::u16string_view name) override;
  Element * RemoveSection(Element * child) override;
  bool HasChildren(Element * section) const override;
  std::string Serialize() const override;
  bool Flush() const override;

private:
  using Dom = xercesc::DOMElement;
  struct ChildIndex {
    std::unordered_map<std::u16string_view, Dom *> keys;
    std::unordered_map<std::u16string_view, std::unordered_map<int, Dom *>> sections;
    // A later element repeated a key name or a section name and index.
    bool hasDuplicates = false;
  };
  void Adopt(XmlDocumentPtr document);
  // The section's index, or null while it has none.
  ChildIndex * ExistingIndex(Dom * section);
  // The section's index, built now when it has none.
  ChildIndex & IndexFor(Dom * section);
  ChildIndex & BuildIndex(Dom * section);
  // A lasting copy of a name that this document wrote: the index then
  // needs no read of the name back from the DOM, which is dear.
  std::u16string_view Intern(std::u16string_view name);
  // A section removed and then made again under the same parent, with the
  // same name and index, is the usual way of saving a list anew. Its old
  // element comes back empty to every lookup, and its old children are
  // taken up, in order, by writes of the same key or section: an
  // unchanged list then costs no new elements, which are dear in this
  // DOM. The first write that differs drops the old children left, and so
  // does anything that walks the tree, so what is stored is always what a
  // new section would hold.
  Dom * ReviveRemoved(Dom * parent, std::u16string_view name, int number, bool indexed);
  void StartRewrite(Dom * section);
  // The old child a write can take up in place, or null.
  Dom * TakeOldChild(Dom * section, bool key, std::u16string_view name, int number, bool indexed);
  void DropOldChildren() const;
  // The one last removed section, for ReviveRemoved.
  struct Removed {
    Dom * parent = nullptr;
    Dom * section = nullptr;
  };
  Dom * FindKeyElement(Dom * section, std::u16string_view name);
  Dom * FindSectionElement(Dom * section, std::u16string_view name, int index);
  std::vector<Dom *> SectionElements(Dom * section, std::u16string_view name);

  std::string mPath;
  XmlDocumentPtr mDocument;
  std::unordered_map<Dom const *, ChildIndex> mIndexes;
  std::unordered_set<std::u16string> mNames;
  Removed mRemoved;
  // Sections being written anew: the first of their old children not yet
  // taken up. Dropped by const walks of the tree too.
  mutable std::unordered_map<Dom *, xercesc::DOMNode *> mOldChildren;
};

}  // namespace vx3
