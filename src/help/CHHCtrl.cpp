#include "help/CHHCtrl.h"

#include <cmath>

#include <wx/filename.h>
#include <wx/sizer.h>
#include <wx/toolbar.h>
#include <wx/webview.h>

#include "help/ChmAddress.h"
#include "help/ChmFileSearch.h"
#include "help/ChmScheme.h"
#include "help/ChmSystemStreams.h"
#include "html/AppLink.h"
#include "html/HtmlBrowserModule.h"
#include "platform/MessageBoxes.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

wxIMPLEMENT_DYNAMIC_CLASS(CHHCtrl, wxWindow);

namespace {

// Image `index` of a strip of `size`-pixel images, magenta transparent.
wxBitmap StripImage(wxBitmap const & strip, int index, int size) {
  if (!strip.IsOk() || strip.GetWidth() < (index + 1) * size) return wxBitmap(size, size);
  wxBitmap image =
      strip.GetSubBitmap(wxRect(index * size, 0, size, std::min(size, strip.GetHeight())));
  image.SetMask(new wxMask(image, wxColour(0xFF, 0x00, 0xFF)));
  return image;
}

void IgnoreFrame(wchar_t const * frame) {
  if (frame != nullptr && *frame != L'\0')
    Log::WriteMessage("CHHCtrl", "Navigate",
                      "Frame '" + vx3::WideToUtf8(frame) + "' ignored: pages open in the control",
                      Log::Routine, false);
}

void LogIgnored(char const * operation, std::string const & what) {
  Log::WriteMessage("CHHCtrl", operation, what + " ignored: the browser has no such choice",
                    Log::Routine, false);
}

}  // namespace

CHHCtrl::CHHCtrl() = default;

CHHCtrl::~CHHCtrl() {
  if (mBrowser) mBrowser->Disconnect();
  for (auto const & path : mServed) ChmScheme::Instance().Unregister(path);
}

bool CHHCtrl::Create(wxWindow * parent, wxRect const & rect, unsigned long id,
                     wchar_t const * chmFile, bool /*unused*/) {
  if (!wxWindow::Create(parent, static_cast<wxWindowID>(id), rect.GetPosition(), rect.GetSize()))
    return false;
  mToolBar = new wxToolBar(this, kToolBarId, wxDefaultPosition, wxDefaultSize,
                           wxTB_HORIZONTAL | wxTB_FLAT | wxTB_TEXT | wxTB_HORZ_LAYOUT);
  mToolBar->SetToolBitmapSize(wxSize(kButtonSize, kButtonSize));
  wxBitmap const images = LoadResourceBitmap(kToolBarBitmap);
  wxBitmap const greyed = LoadResourceBitmap(kToolBarHotBitmap);
  mToolBar->AddTool(kHome, vx3::Tr("Home"), StripImage(images, 0, kButtonSize),
                    StripImage(greyed, 0, kButtonSize), wxITEM_NORMAL, vx3::Tr("Home"));
  mToolBar->AddTool(kBack, wxString(), StripImage(images, 1, kButtonSize),
                    StripImage(greyed, 1, kButtonSize), wxITEM_NORMAL, vx3::Tr("Back"));
  mToolBar->AddTool(kForward, wxString(), StripImage(images, 2, kButtonSize),
                    StripImage(greyed, 2, kButtonSize), wxITEM_NORMAL, vx3::Tr("Forward"));
  mToolBar->Realize();
  mToolBar->Bind(wxEVT_TOOL, &CHHCtrl::OnToolBar, this);

  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mToolBar, 0, wxEXPAND);
  std::string error;
  HtmlBrowserFactory const factory = GetHtmlBrowserFactory(error);
  if (factory != nullptr && ChmScheme::Instance().InstallInBrowser()) {
    mBrowser.reset(factory(this, this));
    if (mBrowser) sizer->Add(mBrowser->GetWindow(), 1, wxEXPAND);
  } else {
    Log::WriteMessage("CHHCtrl", "Create", "No browser: " + error, Log::Error, false);
  }
  SetSizer(sizer);
  UpdateButtons();
  if (chmFile != nullptr && *chmFile != L'\0') SetChmFile(chmFile);
  return true;
}

bool CHHCtrl::ReplaceControl(wxWindow * parent, unsigned int id, unsigned long newId,
                             wchar_t const * chmFile, bool unused) {
  if (parent == nullptr) return false;
  wxWindow * placeholder = parent->FindWindow(static_cast<int>(id));
  if (placeholder == nullptr) return false;
  wxRect const place = placeholder->GetRect();
  placeholder->SetId(wxID_ANY);
  if (!Create(parent, place, newId, chmFile, unused)) {
    placeholder->SetId(static_cast<int>(id));
    return false;
  }
  if (wxSizer * sizer = placeholder->GetContainingSizer()) sizer->Replace(placeholder, this);
  MoveAfterInTabOrder(placeholder);
  placeholder->Destroy();
  return true;
}

bool CHHCtrl::FindChmFile(wchar_t const * name, std::wstring & result) {
  std::string found;
  if (name == nullptr || !::FindChmFile(vx3::WideToUtf8(name), found)) return false;
  result = vx3::Utf8ToWide(found);
  return true;
}

void CHHCtrl::Serve(std::string const & path) {
  if (mServed.insert(path).second) ChmScheme::Instance().Register(path);
}

bool CHHCtrl::SetChmFile(wchar_t const * name) {
  std::wstring found;
  if (!FindChmFile(name, found)) {
    wxString text = LoadResourceString(kNotFoundString);
    text.Replace("%1%", wxString(name != nullptr ? name : L""));
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    return false;
  }
  mChmFileWide = found;
  mChmFile = vx3::WideToUtf8(found);
  Serve(mChmFile);
  return true;
}

HRESULT CHHCtrl::NavigateChm(wchar_t const * topic, wchar_t const * frame) {
  if (mChmFile.empty()) return STG_E_FILENOTFOUND;
  std::string const address =
      MakeChmAddress(mChmFile, vx3::WideToUtf8(topic != nullptr ? topic : L""));
  return Navigate(wxString::FromUTF8(address), frame);
}

HRESULT CHHCtrl::NavigateChm(unsigned int helpId, wchar_t const * frame) {
  if (mChmFile.empty()) return STG_E_PATHNOTFOUND;
  std::string address;
  HRESULT const result = mHelpMap.Resolve(mChmFile, helpId, address);
  if (result != S_OK) return result;
  return Navigate(wxString::FromUTF8(address), frame);
}

void CHHCtrl::SetCmdMap(CommandMap const & commands, wxWindow * target) {
  mCommands = commands;
  mTarget = target;
}

HRESULT CHHCtrl::Navigate(wxString const & url, wchar_t const * frame) {
  IgnoreFrame(frame);
  if (!mBrowser) return E_FAIL;
  mReadyState = 1;
  mBrowser->LoadURL(url);
  return S_OK;
}

HRESULT CHHCtrl::Navigate2(wxString const & url, unsigned long flags, wchar_t const * frame,
                           wchar_t const * headers, void const * postData,
                           unsigned long postDataLength) {
  if (postData != nullptr && postDataLength > 0) {
    Log::WriteMessage("CHHCtrl", "Navigate2",
                      "Cannot post data to " + url.utf8_string() + ": the browser only loads",
                      Log::Error, false);
    return kNotImplemented;
  }
  if (flags != 0) LogIgnored("Navigate2", "Flags " + std::to_string(flags));
  if (headers != nullptr && *headers != L'\0')
    LogIgnored("Navigate2", "Headers '" + vx3::WideToUtf8(headers) + "'");
  return Navigate(url, frame);
}

HRESULT CHHCtrl::Navigate2(wxString const & url, unsigned long flags,
                           std::vector<unsigned char> const & postData, wchar_t const * frame,
                           wchar_t const * headers) {
  return Navigate2(url, flags, frame, headers, postData.data(),
                   static_cast<unsigned long>(postData.size()));
}

HRESULT CHHCtrl::Navigate2(wxFileName const & file, unsigned long flags, wchar_t const * frame) {
  if (!file.IsOk()) return E_INVALIDARG;
  return Navigate2(wxFileName::FileNameToURL(file), flags, frame);
}

HRESULT CHHCtrl::GoSearch() {
  Log::WriteMessage("CHHCtrl", "GoSearch", "The browser has no search page", Log::Notice, false);
  return kNotImplemented;
}

// The browser's members are called through its window's virtual table: the
// browser library that holds them is loaded at run time (html/HtmlBrowser.h).
// The sanitizer's check of such calls would need the browser's type
// information at link time, so it is off for the two callers.
#define TALVO_CALLS_LOADED_BROWSER __attribute__((no_sanitize("vptr")))

TALVO_CALLS_LOADED_BROWSER void CHHCtrl::Refresh(RefreshLevel level) {
  if (!mBrowser) return;
  mBrowser->GetWebView()->Reload(level == kRefreshCompletely ? wxWEBVIEW_RELOAD_NO_CACHE
                                                             : wxWEBVIEW_RELOAD_DEFAULT);
}

void CHHCtrl::Refresh2(int level) {
  Refresh(level == kRefreshCompletely ? kRefreshCompletely : kRefreshNormal);
}

// A help topic is read-only: of the editing commands only those on the
// selection are offered. WebKit answers "can copy" even with nothing
// selected, so the page itself is asked.
bool CHHCtrl::HasSelection() const {
  wxString answer;
  return mBrowser && mBrowser->RunScript("String(!window.getSelection().isCollapsed)", &answer) &&
         answer == "true";
}

int CHHCtrl::QueryStatusWB(int command) const {
  bool enabled = mBrowser != nullptr;
  switch (command) {
    case kCmdCopy:
    case kCmdClearSelection: enabled = enabled && HasSelection(); break;
    case kCmdStop: enabled = enabled && mBrowser->IsBusy(); break;
    case kCmdPrint:
    case kCmdSelectAll:
    case kCmdRefresh:
    case kCmdZoom: break;
    default: return 0;
  }
  return kCmdSupported | (enabled ? kCmdEnabled : 0);
}

TALVO_CALLS_LOADED_BROWSER HRESULT CHHCtrl::ExecWB(int command, int /*options*/,
                                                   wxVariant const * in, wxVariant * out) {
  int const status = QueryStatusWB(command);
  if ((status & kCmdSupported) == 0 || (status & kCmdEnabled) == 0) {
    Log::WriteMessage(
        "CHHCtrl", "ExecWB",
        "Command " + std::to_string(command) +
            ((status & kCmdSupported) == 0 ? " unknown to the browser" : " cannot run now"),
        Log::Notice, false);
    return (status & kCmdSupported) == 0 ? kCmdNotSupported : kCmdDisabled;
  }
  wxWebView * view = mBrowser->GetWebView();
  switch (command) {
    case kCmdPrint: view->Print(); break;
    case kCmdCopy: view->Copy(); break;
    case kCmdSelectAll: view->SelectAll(); break;
    case kCmdClearSelection: mBrowser->RunScript("window.getSelection().removeAllRanges()"); break;
    case kCmdRefresh: Refresh(kRefreshNormal); break;
    case kCmdStop: view->Stop(); break;
    case kCmdZoom:
      if (in != nullptr && !in->IsNull()) {
        long percent = 0;
        if (!in->Convert(&percent) || percent < 10 || percent > 1000) return E_INVALIDARG;
        view->SetZoomFactor(static_cast<float>(percent) / 100.0F);
      }
      if (out != nullptr) *out = std::lround(view->GetZoomFactor() * 100.0F);
      break;
    default: break;
  }
  return S_OK;
}

void CHHCtrl::PutProperty(wxString const & name, wxVariant const & value) {
  mProperties[name] = value;
}

bool CHHCtrl::GetProperty(wxString const & name, wxVariant & value) const {
  auto const found = mProperties.find(name);
  if (found == mProperties.end()) {
    value.MakeNull();
    return false;
  }
  value = found->second;
  return true;
}

wxVariant CHHCtrl::GetProperty(wxString const & name) const {
  wxVariant value;
  GetProperty(name, value);
  return value;
}

void CHHCtrl::GoBack() {
  if (mBrowser && mBrowser->CanGoBack()) mBrowser->GoBack();
}

void CHHCtrl::GoForward() {
  if (mBrowser && mBrowser->CanGoForward()) mBrowser->GoForward();
}

void CHHCtrl::GoHome() {
  if (mChmFile.empty()) return;
  ChmError error = ChmError::None;
  auto const archive = ChmArchive::Open(mChmFile, error);
  ChmSystemInfo info;
  if (archive && ReadChmSystem(*archive, info) == ChmError::None && !info.defaultTopic.empty())
    NavigateChm(vx3::Utf8ToWide(ChmTextToUtf8(info.defaultTopic)).c_str());
}

void CHHCtrl::Stop() {
  if (mBrowser) mBrowser->Stop();
}

wxString CHHCtrl::GetLocationURL() const {
  return mBrowser ? mBrowser->GetCurrentURL() : wxString();
}

wxString CHHCtrl::GetLocationName() const {
  return mBrowser ? mBrowser->GetCurrentTitle() : wxString();
}

bool CHHCtrl::GetBusy() const { return mBrowser && mBrowser->IsBusy(); }

void CHHCtrl::OnBeforeNavigate2(wxString const &, bool &) {}
void CHHCtrl::OnNavigateComplete2(wxString const &) {}
void CHHCtrl::OnDocumentComplete(wxString const &) {}
void CHHCtrl::OnCommandStateChange(long, int) {}
void CHHCtrl::OnDownloadBegin() {}
void CHHCtrl::OnDownloadComplete() {}

void CHHCtrl::OnCommand(unsigned long button) {
  switch (button) {
    case kHome: GoHome(); break;
    case kBack: GoBack(); break;
    case kForward: GoForward(); break;
    default: break;
  }
}

void CHHCtrl::OnAppCmd(wchar_t const * name) { QueueAppCommand(mCommands, name, mTarget); }

void CHHCtrl::OnToolBar(wxCommandEvent & event) {
  OnCommand(static_cast<unsigned long>(event.GetId()));
}

void CHHCtrl::UpdateButtons() {
  if (mToolBar == nullptr) return;
  bool const back = mBrowser && mBrowser->CanGoBack();
  bool const forward = mBrowser && mBrowser->CanGoForward();
  if (mToolBar->GetToolEnabled(kBack) != back) {
    mToolBar->EnableTool(kBack, back);
    OnCommandStateChange(kNavigateBack, back ? 1 : 0);
  }
  if (mToolBar->GetToolEnabled(kForward) != forward) {
    mToolBar->EnableTool(kForward, forward);
    OnCommandStateChange(kNavigateForward, forward ? 1 : 0);
  }
}

bool CHHCtrl::OpenForeignLink(wxString const & url) {
  std::string file;
  std::string topic;
  if (!ParseForeignChmLink(url.utf8_string(), file, topic)) return false;
  std::string const base = file.substr(file.find_last_of("/\\") + 1);
  std::string found;
  std::string const beside =
      mChmFile.empty() ? std::string() : VxPathAppend(VxGetDirectory(mChmFile), base);
  if (!beside.empty() && VxFileExist(beside)) {
    found = beside;
  } else if (!::FindChmFile(file, found)) {
    Log::WriteMessage("CHHCtrl", "OpenForeignLink", "Help file not found: " + file, Log::Notice,
                      false);
    return true;  // the link goes nowhere
  }
  Serve(found);
  if (mBrowser) {
    mReadyState = 1;
    mBrowser->LoadURL(wxString::FromUTF8(MakeChmAddress(found, topic)));
  }
  return true;
}

bool CHHCtrl::OnBrowserNavigating(wxString const & url) {
  wxString name;
  if (ParseAppLink(url.utf8_string(), name)) {
    OnAppCmd(name.wc_str());
    return true;
  }
  if (OpenForeignLink(url)) return true;
  bool cancel = false;
  OnBeforeNavigate2(url, cancel);
  if (!cancel) {
    mReadyState = 2;
    OnDownloadBegin();
  }
  return cancel;
}

void CHHCtrl::OnBrowserNavigated(wxString const & url) {
  mReadyState = 3;
  UpdateButtons();
  OnNavigateComplete2(url);
}

void CHHCtrl::OnBrowserLoaded() {
  mReadyState = 4;
  UpdateButtons();
  OnDownloadComplete();
  OnDocumentComplete(GetLocationURL());
}

void CHHCtrl::OnBrowserProcessGone() { mReadyState = 0; }
