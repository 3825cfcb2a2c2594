#pragma once
// The vocabulary of the Windows common file and folder dialogs, with
// Windows' values, so that dialogs built on them are written as before.

#include "platform/WinTypes.h"

// OPENFILENAME flags.
constexpr DWORD OFN_READONLY = 0x00000001;
constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
constexpr DWORD OFN_NOVALIDATE = 0x00000100;
constexpr DWORD OFN_ALLOWMULTISELECT = 0x00000200;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
constexpr DWORD OFN_CREATEPROMPT = 0x00002000;
constexpr DWORD OFN_EXPLORER = 0x00080000;
constexpr DWORD OFN_ENABLESIZING = 0x00800000;

// CommDlgExtendedError values.
constexpr DWORD CDERR_GENERALCODES = 0x0000;
constexpr DWORD FNERR_BUFFERTOOSMALL = 0x3003;  // 12291

// BROWSEINFO flags.
constexpr UINT BIF_RETURNONLYFSDIRS = 0x0001;
constexpr UINT BIF_BROWSEFORCOMPUTER = 0x1000;
constexpr UINT BIF_BROWSEFORPRINTER = 0x2000;

// Special folders (CSIDL) used as roots of the folder browser.
constexpr int CSIDL_PRINTERS = 4;
constexpr int CSIDL_NETWORK = 18;

// A place in a list that is walked with GetNext...: null past the end.
using POSITION = struct __POSITION *;
