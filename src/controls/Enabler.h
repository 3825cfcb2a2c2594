#pragma once
// Asks the command routing whether a command is enabled, without any menu
// or button: the main window (and behind it the application) answers a
// wxUpdateUIEvent for the command as it would for a menu item.

class wxWindow;

namespace GUI {

class Enabler {
public:
  // Enabled when an update handler enables the command. A command that no
  // update handler answers counts as disabled: wx cannot tell whether a
  // command handler exists without running it. Ids 0 and 65535 and above
  // are never enabled.
  bool IsEnable(unsigned int id);

  void Enable(bool enable) { mEnabled = enable; }
  // A probe has no check mark, radio mark or text to set.
  void SetCheck(int) {}
  void SetRadio(bool) {}

protected:
  void DoUpdate(wxWindow & target, bool disableIfNoHandler);

private:
  unsigned int mId = 0;
  bool mEnabled = true;
};

}  // namespace GUI
