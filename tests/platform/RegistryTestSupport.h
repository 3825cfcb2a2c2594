#pragma once
// Each registry test gets hives of its own in a folder named after the test,
// with the store closed before and after, so that no test sees another's keys.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/RegistryNotices.h"
#include "platform/RegistryStore.h"
#include "platform/WinReg.h"
#include "utl/Paths.h"

class RegistryTest : public testing::Test {
protected:
  void SetUp() override {
    auto const * test = testing::UnitTest::GetInstance()->current_test_info();
    char const * tmp = std::getenv("TMPDIR");
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    for (char & c : name)
      if (c == '/') c = '_';
    mFolder = std::string(tmp != nullptr ? tmp : "/tmp") + "/" + name;
    ASSERT_TRUE(VxCreateFolder(mFolder));
    ::setenv("TALVO_REGISTRY_USER_HIVE", UserHive().c_str(), 1);
    ::setenv("TALVO_REGISTRY_SYSTEM_HIVE", SystemHive().c_str(), 1);
    registry::CloseHives();
    registry::TakeNotices();
  }
  void TearDown() override { registry::CloseHives(); }

  std::string UserHive() const { return mFolder + "/user.db"; }
  std::string SystemHive() const { return mFolder + "/system/system.db"; }

  // A key created (or opened) with every right; fails the test otherwise.
  static HKEY Create(HKEY parent, wchar_t const * path) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    return key;
  }
  static LONG SetDword(HKEY key, wchar_t const * name, DWORD value) {
    return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<BYTE const *>(&value), 4);
  }
  // The value's type and bytes, or the code of the failed query.
  static LONG Query(HKEY key, wchar_t const * name, DWORD & type, std::string & data) {
    DWORD size = 0;
    LONG rc = RegQueryValueExW(key, name, nullptr, &type, nullptr, &size);
    if (rc != ERROR_SUCCESS) return rc;
    data.assign(size, '\0');
    rc = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE *>(data.data()), &size);
    data.resize(size);
    return rc;
  }
  // The names of the sub-keys, or of the values, in the order they enumerate.
  static std::vector<std::wstring> Names(HKEY key, bool values = false) {
    std::vector<std::wstring> names;
    wchar_t name[300];
    for (DWORD index = 0, length = 300;; ++index, length = 300) {
      if ((values ? RegEnumValueW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr)
                  : RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr)) !=
          ERROR_SUCCESS)
        return names;
      names.emplace_back(name, length);
    }
  }

  static std::string FileBytes(std::string const & path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  std::string mFolder;
};
