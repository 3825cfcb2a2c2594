#include "help/ChmHelpEngine.h"

#include <wx/app.h>
#include <wx/tipwin.h>
#include <wx/window.h>

#include "help/ChmFileSearch.h"
#include "help/ChmHelpArchive.h"
#include "help/HelpFile.h"
#include "help/HelpWindow.h"
#include "html/HtmlBrowserModule.h"
#include "utl/Log.h"
#include "utl/Utf.h"

namespace {

constexpr int kPopupWidth = 360;

// A help file is looked for where the help control looks (ChmFileSearch.h);
// one not found anywhere is tried as named, for the reader's own error.
std::string LocateHelpFile(std::string const & name) {
  std::string found;
  return FindChmFile(name, found) ? found : name;
}

// The engine of every process that loads the library: help shows as soon as
// an application sets its help file.
struct EngineInstaller {
  EngineInstaller() {
    VxSetHelpEngine(
        std::make_unique<ChmHelpEngine>(&OpenChmHelpArchive, &MakeHelpControlViewer, [] {
          std::string error;
          if (GetHtmlBrowserFactory(error) != nullptr) return true;
          Log::WriteMessage("ChmHelpEngine", "IsAvailable", "Help cannot be shown: " + error,
                            Log::Notice, false);
          return false;
        }));
  }
};
EngineInstaller const installer;

}  // namespace

HelpPath ParseHelpPath(std::wstring const & widePath) {
  std::string rest = vx3::WideToUtf8(widePath);
  HelpPath path;
  size_t const window = rest.rfind('>');
  if (window != std::string::npos) {
    path.window = rest.substr(window + 1);
    rest.resize(window);
  }
  size_t const topic = rest.find("::");
  if (topic != std::string::npos) {
    path.topic = ChmInnerPath(rest.substr(topic + 2));
    rest.resize(topic);
  }
  path.file = rest;
  return path;
}

ChmHelpEngine::ChmHelpEngine(HelpArchiveOpener opener, HelpTopicViewerFactory viewers,
                             BrowserCheck canBrowse)
    : m_opener(std::move(opener)),
      m_viewers(std::move(viewers)),
      m_canBrowse(std::move(canBrowse)) {}

ChmHelpEngine::~ChmHelpEngine() {
  CloseAll();
  // The files go with the engine: a window closed but not yet destroyed
  // (wx destroys closed frames when idle) would paint from a freed file.
  if (wxTheApp == nullptr) return;
  std::set<HelpWindow *> closing;
  closing.swap(m_closing);
  for (HelpWindow * window : closing) {
    window->Unbind(wxEVT_DESTROY, &ChmHelpEngine::OnWindowDestroyed, this);
    wxPendingDelete.DeleteObject(window);
    delete window;
  }
}

bool ChmHelpEngine::IsAvailable() const {
  if (m_browserState < 0) {
    m_browserState = m_canBrowse && m_canBrowse() ? 1 : 0;
  }
  return m_browserState == 1;
}

bool ChmHelpEngine::Fail(HelpRequest const & request, std::string const & why) const {
  Log::WriteMessage("ChmHelpEngine", "Execute",
                    "Help not shown (command " +
                        std::to_string(static_cast<unsigned>(request.command)) + ", path \"" +
                        vx3::WideToUtf8(request.path) + "\"): " + why,
                    Log::Notice, false);
  return false;
}

bool ChmHelpEngine::Execute(HelpRequest const & request) {
  if (request.command == HelpCommand::CloseAll) {
    CloseAll();
    return true;
  }
  if (!IsAvailable()) return Fail(request, "no browser can be made");
  if (wxTheApp == nullptr) return Fail(request, "the application has no user interface");
  HelpPath const path = ParseHelpPath(request.path);
  if (path.file.empty()) return Fail(request, "no help file is set");
  if (request.command == HelpCommand::TextPopupForControl) return ShowPopup(request, path);

  HelpFile * file = OpenFile(path.file);
  if (file == nullptr) return Fail(request, "the help file cannot be opened");
  std::string topic = path.topic;
  HelpWindow::Tab tab = HelpWindow::ContentsTab;
  switch (request.command) {
    case HelpCommand::DisplayTopic:
    case HelpCommand::DisplayToc: break;
    case HelpCommand::HelpContext: {
      int const * number = std::get_if<int>(&request.value);
      std::optional<std::string> const found =
          number != nullptr ? file->TopicOfNumber(static_cast<uint32_t>(*number)) : std::nullopt;
      if (!found)
        return Fail(request, "the help file has no topic number " +
                                 std::to_string(number != nullptr ? *number : 0));
      topic = *found;
      break;
    }
    case HelpCommand::DisplayIndex: tab = HelpWindow::IndexTab; break;
    case HelpCommand::DisplaySearch: tab = HelpWindow::SearchTab; break;
    default: return Fail(request, "the command is not supported");
  }
  if (topic.empty()) topic = file->DefaultTopic();

  HelpWindow * window = WindowFor(*file, path.window.empty() ? file->DefaultWindow() : path.window);
  if (request.command != HelpCommand::HelpContext && request.command != HelpCommand::DisplayTopic)
    window->ShowTab(tab);
  bool const shown = topic.empty() ? false : window->ShowTopic(topic);
  window->Show();
  window->Raise();
  if (!shown &&
      (request.command == HelpCommand::DisplayTopic || request.command == HelpCommand::HelpContext))
    return Fail(request, "the help file has no topic \"" + topic + "\"");
  return true;
}

HelpFile * ChmHelpEngine::OpenFile(std::string const & name) {
  std::string const located = LocateHelpFile(name);
  auto found = m_files.find(located);
  if (found != m_files.end()) return found->second.get();
  std::string error;
  std::unique_ptr<HelpArchive> archive = m_opener ? m_opener(located, error) : nullptr;
  if (!archive) {
    Log::WriteMessage("ChmHelpEngine", "OpenFile", "Cannot open " + located + ": " + error,
                      Log::Notice, false);
    return nullptr;
  }
  auto file = std::make_unique<HelpFile>(located, std::move(archive));
  return m_files.emplace(located, std::move(file)).first->second.get();
}

HelpWindow * ChmHelpEngine::FindWindow(std::string const & windowType) const {
  auto const found = m_windows.find(windowType);
  return found == m_windows.end() ? nullptr : found->second;
}

HelpWindow * ChmHelpEngine::WindowFor(HelpFile & file, std::string const & windowType) {
  HelpWindow * window = FindWindow(windowType);
  if (window != nullptr) {
    if (&window->GetFile() != &file) window->SetFile(file);
    return window;
  }
  window = new HelpWindow(windowType, file, m_viewers);
  m_windows[windowType] = window;
  // The user closes windows too: forget them as they go.
  window->Bind(wxEVT_DESTROY, &ChmHelpEngine::OnWindowDestroyed, this);
  return window;
}

void ChmHelpEngine::OnWindowDestroyed(wxWindowDestroyEvent & event) {
  event.Skip();
  // By now only the wxWindow part is left: compare addresses, cast nothing.
  for (auto at = m_closing.begin(); at != m_closing.end(); ++at)
    if (*at == event.GetEventObject()) {
      m_closing.erase(at);
      break;
    }
  for (auto at = m_windows.begin(); at != m_windows.end(); ++at)
    if (at->second == event.GetEventObject()) {
      m_windows.erase(at);
      return;
    }
}

bool ChmHelpEngine::ShowPopup(HelpRequest const & request, HelpPath const & path) {
  auto const * table = std::get_if<ContextHelpTable>(&request.value);
  if (request.window == nullptr || table == nullptr)
    return Fail(request, "the request names no control");
  std::optional<uint32_t> const contextId = table->Lookup(request.window->GetId());
  if (!contextId || *contextId == 0) return Fail(request, "the control has no context help");
  HelpFile * file = OpenFile(path.file);
  if (file == nullptr) return Fail(request, "the help file cannot be opened");
  std::optional<std::string> const text = file->Popups(path.topic).Find(*contextId);
  if (!text || text->empty())
    return Fail(request, "the pop-up file has no text " + std::to_string(*contextId));

  if (m_popup != nullptr) m_popup->Close();
  wxWindow * control = request.window;
  // The tip window clears m_popup itself when it closes.
  m_popup = new wxTipWindow(control, wxString::FromUTF8(*text), kPopupWidth, &m_popup);
  m_popup->Move(control->GetScreenPosition() + wxPoint(0, control->GetSize().y));
  return true;
}

void ChmHelpEngine::CloseAll() {
  if (m_popup != nullptr && wxTheApp != nullptr) m_popup->Close();
  // At exit wx may have destroyed the windows already; then only forget them.
  // Files stay open: a window on its way out may still paint from one.
  std::map<std::string, HelpWindow *> windows;
  windows.swap(m_windows);
  if (wxTheApp != nullptr)
    for (auto & [type, window] : windows) {
      m_closing.insert(window);  // until wx destroys it
      window->Close(true);       // saves its placement
    }
}
