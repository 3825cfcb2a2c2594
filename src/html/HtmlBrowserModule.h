#pragma once
// Loads the browser library of the HTML views (html/HtmlBrowser.h) on first
// use: from the folder of the library that holds this code (the build tree
// and an installation keep them together), else from the loader's search
// path. It stays loaded: WebKit cannot be unloaded.

#include <string>

#include "html/HtmlBrowser.h"

// The factory of the browser library; null when it cannot be loaded, with
// the reason in `error` (the first failure is kept and given again).
HtmlBrowserFactory GetHtmlBrowserFactory(std::string & error);

// The browser library's registrar of URI schemes (loading the library if
// need be); null when it cannot be loaded, with the reason in `error`.
UriSchemeRegistrar GetUriSchemeRegistrar(std::string & error);

// Whether the browser library is loaded (a process that showed no HTML view
// has not loaded it).
bool IsHtmlBrowserLoaded();
