#pragma once
// The document behind XercesXMLSection: one DOM shared by every section
// object made from one another, with an index of each large section's
// children. Internal to TALVOutl; see XercesXMLSection.h for the grammar.
//
// Lookups: a section with few children is searched in place; once a search
// passes more than kIndexThreshold elements, the section gets a hash index
// of its keys and of its sub-sections by name and then by index, built
// once and kept up to date by every change. So each lookup in a favourites
// file of 100,000 items is O(1) and nothing is quadratic; listing all
// sections of a name sorts them by index.
//
// Of two elements with the same key name, or the same section name and
// index (possible only in hand-edited files), the first one is seen; both
// are written back.

#include <xercesc/dom/DOMElement.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "utl/HardenedXmlParser.h"

namespace vx3 {

class XmlSettingsDocument {
public:
  using Element = xercesc::DOMElement;

  static char const * RootName() { return "Settings"; }

  // An empty tree with no file.
  XmlSettingsDocument();
  // The tree of the file at `path`; a missing file is an empty tree when
  // `missingIsEmpty`, else an Exception. Any other failure throws.
  XmlSettingsDocument(std::string path, bool missingIsEmpty);
  // The tree of a complete document in `xml`, with no file.
  static std::shared_ptr<XmlSettingsDocument> FromString(std::string_view xml);

  std::string const & Path() const { return mPath; }
  Element * Root() const { return mDocument->getDocumentElement(); }

  // The section that holds `section`; null for the root and for a section
  // that was removed from the tree.
  Element * Parent(Element * section) const;

  Element * FindKey(Element * section, std::u16string_view name);
  Element * FindSection(Element * section, std::u16string_view name, int index);
  // Finds or appends the child; `indexed` writes the index attribute.
  Element * ProvideSection(Element * section, std::u16string_view name, int index, bool indexed);
  // The children of that name in index order, and how many there are.
  std::vector<Element *> Sections(Element * section, std::u16string_view name);
  int CountSections(Element * section, std::u16string_view name);
  // Every key and every section directly below `section`, in document order.
  std::vector<Element *> ChildKeys(Element * section) const;
  std::vector<Element *> ChildSections(Element * section) const;

  static std::u16string_view NameOf(Element const * element);
  // The index of a section element: its attribute, 1 without one; false for
  // an attribute that is no number.
  static bool IndexOf(Element const * element, int & index);
  static bool IsIndexed(Element const * element);
  static std::u16string KeyValue(Element const * key);

  void SetKey(Element * section, std::u16string_view name, std::u16string_view value);
  bool RemoveKey(Element * section, std::u16string_view name);
  // Removes `child` from its section and returns that section.
  Element * RemoveSection(Element * child);
  bool HasChildren(Element * section) const;

  // The whole document as text, and written to Path() atomically. Flush
  // throws Exception; without a path it does nothing and returns false.
  std::string Serialize() const;
  bool Flush() const;

private:
  struct ChildIndex {
    std::unordered_map<std::u16string_view, Element *> keys;
    std::unordered_map<std::u16string_view, std::unordered_map<int, Element *>> sections;
    // A later element repeated a key name or a section name and index.
    bool hasDuplicates = false;
  };
  static constexpr int kIndexThreshold = 16;

  void Adopt(XmlDocumentPtr document);
  ChildIndex * IndexFor(Element * section);
  ChildIndex & BuildIndex(Element * section);
  void Forget(Element * section, Element * child);

  std::string mPath;
  XmlDocumentPtr mDocument;
  std::unordered_map<Element const *, ChildIndex> mIndexes;
};

}  // namespace vx3
