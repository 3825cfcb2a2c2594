#pragma once
// A topic's HTML as the help window hands it to its browser. The page is put
// in as text, with a base address of the form "help:/folder/" so that the
// browser resolves the topic's relative links to addresses the window
// recognises when they are followed, and shows them from the help file.

#include <string>

#include <wx/string.h>

// The page of topic `innerPath` ("/folder/a.htm") with its `html`.
wxString HelpTopicPage(std::string const & innerPath, std::string const & html);

// A page that says that `file` has no topic `innerPath`.
wxString HelpMissingTopicPage(std::string const & file, std::string const & innerPath);

// The inner path ("/folder/b.htm") of a followed link "help:/folder/b.htm#x",
// percent escapes decoded; false for any other address.
bool HelpTopicFromAddress(std::string const & address, std::string & innerPath);
