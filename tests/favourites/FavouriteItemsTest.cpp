// The favourite items, their stored form and the factory that rebuilds them,
// without a display.

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "favourites/FavouriteBuilder.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItemClass.h"
#include "favourites/SeparatorItem.h"
#include "favourites/ToolBarResource.h"
#include "utl/XercesXMLSection.h"

namespace {

std::unique_ptr<XercesXMLSection> Parse(std::string const & xml) {
  return std::unique_ptr<XercesXMLSection>(XercesXMLSection::CreateXMLSectionFromString(
      ("<?xml version=\"1.0\" encoding=\"UTF-8\"?><Settings format=\"1\">" + xml + "</Settings>")
          .c_str()));
}

std::string Key(char const * name, std::string const & value) {
  return std::string("<Key name=\"") + name + "\">" + value + "</Key>";
}

std::unique_ptr<FavouriteItem> Build(std::string const & keys) {
  auto const section = Parse(keys);
  return std::unique_ptr<FavouriteItem>(FavouriteBuilder::Instance()->Load(section.get()));
}

std::string TempPath(char const * name) {
  char const * const dir = std::getenv("TMPDIR");
  return std::string(dir != nullptr ? dir : "/tmp") + "/" + name;
}

}  // namespace

TEST(FavouriteBuilder, BuildsOnlyTheRegisteredTypesCaseSensitively) {
  struct Case {
    std::string type;
    bool built;
  };
  Case const cases[] = {
      {"CommandItem", true},    {"FileItem", true},  {"FavouritesFolder", true},
      {"SeparatorItem", false}, {"", false},         {"commanditem", false},
      {"CommandItem ", false},  {"RootItem", false}, {"\xE2\x80\x8B", false},
  };
  for (Case const & c : cases) {
    auto const item = Build(Key("Name", "n") + Key("Type", c.type));
    EXPECT_EQ(item != nullptr, c.built) << "type '" << c.type << "'";
    if (item) EXPECT_EQ(item->GetType().utf8_string(), c.type);
  }
  EXPECT_EQ(Build(Key("Name", "no type")), nullptr);
}

TEST(FavouriteBuilder, LoadsEveryKeyOfEachType) {
  auto const command =
      Build(Key("Name", "Run") + Key("Type", "CommandItem") + Key("CommandID", "32771"));
  auto const * const asCommand = dynamic_cast<FavouriteCommandItem const *>(command.get());
  ASSERT_NE(asCommand, nullptr);
  EXPECT_EQ(asCommand->GetName(), "Run");
  EXPECT_EQ(asCommand->GetCommandID(), 32771);
  EXPECT_EQ(asCommand->GetStoredType(), "CommandItem");

  auto const file = Build(Key("Name", "Report") + Key("Type", "FileItem") +
                          Key("File", "/data/r\xC3\xA9sum\xC3\xA9.kvd"));
  auto const * const asFile = dynamic_cast<FavouriteFileItem const *>(file.get());
  ASSERT_NE(asFile, nullptr);
  EXPECT_EQ(asFile->GetFileName(), wxString::FromUTF8("/data/r\xC3\xA9sum\xC3\xA9.kvd"));
  EXPECT_EQ(asFile->GetToolTipText(), asFile->GetFileName());

  auto const folder =
      Build(Key("Name", "Runs") + Key("Type", "FavouritesFolder") + Key("TreatAsItem", "1") +
            Key("EmptyFolderText", "(none)") + Key("DefaultItemType", "FileItem"));
  auto const * const asFolder = dynamic_cast<FavouriteFolderItem const *>(folder.get());
  ASSERT_NE(asFolder, nullptr);
  EXPECT_TRUE(asFolder->GetTreatAsItem());
  EXPECT_EQ(asFolder->GetEmptyFolderText(), "(none)");
  EXPECT_EQ(asFolder->GetDefaultItemType(), "FileItem");
}

TEST(FavouriteBuilder, BadOrMissingKeysLeaveTheDefaults) {
  // A command id that is no integer, or too large, is not read: the item
  // keeps 0, which opens nothing.
  for (char const * id : {"abc", "99999999999", "", "0x10", "1e3"}) {
    auto const item = Build(Key("Type", "CommandItem") + Key("CommandID", id));
    auto const * const command = dynamic_cast<FavouriteCommandItem const *>(item.get());
    ASSERT_NE(command, nullptr) << id;
    EXPECT_EQ(command->GetCommandID(), 0) << id;
    EXPECT_EQ(command->GetName(), "") << id;
  }
  FavouriteFolderItem folder(L"Kept", L"kept text");
  auto const section = Parse(Key("Type", "FavouritesFolder") + Key("TreatAsItem", "maybe"));
  folder.Load(section.get());
  EXPECT_EQ(folder.GetName(), "Kept");
  EXPECT_EQ(folder.GetEmptyFolderText(), "kept text");
  EXPECT_FALSE(folder.GetTreatAsItem());
}

TEST(FavouriteBuilder, TakesHugeAndStrangeNames) {
  std::string const huge(1 << 20, 'x');
  auto const item = Build(Key("Name", huge) + Key("Type", "FileItem"));
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->GetName().length(), huge.size());
  // A character reference to a control character is no XML: the section
  // refuses the file, nothing is built from it.
  EXPECT_ANY_THROW(Parse(Key("Name", "a&#1;b") + Key("Type", "FileItem")));
  // Bytes that are no UTF-8 are refused the same way.
  EXPECT_ANY_THROW(Parse(Key("File", "/tmp/caf\xE9") + Key("Type", "FileItem")));
}

TEST(FavouriteItems, SaveWritesTheKeysInTableOrderAndReadsBack) {
  auto const root = Parse("");
  FavouriteFolderItem folder(L"Runs \u00e9", L"nothing yet");
  folder.SetTreatAsItem(true);
  folder.SetDefaultItemType(L"FileItem");
  std::unique_ptr<ConfigurationSection> const section(root->CreateSubSection("FavouriteItem", 1));
  folder.Save(section.get());

  std::unique_ptr<FavouriteItem> const back(FavouriteBuilder::Instance()->Load(section.get()));
  auto const * const asFolder = dynamic_cast<FavouriteFolderItem const *>(back.get());
  ASSERT_NE(asFolder, nullptr);
  EXPECT_EQ(asFolder->GetName(), folder.GetName());
  EXPECT_TRUE(asFolder->GetTreatAsItem());
  EXPECT_EQ(asFolder->GetEmptyFolderText(), "nothing yet");
  EXPECT_EQ(asFolder->GetDefaultItemType(), "FileItem");

  std::string const path = TempPath("order.xml");
  std::unique_ptr<XercesXMLSection> const file(new XercesXMLSection(path.c_str(), true));
  std::unique_ptr<ConfigurationSection> const row(file->CreateSubSection("FavouriteItem", 1));
  FavouriteCommandItem(L"Go", 5).Save(row.get());
  ASSERT_TRUE(file->Flush());
  std::ifstream in(path);
  std::string const text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  size_t const name = text.find("\"Name\"");
  size_t const type = text.find("\"Type\"");
  size_t const id = text.find("\"CommandID\"");
  ASSERT_NE(id, std::string::npos);
  EXPECT_LT(name, type);
  EXPECT_LT(type, id);
}

TEST(FavouriteItems, SeparatorsAreNeitherStoredNorCopied) {
  SeparatorItem separator;
  auto const section = Parse("");
  separator.Save(section.get());
  EXPECT_FALSE(section->HasKey("Type"));
  EXPECT_EQ(separator.Copy(), nullptr);
  EXPECT_FALSE(separator.IsDraggable());
}

TEST(FavouriteItemHandle, OwnsOneItemAndHandsItOver) {
  FavouriteItemHandle empty;
  EXPECT_EQ(empty.GetType(), "");
  EXPECT_EQ(empty.Copy(), nullptr);

  FavouriteItemHandle first(FavouriteCommandItem(L"Cmd", 7));
  EXPECT_EQ(first.GetType(), "CommandItem");
  FavouriteItem const * const held = first.Get();
  // The copy is the point: it takes the pointer over.
  FavouriteItemHandle second(first);  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(second.Get(), held);
  EXPECT_EQ(first.Get(), nullptr);
  FavouriteItemHandle third;
  third = second;
  EXPECT_EQ(third.Get(), held);
  EXPECT_EQ(second.Get(), nullptr);
  third = third;  // self-assignment keeps the item
  EXPECT_EQ(third.Get(), held);

  third = FavouriteFileItem(L"F", L"/f");  // replaces by a copy
  EXPECT_EQ(third.GetType(), "FileItem");
  std::unique_ptr<FavouriteItem> const copy(third.Copy());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy.get(), third.Get());
  // The handle's own operations are the base's, not the held item's.
  EXPECT_FALSE(third.IsGlobal());
  EXPECT_EQ(third.GetToolTipText(), "");
}

namespace {

// An application's own classes: derived from the library's, or beside them.
class AppFolder : public FavouriteFolderItem {
public:
  AppFolder() : FavouriteFolderItem(L"F", L"") {}
};
class AppCommand : public FavouriteCommandItem {
public:
  AppCommand() : FavouriteCommandItem(L"C", 1) {}
};
class AppItem : public FavouriteItem {
public:
  FavouriteItem * Copy() const override { return new AppItem; }
  wxString GetType() const override { return "AppItem"; }
};

}  // namespace

TEST(FavouriteItemClass, ClassesLikeADynamicCastAndKnowsTheLibrarysOwn) {
  struct Case {
    char const * what;
    std::unique_ptr<FavouriteItem> item;
    char expected;  // c command, f file, d folder, s separator, h handle, - none
    bool library;
  };
  Case const cases[] = {
      {"command", std::make_unique<FavouriteCommandItem>(L"C", 1), 'c', true},
      {"file", std::make_unique<FavouriteFileItem>(L"F", L"/f"), 'f', true},
      {"folder", std::make_unique<FavouriteFolderItem>(L"D", L""), 'd', true},
      {"separator", std::make_unique<SeparatorItem>(), 's', true},
      {"handle", std::make_unique<FavouriteItemHandle>(), 'h', true},
      {"derived folder", std::make_unique<AppFolder>(), 'd', false},
      {"derived command", std::make_unique<AppCommand>(), 'c', false},
      {"own class", std::make_unique<AppItem>(), '-', false},
      {"no item", nullptr, '-', false},
  };
  for (Case const & c : cases) {
    FavouriteItemClass const itemClass(c.item.get());
    std::string found;
    if (itemClass.As<FavouriteCommandItem>() != nullptr) found += 'c';
    if (itemClass.As<FavouriteFileItem>() != nullptr) found += 'f';
    if (itemClass.As<FavouriteFolderItem>() != nullptr) found += 'd';
    if (itemClass.As<SeparatorItem>() != nullptr) found += 's';
    if (itemClass.As<FavouriteItemHandle>() != nullptr) found += 'h';
    EXPECT_EQ(found.empty() ? "-" : found, std::string(1, c.expected)) << c.what;
    EXPECT_EQ(itemClass.IsLibraryClass(), c.library) << c.what;
  }
}

TEST(FavouriteFileExists, OnlyRegularFilesCount) {
  std::string const file = TempPath("present.kvd");
  std::ofstream(file) << "x";
  std::string const fifo = TempPath("pipe");
  ::unlink(fifo.c_str());
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  std::string const link = TempPath("link.kvd");
  ::unlink(link.c_str());
  ASSERT_EQ(::symlink(file.c_str(), link.c_str()), 0);
  // A name on disk that is no UTF-8 cannot be named by the UTF-8 text of a
  // favourite: the nearest text names another, absent file.
  std::string const latin1 = TempPath("caf\xE9.kvd");
  std::ofstream(latin1) << "x";
  struct Case {
    wxString path;
    bool exists;
  };
  Case const cases[] = {
      {wxString(file), true},
      {wxString(link), true},
      {wxString(latin1.c_str(), *wxConvFileName), false},
      {wxString(TempPath("")), false},  // a folder
      {wxString(fifo), false},
      {"/dev/null", false},
      {wxString(TempPath("gone.kvd")), false},
      {"", false},
  };
  for (Case const & c : cases) EXPECT_EQ(FavouriteFileExists(c.path), c.exists) << c.path;
}

// The item keeps its path in the file system's spelling beside the text:
// every way an item comes to be (made, copied, read back) must look at the
// path it now names, not at one it named before.
TEST(FavouriteFileItem, EnableLooksAtThePathItNamesNow) {
  std::string const here = TempPath("here.kvd");
  std::ofstream(here) << "x";
  std::string const gone = TempPath("not-here.kvd");
  ::unlink(gone.c_str());
  std::wstring const herePath = wxString(here).ToStdWstring();
  std::wstring const gonePath = wxString(gone).ToStdWstring();

  FavouriteFileItem made(L"Made", herePath.c_str());
  std::unique_ptr<FavouriteItem> const copy(made.Copy());
  FavouriteFileItem repointed(L"Repointed", gonePath.c_str());
  XercesXMLSection stored;
  made.Save(&stored);
  repointed.Load(&stored);
  FavouriteFileItem emptyPath(L"Empty", L"");
  struct Case {
    char const * what;
    FavouriteItem * item;
    bool exists;
  };
  Case const cases[] = {
      {"made", &made, true},
      {"copied", copy.get(), true},
      {"read over another path", &repointed, true},
      {"empty path", &emptyPath, false},
  };
  for (Case const & c : cases) EXPECT_EQ(c.item->Enable(), c.exists) << c.what;
  ::unlink(here.c_str());
  for (Case const & c : cases) EXPECT_FALSE(c.item->Enable()) << c.what << " after removal";
}

TEST(ToolBarResource, ReadsWordsAndRefusesWhatIsNoToolBar) {
  auto words = [](std::initializer_list<int> values) {
    std::string out;
    for (int v : values) {
      out += static_cast<char>(v & 0xFF);
      out += static_cast<char>((v >> 8) & 0xFF);
    }
    return out;
  };
  ToolBarLayout layout;
  ASSERT_TRUE(ParseToolBarResource(words({1, 16, 15, 4, 100, 0, 0x8001, 101, 999}), layout));
  EXPECT_EQ(layout.version, 1U);
  EXPECT_EQ(layout.width, 16U);
  EXPECT_EQ(layout.height, 15U);
  EXPECT_EQ(layout.items, (std::vector<uint16_t>{100, 0, 0x8001, 101}));

  std::string const refused[] = {
      words({1, 16, 16, 3, 100, 101}),      // count past the data
      words({1, 16, 16}),                   // no count
      words({1, 16, 16, 1, 100}) + "\x01",  // odd length
      std::string(),
  };
  for (std::string const & bytes : refused) {
    ToolBarLayout kept;
    kept.version = 42;
    EXPECT_FALSE(ParseToolBarResource(bytes, kept));
    EXPECT_EQ(kept.version, 42U);
  }
}
