#include "help/CHHCtrl.h"
#include "help/ChmAddress.h"
#include "help/HelpTopicViewer.h"
#include "utl/Log.h"
#include "utl/Utf.h"

namespace {

CHHCtrl::CommandMap & HelpWindowCommands() {
  static CHHCtrl::CommandMap commands;
  return commands;
}

// The help window's control takes its "app:" commands from the
// application's map as it stands when a link is followed, so a map set
// after the window opened still applies.
class HelpWindowControl : public CHHCtrl {
public:
  std::function<void(wxString const & url)> navigated;

protected:
  void OnNavigateComplete2(wxString const & url) override {
    if (navigated) navigated(url);
  }
  void OnAppCmd(wchar_t const * name) override {
    SetCmdMap(HelpWindowCommands(), nullptr);  // null: the main window
    CHHCtrl::OnAppCmd(name);
  }
};

class HelpControlViewer : public HelpTopicViewer {
public:
  explicit HelpControlViewer(wxWindow * parent) : m_control(new HelpWindowControl) {
    m_control->Create(parent, wxRect(), wxID_ANY, nullptr);
    m_control->navigated = [this](wxString const & url) {
      std::string chmPath;
      std::string inner;
      if (ParseChmAddress(url.utf8_string(), chmPath, inner)) TellTopicReached(chmPath, inner);
    };
  }

  // The control, a child window, outlives the viewer while its window is
  // taken down: it must not call back into the viewer then.
  ~HelpControlViewer() override {
    if (m_control) m_control->navigated = nullptr;
  }
  HelpControlViewer(HelpControlViewer const &) = delete;
  HelpControlViewer & operator=(HelpControlViewer const &) = delete;

  wxWindow * GetWindow() const override { return m_control.get(); }

  void Show(std::string const & chmPath, std::string const & innerPath) override {
    std::wstring const file = vx3::Utf8ToWide(chmPath);
    // The engine opened the file already: it is found by its own path.
    if (file != m_control->GetChmFile() && !m_control->SetChmFile(file.c_str())) return;
    HRESULT const result = m_control->NavigateChm(vx3::Utf8ToWide(innerPath).c_str());
    if (result != S_OK)
      Log::WriteMessage("HelpControlViewer", "Show",
                        "Cannot show " + innerPath + " of " + chmPath + ": code " +
                            std::to_string(static_cast<uint32_t>(result)),
                        Log::Notice, false);
  }

private:
  wxWeakRef<HelpWindowControl> m_control;  // a child of the parent, which owns it
};

}  // namespace

void SetHelpWindowCommands(std::map<wxString, unsigned int> const & commands) {
  HelpWindowCommands() = commands;
}

std::unique_ptr<HelpTopicViewer> MakeHelpControlViewer(wxWindow * parent) {
  return std::make_unique<HelpControlViewer>(parent);
}
