// The registry functions against real hives: the Win32 semantics that the
// library's registry algorithms rely on, the codes Windows gives for bad
// input, and transactions.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "RegistryTestSupport.h"
#include "platform/RegistryTransaction.h"

namespace {

using List = std::vector<std::wstring>;
using WinReg = RegistryTest;

std::string Bytes(void const * data, size_t size) {
  return std::string(static_cast<char const *>(data), size);
}
std::string WideBytes(std::wstring const & text) {
  return Bytes(text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}
LONG SetText(HKEY key, wchar_t const * name, std::wstring const & text) {
  std::string const data = WideBytes(text);
  return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<BYTE const *>(data.data()),
                        static_cast<DWORD>(data.size()));
}
HKEY Open(HKEY parent, wchar_t const * path, REGSAM access = KEY_READ) {
  HKEY key = nullptr;
  EXPECT_EQ(RegOpenKeyExW(parent, path, 0, access, &key), ERROR_SUCCESS);
  return key;
}

TEST_F(WinReg, NamesCompareWithoutCaseAndKeepTheCaseTheyWereMadeWith) {
  auto const disposition = [](wchar_t const * path) {
    HKEY key = nullptr;
    DWORD made = 0;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_READ, nullptr, &key, &made),
        ERROR_SUCCESS);
    RegCloseKey(key);
    return made;
  };
  EXPECT_EQ(disposition(L"Software\\Äpfel\\App"), static_cast<DWORD>(REG_CREATED_NEW_KEY));
  EXPECT_EQ(disposition(L"SOFTWARE\\äPFEL"), static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
  HKEY root = Create(HKEY_CURRENT_USER, L"software\\ÄPFEL");
  ASSERT_EQ(SetDword(root, L"Colour", 1), ERROR_SUCCESS);
  ASSERT_EQ(SetDword(root, L"COLOUR", 2), ERROR_SUCCESS);
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(root, L"cOlOuR", type, data), ERROR_SUCCESS);
  DWORD const two = 2;
  EXPECT_EQ(data, Bytes(&two, 4));
  EXPECT_EQ(Names(root, true), List{L"Colour"});
  EXPECT_EQ(Names(root), List{L"App"});
  HKEY software = Open(HKEY_CURRENT_USER, L"software");
  EXPECT_EQ(Names(software), List{L"Äpfel"});
  for (HKEY key : {root, software}) RegCloseKey(key);
}

TEST_F(WinReg, SubKeysEnumerateSortedWithoutCaseAndValuesInCreationOrder) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Order");
  for (wchar_t const * name : {L"b", L"C", L"a2", L"A"}) RegCloseKey(Create(key, name));
  EXPECT_EQ(Names(key), (List{L"A", L"a2", L"b", L"C"}));
  for (wchar_t const * name : {L"z", L"a", L"M"}) ASSERT_EQ(SetDword(key, name, 1), ERROR_SUCCESS);
  ASSERT_EQ(SetText(key, L"A", L"rewritten"), ERROR_SUCCESS);  // keeps its place
  ASSERT_EQ(RegDeleteValueW(key, L"z"), ERROR_SUCCESS);
  ASSERT_EQ(SetDword(key, L"Z", 1), ERROR_SUCCESS);  // a new value goes last
  EXPECT_EQ(Names(key, true), (List{L"a", L"M", L"Z"}));
  RegCloseKey(key);
}

TEST_F(WinReg, ValuesKeepTheirTypeAndBytes) {
  DWORD const dword = 0xDEADBEEF;
  struct Case {
    wchar_t const * name;
    DWORD type;
    std::string data;
  } const cases[] = {
      {L"", REG_SZ, WideBytes(L"default value")},
      {L"text", REG_SZ, WideBytes(L"naïve ☃")},
      {L"embedded nul", REG_SZ, Bytes(L"a\0b", 4 * sizeof(wchar_t))},
      {L"unterminated", REG_SZ, Bytes(L"ab", 2 * sizeof(wchar_t))},
      {L"multi", REG_MULTI_SZ, Bytes(L"one\0two\0", 9 * sizeof(wchar_t))},
      {L"binary", REG_BINARY, std::string("\0\1\2\0\xff", 5)},
      {L"short dword", REG_DWORD, Bytes(&dword, 2)},
      {L"empty", REG_BINARY, ""},
      {L"odd type", 0x12345, "y"},
  };
  HKEY key = Create(HKEY_CURRENT_USER, L"Types");
  for (Case const & c : cases)
    ASSERT_EQ(RegSetValueExW(key, c.name, 0, c.type, reinterpret_cast<BYTE const *>(c.data.data()),
                             static_cast<DWORD>(c.data.size())),
              ERROR_SUCCESS);
  for (DWORD index = 0; index < std::size(cases); ++index) {
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
    ASSERT_EQ(RegEnumValueW(key, index, name, &nameLength, nullptr, &type, buffer, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name, nameLength), c.name);
    EXPECT_EQ(Bytes(buffer, size), c.data);
  }
  RegCloseKey(key);
}

TEST_F(WinReg, ShortBuffersGetMoreDataAndTheSizeNeeded) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Sizes");
  ASSERT_EQ(SetText(key, L"text", L"abc"), ERROR_SUCCESS);
  wchar_t buffer[4];
  DWORD size = 3 * sizeof(wchar_t);
  EXPECT_EQ(
      RegQueryValueExW(key, L"text", nullptr, nullptr, reinterpret_cast<BYTE *>(buffer), &size),
      ERROR_MORE_DATA);
  EXPECT_EQ(size, 4 * sizeof(wchar_t)) << "the size needed";
  // Enumerated names need room for the terminator; the length comes back
  // without it.
  RegCloseKey(Create(key, L"abc"));
  DWORD length = 3;
  EXPECT_EQ(RegEnumKeyExW(key, 0, buffer, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_MORE_DATA);
  length = 4;
  EXPECT_EQ(RegEnumKeyExW(key, 0, buffer, &length, nullptr, nullptr, nullptr, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ(length, 3u);
  // (A buffer of no characters: RegistrySectionTest.IsEmpty* relies on it.)
  RegCloseKey(key);
}

TEST_F(WinReg, BadInputGetsTheCodeWindowsGives) {
  HKEY writable = Create(HKEY_CURRENT_USER, L"Bad");
  RegCloseKey(Create(writable, L"Child"));
  HKEY closed = Create(HKEY_CURRENT_USER, L"Closed");
  RegCloseKey(closed);
  std::wstring const longest(REG_MAX_KEY_NAME_LENGTH, L'k');
  std::wstring const tooLongValue(REG_MAX_VALUE_NAME_LENGTH + 1, L'v');
  std::vector<BYTE> const huge(REG_MAX_VALUE_SIZE + 1, 0);
  wchar_t const notUnicode[] = {L'a', static_cast<wchar_t>(0xD800), L'\0'};
  auto const open = [](HKEY parent, wchar_t const * path, bool create = false) {
    HKEY key = nullptr;
    LONG const rc = create ? RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                             &key, nullptr)
                           : RegOpenKeyExW(parent, path, 0, KEY_READ, &key);
    if (rc == ERROR_SUCCESS) RegCloseKey(key);
    return rc;
  };
  auto const create = [&](HKEY parent, wchar_t const * path) { return open(parent, path, true); };
  auto const query = [&](wchar_t const * name, DWORD * size, DWORD * reserved = nullptr) {
    BYTE buffer[4];
    return RegQueryValueExW(writable, name, reserved, nullptr, size ? nullptr : buffer, size);
  };
  auto const setBinary = [&](BYTE const * data, size_t size) {
    return RegSetValueExW(writable, L"binary", 0, REG_BINARY, data, static_cast<DWORD>(size));
  };
  DWORD size = 0;
  struct Case {
    char const * what;
    std::function<LONG()> call;
    LONG expected;
  } const cases[] = {
      {"a closed handle", [&] { return SetDword(closed, L"x", 1); }, ERROR_INVALID_HANDLE},
      {"closing a predefined key", [&] { return RegCloseKey(HKEY_CURRENT_USER); }, ERROR_SUCCESS},
      {"a handle we do not serve", [&] { return open(HKEY_USERS, L"x"); }, ERROR_INVALID_HANDLE},
      {"a key that does not exist", [&] { return open(HKEY_CURRENT_USER, L"Bad\\None"); },
       ERROR_FILE_NOT_FOUND},
      {"a path with an empty element", [&] { return create(HKEY_CURRENT_USER, L"Bad\\\\x"); },
       ERROR_BAD_PATHNAME},
      {"a path with a trailing separator", [&] { return open(HKEY_CURRENT_USER, L"Bad\\"); },
       ERROR_SUCCESS},
      {"a key name of 255 characters", [&] { return create(writable, longest.c_str()); },
       ERROR_SUCCESS},
      {"a key name of 256 characters", [&] { return create(writable, (longest + L"k").c_str()); },
       ERROR_INVALID_PARAMETER},
      {"creating with no sub-key", [&] { return create(writable, nullptr); }, ERROR_BADKEY},
      {"a value name of 16384 characters",
       [&] { return SetDword(writable, tooLongValue.c_str(), 1); }, ERROR_INVALID_PARAMETER},
      {"a value name that is no Unicode", [&] { return SetDword(writable, notUnicode, 1); },
       ERROR_INVALID_PARAMETER},
      {"querying a name no value can have", [&] { return query(notUnicode, &size); },
       ERROR_FILE_NOT_FOUND},
      {"a buffer without a size", [&] { return query(L"absent", nullptr); },
       ERROR_INVALID_PARAMETER},
      {"a reserved argument", [&] { return query(L"absent", &size, &size); },
       ERROR_INVALID_PARAMETER},
      {"a value too large for the store", [&] { return setBinary(huge.data(), huge.size()); },
       ERROR_NO_SYSTEM_RESOURCES},
      {"a size with no data", [&] { return setBinary(nullptr, 4); }, ERROR_NOACCESS},
      {"no data and no size", [&] { return setBinary(nullptr, 0); }, ERROR_SUCCESS},
      {"deleting a key that has sub-keys", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L"Bad"); },
       ERROR_ACCESS_DENIED},
      {"deleting a key that does not exist",
       [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L"Bad\\None"); }, ERROR_FILE_NOT_FOUND},
      {"deleting the root", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, L""); },
       ERROR_ACCESS_DENIED},
      {"deleting with no sub-key", [&] { return RegDeleteKeyW(HKEY_CURRENT_USER, nullptr); },
       ERROR_INVALID_PARAMETER},
  };
  for (Case const & c : cases) EXPECT_EQ(c.call(), c.expected) << c.what;
  RegCloseKey(writable);
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
  };
  auto const expect = [](bool may, LONG allowed) { return may ? allowed : ERROR_ACCESS_DENIED; };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << std::hex << c.asked);
    HKEY key = Open(HKEY_CURRENT_USER, L"Rights", c.asked);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key, L"absent", nullptr, nullptr, nullptr, &size),
              expect(c.mayQuery, ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(SetDword(key, L"v", 1), expect(c.maySet, ERROR_SUCCESS));
    EXPECT_EQ(RegDeleteValueW(key, L"absent"), expect(c.maySet, ERROR_FILE_NOT_FOUND));
    wchar_t name[8];
    DWORD length = 8;
    EXPECT_EQ(RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr),
              expect(c.mayEnumerate, ERROR_NO_MORE_ITEMS));
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
  EXPECT_EQ(RegQueryInfoKeyW(gone, nullptr, nullptr, nullptr, &size, nullptr, nullptr, nullptr,
                             nullptr, nullptr, nullptr, nullptr),
            ERROR_KEY_DELETED);
  HKEY child = nullptr;
  EXPECT_EQ(RegCreateKeyExW(gone, L"child", 0, nullptr, 0, KEY_READ, nullptr, &child, nullptr),
            ERROR_KEY_DELETED);
  EXPECT_EQ(Names(again, true), List{});
  EXPECT_EQ(RegCloseKey(gone), ERROR_SUCCESS);
  RegCloseKey(again);
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
  EXPECT_EQ(std::vector<DWORD>({subKeys, maxSubKey, values, maxValueName, maxValue, classLength}),
            std::vector<DWORD>({2, 6, 2, 5, 11 * sizeof(wchar_t), 0}));
  EXPECT_STREQ(className, L"");
  RegCloseKey(key);
}

TEST_F(WinReg, TheLegacyPairWorksOnTheDefaultValueOfTheClassesKeyOfTheSystemHive) {
  ASSERT_EQ(RegSetValueW(HKEY_CLASSES_ROOT, L"CLSID\\{0}", REG_SZ, L"server.so", 0), ERROR_SUCCESS);
  HKEY key = Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Classes\\CLSID\\{0}");
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(key, nullptr, type, data), ERROR_SUCCESS);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(data, WideBytes(L"server.so")) << "the size is the text's, whatever was passed";
  RegCloseKey(key);
  wchar_t text[16];
  LONG size = sizeof text;
  ASSERT_EQ(RegQueryValueW(HKEY_CLASSES_ROOT, L"CLSID", text, &size), ERROR_SUCCESS);
  EXPECT_STREQ(text, L"") << "a key without a default value reads as empty text";
  EXPECT_EQ(size, static_cast<LONG>(sizeof(wchar_t)));
  EXPECT_EQ(RegSetValueW(HKEY_CURRENT_USER, L"x", REG_DWORD, L"x", 0), ERROR_INVALID_PARAMETER);
  // Beneath HKEY_CLASSES_ROOT (only) a leading separator is allowed.
  key = Open(HKEY_CLASSES_ROOT, L"\\CLSID");
  HKEY sub = nullptr;
  EXPECT_EQ(RegOpenKeyExW(key, L"\\{0}", 0, KEY_READ, &sub), ERROR_BAD_PATHNAME);
  RegCloseKey(key);
  EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\Classes", 0, KEY_READ, &key),
            ERROR_FILE_NOT_FOUND);
}

TEST_F(WinReg, DeleteTreeRemovesEverythingBelowButTheKeyItself) {
  RegCloseKey(Create(HKEY_CURRENT_USER, L"Tree\\a\\b\\c"));
  HKEY key = Create(HKEY_CURRENT_USER, L"Tree");
  ASSERT_EQ(SetDword(key, L"top", 1), ERROR_SUCCESS);
  RegCloseKey(Create(key, L"x"));
  ASSERT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, L"Tree\\a"), ERROR_SUCCESS);
  EXPECT_EQ(Names(key), List{L"x"});
  ASSERT_EQ(RegDeleteTreeW(key, nullptr), ERROR_SUCCESS);
  EXPECT_TRUE(Names(key).empty());
  EXPECT_TRUE(Names(key, true).empty());
  EXPECT_EQ(SetDword(key, L"still there", 1), ERROR_SUCCESS);
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
    EXPECT_EQ(Names(key, true), List{L"first"}) << "seen inside";
    // A failed change takes back only itself.
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"Batch"), ERROR_ACCESS_DENIED);
  }  // no Commit
  EXPECT_EQ(Names(key, true), List{L"before"});
  EXPECT_TRUE(Names(key).empty());
  {
    RegistryTransaction transaction;
    ASSERT_EQ(SetDword(key, L"second", 1), ERROR_SUCCESS);
    HKEY machine = Create(HKEY_LOCAL_MACHINE, L"Batch");
    ASSERT_EQ(SetDword(machine, L"both hives", 1), ERROR_SUCCESS);
    RegCloseKey(machine);
    EXPECT_EQ(transaction.Commit(), ERROR_SUCCESS);
  }
  EXPECT_EQ(Names(key, true), (List{L"before", L"second"}));
  HKEY machine = Open(HKEY_LOCAL_MACHINE, L"Batch");
  EXPECT_EQ(Names(machine, true), List{L"both hives"});
  for (HKEY k : {key, machine}) RegCloseKey(k);
}

}  // namespace
