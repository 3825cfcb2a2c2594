#include "controls/Enabler.h"

#include <wx/app.h>
#include <wx/event.h>
#include <wx/window.h>

namespace GUI {

void Enabler::DoUpdate(wxWindow & target, bool disableIfNoHandler) {
  wxUpdateUIEvent event{int(mId)};
  event.SetEventObject(&target);
  target.ProcessWindowEvent(event);
  if (event.GetSetEnabled())
    Enable(event.GetEnabled());
  else if (disableIfNoHandler)
    Enable(false);
}

bool Enabler::IsEnable(unsigned int id) {
  mEnabled = true;
  mId = id;
  wxWindow * main = wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
  if (main == nullptr) return false;
  DoUpdate(*main, true);
  if (mEnabled) DoUpdate(*main, false);
  if (id == 0 || id >= 65535) mEnabled = false;
  return mEnabled;
}

}  // namespace GUI
