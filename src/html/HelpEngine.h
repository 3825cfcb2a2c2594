#pragma once
// The engine that shows compiled help: what VxHtmlHelp asks of it, one
// request at a time, with the command numbers of the help engine of Windows
// (its HtmlHelp entry) so that callers and recorded requests keep them.
//
// One engine serves the whole process and can be replaced: tests install a
// recording engine, and the help viewer installs the one that shows topics.
// Until a viewer is installed the default engine answers every request with
// false and a log line, and says it is not available, so that Help buttons
// can be disabled.

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "html/ContextHelpTable.h"

class wxWindow;

// Command numbers of the help engine (HH_*).
enum class HelpCommand : unsigned {
  DisplayTopic = 0,          // HH_DISPLAY_TOPIC: the topic the path names
  DisplayToc = 1,            // HH_DISPLAY_TOC: the file's default topic and contents
  DisplayIndex = 2,          // HH_DISPLAY_INDEX
  DisplaySearch = 3,         // HH_DISPLAY_SEARCH
  HelpContext = 15,          // HH_HELP_CONTEXT: a numeric topic identifier
  TextPopupForControl = 17,  // HH_TP_HELP_WM_HELP: pop-up help for a control
  CloseAll = 18,             // HH_CLOSE_ALL
};

// The full-text search query that goes with DisplaySearch (HH_FTS_QUERY);
// VxHtmlHelp sends it zeroed but for its size.
struct FullTextSearchQuery {
  int32_t size = 0;  // cbStruct: sizeof of the record
  int32_t unicodeStrings = 0;
  wchar_t const * searchQuery = nullptr;
  int32_t proximity = 0;
  int32_t stemmedSearch = 0;
  int32_t titleOnly = 0;
  int32_t execute = 0;
  wchar_t const * window = nullptr;
};
static_assert(sizeof(void *) != 8 || sizeof(FullTextSearchQuery) == 40,
              "the search record keeps the engine's 64-bit layout");

// The value of a request: a number (0 when the command takes none), a search query or the
// control-to-topic table of a dialog.
using HelpValue = std::variant<int, FullTextSearchQuery, ContextHelpTable>;

struct HelpRequest {
  wxWindow * window = nullptr;  // the window the help is for; may be null
  std::wstring path;            // "file.chm", "file.chm>window", "file.chm::/topic.txt"
  HelpCommand command = HelpCommand::DisplayTopic;
  HelpValue value;
};

class HelpEngine {
public:
  virtual ~HelpEngine() = default;

  // Whether requests can show anything at all.
  virtual bool IsAvailable() const = 0;

  // Carries out `request`; false when nothing was shown.
  virtual bool Execute(HelpRequest const & request) = 0;
};

// Installs `engine` as the process's engine (null reinstalls the default)
// and returns the one it replaces.
std::unique_ptr<HelpEngine> VxSetHelpEngine(std::unique_ptr<HelpEngine> engine);

// The process's engine; never null.
HelpEngine & VxGetHelpEngine();
