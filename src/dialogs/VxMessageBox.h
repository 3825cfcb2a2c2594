#pragma once
// The library's message box for a text: CustomMessageBoxDlg owned by the
// safe owner of the main window, captioned with the application's name
// unless a caption is given. Returns the pressed button's Windows id
// (IDOK, IDCANCEL, IDYES, IDNO); 0 for an OK-only box under the mute switch.
//
//   if (VxMessageBox(L"Discard the changes?", MB_YESNO | MB_ICONQUESTION,
//                    L"&Discard", L"&Keep") == IDYES) ...

#include "platform/WinUser.h"

// `type`: MB_* kind and icon. For the kinds MB_YESNOCANCEL and MB_YESNO a
// non-null `yesText` or `noText` relabels the Yes or No button; other kinds
// ignore them.
int VxMessageBox(wchar_t const * text, unsigned int type = MB_OK, wchar_t const * yesText = nullptr,
                 wchar_t const * noText = nullptr);

// The same with strings of the resource chain; a label id whose string
// loads empty (0, unknown) leaves its button alone.
int VxMessageBox(unsigned int textId, unsigned int type = MB_OK, unsigned int yesTextId = 0,
                 unsigned int noTextId = 0);

// With `caption` as the window title (null: the application's name).
int VxMessageBox(wchar_t const * caption, wchar_t const * text, unsigned int type);
