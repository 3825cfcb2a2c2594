#include "html/VxHtmlHelp.h"

#include <wx/window.h>

#include <memory>
#include <vector>

#include "html/WindowContextHelpId.h"
#include "platform/WinUser.h"

namespace {

// Dialogs made in wx give their OK, Cancel and Help buttons wx's stock ids;
// the table knows them by their Windows ids, which it passes over.
int32_t ControlIdOf(wxWindow const & control) {
  switch (control.GetId()) {
    case wxID_OK: return IDOK;
    case wxID_CANCEL: return IDCANCEL;
    case wxID_HELP: return IDHELP;
    default: return control.GetId();
  }
}

}  // namespace

VxHtmlHelp::~VxHtmlHelp() {
  if (m_engineUsed) Call(nullptr, std::wstring(), HelpCommand::CloseAll, 0);
}

VxHtmlHelp * VxHtmlHelp::Instance() {
  // The engine's slot is made first, so that it outlives this object, whose
  // destructor still talks to the engine at exit.
  VxGetHelpEngine();
  static VxHtmlHelp instance;
  return &instance;
}

void VxHtmlHelp::SetHelpFile(wchar_t const * path) { m_helpFile = path ? path : L""; }

bool VxHtmlHelp::IsAvailable() const {
  return !m_helpFile.empty() && VxGetHelpEngine().IsAvailable();
}

void VxHtmlHelp::DisplayDefaultTopic() { Call(nullptr, m_helpFile, HelpCommand::DisplayToc, 0); }

void VxHtmlHelp::DisplayTopic(int topic, wchar_t const * window) {
  std::wstring path = m_helpFile;
  if (window != nullptr) path += L">" + std::wstring(window);
  if (topic >= 1)
    Call(nullptr, std::move(path), HelpCommand::HelpContext, topic);
  else
    Call(nullptr, std::move(path), HelpCommand::DisplayTopic, 0);
}

void VxHtmlHelp::DisplayIndex() { Call(nullptr, m_helpFile, HelpCommand::DisplayIndex, 0); }

void VxHtmlHelp::Search() {
  FullTextSearchQuery query;
  query.size = sizeof(FullTextSearchQuery);
  Call(nullptr, m_helpFile, HelpCommand::DisplaySearch, query);
}

bool VxHtmlHelp::DisplayContextHelp(wxWindow * dialog, HELPINFO const * info,
                                    wchar_t const * topic) {
  if (info == nullptr || info->iContextType != HELPINFO_WINDOW || info->iCtrlId < 1) return false;
  DisplayContextHelp(dialog, info->hItemHandle, topic);
  return true;
}

void VxHtmlHelp::DisplayContextHelp(wxWindow * dialog, wxWindow * window, wchar_t const * topic) {
  std::wstring path = m_helpFile + L"::/" + (topic ? topic : L"");
  FillContextHelpLookUpTable(dialog);
  Call(window, std::move(path), HelpCommand::TextPopupForControl, m_contextHelp);
}

void VxHtmlHelp::FillContextHelpLookUpTable(wxWindow * dialog) {
  std::vector<ContextHelpPair> children;
  if (dialog != nullptr) {
    for (wxWindow * child : dialog->GetChildren())
      children.push_back({ControlIdOf(*child), VxGetWindowContextHelpId(child)});
  }
  m_contextHelp.Fill(children);
}

bool VxHtmlHelp::Call(wxWindow * window, std::wstring path, HelpCommand command, HelpValue value) {
  HelpEngine & engine = VxGetHelpEngine();
  // Only an engine that can show something may have opened windows to close.
  if (engine.IsAvailable()) m_engineUsed = true;
  return engine.Execute(HelpRequest{window, std::move(path), command, std::move(value)});
}
