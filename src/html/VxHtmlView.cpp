#include "html/VxHtmlView.h"

#include <boost/locale/encoding_utf.hpp>

#include <wx/menu.h>
#include <wx/sizer.h>

#include "controls/DisplayContextMenu.h"
#include "controls/GUIUtilities.h"
#include "html/AppLink.h"
#include "html/HtmlBrowserModule.h"
#include "html/HtmlFindBar.h"
#include "html/HtmlPageText.h"
#include "html/HtmlSaveChooser.h"
#include "html/HtmlStyleExtraction.h"
#include "html/IHTMLDocumentUtilities.h"
#include "platform/MenuCommandIds.h"
#include "platform/MessageBoxes.h"
#include "platform/ResourceMenus.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Translation.h"

namespace {

// The menu commands that are browser commands: copy and print.
struct DHtmlCommand {
  unsigned int command;
  unsigned int browserCommand;
  unsigned int value;
};
constexpr DHtmlCommand kCommands[] = {
    {VxHtmlView::kEditCopy, 15, 0},
    {VxHtmlView::kFilePrint, 27, 0},
    {0, 0, 0},
};

constexpr char const * kBlank = "about:blank";

wxString Widened(std::string const & utf8) { return wxString::FromUTF8(utf8.data(), utf8.size()); }

// A JavaScript string literal of `text`.
wxString ScriptString(wxString const & text) {
  wxString out = "\"";
  for (wxUniChar const c : text) {
    switch (static_cast<wxUint32>(c.GetValue())) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case 0x2028: out += "\\u2028"; break;
      case 0x2029: out += "\\u2029"; break;
      default:
        if (c.GetValue() < 0x20)
          out += wxString::Format("\\u%04x", static_cast<unsigned>(c.GetValue()));
        else
          out += c;
    }
  }
  return out + "\"";
}

}  // namespace

wxIMPLEMENT_DYNAMIC_CLASS(VxHtmlView, wxWindow);

VxHtmlView::VxHtmlView() {
  LoadResourceAccelerators(kAcceleratorTable, mAccelerators);
  mDocumentStyle.SetChangeHandler([this] { PutStyleIntoPage(); });
}

VxHtmlView::VxHtmlView(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                       long style)
    : VxHtmlView() {
  Create(parent, id, pos, size, style);
}

VxHtmlView::~VxHtmlView() {
  if (mBrowser) mBrowser->Disconnect();
}

bool VxHtmlView::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                        long style) {
  if (!wxWindow::Create(parent, id, pos, size, style | wxWANTS_CHARS)) return false;
  CreateBrowser();
  return true;
}

void VxHtmlView::CreateBrowser() {
  std::string error;
  HtmlBrowserFactory const factory = GetHtmlBrowserFactory(error);
  if (factory == nullptr) {
    Log::WriteMessage("VxHtmlView", "CreateBrowser", "No browser: " + error, Log::Error, false);
    return;
  }
  mBrowser.reset(factory(this, this));
  if (!mBrowser) return;
  mState = PageState::Loading;
  mFindBar = new HtmlFindBar(this, mBrowser.get());
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mBrowser->GetWindow(), 1, wxEXPAND);
  sizer->Add(mFindBar, 0, wxEXPAND);
  SetSizer(sizer);
  Bind(wxEVT_MENU, &VxHtmlView::OnMenuCommand, this);
  Bind(wxEVT_CONTEXT_MENU, &VxHtmlView::OnContextMenu, this);
}

void VxHtmlView::SetHTML(wchar_t const * html, wchar_t const * css) {
  mHtml = html != nullptr ? html : L"";
  mCss = css != nullptr ? css : L"";
  mWholePage.clear();
  if (mCss.empty()) mCss = ExtractStyleFromHtml(mHtml.ToStdWstring());
  mPending = true;
  switch (mState) {
    case PageState::Ready: PrivateSetHTML(); break;
    case PageState::ProcessGone:
      // A new web process starts with the next load.
      mState = PageState::Loading;
      mBrowser->LoadURL(kBlank);
      break;
    case PageState::Loading:
    case PageState::NoBrowser: break;
  }
}

void VxHtmlView::SetHTML(wchar_t const * html, unsigned int cssResource) {
  std::wstring const css = Widened(GUIUtilities::ReadResource(cssResource)).ToStdWstring();
  SetHTML(html, css.c_str());
}

void VxHtmlView::SetHTML(unsigned int htmlResource, unsigned int cssResource) {
  wxString const html = Widened(GUIUtilities::ReadResource(htmlResource));
  if (cssResource != static_cast<unsigned int>(-1)) {
    SetHTML(html.wc_str(), cssResource);
    return;
  }
  SetHTML(html.wc_str(), nullptr);
  mWholePage = html;  // shown as it is; its style is the model's
}

void VxHtmlView::PrivateSetHTML() {
  if (!mBrowser) return;
  mComposing = true;
  if (!mCss.empty()) IHTMLDocumentUtilities::SetCSSText(&mDocumentStyle, mCss);
  mComposing = false;
  wxString page;
  if (!mWholePage.empty()) {
    page.swap(mWholePage);
  } else {
    wxString css;
    IHTMLDocumentUtilities::GetCSSText(&mDocumentStyle, &css);
    page = ComposeHtmlPage(mHtml, css);
  }
  mHtml.clear();
  mCss.clear();
  mPending = false;
  mState = PageState::Loading;
  mBrowser->SetPage(page);
}

void VxHtmlView::PutStyleIntoPage() {
  if (mComposing || !mBrowser || mState != PageState::Ready) return;
  wxString css;
  IHTMLDocumentUtilities::GetCSSText(&mDocumentStyle, &css);
  mBrowser->RunScript(
      "(document.querySelector('style') ||"
      " document.head.appendChild(document.createElement('style'))).textContent = " +
      ScriptString(css) + ";");
}

void VxHtmlView::OnBrowserLoaded() {
  if (mState != PageState::Loading) return;
  mState = PageState::Ready;
  if (mPending) PrivateSetHTML();
}

bool VxHtmlView::OnBrowserNavigating(wxString const & url) {
  wxString name;
  if (!ParseAppLink(url.utf8_string(), name)) return false;
  OnAppCmd(name.wc_str());
  return true;
}

void VxHtmlView::SetCmdMap(CommandMap const & commands, wxWindow * target) {
  mCommands = commands;
  mTarget = target;
}

void VxHtmlView::OnAppCmd(wchar_t const * name) { QueueAppCommand(mCommands, name, mTarget); }

bool VxHtmlView::IsIEWindow(wxWindow const * window) {
  // Before the browser library is loaded no window can be a browser; once
  // it is, wx knows the browser's class by name.
  if (window == nullptr || !IsHtmlBrowserLoaded()) return false;
  wxClassInfo const * browserClass = wxClassInfo::FindClass("wxWebView");
  return browserClass != nullptr && window->IsKindOf(browserClass);
}

unsigned int VxHtmlView::GetDHtmlCommandMapping(unsigned int id, int & mapped,
                                                unsigned int & value) const {
  for (DHtmlCommand const * entry = kCommands; entry->browserCommand != 0; ++entry) {
    if (entry->command != id) continue;
    value = entry->value;
    mapped = entry->value != 0 ? 1 : 0;
    return entry->browserCommand;
  }
  return static_cast<unsigned int>(-1);
}

int VxHtmlView::ExecHandler(unsigned int id) {
  int mapped = 0;
  unsigned int value = 0;
  unsigned int const command = GetDHtmlCommandMapping(id, mapped, value);
  if (command == static_cast<unsigned int>(-1) || !mBrowser) return 0;
  if (command == 15) mBrowser->Copy();
  if (command == 27) mBrowser->Print();
  return 1;
}

void VxHtmlView::OnEditSelectAll() {
  if (mBrowser) mBrowser->SelectAll();
}

void VxHtmlView::OnEditFind() {
  if (!mBrowser) return;
  mBrowser->GetWindow()->SetFocus();
  mFindBar->Open();
}

void VxHtmlView::SendCommand(unsigned int command) {
  wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
  event.SetEventObject(this);
  ProcessWindowEvent(event);
}

void VxHtmlView::OnMenuCommand(wxCommandEvent & event) {
  unsigned int const command = static_cast<unsigned int>(CommandFromMenuItemId(event.GetId()));
  switch (command) {
    case kEditSelectAll: OnEditSelectAll(); return;
    case kFileSaveAs: OnFileSaveAs(); return;
    case kEditFind: OnEditFind(); return;
    default:
      if (ExecHandler(command) == 0) event.Skip();
  }
}

void VxHtmlView::OnContextMenu(wxContextMenuEvent & event) {
  if (mPopupMenu == kNoPopupMenu) return;
  wxPoint point = event.GetPosition();
  if (point == wxDefaultPosition) point = ClientToScreen(wxPoint(0, 0));
  DisplayContextMenu(this, mPopupMenu, point);
}

void VxHtmlView::DisplayContextMenu(wxWindow * wnd, unsigned int menu, wxPoint point) {
  std::unique_ptr<wxMenu> popup = LoadResourcePopupMenu(menu);
  if (popup) GUI::DisplayContextMenu(wnd, *popup, point, false, this);
}

bool VxHtmlView::OnBrowserKey(int flags, int keyCode) {
  if (unsigned int const command = FindAccelerator(mAccelerators, flags, keyCode)) {
    SendCommand(command);
    return true;
  }
  if (flags != wxACCEL_CTRL) return false;
  switch (keyCode) {
    case 'A': OnEditSelectAll(); return true;
    case 'C': SendCommand(kEditCopy); return true;
    case 'F': OnEditFind(); return true;
    case 'P': SendCommand(kFilePrint); return true;
    case 'S': OnFileSaveAs(); return true;
    default: return false;
  }
}

void VxHtmlView::OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) {
  if (mPopupMenu == kNoPopupMenu) return;
  // Keyboard: the browser's top left corner, which screenPoint is then.
  (void)keyboard;
  DisplayContextMenu(this, mPopupMenu, screenPoint);
}

void VxHtmlView::OnBrowserProcessGone() { mState = PageState::ProcessGone; }

void VxHtmlView::OnFileSaveAs() {
  if (!mBrowser) return;
  if (mBrowser->GetCurrentURL() != kBlank)
    SaveUrlPage();
  else
    SaveOwnPage();
}

void VxHtmlView::SaveOwnPage() {
  HtmlSaveRequest request;
  request.parent = this;
  request.fileName = LoadResourceString(kSaveAsFileName);
  request.defaultExtension = "htm";
  request.filter = vx3::Tr("Web page (*.htm, *.html) |*.htm;*.html|All files (*.*)|*.*|");
  HtmlSaveAnswer const answer = ChooseHtmlSaveFile(request);
  if (!answer.accepted) return;
  wxString body;
  mBrowser->RunScript("document.body.outerHTML", &body);
  wxString css;
  IHTMLDocumentUtilities::GetCSSText(&mDocumentStyle, &css);
  try {
    vx3::WriteFileAtomically(answer.path.utf8_string(), ComposeSavedPage(answer.title, css, body));
  } catch (Exception const & error) {
    AfxMessageBox(Widened(error.Why()), MB_OK | MB_ICONEXCLAMATION);
  }
}

void VxHtmlView::SaveUrlPage() {
  HtmlSaveRequest request;
  request.parent = this;
  request.fileName = mBrowser->GetCurrentTitle();
  request.defaultExtension = "mht";
  request.filter = vx3::Tr("Web archive (*.mht)|*.mht|All files (*.*)|*.*|");
  HtmlSaveAnswer const answer = ChooseHtmlSaveFile(request);
  if (!answer.accepted) return;
  std::string error;
  if (!mBrowser->SaveAsMhtml(answer.path.utf8_string(), error))
    AfxMessageBox(vx3::Tr("The page could not be saved.") + "\n" + Widened(error),
                  MB_OK | MB_ICONEXCLAMATION);
}
