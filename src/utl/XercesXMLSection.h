#pragma once
// ConfigurationSection on an XML file, read and written with Xerces-C.
//
// The file (extension KarvinelXMLExtension(), "kvxml"; favourites exports
// use the same grammar under ".xml"), UTF-8:
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <Settings format="1">                       the root section
//     <Key name="AppName">Sample</Key>          a key: its text is the value
//     <Section name="AppSettings">              a section
//       <Key name="Window">0;0;800;600</Key>
//     </Section>
//     <Section name="Favourites">
//       <Key name="AppName">Sample</Key>
//       <Section name="FavouriteItem" index="1">   an indexed section
//         <Key name="Name">Report</Key>
//         <Key name="Type">FileItem</Key>
//         <Key name="File">/home/ann/report.kvd</Key>
//         <Key name="_IndentLevel">0</Key>
//       </Section>
//       <Section name="FavouriteItem" index="2">...</Section>
//     </Section>
//   </Settings>
//
//  - Section and key names are attributes, so any text can be a name.
//  - A section is known by its name and index; a section without an index
//    attribute has index 1, so ChangeSubSection("X") and
//    ChangeSubSection("X", 1) reach the same section, and HasSection("X", 1)
//    tests for an unindexed "X" too. NumSubSections and GetAllSubSections
//    see every section of that name, in index order.
//  - Keys and sections keep their order in the file; new ones are appended.
//    Other elements, comments and processing instructions are kept and
//    written back, and ignored otherwise. The format attribute is ignored
//    on reading.
//  - Values round-trip exactly, line ends included. Text that XML cannot
//    hold (control characters other than tab, line feed and carriage
//    return) is refused: WriteKey returns false and stores nothing.
//
// Xerces-C lives in the XML module (XmlModule.h), which the first section
// made loads; when it cannot be loaded, the constructors and
// CreateXMLSectionFromString throw Exception.
//
// Reading is hardened for files from elsewhere (see XmlTree.h):
// no document type, nesting at most 128 deep, at most 64 MB; each refused
// with an Exception naming the file and the line.
//
// Section objects made from one another (Copy, CreateSubSection, the
// CopyAndChange operations, GetAllSubSections) share one document: it lives
// as long as any of them, a change through one is seen by all, and Flush
// through any of them writes the whole document, atomically (AtomicFile.h).
// Sharing objects between threads needs the caller's lock. Two processes
// flushing one file: the last one wins, and the file is always whole.

#include <memory>
#include <string>
#include <vector>

#include "utl/ConfigurationSection.h"

namespace vx3 {
class XmlSettingsDocument;
}
// A section element of the shared document (opaque outside the library).
class XmlSectionElement;

class XercesXMLSection : public ConfigurationSection {
public:
  // An empty tree with no file: Flush writes nothing and returns false.
  XercesXMLSection();
  // The tree of the file at `path`. `createIfMissing`: a file that does not
  // exist is an empty tree and Flush creates it; without it, a missing file
  // throws. A file that cannot be read or parsed throws Exception naming the
  // file (and the line, for XML errors); the file is left as it is.
  XercesXMLSection(char const * path, bool createIfMissing);
  ~XercesXMLSection() override;

  // A tree parsed from a complete document in the file's grammar; the
  // caller owns it. It has no file. Throws Exception like the constructor.
  static XercesXMLSection * CreateXMLSectionFromString(char const * xml);
  // "kvxml", without the point.
  static char const * KarvinelXMLExtension();

  using ConfigurationSection::WriteKey;

  ConfigurationSection * Copy() const override;
  // Moves to the sibling `name` (unindexed), creating it if it is absent; on
  // the root section it does nothing.
  void ChangeSection(char const * name) override;
  bool ChangeSubSection(char const * name, int index) override;
  bool ChangeSubSection(char const * name) override;
  // Throw Exception for a name that XML cannot hold.
  ConfigurationSection * CreateSubSection(char const * name, int index) const override;
  ConfigurationSection * CreateSubSection(char const * name) const override;
  std::vector<boost::shared_ptr<ConfigurationSection>> * GetAllSubSections(
      char const * name) const override;
  int NumSubSections(char const * name) const override;
  bool SupportsSubSections() const override;
  bool DeleteKey(char const * name) override;
  // Removes this section and everything under it, and moves this object to
  // the section that held it. Other objects standing in the removed part
  // work on a detached copy that is never written. False on the root.
  bool DeleteSection() override;
  // Writes the whole document to the file; false (and a log line) when it
  // cannot be written, or when the tree has no file.
  bool Flush() const override;
  // True when the section holds no key and no section.
  bool IsEmpty() const override;
  bool HasSection(char const * name, int index) const override;
  bool HasKey(char const * name) const override;
  bool ReadKey(char const * name, std::wstring & value) const override;
  bool ReadKey(char const * name, std::string & value) const override;
  bool WriteKey(char const * name, wchar_t const * value) override;
  bool WriteKey(char const * name, char const * value) override;
  // Copies this section's keys, and its sections with theirs, into `target`
  // (any kind of section). Indexed sections stay indexed.
  bool WriteToSection(ConfigurationSection * target) const override;

  // The document as it would be written; the file path it is written to.
  std::string ToXmlString() const;
  std::string GetFileName() const;

private:
  XercesXMLSection(std::shared_ptr<vx3::XmlSettingsDocument> document, XmlSectionElement * element);

  std::shared_ptr<vx3::XmlSettingsDocument> mDocument;
  XmlSectionElement * mElement;
};
