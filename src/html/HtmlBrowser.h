#pragma once
// The browser under an HTML view, as the view sees it. It lives in its own
// library (TALVOhtmlbrowser: wx's web view on WebKitGTK), which the view
// loads on first use (html/HtmlBrowserModule.h), so that an application
// that shows no HTML never loads WebKit and the many libraries it pulls in.
// Everything here is virtual or inline: the view links nothing of it.

#include <string>

#include <wx/gdicmn.h>
#include <wx/string.h>

class wxWebView;
class wxWindow;

// What the browser tells the view.
class HtmlBrowserEvents {
public:
  // The document (a page or about:blank) finished loading, or failed to.
  virtual void OnBrowserLoaded() = 0;
  // The browser is about to go to `url`; true stops it.
  virtual bool OnBrowserNavigating(wxString const & url) = 0;
  // A key pressed in the browser, before WebKit sees it: flags wxACCEL_*,
  // keyCode an upper-case letter, a digit or WXK_*. True ends the key.
  virtual bool OnBrowserKey(int flags, int keyCode) = 0;
  // WebKit is about to show its context menu (right click, Shift+F10, the
  // menu key); `keyboard` tells which. WebKit's own menu never shows.
  virtual void OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) = 0;
  // The web process ended; the page is gone.
  virtual void OnBrowserProcessGone() = 0;
  // The browser went to `url` (its document starts loading).
  virtual void OnBrowserNavigated(wxString const & /*url*/) {}

protected:
  ~HtmlBrowserEvents() = default;
};

class HtmlBrowser {
public:
  virtual ~HtmlBrowser() = default;

  // The browser window, a child of the parent given at creation.
  virtual wxWebView * GetWebView() const = 0;
  virtual wxWindow * GetWindow() const = 0;
  // No more events reach the view.
  virtual void Disconnect() = 0;

  virtual void LoadURL(wxString const & url) = 0;
  // Puts `html` in as a page without a base URL: the location reads
  // "about:blank".
  virtual void SetPage(wxString const & html) = 0;
  virtual bool RunScript(wxString const & script, wxString * result = nullptr) = 0;
  virtual wxString GetCurrentURL() const = 0;
  virtual wxString GetCurrentTitle() const = 0;
  virtual void Copy() = 0;
  virtual void Print() = 0;
  virtual void SelectAll() = 0;
  // Finds `text` (empty: takes the highlights away), wrapping and
  // highlighting; the matches found, 0 or less for none.
  virtual long Find(wxString const & text, bool backwards) = 0;
  // History and loading, as the browser's own buttons do them.
  virtual void GoBack() = 0;
  virtual void GoForward() = 0;
  virtual bool CanGoBack() const = 0;
  virtual bool CanGoForward() const = 0;
  virtual void Reload() = 0;
  virtual void Stop() = 0;
  virtual bool IsBusy() const = 0;
  // Saves the loaded page as MHTML to `path` (written beside it and renamed
  // over it). False with the reason in `error`.
  virtual bool SaveAsMhtml(std::string const & path, std::string & error) = 0;
};

// Serves the addresses of a scheme of the application's own to every
// browser of the process. Called on the GUI thread.
class UriSchemeServer {
public:
  // The bytes and MIME type for `uri`; false with a reason in `error` when
  // there is nothing to serve (the browser shows its error page).
  virtual bool Serve(std::string const & uri, std::string & bytes, std::string & mimeType,
                     std::string & error) = 0;

protected:
  ~UriSchemeServer() = default;
};

// Registers `server` for `scheme` once a process (a second call for the
// same scheme is refused). The server must live as long as the process.
using UriSchemeRegistrar = bool (*)(char const * scheme, UriSchemeServer * server);
constexpr char const * kUriSchemeEntryPoint = "TalvoRegisterUriScheme";

// The browser library's entry point: a new browser in `parent` showing
// about:blank, or null when no browser can be made.
using HtmlBrowserFactory = HtmlBrowser * (*)(wxWindow * parent, HtmlBrowserEvents * events);
constexpr char const * kHtmlBrowserEntryPoint = "TalvoCreateHtmlBrowser";
constexpr char const * kHtmlBrowserLibraryFileName = "libTALVOhtmlbrowser.so";
