#pragma once
// Helpers of the user-interface code.

#include <string>
#include <vector>

#include <wx/string.h>

class wxMDIChildFrame;
class wxMenu;
class wxWindow;

namespace GUIUtilities {

// The bytes of text resource `id` (type 23: XML defaults, CSS, XSL, HTML
// pages) found through the resource chain, starting at the current resource
// module; empty when no module has it.
std::string ReadResource(unsigned int id);

// The MDI child windows of the main window, when it is an MDI parent frame
// (else none), in the order of its client window; with `visibleOnly` the
// hidden ones are passed over (GTK's tabbed MDI shows only the front tab's
// child). `out` may be null. Returns the count.
int GetMDIChildWnds(std::vector<wxMDIChildFrame *> * out, bool visibleOnly);

// Lets `target`'s update handlers set every item of `menu` (enable, check,
// text), as opening the menu would. A sub-menu's own item follows the
// answer for its first item; separators are passed over.
void EnableMenu(wxWindow * target, wxMenu * menu);

// The part of `text` before its first line feed, or with `afterLineFeed`
// the part behind it; all of it when it has none. Command strings keep a
// long and a short text this way.
wxString TextPart(wxString const & text, bool afterLineFeed);
// TextPart of string resource `id`; empty when no module has it.
wxString LoadStringPart(unsigned int id, bool afterLineFeed);

}  // namespace GUIUtilities
