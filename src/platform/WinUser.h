#pragma once
// The message-box vocabulary of the Windows user interface with Windows'
// values: the MB_* type bits that callers pass and the ID* results that the
// boxes and the library's dialogs return.

#include "platform/WinTypes.h"

using UINT = uint32_t;

// Button kinds: the low four bits of a box type.
constexpr UINT MB_OK = 0x00000000;
constexpr UINT MB_OKCANCEL = 0x00000001;
constexpr UINT MB_ABORTRETRYIGNORE = 0x00000002;
constexpr UINT MB_YESNOCANCEL = 0x00000003;
constexpr UINT MB_YESNO = 0x00000004;
constexpr UINT MB_RETRYCANCEL = 0x00000005;
constexpr UINT MB_CANCELTRYCONTINUE = 0x00000006;

// Icons: the next four bits.
constexpr UINT MB_ICONHAND = 0x00000010;
constexpr UINT MB_ICONQUESTION = 0x00000020;
constexpr UINT MB_ICONEXCLAMATION = 0x00000030;
constexpr UINT MB_ICONASTERISK = 0x00000040;
constexpr UINT MB_USERICON = 0x00000080;
constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
constexpr UINT MB_ICONERROR = MB_ICONHAND;
constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
constexpr UINT MB_ICONSTOP = MB_ICONHAND;

// Default buttons, counted from the left of the Windows order.
constexpr UINT MB_DEFBUTTON1 = 0x00000000;
constexpr UINT MB_DEFBUTTON2 = 0x00000100;
constexpr UINT MB_DEFBUTTON3 = 0x00000200;
constexpr UINT MB_DEFBUTTON4 = 0x00000300;

// Modality and further options.
constexpr UINT MB_APPLMODAL = 0x00000000;
constexpr UINT MB_SYSTEMMODAL = 0x00001000;
constexpr UINT MB_TASKMODAL = 0x00002000;
constexpr UINT MB_HELP = 0x00004000;
constexpr UINT MB_NOFOCUS = 0x00008000;
constexpr UINT MB_SETFOREGROUND = 0x00010000;
constexpr UINT MB_DEFAULT_DESKTOP_ONLY = 0x00020000;
constexpr UINT MB_TOPMOST = 0x00040000;
constexpr UINT MB_RIGHT = 0x00080000;
constexpr UINT MB_RTLREADING = 0x00100000;
constexpr UINT MB_SERVICE_NOTIFICATION = 0x00200000;

constexpr UINT MB_TYPEMASK = 0x0000000F;
constexpr UINT MB_ICONMASK = 0x000000F0;
constexpr UINT MB_DEFMASK = 0x00000F00;
constexpr UINT MB_MODEMASK = 0x00003000;
constexpr UINT MB_MISCMASK = 0x0000C000;

// Results of message boxes and dialogs.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
constexpr int IDCLOSE = 8;
constexpr int IDHELP = 9;
constexpr int IDTRYAGAIN = 10;
constexpr int IDCONTINUE = 11;
