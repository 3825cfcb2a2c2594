#pragma once
// Three helpers of the backstage panes: copying a text to the clipboard with
// the user told when that fails, a number with the locale's thousands
// separators, and the panes' two fonts.

#include <cstdint>
#include <functional>

#include <wx/string.h>

class wxFont;
class wxWindow;

namespace BackstagePaneUtils {

// Puts `text` on the clipboard as text. When the clipboard cannot be
// opened, emptied or given the text, a message box titled "Copy text" says
// so (owned by `window`) and the result is false; nothing is left open.
bool CopyTextToClipboard(wxWindow * window, wchar_t const * text);

// `value` in decimal with the current locale's thousands separator after
// every third digit from the right ("-1,234,567"). At most `size` wide
// characters are written, the terminating zero included: a longer result is
// cut, never written past the buffer. Nothing is written to a null or empty
// buffer.
void InsertCommas(std::int64_t value, wchar_t * buffer, unsigned int size);

// The regular and the caption font of the panes: the first of the panes'
// faces that the system has, else the desktop's GUI font; the caption is
// the larger.
void InitFonts(wxFont & regular, wxFont & caption);

// The clipboard as CopyTextToClipboard reaches it. Each step reports
// whether it worked; tests put a busy clipboard here.
struct ClipboardAccess {
  std::function<bool()> open;
  std::function<bool()> empty;
  std::function<bool(wxString const &)> setText;
  std::function<void()> close;
};
// Installs `access` (an empty member: the system's step) and returns the
// former one.
ClipboardAccess SetClipboardAccess(ClipboardAccess access);

}  // namespace BackstagePaneUtils
