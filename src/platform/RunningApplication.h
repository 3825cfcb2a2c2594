#pragma once
// The running application as the lower layers see it. Dialogs, progress and
// the other windows of the library need the main window, the mute switch of
// information boxes and the plug-in folder, but must not reach up to the
// application object for them: that object fills in these hooks when it is
// made and empties them when it goes. Without hooks, the main window is the
// wx application's top window, nothing is muted and there is no plug-in
// folder, so the lower layers also work under a plain wxApp.

#include <functional>
#include <string>

class wxWindow;

struct RunningApplicationHooks {
  std::function<wxWindow *()> mainWindow;
  std::function<bool()> infoMessagesMuted;
  std::function<std::string()> pluginDirectory;  // UTF-8
};

// Installs `hooks` (an empty member: its default) and returns the former ones.
RunningApplicationHooks SetRunningApplication(RunningApplicationHooks hooks);

// The application's main window; null when there is none.
wxWindow * AppMainWindow();
// Whether boxes that only inform (an OK button alone) are to be swallowed.
bool AppInfoMessagesMuted();
// The folder of the application's plug-ins; empty when it has none.
std::string AppPluginDirectory();
