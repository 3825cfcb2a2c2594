#pragma once
// Links of the form "app:name" by which a page asks the application for a
// command. The browser hands them over lower-cased in the scheme and with
// every byte beyond ASCII percent-encoded ("App:Ünï" arrives as
// "app:%C3%9Cn%C3%AF"), so the name is decoded before it is looked up.

#include <map>
#include <string_view>

#include <wx/string.h>

class wxWindow;

// The commands that the names of "app:" links stand for.
using AppCommandMap = std::map<wxString, unsigned int>;

// True when `url` starts with "app:" in any case; `name` then gets the rest,
// percent-decoded as UTF-8. A "%" without two hex digits stays as it is;
// decoded bytes that are no UTF-8 leave the name undecoded.
bool ParseAppLink(std::string_view url, wxString & name);

// Queues the menu command that `name` stands for (looked up with case) to
// `target`, or to the application's top window when there is none; an
// unknown name, or no window, does nothing.
void QueueAppCommand(AppCommandMap const & commands, wchar_t const * name, wxWindow * target);
