#pragma once
// What the HTML view asks of the WebKit widget under wxWebView beyond wx's
// interface: page scripts off, the widget's own key and menu signals, the
// end of its web process, and saving a page as MHTML. The WebKit functions
// are looked up in the WebKit library that wx's web view already loaded.
// Part of the browser library (TALVOhtmlbrowser), not of TALVOutlwin.

#include <string>

#include "html/HtmlBrowser.h"

class wxWebView;

namespace WebKitBrowser {

// Chooses how WebKit draws, before its first view or context exists (each
// entry point of the browser library calls it first). Without a GPU render
// node WebKit's GL compositing runs on the software rasteriser, where every
// animated frame costs the web process a core: the overlay scroll bars
// alone, shown on each load and faded out seconds later, took half a core
// for three seconds a page. The views show documents that gain nothing from
// compositing, so they draw directly then. A choice the user made stays.
void ChooseRendering();

// Switches scripts in pages off (RunScript still runs) and routes the
// widget's signals to `events` until Disconnect.
void Attach(wxWebView & browser, HtmlBrowserEvents * events);
void Disconnect(wxWebView & browser, HtmlBrowserEvents * events);

// Saves the loaded page as MHTML to `path` (written beside it and renamed
// over it), waiting for WebKit in a nested loop. False with the reason in
// `error`.
bool SaveAsMhtml(wxWebView & browser, std::string const & path, std::string & error);

// Ends the browser's web process, as a crash would.
bool TerminateWebProcess(wxWebView & browser);

}  // namespace WebKitBrowser
