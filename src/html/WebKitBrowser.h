#pragma once
// What the HTML view asks of the WebKit widget under wxWebView beyond wx's
// interface: page scripts off, the widget's own key and menu signals, the
// end of its web process, and saving a page as MHTML. The WebKit functions
// are looked up in the WebKit library that wx's web view already loaded.

#include <string>

#include <wx/gdicmn.h>

class wxWebView;

class WebKitBrowserEvents {
public:
  // A key pressed in the browser, before WebKit sees it: flags wxACCEL_*,
  // keyCode an upper-case letter, a digit or WXK_*. True ends the key.
  virtual bool OnBrowserKey(int flags, int keyCode) = 0;
  // WebKit is about to show its context menu (right click, Shift+F10, the
  // menu key); `keyboard` tells which. WebKit's own menu never shows.
  virtual void OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) = 0;
  // The web process ended; the page is gone.
  virtual void OnBrowserProcessGone() = 0;

protected:
  ~WebKitBrowserEvents() = default;
};

namespace WebKitBrowser {

// Switches scripts in pages off (RunScript still runs) and routes the
// widget's signals to `events` until Disconnect.
void Attach(wxWebView & browser, WebKitBrowserEvents * events);
void Disconnect(wxWebView & browser, WebKitBrowserEvents * events);

// Saves the loaded page as MHTML to `path` (written beside it and renamed
// over it), waiting for WebKit in a nested loop. False with the reason in
// `error`.
bool SaveAsMhtml(wxWebView & browser, std::string const & path, std::string & error);

// Ends the browser's web process, as a crash would.
bool TerminateWebProcess(wxWebView & browser);

}  // namespace WebKitBrowser
