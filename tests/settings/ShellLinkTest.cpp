// Shortcuts as desktop entries: the text form, round trips of the four slots
// through files and buffers, and files that are no desktop entries.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "platform/WinError.h"
#include "settings/DesktopEntry.h"
#include "settings/VxShellLink.h"
#include "utl/TestFiles.h"
#include "utl/Utf.h"

namespace {

TEST(DesktopEntry, WritesTheFormatsEscapes) {
  DesktopShortcut shortcut;
  shortcut.path = "/opt/My App/bin/run \"x\" $HOME `id` 100%\\";
  shortcut.arguments = "--size 50% \"two words\"";
  shortcut.description = " Spaced\tand\nnew line ";
  shortcut.workingDirectory = "C:\\data";
  EXPECT_EQ(FormatDesktopEntry(shortcut, "Analyser"),
            "[Desktop Entry]\nType=Application\nVersion=1.5\nName=Analyser\n"
            "Comment=\\sSpaced\\tand\\nnew line\\s\n"
            "Exec=\"/opt/My App/bin/run \\\\\"x\\\\\" \\\\$HOME \\\\`id\\\\` 100%%\\\\\\\\\" "
            "--size 50%% \"two words\"\n"
            "Path=C:\\\\data\n");
}

TEST(DesktopEntry, RoundTripsEverySlotExactly) {
  std::vector<DesktopShortcut> const cases = {
      {" lead and trail ", "  ", " ", "  spaced  args  "},
      {"\"\"", "\\\\ \\s \\n", "%%%", "%f %U \"quoted arg\" \\back"},
      {"/opt/Ünïcødé/☃", "Описание 説明", "/tmp/é", "--name=ß"},
      {"", "", "", ""},
      {std::nullopt, std::nullopt, std::nullopt, "arguments without a program"},
      {"/no/arguments", "only a comment", std::nullopt, std::nullopt},
      {"tab\there", "line\r\nbreaks", "back\\", "ends with a backslash \\"},
  };
  for (DesktopShortcut const & original : cases) {
    std::string const text = FormatDesktopEntry(original, "Name");
    DesktopShortcut parsed;
    std::string error;
    ASSERT_TRUE(ParseDesktopEntry(text, parsed, error)) << error << "\n" << text;
    DesktopShortcut expected = original;
    if (!expected.path && expected.arguments) expected.path = "";  // Exec needs a program
    EXPECT_TRUE(parsed == expected) << text;
  }
}

TEST(DesktopEntry, ReadsForeignFilesAndRefusesMalformedOnes) {
  DesktopShortcut shortcut;
  std::string error;
  ASSERT_TRUE(
      ParseDesktopEntry("# made elsewhere\r\n\r\n[Desktop Entry]\r\nName=Edit\r\n"
                        "Exec = gedit %U\r\nComment[de]=Bearbeiten\r\nComment=Edit\r\n"
                        "[Desktop Action new]\r\nExec=other\r\n",
                        shortcut, error))
      << error;
  EXPECT_EQ(shortcut.path, std::optional<std::string>("gedit"));
  EXPECT_EQ(shortcut.arguments, std::optional<std::string>("%U"));
  EXPECT_EQ(shortcut.description, std::optional<std::string>("Edit"));

  struct Case {
    char const * text;
    char const * why;
  };
  Case const cases[] = {
      {"", "no group"},
      {"Name=x\n[Desktop Entry]\n", "an entry before the group"},
      {"[Other]\n[Desktop Entry]\nExec=x\n", "another group first"},
      {"[Desktop Entry\nExec=x\n", "an open header"},
      {"[Desktop Entry]\nExec=\"unclosed\n", "an unclosed quote"},
      {"[Desktop Entry]\nExec=\"prog\"tail\n", "a tail glued to the program"},
      {"[Desktop Entry]\nExec=x\nExec=y\n", "a key twice"},
      {"[Desktop Entry]\njust text\n", "no equals sign"},
      {"[Desktop Entry]\nBad Key=1\n", "a blank in a key"},
      {"[Desktop Entry]\nComment[=x\n", "an open locale"},
      {"[Desktop Entry]\nComment=\xff\xfe\n", "invalid UTF-8"},
  };
  for (Case const & c : cases) {
    DesktopShortcut untouched;
    untouched.path = "kept";
    error.clear();
    EXPECT_FALSE(ParseDesktopEntry(c.text, untouched, error)) << c.why;
    EXPECT_FALSE(error.empty()) << c.why;
    EXPECT_EQ(untouched.path, std::optional<std::string>("kept")) << c.why;
  }
}

TEST(ShellLink, CreateAndResolveKeepAllFourSlots) {
  std::wstring const file = vx3::Utf8ToWide(Temp("Analyser ☃.desktop"));
  // path, description, working directory, arguments
  std::wstring slots[4] = {L"/opt/Analyser/bin/analyser \"beta\" 100%", L" Start the analyser ",
                           L"/home/user/Données\\x", L"--open \"/data/a b.csv\" %f"};
  VxShellLink::LinkInfo in{&slots[0][0], 0, &slots[1][0], 0, &slots[2][0], 0, &slots[3][0], 0};
  ASSERT_EQ(VxShellLink::CreateLink(file.c_str(), &in), S_OK);
  std::string const text = Slurp(vx3::WideToUtf8(file));
  EXPECT_NE(text.find("\nName=Analyser ☃\n"), std::string::npos) << text;
  struct stat info {};
  EXPECT_TRUE(::stat(vx3::WideToUtf8(file).c_str(), &info) == 0 && (info.st_mode & S_IXUSR))
      << "a launcher is executable";

  wchar_t out[4][260] = {};
  VxShellLink::LinkInfo resolved{out[0], 260, out[1], 260, out[2], 260, out[3], 260};
  ASSERT_EQ(VxShellLink::ResolveLink(file.c_str(), &resolved), S_OK);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(std::wstring(out[i]), slots[i]) << i;

  // Only slots with a buffer and a size are filled, and never beyond it.
  wchar_t small[5] = L"????";
  wchar_t untouched[4] = L"abc";
  VxShellLink::LinkInfo partial{small, 5, untouched, 0, nullptr, 10, nullptr, 0};
  ASSERT_EQ(VxShellLink::ResolveLink(file.c_str(), &partial), S_OK);
  EXPECT_EQ(std::wstring(small), L"/opt");
  EXPECT_EQ(std::wstring(untouched), L"abc");

  // A slot left out is written as nothing and read back empty.
  in.path = in.arguments = nullptr;
  ASSERT_EQ(VxShellLink::CreateLink(file.c_str(), &in), S_OK);
  EXPECT_EQ(Slurp(vx3::WideToUtf8(file)).find("Exec="), std::string::npos);
  ASSERT_EQ(VxShellLink::ResolveLink(file.c_str(), &resolved), S_OK);
  EXPECT_EQ(std::wstring(out[0]), L"");
  EXPECT_EQ(std::wstring(out[1]), slots[1]);
}

TEST(ShellLink, FailuresAreHresultsAndTouchNoSlot) {
  std::string const garbage = Temp("garbage.desktop");
  char const garbageBytes[] = "MZ\x90\x00 not a desktop entry";  // past the NUL too
  Spit(garbage, std::string(garbageBytes, sizeof garbageBytes - 1));
  std::string const huge = Temp("huge.desktop");
  Spit(huge, "[Desktop Entry]\nComment=" + std::string(2 << 20, 'x') + "\n");

  struct Case {
    std::string file;
    long expected;
  } const cases[] = {
      {Temp("missing.desktop"), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)},
      {garbage, HRESULT_FROM_WIN32(ERROR_BAD_FORMAT)},
      {huge, HRESULT_FROM_WIN32(ERROR_BAD_FORMAT)},
  };
  for (Case const & c : cases) {
    wchar_t slot[8] = L"same";
    VxShellLink::LinkInfo out{slot, 8, nullptr, 0, nullptr, 0, nullptr, 0};
    EXPECT_EQ(VxShellLink::ResolveLink(vx3::Utf8ToWide(c.file).c_str(), &out), c.expected)
        << c.file;
    EXPECT_EQ(std::wstring(slot), L"same") << c.file;
  }

  VxShellLink::LinkInfo in;
  EXPECT_EQ(VxShellLink::CreateLink(nullptr, &in), E_POINTER);
  EXPECT_EQ(VxShellLink::ResolveLink(L"/x", nullptr), E_POINTER);
  EXPECT_EQ(VxShellLink::CreateLink(L"/no/such/folder/x.desktop", &in), E_FAIL);
}

}  // namespace
