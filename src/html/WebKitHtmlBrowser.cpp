// The browser of the HTML views on wx's web view (WebKitGTK), and the entry
// point of the browser library (html/HtmlBrowser.h).

#include <wx/webview.h>

#include "html/HtmlBrowser.h"
#include "html/WebKitBrowser.h"

namespace {

class WebKitHtmlBrowser : public HtmlBrowser {
public:
  WebKitHtmlBrowser(wxWebView * view, HtmlBrowserEvents * events) : mView(view), mEvents(events) {
    WebKitBrowser::Attach(*mView, mEvents);
    mView->EnableContextMenu(true);  // the signal is where the view answers
    mView->Bind(wxEVT_WEBVIEW_LOADED, &WebKitHtmlBrowser::OnLoaded, this);
    mView->Bind(wxEVT_WEBVIEW_ERROR, &WebKitHtmlBrowser::OnLoaded, this);
    mView->Bind(wxEVT_WEBVIEW_NAVIGATING, &WebKitHtmlBrowser::OnNavigating, this);
    mView->Bind(wxEVT_WEBVIEW_NAVIGATED, &WebKitHtmlBrowser::OnNavigated, this);
  }

  WebKitHtmlBrowser(WebKitHtmlBrowser const &) = delete;
  WebKitHtmlBrowser & operator=(WebKitHtmlBrowser const &) = delete;
  ~WebKitHtmlBrowser() override { Disconnect(); }

  wxWebView * GetWebView() const override { return mView; }
  wxWindow * GetWindow() const override { return mView; }

  void Disconnect() override {
    if (mEvents == nullptr) return;
    WebKitBrowser::Disconnect(*mView, mEvents);
    mView->Unbind(wxEVT_WEBVIEW_LOADED, &WebKitHtmlBrowser::OnLoaded, this);
    mView->Unbind(wxEVT_WEBVIEW_ERROR, &WebKitHtmlBrowser::OnLoaded, this);
    mView->Unbind(wxEVT_WEBVIEW_NAVIGATING, &WebKitHtmlBrowser::OnNavigating, this);
    mView->Unbind(wxEVT_WEBVIEW_NAVIGATED, &WebKitHtmlBrowser::OnNavigated, this);
    mEvents = nullptr;
  }

  void LoadURL(wxString const & url) override { mView->LoadURL(url); }
  void SetPage(wxString const & html) override { mView->SetPage(html, wxString()); }
  bool RunScript(wxString const & script, wxString * result = nullptr) override {
    return mView->RunScript(script, result);
  }
  wxString GetCurrentURL() const override { return mView->GetCurrentURL(); }
  wxString GetCurrentTitle() const override { return mView->GetCurrentTitle(); }
  void Copy() override { mView->Copy(); }
  void Print() override { mView->Print(); }
  void SelectAll() override { mView->SelectAll(); }

  long Find(wxString const & text, bool backwards) override {
    if (text.empty()) return mView->Find(wxString());
    int flags = wxWEBVIEW_FIND_WRAP | wxWEBVIEW_FIND_HIGHLIGHT_RESULT;
    if (backwards) flags |= wxWEBVIEW_FIND_BACKWARDS;
    return mView->Find(text, flags);
  }

  void GoBack() override { mView->GoBack(); }
  void GoForward() override { mView->GoForward(); }
  bool CanGoBack() const override {
    // The blank document every browser starts with is no page to go back to.
    for (auto const & item : mView->GetBackwardHistory())
      if (item->GetUrl() != "about:blank") return true;
    return false;
  }
  bool CanGoForward() const override { return mView->CanGoForward(); }
  void Reload() override { mView->Reload(); }
  void Stop() override { mView->Stop(); }
  bool IsBusy() const override { return mView->IsBusy(); }

  bool SaveAsMhtml(std::string const & path, std::string & error) override {
    return WebKitBrowser::SaveAsMhtml(*mView, path, error);
  }

private:
  void OnLoaded(wxWebViewEvent & event) {
    event.Skip();
    if (mEvents != nullptr) mEvents->OnBrowserLoaded();
  }
  void OnNavigating(wxWebViewEvent & event) {
    event.Skip();
    if (mEvents != nullptr && mEvents->OnBrowserNavigating(event.GetURL())) event.Veto();
  }

  void OnNavigated(wxWebViewEvent & event) {
    event.Skip();
    if (mEvents != nullptr) mEvents->OnBrowserNavigated(event.GetURL());
  }

  wxWebView * mView;
  HtmlBrowserEvents * mEvents;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) HtmlBrowser * TalvoCreateHtmlBrowser(
    wxWindow * parent, HtmlBrowserEvents * events) {
  WebKitBrowser::ChooseRendering();
  wxWebView * view = wxWebView::New(parent, wxID_ANY, "about:blank");
  if (view == nullptr) return nullptr;
  return new WebKitHtmlBrowser(view, events);
}
