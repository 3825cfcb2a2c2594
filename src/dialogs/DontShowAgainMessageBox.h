#pragma once
// Message boxes that the user can silence: the box carries "Don't show this
// message again", and a ticked answer is kept under the message's key and
// given back from then on without asking.
//
// The answers live in the application's profile, in the section
// "DontShowAgainMessages" (HKEY_CURRENT_USER\<registry base>\...), or in a
// configuration section of the caller's.

#include "platform/WinUser.h"

class ConfigurationSection;

// The profile section of the stored answers: "DontShowAgainMessages".
wchar_t const * GetDontShowAgainRegistrySection();

// True when the message of `key` would be shown: no answer is stored for it.
// A stored 0 is an answer.
bool ShowDontShowAgainMessage(wchar_t const * key);

// The stored answer for `key` if there is one, unseen; otherwise the box
// (check box unticked; `yesText`/`noText` relabel Yes and No of the kinds
// MB_YESNOCANCEL and MB_YESNO). An answer other than Cancel with the box
// ticked is stored. Returns the answer, stored or given. A null `key` always
// shows the box and stores nothing.
int VxDontShowAgainMessageBox(wchar_t const * key, wchar_t const * text, unsigned int type = MB_OK,
                              wchar_t const * yesText = nullptr, wchar_t const * noText = nullptr);

// The same with the answers kept as integer keys of `section`. A stored
// answer comes back as it is; after the box was shown the result is -1 (the
// form has always answered so: its callers read only stored answers). A key
// whose text is no integer counts as absent. A null `section` shows the box
// and stores nothing.
int VxDontShowAgainMessageBox(ConfigurationSection * section, char const * key,
                              wchar_t const * text, unsigned int type = MB_OK,
                              wchar_t const * yesText = nullptr, wchar_t const * noText = nullptr);
