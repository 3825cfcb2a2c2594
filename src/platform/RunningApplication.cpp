#include "platform/RunningApplication.h"

#include <utility>

#include <wx/app.h>

namespace {

RunningApplicationHooks & Hooks() {
  static RunningApplicationHooks hooks;
  return hooks;
}

}  // namespace

RunningApplicationHooks SetRunningApplication(RunningApplicationHooks hooks) {
  return std::exchange(Hooks(), std::move(hooks));
}

wxWindow * AppMainWindow() {
  if (auto const & hook = Hooks().mainWindow) return hook();
  return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
}

bool AppInfoMessagesMuted() {
  auto const & hook = Hooks().infoMessagesMuted;
  return hook && hook();
}

std::string AppPluginDirectory() {
  auto const & hook = Hooks().pluginDirectory;
  return hook ? hook() : std::string();
}
