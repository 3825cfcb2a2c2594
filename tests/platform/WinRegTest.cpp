// The registry functions against real hives: the Win32 semantics that the
// library's registry algorithms rely on, the codes Windows gives for bad
// input, and transactions.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "RegistryTestSupport.h"
#include "platform/RegistryTransaction.h"

namespace {

std::string Bytes(void const * data, size_t size) {
  return std::string(static_cast<char const *>(data), size);
}

std::string WideBytes(std::wstring const & text) {
  return Bytes(text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

using WinReg = RegistryTest;

TEST_F(WinReg, PredefinedKeysHaveTheWindowsValues) {
  auto const value = [](HKEY key) {
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(key));
  };
  EXPECT_EQ(value(HKEY_CLASSES_ROOT), 0x80000000u);
  EXPECT_EQ(value(HKEY_CURRENT_USER), 0x80000001u);
  EXPECT_EQ(value(HKEY_LOCAL_MACHINE), 0x80000002u);
  // Sign-extended as on 64-bit Windows, so that no handle of the table can
  // ever equal one.
  EXPECT_EQ(reinterpret_cast<intptr_t>(HKEY_CURRENT_USER), -0x7FFFFFFF);
}

TEST_F(WinReg, CreateTellsWhetherTheKeyIsNewAndMakesTheWholePath) {
  HKEY key = nullptr;
  DWORD disposition = 0;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Karvinel\\App", 0, nullptr, 0,
                            KEY_ALL_ACCESS, nullptr, &key, &disposition),
            ERROR_SUCCESS);
  EXPECT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
  EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\karvinel\\APP", 0, nullptr, 0, KEY_READ,
                            nullptr, &key, &disposition),
            ERROR_SUCCESS);
  EXPECT_EQ(disposition, static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
  RegCloseKey(key);
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Karvinel", 0, KEY_READ, &key),
            ERROR_SUCCESS);
  EXPECT_EQ(SubKeyNames(key), std::vector<std::wstring>{L"App"});
  RegCloseKey(key);
}

TEST_F(WinReg, NamesCompareWithoutCaseAndKeepTheCaseTheyWereMadeWith) {
  HKEY root = Create(HKEY_CURRENT_USER, L"Software\\Äpfel");
  HKEY same = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"software\\äPFEL", 0, KEY_ALL_ACCESS, &same),
            ERROR_SUCCESS);
  ASSERT_EQ(SetDword(root, L"Colour", 1), ERROR_SUCCESS);
  ASSERT_EQ(SetDword(same, L"COLOUR", 2), ERROR_SUCCESS);
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(root, L"cOlOuR", type, data), ERROR_SUCCESS);
  DWORD const two = 2;
  EXPECT_EQ(data, Bytes(&two, 4));
  EXPECT_EQ(ValueNames(root), std::vector<std::wstring>{L"Colour"});
  HKEY software = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE", 0, KEY_READ, &software), ERROR_SUCCESS);
  EXPECT_EQ(SubKeyNames(software), std::vector<std::wstring>{L"Äpfel"});
  for (HKEY key : {root, same, software}) RegCloseKey(key);
}

TEST_F(WinReg, SubKeysEnumerateSortedWithoutCaseAndValuesInCreationOrder) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Order");
  for (wchar_t const * name : {L"b", L"C", L"a2", L"A"}) RegCloseKey(Create(key, name));
  EXPECT_EQ(SubKeyNames(key), (std::vector<std::wstring>{L"A", L"a2", L"b", L"C"}));

  for (wchar_t const * name : {L"z", L"a", L"M"}) ASSERT_EQ(SetDword(key, name, 1), ERROR_SUCCESS);
  ASSERT_EQ(SetText(key, L"A", L"rewritten"), ERROR_SUCCESS);  // keeps its place
  ASSERT_EQ(RegDeleteValueW(key, L"z"), ERROR_SUCCESS);
  ASSERT_EQ(SetDword(key, L"Z", 1), ERROR_SUCCESS);  // a new value goes last
  EXPECT_EQ(ValueNames(key), (std::vector<std::wstring>{L"a", L"M", L"Z"}));
  RegCloseKey(key);
}

TEST_F(WinReg, ValuesKeepTheirTypeAndBytes) {
  DWORD const dword = 0xDEADBEEF;
  uint64_t const qword = 0x0123456789ABCDEFull;
  std::string const binary("\0\1\2\0\xff", 5);
  struct Case {
    wchar_t const * name;
    DWORD type;
    std::string data;
  } const cases[] = {
      {L"", REG_SZ, WideBytes(L"default value")},
      {L"text", REG_SZ, WideBytes(L"naïve ☃")},
      {L"embedded nul", REG_SZ, Bytes(L"a\0b", 4 * sizeof(wchar_t))},
      {L"unterminated", REG_SZ, Bytes(L"ab", 2 * sizeof(wchar_t))},
      {L"expand", REG_EXPAND_SZ, WideBytes(L"%HOME%/x")},
      {L"multi", REG_MULTI_SZ, Bytes(L"one\0two\0", 9 * sizeof(wchar_t))},
      {L"binary", REG_BINARY, binary},
      {L"dword", REG_DWORD, Bytes(&dword, 4)},
      {L"short dword", REG_DWORD, Bytes(&dword, 2)},
      {L"qword", REG_QWORD, Bytes(&qword, 8)},
      {L"empty", REG_BINARY, ""},
      {L"none", REG_NONE, "x"},
      {L"odd type", 0x12345, "y"},
  };
  HKEY key = Create(HKEY_CURRENT_USER, L"Types");
  for (Case const & c : cases)
    ASSERT_EQ(RegSetValueExW(key, c.name, 0, c.type, reinterpret_cast<BYTE const *>(c.data.data()),
                             static_cast<DWORD>(c.data.size())),
              ERROR_SUCCESS);
  for (size_t index = 0; index < std::size(cases); ++index) {
    Case const & c = cases[index];
    DWORD type = 0;
    std::string data;
    ASSERT_EQ(Query(key, c.name, type, data), ERROR_SUCCESS);
    EXPECT_EQ(type, c.type);
    EXPECT_EQ(data, c.data);
    wchar_t name[64];
    DWORD nameLength = 64;
    BYTE buffer[128];
    DWORD size = sizeof buffer;
    ASSERT_EQ(RegEnumValueW(key, static_cast<DWORD>(index), name, &nameLength, nullptr, &type,
                            buffer, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name, nameLength), c.name);
    EXPECT_EQ(Bytes(buffer, size), c.data);
  }
  RegCloseKey(key);
}

TEST_F(WinReg, QueryTellsTheSizeAndRefusesABufferTooSmall) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Sizes");
  ASSERT_EQ(SetText(key, L"text", L"abc"), ERROR_SUCCESS);
  DWORD type = 0;
  DWORD size = 0;
  EXPECT_EQ(RegQueryValueExW(key, L"text", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
  EXPECT_EQ(size, 4 * sizeof(wchar_t));
  wchar_t buffer[4] = {L'x', L'x', L'x', L'x'};
  size = 3 * sizeof(wchar_t);
  EXPECT_EQ(RegQueryValueExW(key, L"text", nullptr, &type, reinterpret_cast<BYTE *>(buffer), &size),
            ERROR_MORE_DATA);
  EXPECT_EQ(size, 4 * sizeof(wchar_t)) << "the size needed";
  EXPECT_EQ(RegQueryValueExW(key, L"text", nullptr, &type, reinterpret_cast<BYTE *>(buffer), &size),
            ERROR_SUCCESS);
  EXPECT_STREQ(buffer, L"abc");
  EXPECT_EQ(
      RegQueryValueExW(key, L"text", nullptr, &type, reinterpret_cast<BYTE *>(buffer), nullptr),
      ERROR_INVALID_PARAMETER);
  DWORD reserved = 0;
  EXPECT_EQ(RegQueryValueExW(key, L"text", &reserved, &type, nullptr, &size),
            ERROR_INVALID_PARAMETER);
  RegCloseKey(key);
}

TEST_F(WinReg, BadInputGetsTheCodeWindowsGives) {
  HKEY writable = Create(HKEY_CURRENT_USER, L"Bad");
  HKEY child = Create(writable, L"Child");
  RegCloseKey(child);
  HKEY readOnly = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Bad", 0, KEY_READ, &readOnly), ERROR_SUCCESS);
  HKEY writeOnly = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Bad", 0, KEY_WRITE, &writeOnly), ERROR_SUCCESS);
  HKEY closed = Create(HKEY_CURRENT_USER, L"Closed");
  RegCloseKey(closed);

  std::wstring const longestKey(REG_MAX_KEY_NAME_LENGTH, L'k');
  std::wstring const longestValue(REG_MAX_VALUE_NAME_LENGTH, L'v');
  std::vector<BYTE> const huge(REG_MAX_VALUE_SIZE + 1, 0);
  wchar_t const notUnicode[] = {L'a', static_cast<wchar_t>(0xD800), L'\0'};
  wchar_t const beyondUnicode[] = {static_cast<wchar_t>(0x110000), L'\0'};
  auto const create = [](HKEY parent, std::wstring const & path) {
    HKEY key = nullptr;
    LONG const rc = RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                    &key, nullptr);
    if (rc == ERROR_SUCCESS) RegCloseKey(key);
    return rc;
  };
  auto const open = [](HKEY parent, wchar_t const * path, REGSAM access = KEY_READ) {
    HKEY key = nullptr;
    LONG const rc = RegOpenKeyExW(parent, path, 0, access, &key);
    if (rc == ERROR_SUCCESS) RegCloseKey(key);
    return rc;
  };
  wchar_t name[8];
  DWORD length = 8;
  struct Case {
    char const * what;
    std::function<LONG()> call;
    LONG expected;
  } const cases[] = {
      {"a handle never opened", [&] { return open(reinterpret_cast<HKEY>(0x1234), L"x"); },
       ERROR_INVALID_HANDLE},
      {"a closed handle", [&] { return SetDword(closed, L"x", 1); }, ERROR_INVALID_HANDLE},
      {"closing it again", [&] { return RegCloseKey(closed); }, ERROR_INVALID_HANDLE},
      {"closing a predefined key", [&] { return RegCloseKey(HKEY_CURRENT_USER); }, ERROR_SUCCESS},
      {"a key that does not exist", [&] { return open(HKEY_CURRENT_USER, L"Bad\\None"); },
       ERROR_FILE_NOT_FOUND},
      {"a path with a leading separator", [&] { return open(HKEY_CURRENT_USER, L"\\Bad"); },
       ERROR_BAD_PATHNAME},
      {"a path with an empty element", [&] { return create(HKEY_CURRENT_USER, L"Bad\\\\x"); },
       ERROR_BAD_PATHNAME},
      {"a path with a trailing separator", [&] { return open(HKEY_CURRENT_USER, L"Bad\\"); },
       ERROR_SUCCESS},
      {"a key name of 255 characters", [&] { return create(writable, longestKey); }, ERROR_SUCCESS},
      {"a key name of 256 characters", [&] { return create(writable, longestKey + L"k"); },
       ERROR_INVALID_PARAMETER},
      {"a key name that is no Unicode", [&] { return create(writable, notUnicode); },
       ERROR_INVALID_PARAMETER},
      {"creating with no sub-key",
       [&] {
         HKEY key;
         return RegCreateKeyExW(writable, nullptr, 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);
       },
       ERROR_BADKEY},
      {"a value name of 16383 characters",
       [&] { return SetDword(writable, longestValue.c_str(), 1); }, ERROR_SUCCESS},
      {"a value name of 16384 characters",
       [&] { return SetDword(writable, (longestValue + L"v").c_str(), 1); },
       ERROR_INVALID_PARAMETER},
      {"a value name beyond Unicode", [&] { return SetDword(writable, beyondUnicode, 1); },
       ERROR_INVALID_PARAMETER},
      {"querying a name no value can have",
       [&] {
         DWORD size = 0;
         return RegQueryValueExW(writable, notUnicode, nullptr, nullptr, nullptr, &size);
       },
       ERROR_FILE_NOT_FOUND},
      {"a value too large for the store",
       [&] {
         return RegSetValueExW(writable, L"huge", 0, REG_BINARY, huge.data(),
                               static_cast<DWORD>(huge.size()));
       },
       ERROR_NO_SYSTEM_RESOURCES},
      {"a size with no data",
       [&] { return RegSetValueExW(writable, L"x", 0, REG_BINARY, nullptr, 4); }, ERROR_NOACCESS},
      {"no data and no size",
       [&] { return RegSetValueExW(writable, L"nothing", 0, REG_BINARY, nullptr, 0); },
       ERROR_SUCCESS},
      {"setting through a read handle", [&] { return SetDword(readOnly, L"x", 1); },
       ERROR_ACCESS_DENIED},
      {"deleting a value through a read handle", [&] { return RegDeleteValueW(readOnly, L"x"); },
       ERROR_ACCESS_DENIED},
      {"querying through a write handle",
       [&] {
         DWORD size = 0;
         return RegQueryValueExW(writeOnly, L"x", nullptr, nullptr, nullptr, &size);
       },
       ERROR_ACCESS_DENIED},
      {"enumerating through a write handle",
       [&] {
         DWORD size = 8;
         return RegEnumKeyExW(writeOnly, 0, name, &size, nullptr, nullptr, nullptr, nullptr);
       },
       ERROR_ACCESS_DENIED},
      {"a value that does not exist",
       [&] {
         DWORD size = 0;
         return RegQueryValueExW(readOnly, L"absent", nullptr, nullptr, nullptr, &size);
       },
       ERROR_FILE_NOT_FOUND},
      {"deleting a value that does not exist", [&] { return RegDeleteValueW(writable, L"absent"); },
       ERROR_FILE_NOT_FOUND},
      {"enumerating past the end",
       [&] {
         return RegEnumKeyExW(readOnly, 99, name, &length, nullptr, nullptr, nullptr, nullptr);
       },
       ERROR_NO_MORE_ITEMS},
      {"deleting a key that has sub-keys", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L"Bad"); },
       ERROR_ACCESS_DENIED},
      {"deleting a key that does not exist",
       [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L"Bad\\None"); }, ERROR_FILE_NOT_FOUND},
      {"deleting the root", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L""); },
       ERROR_ACCESS_DENIED},
      {"deleting with no sub-key", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, nullptr); },
       ERROR_INVALID_PARAMETER},
      {"a handle we do not serve", [&] { return open(HKEY_USERS, L"x"); }, ERROR_INVALID_HANDLE},
  };
  for (Case const & c : cases) EXPECT_EQ(c.call(), c.expected) << c.what;
  for (HKEY key : {writable, readOnly, writeOnly}) RegCloseKey(key);
}

TEST_F(WinReg, AccessRightsAreThoseAskedFor) {
  RegCloseKey(Create(HKEY_CURRENT_USER, L"Rights"));
  struct Case {
    REGSAM asked;
    bool mayQuery, maySet, mayEnumerate;
  } const cases[] = {
      {KEY_READ, true, false, true},
      {KEY_WRITE, false, true, false},
      {KEY_QUERY_VALUE, true, false, false},
      {KEY_SET_VALUE | KEY_ENUMERATE_SUB_KEYS, false, true, true},
      {GENERIC_READ, true, false, true},
      {GENERIC_WRITE, false, true, false},
      {MAXIMUM_ALLOWED, true, true, true},
      {KEY_ALL_ACCESS, true, true, true},
  };
  for (Case const & c : cases) {
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Rights", 0, c.asked, &key), ERROR_SUCCESS);
    DWORD size = 0;
    LONG const query = RegQueryValueExW(key, L"absent", nullptr, nullptr, nullptr, &size);
    EXPECT_EQ(query == ERROR_FILE_NOT_FOUND, c.mayQuery) << std::hex << c.asked;
    EXPECT_EQ(SetDword(key, L"v", 1) == ERROR_SUCCESS, c.maySet) << std::hex << c.asked;
    wchar_t name[8];
    DWORD length = 8;
    LONG const enumerate = RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(enumerate == ERROR_NO_MORE_ITEMS, c.mayEnumerate) << std::hex << c.asked;
    RegCloseKey(key);
  }
}

TEST_F(WinReg, AHandleOnADeletedKeyAnswersKeyDeleted) {
  HKEY gone = Create(HKEY_CURRENT_USER, L"Gone");
  ASSERT_EQ(SetDword(gone, L"v", 1), ERROR_SUCCESS);
  ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"gone"), ERROR_SUCCESS);
  // Made again under the same name: a new key, which the old handle is not on.
  HKEY again = Create(HKEY_CURRENT_USER, L"Gone");
  DWORD size = 0;
  EXPECT_EQ(RegQueryValueExW(gone, L"v", nullptr, nullptr, nullptr, &size), ERROR_KEY_DELETED);
  EXPECT_EQ(SetDword(gone, L"v", 2), ERROR_KEY_DELETED);
  wchar_t name[8];
  DWORD length = 8;
  EXPECT_EQ(RegEnumValueW(gone, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_KEY_DELETED);
  DWORD count = 0;
  EXPECT_EQ(RegQueryInfoKeyW(gone, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr,
                             nullptr, nullptr, nullptr, nullptr),
            ERROR_KEY_DELETED);
  HKEY child = nullptr;
  EXPECT_EQ(RegCreateKeyExW(gone, L"child", 0, nullptr, 0, KEY_READ, nullptr, &child, nullptr),
            ERROR_KEY_DELETED);
  EXPECT_EQ(ValueNames(again), std::vector<std::wstring>{});
  EXPECT_EQ(RegCloseKey(gone), ERROR_SUCCESS);
  RegCloseKey(again);
}

TEST_F(WinReg, EnumerationNeedsRoomForTheTerminator) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Room");
  RegCloseKey(Create(key, L"abc"));
  wchar_t name[8];
  DWORD length = 3;
  EXPECT_EQ(RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_MORE_DATA);
  length = 4;
  EXPECT_EQ(RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ(length, 3u);
  EXPECT_STREQ(name, L"abc");
  // A name buffer of no characters: "more data" while there is a value,
  // "no more items" when there is none. RegistrySection::IsEmpty tells by it.
  length = 0;
  EXPECT_EQ(RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_NO_MORE_ITEMS);
  ASSERT_EQ(SetDword(key, L"", 1), ERROR_SUCCESS);
  length = 0;
  EXPECT_EQ(RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_MORE_DATA);
  RegCloseKey(key);
}

TEST_F(WinReg, QueryInfoCountsNamesInCharacters) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Info");
  RegCloseKey(Create(key, L"a"));
  RegCloseKey(Create(key, L"Ärmel☃"));  // 6 characters, 11 bytes of UTF-8
  ASSERT_EQ(SetText(key, L"naïve", L"0123456789"), ERROR_SUCCESS);
  ASSERT_EQ(SetDword(key, L"n", 1), ERROR_SUCCESS);
  DWORD subKeys = 0, maxSubKey = 0, values = 0, maxValueName = 0, maxValue = 0, classLength = 9;
  wchar_t className[4] = {L'x'};
  ASSERT_EQ(RegQueryInfoKeyW(key, className, &classLength, nullptr, &subKeys, &maxSubKey, nullptr,
                             &values, &maxValueName, &maxValue, nullptr, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ(subKeys, 2u);
  EXPECT_EQ(maxSubKey, 6u);
  EXPECT_EQ(values, 2u);
  EXPECT_EQ(maxValueName, 5u);
  EXPECT_EQ(maxValue, 11 * sizeof(wchar_t));
  EXPECT_EQ(classLength, 0u);
  EXPECT_STREQ(className, L"");
  RegCloseKey(key);
}

TEST_F(WinReg, TheLegacyPairWorksOnTheDefaultValue) {
  ASSERT_EQ(RegSetValueW(HKEY_CURRENT_USER, L"Legacy\\Sub", REG_SZ, L"text", 0), ERROR_SUCCESS);
  HKEY key = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Legacy\\Sub", 0, KEY_READ, &key), ERROR_SUCCESS);
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(key, nullptr, type, data), ERROR_SUCCESS);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(data, WideBytes(L"text")) << "the size is the text's, whatever was passed";
  RegCloseKey(key);

  wchar_t text[16];
  LONG size = sizeof text;
  ASSERT_EQ(RegQueryValueW(HKEY_CURRENT_USER, L"Legacy\\Sub", text, &size), ERROR_SUCCESS);
  EXPECT_STREQ(text, L"text");
  size = sizeof text;
  ASSERT_EQ(RegQueryValueW(HKEY_CURRENT_USER, L"Legacy", text, &size), ERROR_SUCCESS);
  EXPECT_STREQ(text, L"") << "a key without a default value reads as empty text";
  EXPECT_EQ(size, static_cast<LONG>(sizeof(wchar_t)));
  EXPECT_EQ(RegSetValueW(HKEY_CURRENT_USER, L"Legacy", REG_DWORD, L"x", 0),
            ERROR_INVALID_PARAMETER);
}

TEST_F(WinReg, ClassesRootIsTheClassesKeyOfTheSystemHive) {
  HKEY key = Create(HKEY_CLASSES_ROOT, L"CLSID\\{0}");
  ASSERT_EQ(SetText(key, nullptr, L"server.so"), ERROR_SUCCESS);
  RegCloseKey(key);
  wchar_t text[16];
  LONG size = sizeof text;
  ASSERT_EQ(RegQueryValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Classes\\CLSID\\{0}", text, &size),
            ERROR_SUCCESS);
  EXPECT_STREQ(text, L"server.so");
  // Beneath HKEY_CLASSES_ROOT (only) a leading separator is allowed.
  ASSERT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L"\\CLSID", 0, KEY_READ, &key), ERROR_SUCCESS);
  HKEY sub = nullptr;
  EXPECT_EQ(RegOpenKeyExW(key, L"\\{0}", 0, KEY_READ, &sub), ERROR_BAD_PATHNAME);
  RegCloseKey(key);
  EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\Classes\\CLSID", 0, KEY_READ, &key),
            ERROR_FILE_NOT_FOUND);
}

TEST_F(WinReg, DeleteTreeRemovesEverythingBelow) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Tree\\a\\b\\c");
  ASSERT_EQ(SetDword(key, L"deep", 1), ERROR_SUCCESS);
  RegCloseKey(key);
  key = Create(HKEY_CURRENT_USER, L"Tree");
  ASSERT_EQ(SetDword(key, L"top", 1), ERROR_SUCCESS);
  RegCloseKey(Create(key, L"x"));
  ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, L"Tree\\a"), ERROR_SUCCESS);
  EXPECT_EQ(SubKeyNames(key), std::vector<std::wstring>{L"x"});
  ASSERT_EQ(RegDeleteTreeW(key, nullptr), ERROR_SUCCESS);
  EXPECT_TRUE(SubKeyNames(key).empty());
  EXPECT_TRUE(ValueNames(key).empty());
  EXPECT_EQ(SetDword(key, L"still there", 1), ERROR_SUCCESS) << "the key itself stays";
  RegCloseKey(key);
}

TEST_F(WinReg, ChangesOutliveTheProcessesConnection) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Kept");
  ASSERT_EQ(SetDword(key, L"v", 7), ERROR_SUCCESS);
  EXPECT_EQ(RegFlushKey(key), ERROR_SUCCESS);
  registry::CloseHives();
  EXPECT_EQ(SetDword(key, L"v", 8), ERROR_INVALID_HANDLE) << "handles end with the store";
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"kept", 0, KEY_READ, &key), ERROR_SUCCESS);
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(key, L"V", type, data), ERROR_SUCCESS);
  DWORD const seven = 7;
  EXPECT_EQ(data, Bytes(&seven, 4));
  RegCloseKey(key);
}

TEST_F(WinReg, ATransactionIsAllOrNothing) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Batch");
  ASSERT_EQ(SetDword(key, L"before", 1), ERROR_SUCCESS);
  {
    RegistryTransaction transaction;
    EXPECT_THROW(RegistryTransaction(), std::logic_error);
    ASSERT_EQ(SetDword(key, L"first", 1), ERROR_SUCCESS);
    RegCloseKey(Create(key, L"Made"));
    ASSERT_EQ(RegDeleteValueW(key, L"before"), ERROR_SUCCESS);
    EXPECT_EQ(ValueNames(key), std::vector<std::wstring>{L"first"}) << "seen inside";
    // A failed change takes back only itself.
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"Batch"), ERROR_ACCESS_DENIED);
  }  // no Commit
  EXPECT_EQ(ValueNames(key), std::vector<std::wstring>{L"before"});
  EXPECT_TRUE(SubKeyNames(key).empty());
  {
    RegistryTransaction transaction;
    ASSERT_EQ(SetDword(key, L"second", 1), ERROR_SUCCESS);
    HKEY machine = Create(HKEY_LOCAL_MACHINE, L"Batch");
    ASSERT_EQ(SetDword(machine, L"both hives", 1), ERROR_SUCCESS);
    RegCloseKey(machine);
    EXPECT_EQ(transaction.Commit(), ERROR_SUCCESS);
  }
  EXPECT_EQ(ValueNames(key), (std::vector<std::wstring>{L"before", L"second"}));
  HKEY machine = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Batch", 0, KEY_READ, &machine), ERROR_SUCCESS);
  EXPECT_EQ(ValueNames(machine), std::vector<std::wstring>{L"both hives"});
  RegCloseKey(machine);
  RegCloseKey(key);
}

}  // namespace
