#include "help/CHHCtrl.h"
#include "help/HelpTopicViewer.h"
#include "utl/Log.h"
#include "utl/Utf.h"

namespace {

class HelpControlViewer : public HelpTopicViewer {
public:
  explicit HelpControlViewer(wxWindow * parent) : m_control(new CHHCtrl) {
    m_control->Create(parent, wxRect(), wxID_ANY, nullptr);
  }

  wxWindow * GetWindow() const override { return m_control; }

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
  CHHCtrl * m_control;  // a child of the parent, which owns it
};

}  // namespace

std::unique_ptr<HelpTopicViewer> MakeHelpControlViewer(wxWindow * parent) {
  return std::make_unique<HelpControlViewer>(parent);
}
