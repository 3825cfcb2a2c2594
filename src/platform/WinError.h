#pragma once
// The Win32 system error codes that the platform stand-ins return, with
// their Windows values.

#include "platform/WinTypes.h"

constexpr LONG ERROR_SUCCESS = 0;
constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_ACCESS_DENIED = 5;
constexpr LONG ERROR_INVALID_HANDLE = 6;
constexpr LONG ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr LONG ERROR_BAD_FORMAT = 11;
constexpr LONG ERROR_INVALID_PARAMETER = 87;
constexpr LONG ERROR_BAD_PATHNAME = 161;
constexpr LONG ERROR_MOD_NOT_FOUND = 126;
constexpr LONG ERROR_PROC_NOT_FOUND = 127;
constexpr LONG ERROR_BUSY = 170;
constexpr LONG ERROR_MORE_DATA = 234;
constexpr LONG ERROR_CANCELLED = 1223;
constexpr LONG ERROR_NO_MORE_ITEMS = 259;
constexpr LONG ERROR_NOACCESS = 998;
constexpr LONG ERROR_BADDB = 1009;
constexpr LONG ERROR_BADKEY = 1010;
constexpr LONG ERROR_CANTOPEN = 1011;
constexpr LONG ERROR_CANTREAD = 1012;
constexpr LONG ERROR_CANTWRITE = 1013;
constexpr LONG ERROR_REGISTRY_IO_FAILED = 1016;
constexpr LONG ERROR_KEY_DELETED = 1018;
constexpr LONG ERROR_NO_SYSTEM_RESOURCES = 1450;
constexpr LONG ERROR_UNSUPPORTED_TYPE = 1630;
