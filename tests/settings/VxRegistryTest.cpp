// The registry helpers: plain reads and writes, removal of whole trees, name
// listings, the installation path and the class registration check.
#include <gtest/gtest.h>

#include <fstream>

#include "platform/RegistryTestSupport.h"
#include "settings/RegistryBaseKeyName.h"
#include "settings/VxRegistry.h"
#include "utl/Exception.h"
#include "utl/VxSystemInfo.h"

namespace {

using VxRegistry = RegistryTest;

std::string Why(Exception const & e) { return e.Why(std::locale::classic()); }

TEST_F(VxRegistry, TextGoesInAndComesOutAndDeletingAValueWithoutItsKeySucceeds) {
  EXPECT_TRUE(VxSetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "value ☃", "Name"));
  EXPECT_TRUE(VxSetRegKey(HKEY_CURRENT_USER, "Software\\Vx\\Deeper", "the default", nullptr));
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "name", "fallback"), "value ☃");
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx\\Deeper", "", "fallback"), "the default");

  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Vx");
  ASSERT_EQ(SetDword(key, L"Large", 0xFFFFFFFF), ERROR_SUCCESS);
  ASSERT_EQ(RegSetValueExW(key, L"Bytes", 0, REG_BINARY, reinterpret_cast<BYTE const *>("ab"), 2),
            ERROR_SUCCESS);
  RegCloseKey(key);
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "Large", nullptr), "4294967295");
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "Bytes", nullptr), "\u6261")
      << "any other type is read as wide text: 'a' 'b' is one character";
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "Missing", "fallback"), "fallback");
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\None", "Name", "fallback"), "fallback");
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\None", "Name", nullptr), "");

  EXPECT_FALSE(VxSetRegKey(HKEY_CURRENT_USER, "\\Bad", "x", "Name"));

  EXPECT_TRUE(VxDeleteRegValue(HKEY_CURRENT_USER, "Software\\Nowhere", "Name")) << "no key: true";
  EXPECT_FALSE(VxDeleteRegValue(HKEY_CURRENT_USER, "Software\\Vx", "Missing"));
  EXPECT_TRUE(VxDeleteRegValue(HKEY_CURRENT_USER, "Software\\Vx", "Name"));
  EXPECT_EQ(VxGetRegKey(HKEY_CURRENT_USER, "Software\\Vx", "Name", "gone"), "gone");
}

TEST_F(VxRegistry, DeleteRegKeyRemovesTheWholeTree) {
  for (char const * path : {"Software\\T\\a\\x", "Software\\T\\a\\y", "Software\\T\\b",
                            "Software\\T\\c\\d\\e", "Software\\Keep"})
    ASSERT_TRUE(VxSetRegKey(HKEY_CURRENT_USER, path, "v", "n"));
  EXPECT_EQ(VxDeleteRegKey(HKEY_CURRENT_USER, ""), ERROR_BADKEY);
  std::vector<std::string> names;
  ASSERT_TRUE(VxGetRegSubKeys(HKEY_CURRENT_USER, "Software", names));
  EXPECT_EQ(names, (std::vector<std::string>{"Keep", "T"})) << "the empty name touched nothing";

  EXPECT_EQ(VxDeleteRegKey(HKEY_CURRENT_USER, "Software\\T"), ERROR_SUCCESS);
  names.clear();
  ASSERT_TRUE(VxGetRegSubKeys(HKEY_CURRENT_USER, "Software", names));
  EXPECT_EQ(names, std::vector<std::string>{"Keep"});
  EXPECT_EQ(VxDeleteRegKey(HKEY_CURRENT_USER, "Software\\T"), ERROR_FILE_NOT_FOUND);
}

TEST_F(VxRegistry, NameListingsAppendInTheRegistrysOrder) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\List");
  for (wchar_t const * name : {L"beta", L"Alpha", L"gamma"}) RegCloseKey(Create(key, name));
  for (wchar_t const * name : {L"z", L"a"}) SetDword(key, name, 1);
  std::wstring const tooLong(260, L'x');
  SetDword(key, tooLong.c_str(), 1);
  SetDword(key, L"after", 1);
  RegCloseKey(key);

  std::vector<std::string> names = {"kept"};
  EXPECT_TRUE(VxGetRegSubKeys(HKEY_CURRENT_USER, "Software\\List", names));
  EXPECT_EQ(names, (std::vector<std::string>{"kept", "Alpha", "beta", "gamma"}));
  names.clear();
  EXPECT_TRUE(VxGetRegValues(HKEY_CURRENT_USER, "Software\\List", names));
  EXPECT_EQ(names, (std::vector<std::string>{"z", "a"})) << "a name of 260 ends the listing";
  EXPECT_FALSE(VxGetRegValues(HKEY_CURRENT_USER, "Software\\Nowhere", names));
}

TEST_F(VxRegistry, TheInstallationPathComesFromTheSystemHive) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  EXPECT_EQ(GetRegistryBaseKeyName(), "SOFTWARE\\Karvinel\\Analyzer\\6.3");
  try {
    RegGetInstallationPath();
    ADD_FAILURE() << "no exception";
  } catch (Exception const & e) {
    EXPECT_EQ(Why(e),
              "The location of the Analyzer install folder was not found in the registry. Make "
              "sure you have used the setup program to install Analyzer.");
  }
  std::string const folder = "/opt/karvinel/" + std::string(116, 'a');  // 130 characters
  ASSERT_TRUE(VxSetRegKey(HKEY_LOCAL_MACHINE, "SOFTWARE\\Karvinel\\Analyzer\\6.3\\Install",
                          folder.c_str(), "Path"));
  EXPECT_THROW(RegGetInstallationPath(), Exception) << "no room for the terminator";
  ASSERT_TRUE(VxSetRegKey(HKEY_LOCAL_MACHINE, "SOFTWARE\\Karvinel\\Analyzer\\6.3\\Install",
                          folder.substr(0, 129).c_str(), "Path"));
  EXPECT_EQ(RegGetInstallationPath(), folder.substr(0, 129));
  VxSystemInfo::SetApplication("TALVOutlwin", "0.1");
}

TEST_F(VxRegistry, VerifyRegisteredFindsTheClassAndItsServerFile) {
  GUID const clsid = {0xADB880A6, 0xD8FF, 0x11CF, {0x93, 0x77, 0x00, 0xAA, 0x00, 0x3B, 0x7A, 0x11}};
  char const * const key = "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}";
  auto const verdict = [&](std::string const & name) -> std::string {
    try {
      VerifyRegistered(clsid, name);
      return "registered";
    } catch (Exception const & e) {
      return Why(e);
    }
  };
  EXPECT_EQ(verdict(""),
            "The ActiveX control is not correctly registered. Make sure you have run the setup "
            "program to install this program.");
  VxSetRegKey(HKEY_CLASSES_ROOT, key, "", "AppID");
  EXPECT_EQ(verdict("Help viewer"),
            "The Help viewer could not be found. Make sure you have run the setup program to "
            "install this program.");
  std::string const server = mFolder + "/server.so";
  VxSetRegKey(HKEY_CLASSES_ROOT, (std::string(key) + "\\InProcServer32").c_str(), server.c_str(),
              nullptr);
  EXPECT_NE(verdict("Help viewer").find("could not be found"), std::string::npos)
      << "no such file yet";
  std::ofstream(server) << "x";
  EXPECT_EQ(verdict("Help viewer"), "registered");
  VxSetRegKey(HKEY_CLASSES_ROOT, (std::string(key) + "\\InProcServer32").c_str(), "", nullptr);
  EXPECT_EQ(verdict("Help viewer"), "registered") << "an empty server passes";
}

}  // namespace
