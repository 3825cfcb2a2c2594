#pragma once
// The XML module: everything of TALVOutl that is built on Xerces-C, in a
// shared module of its own (libTALVOxml.so) that is loaded on first use.
// Debian's Xerces-C pulls some twenty libraries into a process (libcurl
// and what it needs); linked directly, every process of the family would
// load and relocate them at start, and each of them would slow every later
// symbol lookup. Loaded with dlopen and RTLD_LOCAL, they are paid for only
// by processes that read or write XML, and stay out of the global symbol
// scope even then.
//
// The module is looked for beside libTALVOutl.so (the build tree and an
// installation keep the two together), then on the loader's search path.
// Internal to TALVOutl: callers use XercesXMLSection, XmlTree, AuditTrail.

#include <memory>
#include <string>
#include <string_view>

#include "utl/XmlTree.h"

namespace vx3 {

class XmlSettingsDocument;

class XmlModule {
public:
  virtual ~XmlModule() = default;

  // Initialises the parser (XercesRuntime.h); throws Exception when it
  // cannot start. Every other call does this itself.
  virtual void StartParser() = 0;

  // The factories of XmlSettingsDocument.
  virtual std::shared_ptr<XmlSettingsDocument> CreateSettings() = 0;
  virtual std::shared_ptr<XmlSettingsDocument> OpenSettings(std::string const & path,
                                                            bool missingIsEmpty) = 0;
  virtual std::shared_ptr<XmlSettingsDocument> ParseSettings(std::string_view xml) = 0;

  // See ParseXmlTree.
  virtual XmlTree ParseTree(std::string_view bytes, std::string const & source,
                            XmlParseLimits const & limits) = 0;
};

// The module's file name, and the name of the function it exports, which
// returns its XmlModule (`vx3::XmlModule * TalvoXmlModule()`, C linkage).
constexpr char kXmlModuleFileName[] = "libTALVOxml.so";
constexpr char kXmlModuleEntryPoint[] = "TalvoXmlModule";

// The module, loaded on the first call (from any thread; later calls wait
// for the first). Throws Exception naming the module and the loader's
// reason when it cannot be loaded; the next call tries again.
XmlModule & GetXmlModule();

// Loads the module from `path` (a file path, or a bare name for the
// loader's search) and returns it; throws like GetXmlModule. The module
// stays loaded to the end of the process.
XmlModule & LoadXmlModule(std::string const & path);

}  // namespace vx3
