#pragma once
// The document behind XercesXMLSection: one tree shared by every section
// object made from one another. Internal to TALVOutl; see
// XercesXMLSection.h for the grammar.
//
// This is the interface only. The document is built on Xerces-C, which
// lives in the XML module (XmlModule.h) so that a process that never
// touches XML never loads Xerces and the many libraries it pulls in. The
// factories below load that module on first use and throw Exception when
// it cannot be loaded.
//
// Elements are opaque handles, valid as long as the document. Of two
// elements with the same key name, or the same section name and index
// (possible only in hand-edited files), the first one is seen; both are
// written back. Lookups stay O(1) in large sections (the module indexes
// them), so nothing is quadratic.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A section or key element of a document (opaque outside the XML module).
class XmlSectionElement;

namespace vx3 {

class XmlSettingsDocument {
public:
  using Element = XmlSectionElement;

  static char const * RootName() { return "Settings"; }

  // An empty tree with no file.
  static std::shared_ptr<XmlSettingsDocument> Create();
  // The tree of the file at `path`; a missing file is an empty tree when
  // `missingIsEmpty`, else an Exception. Any other failure throws.
  static std::shared_ptr<XmlSettingsDocument> Open(std::string const & path, bool missingIsEmpty);
  // The tree of a complete document in `xml`, with no file.
  static std::shared_ptr<XmlSettingsDocument> FromString(std::string_view xml);

  virtual ~XmlSettingsDocument() = default;

  virtual std::string const & Path() const = 0;
  virtual Element * Root() const = 0;

  // The section that holds `section`; null for the root and for a section
  // that was removed from the tree.
  virtual Element * Parent(Element * section) const = 0;

  virtual Element * FindKey(Element * section, std::u16string_view name) = 0;
  virtual Element * FindSection(Element * section, std::u16string_view name, int index) = 0;
  // Finds or appends the child; `indexed` writes the index attribute.
  virtual Element * ProvideSection(Element * section, std::u16string_view name, int index,
                                   bool indexed) = 0;
  // The children of that name in index order, and how many there are.
  virtual std::vector<Element *> Sections(Element * section, std::u16string_view name) = 0;
  virtual int CountSections(Element * section, std::u16string_view name) = 0;
  // Every key and every section directly below `section`, in document order.
  virtual std::vector<Element *> ChildKeys(Element * section) const = 0;
  virtual std::vector<Element *> ChildSections(Element * section) const = 0;

  virtual std::u16string_view NameOf(Element const * element) const = 0;
  // The index of a section element: its attribute, 1 without one; false for
  // an attribute that is no number.
  virtual bool IndexOf(Element const * element, int & index) const = 0;
  virtual bool IsIndexed(Element const * element) const = 0;
  virtual std::u16string KeyValue(Element const * key) const = 0;

  virtual void SetKey(Element * section, std::u16string_view name, std::u16string_view value) = 0;
  virtual bool RemoveKey(Element * section, std::u16string_view name) = 0;
  // Removes `child` from its section and returns that section.
  virtual Element * RemoveSection(Element * child) = 0;
  virtual bool HasChildren(Element * section) const = 0;

  // The whole document as text, and written to Path() atomically. Flush
  // throws Exception; without a path it does nothing and returns false.
  virtual std::string Serialize() const = 0;
  virtual bool Flush() const = 0;
};

}  // namespace vx3
