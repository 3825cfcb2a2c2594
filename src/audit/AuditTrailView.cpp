#include "audit/AuditTrailView.h"

#include <unistd.h>

#include <boost/locale/encoding_utf.hpp>
#include <fstream>

#include <wx/menu.h>
#include <wx/sizer.h>

#include "audit/AuditTrailSettingsUI.h"
#include "audit/AuditTrailTransform.h"
#include "controls/GUIUtilities.h"
#include "controls/VxMenu.h"
#include "frame/KnownFolders.h"
#include "html/AppLink.h"
#include "html/HtmlBrowserModule.h"
#include "html/HtmlFindBar.h"
#include "platform/MenuCommandIds.h"
#include "platform/ResourceMenus.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "settings/LaunchURL.h"
#include "utl/AtomicFile.h"
#include "utl/AuditTrail.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

// The menu commands that are browser commands.
struct DHtmlCommand {
  unsigned int command;
  unsigned int browserCommand;
  unsigned int value;
};
constexpr DHtmlCommand kCommands[] = {
    {AuditTrailView::kEditCopy, 15, 0},
    {0, 0, 0},
};

constexpr unsigned int kHtmlResourceType = 23;
constexpr char kBlank[] = "about:blank";

std::string Utf8(wxString const & text) { return text.utf8_string(); }

bool Readable(wxString const & path) { return ::access(Utf8(path).c_str(), R_OK) == 0; }

std::string FolderOf(std::string const & path) {
  size_t const slash = path.find_last_of('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// The user's own layout: "audit_trail.xsl" in the application's per-user
// data folder, when there is an application name to find that by.
std::string UserStylesheet() {
  std::string const base = vx3::UserDataFolder();
  std::string const application = VxSystemInfo::GetApplicationName();
  if (base.empty() || application.empty()) return {};
  return base + "/Karvinel/" + application + "/" +
         VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath) + "/" +
         AuditTrail::GetXSLFileName();
}

bool ReadWhole(std::string const & path, std::string & text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

// A web or mail link, which the desktop's programs open.
bool IsOutsideLink(wxString const & url) {
  wxString const lower = url.Lower();
  return lower.StartsWith("http:") || lower.StartsWith("https:") || lower.StartsWith("mailto:");
}

}  // namespace

wxIMPLEMENT_DYNAMIC_CLASS(AuditTrailView, wxWindow);

AuditTrailView::AuditTrailView() {
  LoadResourceAccelerators(kAccelerators, mAccelerators);
  ConnectSignals();
}

AuditTrailView::AuditTrailView(wxWindow * parent, wxWindowID id, BrowserFactory factory)
    : AuditTrailView() {
  Create(parent, id, std::move(factory));
}

AuditTrailView::~AuditTrailView() {
  for (auto & connection : mConnections) connection.disconnect();
  if (mBrowser) mBrowser->Disconnect();
}

void AuditTrailView::ConnectSignals() {
  mConnections = {
      AuditTrail::msAuditTrailBeginSession.connect([this](AuditTrail * t) { OnBCBeginSession(t); }),
      AuditTrail::msAuditTrailEventAdded.connect([this](AuditTrail * t) { OnBCEventAdded(t); }),
      AuditTrail::msAuditTrailEndSession.connect([this](AuditTrail * t) { OnBCEndSession(t); }),
      AuditTrail::msAuditTrailProjectNameChanged.connect(
          [this](AuditTrail * t) { OnBCEventAdded(t); }),
      AuditTrail::msAuditTrailActiveAuditTrailChanged.connect(
          [this](AuditTrail * t) { OnBCAuditTrailChanged(t); }),
      AuditTrail::msAuditTrailDeleting.connect(
          [this](AuditTrail * t) { OnBCAuditTrailDestroyed(t); }),
  };
}

bool AuditTrailView::Create(wxWindow * parent, wxWindowID id, BrowserFactory factory) {
  if (!wxWindow::Create(parent, id, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS)) return false;
  if (!factory) {
    std::string error;
    HtmlBrowserFactory const library = GetHtmlBrowserFactory(error);
    if (library == nullptr)
      Log::WriteMessage("AuditTrailView", "Create", "No browser: " + error, Log::Error, false);
    else
      factory = library;
  }
  if (factory) mBrowser.reset(factory(this, this));
  // The browser starts on about:blank, which it is loading now.
  mBusy = mBrowser != nullptr;
  // The client is filled by the browser, the find bar under it when open.
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  if (mBrowser) {
    mFindBar = new HtmlFindBar(this, mBrowser.get());
    sizer->Add(mBrowser->GetWindow(), 1, wxEXPAND);
    sizer->Add(mFindBar, 0, wxEXPAND);
  }
  SetSizer(sizer);
  Bind(wxEVT_MENU, &AuditTrailView::OnMenuCommand, this);
  Bind(wxEVT_UPDATE_UI, &AuditTrailView::OnUpdateCommand, this);
  Bind(wxEVT_CONTEXT_MENU, &AuditTrailView::OnContextMenu, this);
  // The default page until a trail comes.
  if (!mPageLoaded) LoadFromString(mDefaultPage);
  return true;
}

void AuditTrailView::Init(wchar_t const * path, bool update) {
  if (path == nullptr) {
    mFilePath.clear();
    UpdatePair();
    return;
  }
  mOn = true;
  std::string const file = boost::locale::conv::utf_to_utf<char>(path);
  std::string const stylesheet = FolderOf(file) + AuditTrail::GetXSLFileName();
  std::string bytes;
  std::string const own = UserStylesheet();
  if (own.empty() || !ReadWhole(own, bytes)) {
    // An application's module may carry its own layout as 13166.
    bytes = LoadResourceBytes(kStylesheetResource, kHtmlResourceType);
    if (bytes.empty()) bytes = AuditTrail::GetStylesheet();
  }
  try {
    vx3::WriteFileAtomically(stylesheet, bytes);
  } catch (Exception const & error) {
    // The page then names the missing stylesheet.
    Log::WriteMessage("AuditTrailView", "Init", error.Why(), Log::Notice, false);
  }
  mFilePath = wxString(path);
  if (update) UpdatePair();
}

void AuditTrailView::Update() {
  wxWindow::Update();
  UpdatePair();
}

void AuditTrailView::UpdatePair() {
  if (!PrepareUpdateView()) return;
  UpdateView();
  mPageLoaded = true;
}

bool AuditTrailView::PrepareUpdateView() {
  if (!mBrowser) return false;
  if (mBusy) {
    // Never into a page that is still loading: the update runs when it
    // has loaded.
    mUpdatePending = true;
    return false;
  }
  if (mTrail != nullptr && mTrail->mSettings.mLogLevel > 0) {
    mOn = true;
    return true;
  }
  mOn = false;
  LoadFromString(mTrail != nullptr ? mNotOnPage : mDefaultPage);
  return false;
}

void AuditTrailView::UpdateView() {
  if (!mBrowser) return;
  if (mFilePath.empty()) {
    LoadFromString(mDefaultPage);
    return;
  }
  if (!Readable(mFilePath) && mTrail != nullptr) {
    try {
      mTrail->Save();
    } catch (Exception const & error) {
      ShowPage(AuditTrailProblemPage(error.Why()));
      mShown = Shown::Problem;
      return;
    }
  }
  if (!Readable(mFilePath)) {
    LoadFromString(mDefaultPage);
    return;
  }
  if (mBusy) return;  // the load's end runs the update again
  if (mNavigated && mShown == Shown::TrailPage) {
    // A refresh: the same place in the page afterwards.
    wxString position;
    if (mBrowser->RunScript("window.scrollY", &position)) position.ToInt(&mScrollY);
  }
  ShowTrailPage();
  mNavigated = true;
}

void AuditTrailView::ShowTrailPage() {
  std::string const file = Utf8(mFilePath);
  AuditTrailHtml const page =
      TransformAuditTrailFile(file, FolderOf(file) + AuditTrail::GetXSLFileName());
  if (page.ok) {
    ShowPage(page.html);
    mShown = Shown::TrailPage;
  } else {
    ShowPage(AuditTrailProblemPage(page.problem));
    mShown = Shown::Problem;
  }
  mShownResource = 0;
}

void AuditTrailView::ShowPage(std::string const & html) {
  if (mBusy) {
    mQueuedPage = html;
    return;
  }
  mBusy = true;
  mBrowser->SetPage(wxString::FromUTF8(html.data(), html.size()));
}

bool AuditTrailView::ShowQueuedPage() {
  if (!mQueuedPage) return false;
  std::string const html = std::move(*mQueuedPage);
  mQueuedPage.reset();
  ShowPage(html);
  return true;
}

int AuditTrailView::LoadFromString(unsigned int id) {
  if (!mBrowser) return 0;
  std::string html = GUIUtilities::ReadResource(id);
  if (html.empty()) html = "<html><body></body></html>";
  ShowPage(html);
  mShown = Shown::StaticPage;
  mShownResource = id;
  mNavigated = false;  // the trail page comes anew
  mScrollY = -1;
  return 1;
}

void AuditTrailView::SetAuditTrail(AuditTrail * trail) { OnBCAuditTrailChanged(trail); }

void AuditTrailView::SetCmdMap(CommandMap const & commands, wxWindow * target) {
  mCommands = commands;
  mTarget = target;
}

void AuditTrailView::SetDefaultResourceID(unsigned int id, bool load) {
  mDefaultPage = id;
  if (load) LoadFromString(id);
}

void AuditTrailView::OnBCBeginSession(AuditTrail * trail) {
  if (trail == nullptr || trail != mTrail) return;
  mNavigated = false;
  UpdatePair();
}

void AuditTrailView::OnBCEventAdded(AuditTrail * /*trail*/) {
  // New events come with the next session change or refresh: a page per
  // event would flood the browser.
}

void AuditTrailView::OnBCEndSession(AuditTrail * trail) {
  if (trail == nullptr || trail != mTrail) return;
  if (trail->mSettings.mLogLevel < 1) UpdatePair();
}

void AuditTrailView::OnBCAuditTrailDestroyed(AuditTrail * trail) {
  if (trail == nullptr || trail != mTrail) return;
  mTrail = nullptr;
  UpdatePair();
}

void AuditTrailView::OnBCAuditTrailChanged(AuditTrail * trail) {
  mTrail = trail;
  if (trail == nullptr) return;
  mNavigated = false;
  std::wstring const path = boost::locale::conv::utf_to_utf<wchar_t>(trail->GetFileName());
  Init(path.c_str(), true);
}

void AuditTrailView::OnBrowserLoaded() {
  mBusy = false;
  if (ShowQueuedPage()) return;
  if (mScrollY > 0 && mShown == Shown::TrailPage)
    mBrowser->RunScript(wxString::Format("window.scrollTo(0, %d);", mScrollY));
  mScrollY = -1;
  if (mUpdatePending) {
    mUpdatePending = false;
    UpdatePair();
  }
}

bool AuditTrailView::OnBrowserNavigating(wxString const & url) {
  // The browser reads nothing of the trail, yet whoever follows a link
  // expects the trail on disk to be current.
  SaveIfModified();
  wxString name;
  if (ParseAppLink(Utf8(url), name)) {
    OnAppCmd(name.wc_str());
    return true;
  }
  if (url == kBlank || url.StartsWith(wxString(kBlank) + "#")) return false;
  if (IsOutsideLink(url)) LaunchURL(url.wc_str(), false);
  return true;
}

void AuditTrailView::SaveIfModified() {
  if (mTrail == nullptr || !mTrail->IsModified()) return;
  try {
    mTrail->Save();
  } catch (Exception const & error) {
    Log::WriteMessage("AuditTrailView", "SaveIfModified", error.Why(), Log::Error, false);
  }
}

void AuditTrailView::OnAppCmd(wchar_t const * name) { QueueAppCommand(mCommands, name, mTarget); }

unsigned int AuditTrailView::GetDHtmlCommandMapping(unsigned int id, int & mapped,
                                                    unsigned int & value) const {
  for (DHtmlCommand const * entry = kCommands; entry->browserCommand != 0; ++entry) {
    if (entry->command != id) continue;
    value = entry->value;
    mapped = entry->value != 0 ? 1 : 0;
    return entry->browserCommand;
  }
  return static_cast<unsigned int>(-1);
}

int AuditTrailView::ExecHandler(unsigned int id) {
  int mapped = 0;
  unsigned int value = 0;
  unsigned int const command = GetDHtmlCommandMapping(id, mapped, value);
  if (command == static_cast<unsigned int>(-1)) return 0;
  if (mBrowser && command == 15) mBrowser->Copy();
  return 1;
}

void AuditTrailView::SendCommand(unsigned int command) {
  wxCommandEvent event(wxEVT_MENU, MenuItemIdFromCommand(command));
  event.SetEventObject(this);
  ProcessWindowEvent(event);
}

void AuditTrailView::OnMenuCommand(wxCommandEvent & event) {
  switch (static_cast<unsigned int>(CommandFromMenuItemId(event.GetId()))) {
    case kFileSaveAs: AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(mTrail); return;
    case kEditFind:
      if (mFindBar != nullptr) mFindBar->Open();
      return;
    case kEditSelectAll:
      if (mBrowser) mBrowser->SelectAll();
      return;
    case kFilePrint:
      if (mBrowser) mBrowser->Print();
      return;
    case kAuditTrailClear: AuditTrailSettingsUI::ClearAuditTrail(mTrail); return;
    case kAuditTrailStart: return;  // kept so that its menu entry is enabled
    default:
      if (ExecHandler(static_cast<unsigned int>(CommandFromMenuItemId(event.GetId()))) == 0)
        event.Skip();
  }
}

void AuditTrailView::OnUpdateCommand(wxUpdateUIEvent & event) {
  bool const showing = mTrail != nullptr && mTrail->mSettings.mLogLevel >= 1 && !mTrail->IsEmpty();
  switch (static_cast<unsigned int>(CommandFromMenuItemId(event.GetId()))) {
    case kFileSaveAs: event.Enable(showing); return;
    case kAuditTrailClear: event.Enable(showing && !mTrail->mSettings.mLocked); return;
    default: event.Skip();
  }
}

bool AuditTrailView::OnBrowserKey(int flags, int keyCode) {
  if (unsigned int const command = FindAccelerator(mAccelerators, flags, keyCode)) {
    SendCommand(command);
    return true;
  }
  if (flags == 0 && keyCode == WXK_F5) {
    // The file first, so that the refreshed page holds every event.
    SaveIfModified();
    if (mShown == Shown::TrailPage || mShown == Shown::Problem)
      UpdatePair();
    else if (mShownResource != 0)
      LoadFromString(mShownResource);
    return true;
  }
  return false;
}

std::unique_ptr<wxMenu> AuditTrailView::MakeContextMenu() const {
  std::unique_ptr<wxMenu> menu = LoadResourcePopupMenu(kContextMenu);
  if (menu && mTrail == nullptr) {
    for (unsigned int const command : {kFilePrint, kFileSaveAs})
      if (menu->FindItem(MenuItemIdFromCommand(command)) != nullptr)
        menu->Enable(MenuItemIdFromCommand(command), false);
  }
  return menu;
}

void AuditTrailView::ShowContextMenu(bool keyboard, wxPoint screenPoint) {
  if (keyboard || screenPoint == wxDefaultPosition)
    screenPoint = ClientToScreen(GetClientRect().GetTopLeft()) + wxPoint(5, 5);
  std::unique_ptr<wxMenu> menu = MakeContextMenu();
  if (menu)
    VxMenu::TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, this,
                           nullptr);
}

void AuditTrailView::OnContextMenu(wxContextMenuEvent & event) {
  ShowContextMenu(event.GetPosition() == wxDefaultPosition, event.GetPosition());
}

void AuditTrailView::OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) {
  ShowContextMenu(keyboard, screenPoint);
}

void AuditTrailView::OnBrowserProcessGone() {
  // A new web process starts with the next page.
  mBusy = false;
  ShowQueuedPage();
  mNavigated = false;
}
