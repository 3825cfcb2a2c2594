#pragma once
// The application's registry base under HKEY_CURRENT_USER (and, for
// administrator settings, HKEY_LOCAL_MACHINE): "SOFTWARE\Karvinel\<App>\<Ver>"
// with the registry key "Karvinel" and the profile name "<App>\<Ver>" of the
// application (VxSystemInfo's name and its version in the path format, e.g.
// "6.3"), so that revisions of one version share their settings.

#include <string>

std::string GetRegistryBaseKeyName();
