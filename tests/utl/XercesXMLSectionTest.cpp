// The XML settings file: its grammar, shared documents, exact round trips,
// the index of every section, and files that must be refused untouched.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "TestFiles.h"
#include "utl/Exception.h"
#include "utl/XercesXMLSection.h"

namespace {

using Section = std::unique_ptr<ConfigurationSection>;

// Why the file is refused; the message names it.
std::string Refusal(std::string const & path) {
  try {
    XercesXMLSection section(path.c_str(), true);
  } catch (Exception const & refused) {
    EXPECT_NE(refused.Why().find(path), std::string::npos) << refused.Why();
    return refused.Why();
  }
  return "accepted";
}

std::string Read(ConfigurationSection const & section, char const * key) {
  std::string value = "<absent>";
  section.ReadKey(key, value);
  return value;
}

TEST(XercesXMLSection, WritesTheDocumentedGrammar) {
  XercesXMLSection root;
  root.WriteKey("AppName", "Sample");
  Section item(root.CreateSubSection("FavouriteItem", 2));
  item->WriteKey("Name", "<b>R&D</b> \"x\"\r\n");
  item->WriteKey("Empty", "");
  EXPECT_EQ(root.ToXmlString(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<Settings format=\"1\">\n"
            "  <Key name=\"AppName\">Sample</Key>\n"
            "  <Section name=\"FavouriteItem\" index=\"2\">\n"
            "    <Key name=\"Name\">&lt;b&gt;R&amp;D&lt;/b&gt; \"x\"&#13;\n</Key>\n"
            "    <Key name=\"Empty\"/>\n"
            "  </Section>\n"
            "</Settings>\n");
}

TEST(XercesXMLSection, ValuesAndNamesComeBackExactlyFromTheFile) {
  std::string const path = Temp("roundtrip.kvxml");
  // Whitespace-only values too: the layout between elements is dropped on
  // reading, the text of a key never.
  std::string const values[] = {"a\r\nb\rc\n", "  spaced  ", "",        "<b>&amp;</b>]]>",
                                "日本 😀",      " ",          "\r\n\t ", "\n"};
  {
    XercesXMLSection root(path.c_str(), true);
    Section section(root.CreateSubSection("Odd <name> & \"more\""));
    for (size_t i = 0; i < std::size(values); ++i)
      EXPECT_TRUE(section->WriteKey(("key " + std::to_string(i) + " \t\n").c_str(), values[i]));
    EXPECT_TRUE(root.Flush());
  }
  XercesXMLSection reloaded(path.c_str(), false);
  ASSERT_TRUE(reloaded.ChangeSubSection("Odd <name> & \"more\""));
  for (size_t i = 0; i < std::size(values); ++i)
    EXPECT_EQ(Read(reloaded, ("key " + std::to_string(i) + " \t\n").c_str()), values[i]) << i;
}

TEST(XercesXMLSection, RefusesTextThatXmlCannotHold) {
  XercesXMLSection root;
  root.WriteKey("kept", "old");
  EXPECT_FALSE(root.WriteKey("kept", std::string("bell\a")));
  EXPECT_FALSE(root.WriteKey("nul\x01name", "x"));
  EXPECT_EQ(Read(root, "kept"), "old");
  EXPECT_FALSE(root.HasKey("nul\x01name"));
  EXPECT_THROW(Section(root.CreateSubSection("bad\x02")), Exception);
  // Invalid UTF-8 is skipped, as in every conversion of the family.
  EXPECT_TRUE(root.WriteKey("utf",
                            "a\xff"
                            "b"));
  EXPECT_EQ(Read(root, "utf"), "ab");
}

// Both sides of each edge of what XML 1.0 holds: the controls below space
// but tab, line feed and carriage return are refused; space, DEL, the C1
// controls and U+FFFD are kept and come back from the file exactly.
TEST(XercesXMLSection, ControlCharacterEdgesOfWhatAValueMayHold) {
  struct Case {
    char const * what;
    char const * text;
    bool kept;
  };
  Case const cases[] = {
      {"U+0001, the first control", "a\x01z", false},
      {"U+0008, below tab", "a\x08z", false},
      {"U+0009 tab", "a\tz", true},
      {"U+000A line feed", "a\nz", true},
      {"U+000B, between line feed and carriage return", "a\x0bz", false},
      {"U+000C, just below carriage return", "a\x0cz", false},
      {"U+000D carriage return", "a\rz", true},
      {"U+000E, just above carriage return", "a\x0ez", false},
      {"U+001F, the last control", "a\x1fz", false},
      {"U+0020 space, the first character after the controls", "a z", true},
      {"U+007F delete", "a\x7fz", true},
      {"U+0080, the first C1 control", "a\xc2\x80z", true},
      {"U+009F, the last C1 control", "a\xc2\x9fz", true},
      {"U+FFFD", "a\xef\xbf\xbdz", true},
      {"U+FFFE", "a\xef\xbf\xbez", false},
  };
  std::string const path = Temp("controls.kvxml");
  {
    XercesXMLSection root(path.c_str(), true);
    for (Case const & c : cases) {
      SCOPED_TRACE(c.what);
      root.WriteKey(c.what, "before");
      EXPECT_EQ(root.WriteKey(c.what, c.text), c.kept);
      EXPECT_EQ(Read(root, c.what), c.kept ? c.text : "before") << "a refusal changes nothing";
      EXPECT_EQ(root.WriteKey((std::string("name ") + c.text).c_str(), "x"), c.kept);
    }
    ASSERT_TRUE(root.Flush());
  }
  XercesXMLSection reloaded(path.c_str(), false);
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Read(reloaded, c.what), c.kept ? c.text : "before");
    EXPECT_EQ(reloaded.HasKey((std::string("name ") + c.text).c_str()), c.kept);
  }
}

// What the application object does: it opens the file, replaces the root
// object by a sub-section, and flushes that one at exit.
TEST(XercesXMLSection, ObjectsMadeFromOneAnotherShareOneDocument) {
  std::string const path = Temp("shared.kvxml");
  Section settings;
  {
    auto root = std::make_unique<XercesXMLSection>(path.c_str(), true);
    settings.reset(root->CreateSubSection("AppSettings"));
    Section(root->Copy())->WriteKey("TopLevel", "seen");
  }
  Section(settings->Copy())->WriteKey("AppName", "Sample");
  EXPECT_EQ(VxFileExist(path), VxNothing) << "nothing is written before Flush";
  ASSERT_TRUE(settings->Flush());

  XercesXMLSection reloaded(path.c_str(), true);
  EXPECT_EQ(Read(reloaded, "TopLevel"), "seen");
  ASSERT_TRUE(reloaded.ChangeSubSection("AppSettings"));
  EXPECT_EQ(Read(reloaded, "AppName"), "Sample");
}

TEST(XercesXMLSection, MissingFileIsAnEmptyTreeOnlyWhenAsked) {
  XercesXMLSection empty(Temp("missing/settings.kvxml").c_str(), true);
  EXPECT_TRUE(empty.IsEmpty());
  empty.WriteKey("k", "v");
  EXPECT_FALSE(empty.Flush()) << "the folder does not exist";
  EXPECT_THROW(XercesXMLSection(Temp("absent.kvxml").c_str(), false), Exception);
  XercesXMLSection noFile;
  noFile.WriteKey("k", "v");
  EXPECT_FALSE(noFile.Flush());
}

TEST(XercesXMLSection, UnindexedSectionIsIndexOneAndListsFollowTheIndex) {
  std::unique_ptr<XercesXMLSection> root(XercesXMLSection::CreateXMLSectionFromString(
      "<Settings>"
      "<Section name='Item' index='3'><Key name='n'>three</Key></Section>"
      "<Section name='Item'><Key name='n'>one</Key></Section>"
      "<Section name='Item' index='x'><Key name='n'>bad index</Key></Section>"
      "<Section name='Item' index='2'><Key name='n'>two</Key></Section>"
      "<Section name='Item' index='2'><Key name='n'>duplicate</Key></Section>"
      "<Section name='Other'/>"
      "</Settings>"));
  EXPECT_TRUE(root->HasSection("Other", 1));
  EXPECT_EQ(root->NumSubSections("Item"), 3);
  std::unique_ptr<std::vector<boost::shared_ptr<ConfigurationSection>>> all(
      root->GetAllSubSections("Item"));
  std::vector<std::string> names;
  for (auto const & item : *all) names.push_back(Read(*item, "n"));
  EXPECT_EQ(names, (std::vector<std::string>{"one", "two", "three"}));

  Section item(root->CopyAndChangeSubSection("Item"));
  ASSERT_TRUE(item);
  EXPECT_EQ(Read(*item, "n"), "one");
  EXPECT_FALSE(item->ChangeSubSection("Nothing"));
  EXPECT_EQ(Read(*item, "n"), "one") << "a failed change stays where it was";
  item->ChangeSection("Sibling");
  EXPECT_TRUE(root->HasSection("Sibling", 1)) << "ChangeSection creates the sibling";
  Section same(root->CreateSubSection("Item", 1));
  EXPECT_EQ(Read(*same, "n"), "one") << "CreateSubSection finds the existing section";
  EXPECT_EQ(root->NumSubSections("Item"), 3);
}

// Every section is indexed, the small ones too, and a new section starts
// with an empty index; every change must keep the index and the document
// in step, whatever the section's size.
TEST(XercesXMLSection, SectionsStayConsistentThroughChanges) {
  for (int const count : {4, 60}) {
    SCOPED_TRACE(count);
    XercesXMLSection root;
    for (int i = 1; i <= count; ++i) {
      root.WriteInt(("k" + std::to_string(i)).c_str(), i);
      Section(root.CreateSubSection("Row", i))->WriteInt("i", i);
    }
    EXPECT_EQ(root.NumSubSections("Row"), count);
    int deleted = 0;
    for (int i = 1; i <= count; i += 3, ++deleted) {
      EXPECT_TRUE(root.DeleteKey(("k" + std::to_string(i)).c_str()));
      Section row(root.CopyAndChangeSubSection("Row", i));
      ASSERT_TRUE(row);
      EXPECT_TRUE(row->DeleteSection());
    }
    EXPECT_FALSE(root.DeleteKey("k1"));
    EXPECT_EQ(root.NumSubSections("Row"), count - deleted);
    root.WriteKey("k1", "back");
    Section(root.CreateSubSection("Row", 1))->WriteKey("i", "back");

    std::unique_ptr<XercesXMLSection> reloaded(
        XercesXMLSection::CreateXMLSectionFromString(root.ToXmlString().c_str()));
    for (XercesXMLSection const * tree : {&root, reloaded.get()}) {
      for (int i = 1; i <= count; ++i) {
        SCOPED_TRACE(i);
        bool const gone = (i - 1) % 3 == 0 && i != 1;
        std::string const expected = i == 1 ? "back" : gone ? "<absent>" : std::to_string(i);
        EXPECT_EQ(Read(*tree, ("k" + std::to_string(i)).c_str()), expected);
        Section row(tree->CopyAndChangeSubSection("Row", i));
        EXPECT_EQ(row ? Read(*row, "i") : "<absent>", expected);
      }
    }
  }
}

// A list saved again is removed and written anew; the file must then hold
// just what a new section would, whatever the old one held.
TEST(XercesXMLSection, ASectionWrittenAnewHoldsOnlyTheNewWrites) {
  using Rows = std::vector<std::vector<std::pair<char const *, char const *>>>;
  Rows const saved = {{{"Name", "a"}, {"File", "/x"}, {"_Style", "0"}},
                      {{"Name", "b"}, {"Empty", ""}, {"_Style", "2"}}};
  auto const save = [](ConfigurationSection & file, Rows const & rows) {
    Section old(file.Copy());
    if (old->ChangeSubSection("Favourites")) old->DeleteSection();
    Section root(file.CreateSubSection("Favourites"));
    // Asked through lookups only: a walk of the tree would drop the old rows.
    EXPECT_FALSE(root->HasKey("AppName")) << "nothing old shows";
    EXPECT_EQ(root->NumSubSections("FavouriteItem"), 0) << "nothing old shows";
    root->WriteKey("AppName", "Sample");
    for (size_t i = 0; i < rows.size(); ++i) {
      Section row(root->CreateSubSection("FavouriteItem", int(i) + 1));
      for (auto const & [key, value] : rows[i]) row->WriteKey(key, value);
    }
  };
  struct Case {
    char const * what;
    Rows rows;
  } const cases[] = {
      {"the same rows", saved},
      {"a row of another kind", {saved[0], {{"Name", "b"}, {"Command", "7"}, {"_Style", "2"}}}},
      {"texts emptied and filled",
       {{{"Name", ""}, {"File", "/x"}, {"_Style", "0"}},
        {{"Name", "b"}, {"Empty", "now"}, {"_Style", "2"}}}},
      {"fewer rows", {saved[1]}},
      {"more rows", {saved[0], saved[1], saved[0]}},
      {"none", {}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    XercesXMLSection file;
    file.WriteKey("before", "kept");
    save(file, saved);
    {
      // Old rows carry what no new row writes: a sub-section and a comment.
      Section row(file.CopyAndChangeSubSection("Favourites"));
      ASSERT_TRUE(row && row->ChangeSubSection("FavouriteItem", 1));
      Section(row->CreateSubSection("ItemData"))->WriteKey("Type", "old");
    }
    std::string const withComment = [&] {
      std::string xml = file.ToXmlString();
      xml.insert(xml.find("<Key name=\"_Style\""), "<!-- old -->");
      return xml;
    }();
    std::unique_ptr<XercesXMLSection> again(
        XercesXMLSection::CreateXMLSectionFromString(withComment.c_str()));
    save(*again, c.rows);
    XercesXMLSection fresh;
    fresh.WriteKey("before", "kept");
    save(fresh, c.rows);
    EXPECT_EQ(again->ToXmlString(), fresh.ToXmlString());
  }
}

TEST(XercesXMLSection, DuplicateKeysShowTheFirstAndDeleteTogether) {
  std::string xml = "<Settings>";
  for (int i = 0; i < 20; ++i) xml += "<Key name='filler" + std::to_string(i) + "'/>";
  xml += "<Key name='k'>first</Key><Key name='k'>second</Key></Settings>";
  std::unique_ptr<XercesXMLSection> root(XercesXMLSection::CreateXMLSectionFromString(xml.c_str()));
  EXPECT_EQ(Read(*root, "k"), "first");
  EXPECT_TRUE(root->DeleteKey("k"));
  EXPECT_FALSE(root->HasKey("k"));
  EXPECT_EQ(root->ToXmlString().find("second"), std::string::npos);
}

TEST(XercesXMLSection, DeleteSectionMovesToTheParentAndDetachesOthers) {
  XercesXMLSection root;
  Section outer(root.CreateSubSection("Outer"));
  Section inner(outer->CreateSubSection("Inner"));
  inner->WriteKey("k", "v");
  Section doomed(outer->Copy());
  EXPECT_TRUE(doomed->DeleteSection());
  EXPECT_FALSE(root.HasSection("Outer", 1));
  EXPECT_TRUE(doomed->IsEmpty()) << "it now stands on the root, which is empty";
  EXPECT_TRUE(inner->WriteKey("after", "ignored")) << "a detached section still works";
  EXPECT_EQ(root.ToXmlString().find("ignored"), std::string::npos);
  EXPECT_FALSE(root.DeleteSection());
}

TEST(XercesXMLSection, WriteToSectionCopiesTheWholeSubtree) {
  std::unique_ptr<XercesXMLSection> source(XercesXMLSection::CreateXMLSectionFromString(
      "<Settings><Section name='S'><Key name='a'>1</Key>"
      "<Section name='Row' index='7'><Key name='b'>2</Key></Section>"
      "<Section name='Plain'><Key name='c'>3</Key></Section></Section></Settings>"));
  ASSERT_TRUE(source->ChangeSubSection("S"));
  XercesXMLSection target;
  ASSERT_TRUE(source->WriteToSection(&target));
  EXPECT_EQ(Read(target, "a"), "1");
  Section row(target.CopyAndChangeSubSection("Row", 7));
  ASSERT_TRUE(row);
  EXPECT_EQ(Read(*row, "b"), "2");
  EXPECT_NE(target.ToXmlString().find("<Section name=\"Plain\">\n    <Key name=\"c\">3</Key>"),
            std::string::npos)
      << "an unindexed section stays unindexed\n"
      << target.ToXmlString();
  Section below(source->CreateSubSection("Below"));
  EXPECT_FALSE(source->WriteToSection(below.get())) << "a copy into itself would never end";
}

TEST(XercesXMLSection, KeepsCommentsAndUnknownElements) {
  std::string const path = Temp("foreign.kvxml");
  Spit(path,
       "<?xml version='1.0'?>\n<?xml-stylesheet href='s.xsl'?>\n<!-- made by hand -->\n"
       "<Settings format='9'><Extra a='1'>text</Extra><Key name='k'>v</Key></Settings>");
  XercesXMLSection root(path.c_str(), true);
  root.WriteKey("new", "n");
  ASSERT_TRUE(root.Flush());
  std::string const written = Slurp(path);
  for (char const * part : {"<?xml-stylesheet href='s.xsl'?>", "<!-- made by hand -->",
                            "<Extra a=\"1\">text</Extra>", "<Key name=\"new\">n</Key>"})
    EXPECT_NE(written.find(part), std::string::npos) << part << "\n" << written;
}

TEST(XercesXMLSection, FlushReplacesTheFileAndKeepsLinksAndPermissions) {
  std::string const real = Temp("real.kvxml");
  std::string const link = Temp("link.kvxml");
  Spit(real, "<Settings/>");
  ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
  ASSERT_EQ(::symlink("real.kvxml", link.c_str()), 0);
  XercesXMLSection root(link.c_str(), true);
  root.WriteKey("k", "v");
  ASSERT_TRUE(root.Flush());
  struct stat info {};
  ASSERT_EQ(::lstat(link.c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
  ASSERT_EQ(::stat(real.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_NE(Slurp(real).find("<Key name=\"k\">v</Key>"), std::string::npos);

  // A folder where the file should be: the rename fails, nothing changes.
  std::string const blocked = Temp("blocked.kvxml");
  XercesXMLSection other(blocked.c_str(), true);
  ASSERT_TRUE(VxCreateFolder(blocked + "/inside"));
  EXPECT_FALSE(other.Flush());
  EXPECT_EQ(VxFileExist(blocked + "/inside"), VxFolder);
}

struct BadFile {
  char const * name;
  std::string content;
  char const * expected;  // part of the message
};

std::string Nested(int depth) {
  std::string xml = "<Settings>";
  for (int i = 0; i < depth; ++i) xml += "<Section name='n'>";
  for (int i = 0; i < depth; ++i) xml += "</Section>";
  return xml + "</Settings>";
}

TEST(XercesXMLSection, RefusesBadFilesWithAClearMessageAndLeavesThemAlone) {
  std::string const laughs =
      "<?xml version='1.0'?>\n<!DOCTYPE Settings [<!ENTITY a 'lol'>"
      "<!ENTITY b '&a;&a;&a;&a;'>]><Settings>&b;</Settings>";
  std::string manyEmptyThenDeep = "<Settings>";
  for (int i = 0; i < 300; ++i) manyEmptyThenDeep += "<Key name='e'/>";
  manyEmptyThenDeep += Nested(130).substr(10);
  BadFile const cases[] = {
      {"truncated", "<?xml version='1.0'?>\n<Settings>\n  <Key name='a'>1</Key>\n  <Sec", "line"},
      {"not-xml", "AppName=Sample\n", "line 1"},
      {"binary", std::string("\x89PNG\r\n\x1a\n\0\0", 10), "cannot be read"},
      {"wrong-root", "<Favourites><Key name='a'/></Favourites>", "<Favourites>"},
      {"billion-laughs", laughs, "document type at line 2"},
      {"external-entity",
       "<!DOCTYPE Settings [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><Settings>&x;</Settings>",
       "document type"},
      {"deep", Nested(200), "deeper than 128"},
      {"deep-after-empty", manyEmptyThenDeep, "deeper than 128"},
  };
  for (BadFile const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp(std::string(c.name) + ".kvxml");
    Spit(path, c.content);
    std::string const why = Refusal(path);
    EXPECT_NE(why.find(c.expected), std::string::npos) << why;
    EXPECT_EQ(Slurp(path), c.content);
    EXPECT_THROW(delete XercesXMLSection::CreateXMLSectionFromString(c.content.c_str()), Exception);
  }
  // Exactly at the depth limit is fine (the root is the first level).
  std::unique_ptr<XercesXMLSection> deepest(
      XercesXMLSection::CreateXMLSectionFromString(Nested(127).c_str()));
  EXPECT_TRUE(deepest->HasSection("n", 1));
}

TEST(XercesXMLSection, RefusesWhatIsNoSmallRegularFile) {
  std::string const huge = Temp("huge.kvxml");
  Spit(huge, "<Settings/>");
  ASSERT_EQ(::truncate(huge.c_str(), (off_t(64) << 20) + 1), 0);  // sparse: costs no disk
  std::string const fifo = Temp("fifo.kvxml");
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_NE(Refusal(huge).find("larger than 64 MB"), std::string::npos);
  EXPECT_NE(Refusal(fifo).find("no regular file"), std::string::npos);
}

}  // namespace
