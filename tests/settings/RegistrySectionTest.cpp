// RegistrySection on real hives: the value encodings, the moves through the
// tree, and the behaviour callers rely on, quirks included.
#include <gtest/gtest.h>

#include <memory>

#include "platform/RegistryTestSupport.h"
#include "settings/RegistrySection.h"
#include "utl/Exception.h"

namespace {

constexpr REGSAM kReadWrite = 0x2001F;

class RegistrySectionTest : public RegistryTest {
protected:
  // A section on HKCU\`path`, made if absent.
  static std::unique_ptr<RegistrySection> Section(char const * path, REGSAM access = kReadWrite) {
    return std::make_unique<RegistrySection>(HKEY_CURRENT_USER, path, access, true);
  }
  static bool Exists(wchar_t const * path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
  static std::string Why(char const * path, bool create) {
    try {
      RegistrySection const opened(HKEY_CURRENT_USER, path, kReadWrite, create);
      return "no exception";
    } catch (Exception const & e) {
      return e.Why(std::locale::classic());
    }
  }
};

TEST_F(RegistrySectionTest, OpeningFailsLoudlyInTheConstructorAndQuietlyLater) {
  EXPECT_EQ(Why("Software\\Missing", false), "Registry Key not found.");
  EXPECT_EQ(Why("Software\\\\Empty element", true), "Registry Key couldn't be created.");
  EXPECT_EQ(Why("Software\\Made", true), "no exception");
  EXPECT_EQ(Why("software\\made", false), "no exception");

  RegistrySection section;
  int number = 5;
  EXPECT_FALSE(section.ReadInt("n", number));
  EXPECT_EQ(number, 5);
  EXPECT_FALSE(section.WriteInt("n", 1));
  EXPECT_TRUE(section.GetSectionNames().empty());
  EXPECT_FALSE(section.Open(HKEY_CURRENT_USER, "Software\\Missing", KEY_READ, false));
  EXPECT_FALSE(section.Open(HKEY_CURRENT_USER, "\\Bad", kReadWrite, true));
  EXPECT_TRUE(section.Open(HKEY_CURRENT_USER, "Software\\Other", kReadWrite, true));
  EXPECT_TRUE(section.WriteInt("n", 1));
}

TEST_F(RegistrySectionTest, ValuesAreReadOnlyInTheirOwnType) {
  auto section = Section("Software\\Values");
  ASSERT_TRUE(section->WriteInt("dword", 2));
  ASSERT_TRUE(section->WriteKey("text", "naïve ☃"));
  ASSERT_TRUE(section->WriteKey("empty", ""));
  ASSERT_TRUE(section->WriteKey("four", std::string("1234")));
  ASSERT_TRUE(section->WriteBool("on", true));
  ASSERT_TRUE(section->WriteFloat("ratio", 0.25));

  std::string text = "untouched";
  EXPECT_FALSE(section->ReadKey("dword", text)) << "a DWORD is no text";
  EXPECT_EQ(text, "untouched");
  int number = 9;
  EXPECT_FALSE(section->ReadInt("four", number)) << "text is no DWORD, even of 4 bytes";
  EXPECT_FALSE(section->ReadInt("empty", number)) << "nor the empty text of 4 bytes";
  EXPECT_EQ(number, 9);
  bool flag = false;
  EXPECT_TRUE(section->ReadBool("dword", flag));
  EXPECT_TRUE(flag) << "2 reads as true";
  std::wstring wide;
  EXPECT_TRUE(section->ReadKey("TEXT", wide));
  EXPECT_EQ(wide, L"naïve ☃");
  double ratio = 0;
  EXPECT_TRUE(section->ReadDouble("ratio", ratio)) << "through the base's text form";
  EXPECT_EQ(ratio, 0.25);

  // The stored forms: REG_DWORD of 4 bytes, REG_SZ with its terminator.
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Values");
  DWORD onType = 0, fourType = 0;
  std::string on, four;
  ASSERT_EQ(Query(key, L"on", onType, on), ERROR_SUCCESS);
  ASSERT_EQ(Query(key, L"four", fourType, four), ERROR_SUCCESS);
  EXPECT_EQ(onType, static_cast<DWORD>(REG_DWORD));
  EXPECT_EQ(on, std::string("\1\0\0\0", 4));
  EXPECT_EQ(fourType, static_cast<DWORD>(REG_SZ));
  EXPECT_EQ(four.size(), 5 * sizeof(wchar_t));
  RegCloseKey(key);

  EXPECT_TRUE(section->HasKey("Dword"));
  EXPECT_TRUE(section->DeleteKey("dword"));
  EXPECT_FALSE(section->HasKey("dword"));
  EXPECT_FALSE(section->DeleteKey("dword"));
}

TEST_F(RegistrySectionTest, TextReadsUpToItsFirstNulOrItsEnd) {
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Raw");
  ASSERT_EQ(RegSetValueExW(key, L"raw", 0, REG_SZ, reinterpret_cast<BYTE const *>(L"abc"),
                           3 * sizeof(wchar_t)),
            ERROR_SUCCESS);
  ASSERT_EQ(RegSetValueExW(key, L"nul", 0, REG_SZ, reinterpret_cast<BYTE const *>(L"ab\0cd"),
                           6 * sizeof(wchar_t)),
            ERROR_SUCCESS);
  RegCloseKey(key);
  auto section = Section("Software\\Raw", KEY_READ);
  std::string text;
  EXPECT_TRUE(section->ReadKey("raw", text));
  EXPECT_EQ(text, "abc");
  EXPECT_TRUE(section->ReadKey("nul", text));
  EXPECT_EQ(text, "ab");
  EXPECT_FALSE(section->WriteKey("t", "x")) << "a section opened for reading";
  EXPECT_FALSE(section->DeleteKey("raw"));
}

TEST_F(RegistrySectionTest, IsEmptyIsTrueWhenTheKeyHasAValue) {
  auto section = Section("Software\\Empty");
  delete section->CreateSubSection("Child");
  EXPECT_FALSE(section->IsEmpty()) << "no values (a sub-key does not count)";
  section->WriteInt("n", 1);
  EXPECT_TRUE(section->IsEmpty()) << "one value";
}

TEST_F(RegistrySectionTest, ChangeSubSectionMovesDownOrStays) {
  auto section = Section("Software\\Down");
  delete section->CreateSubSection("Item", 3);
  section->WriteInt("level", 0);
  EXPECT_FALSE(section->ChangeSubSection("missing"));
  int level = -1;
  EXPECT_TRUE(section->ReadInt("level", level)) << "still on the old key";
  EXPECT_TRUE(section->HasSection("Item 3", 1));
  EXPECT_FALSE(section->HasSection("Item 4", 1));
  EXPECT_TRUE(section->ChangeSubSection("Item", 3));
  EXPECT_FALSE(section->ReadInt("level", level));
  // The path grew by "\Item 3": a sideways move now stays below "Down".
  section->ChangeSection("\\Item 4");
  EXPECT_TRUE(Exists(L"Software\\Down\\Item 4"));
}

TEST_F(RegistrySectionTest, ChangeSectionJoinsTheNameAsItIs) {
  auto section = Section("Software\\A\\B");
  section->ChangeSection("\\C");
  EXPECT_TRUE(Exists(L"Software\\A\\C"));
  section->ChangeSection("D");  // no separator of its own: "Software\A" + "D"
  EXPECT_TRUE(Exists(L"Software\\AD"));
  RegistrySection top(HKEY_CURRENT_USER, "First", kReadWrite, true);
  top.ChangeSection("Second");  // no "\" in the path: a sibling under the parent
  EXPECT_TRUE(Exists(L"Second"));
  section->ChangeSection("\\\\bad");  // neither opens nor is created: it stays
  EXPECT_TRUE(section->WriteInt("still", 1));
  int value = 0;
  EXPECT_TRUE(Section("Software\\AD", KEY_READ)->ReadInt("still", value));
}

TEST_F(RegistrySectionTest, DeleteSectionRemovesOnlyAKeyWithoutSubKeys) {
  auto leaf = Section("Software\\Leaf");
  leaf->WriteInt("n", 1);
  EXPECT_TRUE(leaf->DeleteSection());
  EXPECT_FALSE(Exists(L"Software\\Leaf"));

  auto tree = Section("Software\\Tree");
  for (char const * name : {"a", "b", "cc"}) delete tree->CreateSubSection(name);
  EXPECT_FALSE(tree->DeleteSection());
  EXPECT_TRUE(Exists(L"Software\\Tree")) << "sub-keys are left behind";
  // "a" goes; the index steps on past "b", which moved to its place; "cc"
  // does not fit the buffer of the longest name and ends the walk.
  EXPECT_EQ(tree->GetSectionNames(), (std::vector<std::string>{"b", "cc"}));
}

TEST_F(RegistrySectionTest, SectionsMadeFromASectionStandOnItsKey) {
  auto section = Section("Software\\Made");
  section->WriteInt("n", 7);
  std::unique_ptr<ConfigurationSection> copy(section->Copy());
  int number = 0;
  EXPECT_TRUE(copy->ReadInt("n", number));
  EXPECT_EQ(number, 7);
  EXPECT_TRUE(copy->WriteInt("m", 8)) << "with the source's access";
  EXPECT_THROW(delete section->CreateSubSection("\\bad"), Exception);
  for (int index : {2, 1}) delete section->CreateSubSection("Item", index);
  delete section->CreateSubSection("Child");
  EXPECT_EQ(section->GetSectionNames(), (std::vector<std::string>{"Child", "Item 1", "Item 2"}));
  EXPECT_EQ(section->NumSubSections("Item"), 2);
  EXPECT_FALSE(section->WriteToSection(copy.get()));
}

}  // namespace
