// The .reg text form: what is imported, what is written back, and files that
// are refused with their line number and change nothing.
#include <gtest/gtest.h>

#include "RegistryTestSupport.h"
#include "platform/RegFile.h"
#include "platform/RegFileExport.h"
#include "platform/RegFileImport.h"
#include "utl/Utf.h"

namespace {

using registry::ExportRegFile;
using registry::ImportRegFile;

std::string Export(HKEY root, std::wstring const & path) {
  std::string text;
  ExceptionMessage error;
  EXPECT_TRUE(ExportRegFile(root, path, text, error)) << error.ToString(std::locale::classic());
  return text;
}

bool Import(std::string const & text, std::string * message = nullptr) {
  ExceptionMessage error;
  bool const imported = ImportRegFile(text, error);
  if (message != nullptr) *message = error.ToString(std::locale::classic());
  return imported;
}

std::string WideBytes(wchar_t const * text, size_t length) {
  return std::string(reinterpret_cast<char const *>(text), length * sizeof(wchar_t));
}

std::string Utf16LittleEndianWithMark(std::string const & utf8) {
  std::wstring const wide = vx3::Utf8ToWide(utf8);
  return "\xFF\xFE" + registry::WideBytesToUtf16(WideBytes(wide.data(), wide.size()));
}

using RegFile = RegistryTest;

// Written as this library writes it, so that the export must give it back
// byte for byte.
std::string const kSample =
    "Windows Registry Editor Version 5.00\n"
    "\n"
    "[HKEY_CURRENT_USER\\Software\\Karvinel]\n"
    "\n"
    "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample]\n"
    "@=\"default\"\n"
    "\"Path\"=\"C:\\\\Program Files\\\\\\\"quoted\\\"\"\n"
    "\"Count\"=dword:0000002a\n"
    "\"Blob\"=hex:00,01,ff\n"
    "\"Expand\"=hex(2):25,00,48,00,4f,00,4d,00,45,00,25,00,00,00\n"
    "\"Multi\"=hex(7):61,00,00,00,3d,d8,00,de,00,00,00,00\n"
    "\"Two lines\"=hex(1):61,00,0a,00,62,00,00,00\n"
    "\"Unterminated\"=hex(1):61,00\n"
    "\"Ünïcode ☃\"=\"wert ☃\"\n"
    "\"Long\"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,\\\n"
    "  16,17,18,19,1a,1b,1c,1d,1e,1f,20,21,22,23,24,25,26,27,28,29,2a,2b,2c,2d,2e,\\\n"
    "  2f\n"
    "\n"
    "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample\\a]\n"
    "\n"
    "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample\\B]\n"
    "\"x\"=\"\"\n";

TEST_F(RegFile, WhatIsImportedIsExportedAlike) {
  std::string message;
  ASSERT_TRUE(Import(kSample, &message)) << message;
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software\\Karvinel"), kSample);

  // The export alone cannot tell a decoding that its encoding mirrors.
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Karvinel\\Sample");
  DWORD type = 0;
  std::string data;
  ASSERT_EQ(Query(key, L"Multi", type, data), ERROR_SUCCESS);
  EXPECT_EQ(data, WideBytes(L"a\0\U0001F600\0\0", 5)) << "a surrogate pair in the file";
  ASSERT_EQ(Query(key, L"Path", type, data), ERROR_SUCCESS);
  EXPECT_EQ(data, WideBytes(L"C:\\Program Files\\\"quoted\"", 26));
  RegCloseKey(key);
}

TEST_F(RegFile, FilesWindowsWritesAreRead) {
  // UTF-16 with a byte order mark and CRLF line ends, as regedit writes them.
  std::string const windows = Utf16LittleEndianWithMark(
      "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\W]\r\n"
      "\"Name\"=\"Wert ☃\"\r\n");
  std::string message;
  ASSERT_TRUE(Import(windows, &message)) << message;
  // REGEDIT4: text in hex is 8-bit, read as UTF-8; short root names too.
  ASSERT_TRUE(
      Import("\xEF\xBB\xBFREGEDIT4\n\n[HKCU\\Software\\Four]\n"
             "\"Expand\"=hex(2):25,48,4f,4d,45,25,00\n",
             &message))
      << message;
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software\\W"),
            "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\W]\n"
            "\"Name\"=\"Wert ☃\"\n");
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software\\Four"),
            "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Four]\n"
            "\"Expand\"=hex(2):25,00,48,00,4f,00,4d,00,45,00,25,00,00,00\n");
}

TEST_F(RegFile, KeysAndValuesAreRemoved) {
  ASSERT_TRUE(Import(kSample));
  std::string message;
  ASSERT_TRUE(
      Import("Windows Registry Editor Version 5.00\n"
             "[-HKEY_CURRENT_USER\\Software\\Karvinel\\Sample\\B]\n"
             "[-HKEY_CURRENT_USER\\Software\\Karvinel\\Never There]\n"
             "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample]\n"
             "\"Count\"=-\n\"Never there\"=-\n",
             &message))
      << message;
  std::string const text = Export(HKEY_CURRENT_USER, L"Software\\Karvinel\\Sample");
  EXPECT_EQ(text.find("Count"), std::string::npos);
  EXPECT_EQ(text.find("Sample\\B]"), std::string::npos);
  EXPECT_NE(text.find("Sample\\a]"), std::string::npos);
}

TEST_F(RegFile, AMalformedFileIsRefusedWithItsLineAndChangesNothing) {
  ASSERT_TRUE(Import(kSample));
  std::string const before = Export(HKEY_CURRENT_USER, L"Software");
  std::string const header = "Windows Registry Editor Version 5.00\n";
  std::string const key = "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample]\n\"Count\"=dword:7\n";
  struct Case {
    char const * what;
    std::string text;
    int line;
  } const cases[] = {
      {"no header", "[HKEY_CURRENT_USER\\Software]\n", 1},
      {"an unknown version", "\n\nWindows Registry Editor Version 4.00\n", 3},
      {"nothing at all", "", 1},
      {"a value before any key", header + "\n\"x\"=\"y\"\n", 3},
      {"an unknown root", header + key + "[HKEY_USERS\\x]\n", 4},
      {"a key without \"]\"", header + key + "[HKEY_CURRENT_USER\\x\n", 4},
      {"a key name too long", header + key + "[HKCU\\" + std::string(256, 'k') + "]\n", 4},
      {"a root removed", header + key + "[-HKEY_CURRENT_USER]\n", 4},
      {"a value under a removed key", header + "[-HKCU\\x]\n\"v\"=\"w\"\n", 3},
      {"an unknown escape", header + key + "\"v\"=\"a\\nb\"\n", 4},
      {"a quote that does not end", header + key + "\"v\"=\"abc\n", 4},
      {"a dword of nine digits", header + key + "\"v\"=dword:123456789\n", 4},
      {"a byte of three digits", header + key + "\"v\"=hex:00,100\n", 4},
      {"hex going on past the end", header + key + "\"v\"=hex:00,\\", 4},
      {"a bad byte on a continued line", header + key + "\"v\"=hex:00,\\\n  01,zz\n", 5},
      {"an unknown form", header + key + "\"v\"=qword:1\n", 4},
      {"a stray line", header + key + "something\n", 4},
      {"invalid UTF-8", header + key + "\"v\"=\"\xC3\x28\"\n", 4},
      {"a NUL in a name", header + key + std::string("\"a\0b\"=dword:1\n", 14), 4},
  };
  for (Case const & c : cases) {
    std::string message;
    EXPECT_FALSE(Import(c.text, &message)) << c.what;
    EXPECT_EQ(message.rfind("Line " + std::to_string(c.line) + ":", 0), 0u)
        << c.what << ": " << message;
  }
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software"), before);
}

TEST_F(RegFile, AChangeThatFailsTakesBackTheWholeImport) {
  // The system hive cannot be made here: every change to it is refused.
  ::setenv("TALVO_REGISTRY_SYSTEM_HIVE", "/proc/talvo-no-such-folder/system.db", 1);
  registry::CloseHives();
  ASSERT_TRUE(Import(kSample));
  std::string const before = Export(HKEY_CURRENT_USER, L"Software");
  std::string message;
  EXPECT_FALSE(
      Import("Windows Registry Editor Version 5.00\n"
             "[HKEY_CURRENT_USER\\Software\\Karvinel\\Sample]\n"
             "\"Count\"=dword:00000007\n"
             "[HKEY_CURRENT_USER\\Software\\New]\n"
             "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Locked]\n",
             &message));
  EXPECT_EQ(message.rfind("Line 5: ", 0), 0u) << message;
  EXPECT_NE(message.find("Access is denied."), std::string::npos) << message;
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software"), before);
}

TEST_F(RegFile, ADryRunChecksAndChangesNothing) {
  ExceptionMessage error;
  ASSERT_TRUE(ImportRegFile(kSample, error, registry::ImportMode::DryRun));
  HKEY key = nullptr;
  EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegFile, ExportRefusesWhatNoFileCanCarry) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Odd");
  ASSERT_EQ(SetDword(key, L"two\nlines", 1), ERROR_SUCCESS);
  RegCloseKey(key);
  std::string text;
  ExceptionMessage error;
  EXPECT_FALSE(ExportRegFile(HKEY_CURRENT_USER, L"Software", text, error));
  EXPECT_NE(error.ToString(std::locale::classic()).find("line break"), std::string::npos);
  EXPECT_FALSE(ExportRegFile(HKEY_CURRENT_USER, L"Software\\Missing", text, error));
  EXPECT_NE(error.ToString(std::locale::classic()).find("cannot find"), std::string::npos);
}

TEST_F(RegFile, SavingReplacesTheFileWhole) {
  std::string const file = mFolder + "/out.reg";
  ExceptionMessage error;
  ASSERT_TRUE(registry::SaveRegFile(file, "first", error));
  ASSERT_TRUE(registry::SaveRegFile(file, kSample, error));
  EXPECT_EQ(FileBytes(file), kSample);
  EXPECT_FALSE(registry::SaveRegFile(mFolder + "/no/such/folder/x.reg", kSample, error));
  EXPECT_NE(error.ToString(std::locale::classic()).find("cannot be written"), std::string::npos);
}

TEST(RegFileText, StringTypesConvertBetweenUtf16AndWideText) {
  struct Case {
    std::string utf16;
    std::wstring wide;
  } const cases[] = {
      {std::string("a\0\0\0", 4), std::wstring(L"a\0", 2)},
      {std::string("\x3d\xd8\x00\xde", 4), L"\U0001F600"},  // a surrogate pair
      {std::string("\x3d\xd8", 2), L"\uFFFD"},              // a lone high surrogate
      {std::string("\x00\xde"
                   "b\x00",
                   4),
       L"\uFFFDb"},                    // a lone low surrogate
      {std::string("a\0b", 3), L"a"},  // half a unit at the end
  };
  for (Case const & c : cases) {
    std::string const wide = registry::Utf16ToWideBytes(c.utf16);
    EXPECT_EQ(wide, WideBytes(c.wide.data(), c.wide.size()));
    std::string const back = registry::WideBytesToUtf16(wide);
    EXPECT_EQ(registry::Utf16ToWideBytes(back), wide) << "stable once converted";
  }
}

}  // namespace
