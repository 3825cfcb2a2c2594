#include "harness/MailHook.h"

#include <gio/gio.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "harness/GuiTestUtilities.h"

namespace gui_test {

std::string TempPath(char const * name) { return std::string(std::getenv("TMPDIR")) + "/" + name; }

void WriteFile(std::string const & path, std::string const & text, mode_t mode) {
  std::ofstream(path) << text;
  ::chmod(path.c_str(), mode);
}

std::string ReadFile(std::string const & path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

void WriteMailHook() {
  ::mkdir(TempPath("bin").c_str(), 0755);
  WriteFile(
      TempPath("bin/xdg-email-hook.sh"),
      "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$TMPDIR/mailto.txt\"\nexit \"${HOOK_EXIT:-0}\"\n",
      0755);
}

bool InstallMailHandler() {
  std::string const data = std::getenv("XDG_DATA_HOME");
  ::mkdir((data + "/applications").c_str(), 0755);
  WriteFile(data + "/applications/test-mail.desktop",
            "[Desktop Entry]\nType=Application\nName=Test Mail\nExec=true %u\n"
            "MimeType=x-scheme-handler/mailto;\n");
  WriteFile(std::string(std::getenv("XDG_CONFIG_HOME")) + "/mimeapps.list",
            "[Default Applications]\nx-scheme-handler/mailto=test-mail.desktop\n");
  return WaitUntil([] {
    GAppInfo * handler = g_app_info_get_default_for_uri_scheme("mailto");
    if (handler != nullptr) g_object_unref(handler);
    return handler != nullptr;
  });
}

}  // namespace gui_test
