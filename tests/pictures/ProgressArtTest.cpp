// ProgressArt over archives in test folders: the order of the folders and
// files, the "<Random>" artist, and the break dialog's shuffled walk.
#include <gtest/gtest.h>

#include "ArtTestFiles.h"
#include "work/ProgressArt.h"

namespace {

class ProgressArtTest : public testing::Test {
protected:
  void SetUp() override {
    std::string const name = testing::UnitTest::GetInstance()->current_test_info()->name();
    mApp = Temp(name + "-app");
    mPlugins = Temp(name + "-plugins");
    VxCreateFolder(mApp);
    VxCreateFolder(mPlugins);
    mSource = WriteJpeg("p.jpg", 12, 8);
  }

  void Archive(std::string const & folder, std::string const & file, CollectionInfo collection) {
    collection.iconName = std::to_string(++mIcons);
    SaveCollection(VxPathAppend(folder, file), collection, mSource, mSource);
  }

  void Load() { ProgressArt::Reload({mApp, mPlugins}); }

  std::string mApp, mPlugins, mSource;
  int mIcons = 0;
};

TEST_F(ProgressArtTest, WithoutArchivesThereIsNoArt) {
  Spit(VxPathAppend(mApp, "damaged.vart"), "not an archive");
  Load();
  EXPECT_EQ(0, ProgressArt::GetNumArtists());
  EXPECT_EQ(-1, ProgressArt::GetPreferedArtist());
  EXPECT_FALSE(ProgressArt::GetPainting(0, 0).IsOk());
  EXPECT_EQ(wxSize(0, 0), ProgressArt::GetMaxBitmapSize());
  EXPECT_FALSE(ProgressArtShow([](uint32_t) { return 0u; }).Restart());
}

TEST_F(ProgressArtTest, OneCollectionHasNoRandomChoice) {
  Archive(mApp, "only.vart", Painter("Solo", {"a", "b"}));
  Load();
  EXPECT_EQ(1, ProgressArt::GetNumArtists());
  EXPECT_EQ(0, ProgressArt::GetPreferedArtist());
  EXPECT_EQ("Solo", ProgressArt::GetArtistName(0, -1));
  // Index 1 is no artist, yet SetPreferedArtist accepts it: it reads like
  // "<Random>", which, over one collection, shows that collection.
  ProgressArt::SetPreferedArtist(1);
  EXPECT_EQ(1, ProgressArt::GetPreferedArtist());
  EXPECT_EQ("<Random>", ProgressArt::GetArtistName(1, -1));
  EXPECT_EQ("b", ProgressArt::GetPaintingName(1, 1));
  EXPECT_EQ(wxSize(12, 8), ProgressArt::GetPainting(0, 1).GetSize());
  EXPECT_EQ(wxSize(12, 8), ProgressArt::GetArtistPortrait(0, -1).GetSize());
}

TEST_F(ProgressArtTest, FoldersInOrderFilesSortedAndRandomRunsAcrossThem) {
  Archive(mPlugins, "a-plugin.vart", Painter("Plugin", {"p1", "p2", "p3"}));
  Archive(mApp, "b.vart", Painter("Second", {"s1", "s2", "s3", "s4"}));
  Archive(mApp, "a.vart", Painter("First", {"f1", "f2", "f3"}));
  Spit(VxPathAppend(mApp, "c.vart.bak"), "ignored");
  Load();

  ASSERT_EQ(4, ProgressArt::GetNumArtists());
  int const random = 3;
  EXPECT_EQ("First", ProgressArt::GetArtistName(0, -1));
  EXPECT_EQ("Second", ProgressArt::GetArtistName(1, -1));
  EXPECT_EQ("Plugin", ProgressArt::GetArtistName(2, -1));
  EXPECT_EQ("<Random>", ProgressArt::GetArtistName(random, -1));
  EXPECT_EQ("", ProgressArt::GetArtistLifeSpan(random, -1));
  EXPECT_EQ(10, ProgressArt::GetNumPaintings(random));
  EXPECT_EQ(4, ProgressArt::GetNumPaintings(1));
  EXPECT_EQ(wxSize(40, 30), ProgressArt::GetMaxBitmapSize());
  EXPECT_EQ(wxSize(8, 9), ProgressArt::GetMaxPortraitSize());

  struct Case {
    int painting;
    char const * name;
    char const * artist;
  } const cases[] = {
      {0, "f1", "First"},  {2, "f3", "First"},  {3, "s1", "Second"}, {5, "s3", "Second"},
      {7, "p1", "Plugin"}, {9, "p3", "Plugin"}, {10, "", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.painting);
    EXPECT_EQ(c.name, ProgressArt::GetPaintingName(random, c.painting));
    EXPECT_EQ(c.artist, ProgressArt::GetArtistName(random, c.painting));
    EXPECT_EQ(std::string(c.artist).empty() ? "" : std::string(c.artist) + " lived",
              ProgressArt::GetArtistLifeSpan(random, c.painting));
    EXPECT_EQ(*c.name != '\0', ProgressArt::GetPainting(random, c.painting).IsOk());
  }
  EXPECT_EQ("", ProgressArt::GetPaintingName(0, 3));
  EXPECT_EQ("s4", ProgressArt::GetPaintingName(1, 3));
  // The preferred artist is cut to the number of artists (one beyond
  // "<Random>") above and to none below.
  for (auto const & c : {std::make_pair(4, 4), std::make_pair(7, 4), std::make_pair(-5, -1)}) {
    ProgressArt::SetPreferedArtist(c.first);
    EXPECT_EQ(c.second, ProgressArt::GetPreferedArtist());
  }
}

TEST_F(ProgressArtTest, StepsIntoACollectionWithFewerPicturesThanItsIndexStop) {
  // The walk for "<Random>" compares the next collection's index with its
  // number of pictures: with 1, 1 and 5 pictures the second collection
  // (index 1, one picture) ends the walk.
  Archive(mApp, "a.vart", Painter("One", {"o"}));
  Archive(mApp, "b.vart", Painter("Two", {"t"}));
  Archive(mApp, "c.vart", Painter("Three", {"1", "2", "3", "4", "5"}));
  Load();
  EXPECT_EQ("o", ProgressArt::GetPaintingName(3, 0));
  EXPECT_EQ("", ProgressArt::GetPaintingName(3, 1));
  EXPECT_EQ("", ProgressArt::GetPaintingName(3, 2));
}

TEST_F(ProgressArtTest, TheShowShufflesWithItsRandomSource) {
  Archive(mApp, "a.vart", Painter("A", {"a0", "a1", "a2"}));
  Archive(mApp, "b.vart", Painter("B", {"b0", "b1"}));
  Load();
  std::vector<uint32_t> bounds;
  // Always the first element: each step swaps the last open place to the front.
  ProgressArtShow show([&](uint32_t bound) {
    bounds.push_back(bound);
    return 0u;
  });
  ASSERT_TRUE(show.Restart());
  EXPECT_EQ(std::vector<uint32_t>({3, 2}), bounds);
  EXPECT_EQ(std::vector<int>({1, 2, 0}), show.Order());

  ProgressArtPicture const & first = show.Next();
  EXPECT_EQ("a1", first.paintingName);
  EXPECT_EQ("A", first.artistName);
  EXPECT_EQ("A lived", first.lifeSpan);
  EXPECT_EQ(wxSize(12, 8), first.painting.GetSize());
  EXPECT_TRUE(first.portrait.IsOk());

  // Keeping the place across starts and a fresh order for another artist
  // are checked on the break dialog.
  ProgressArt::SetPreferedArtist(-1);
  EXPECT_FALSE(show.Restart());
  EXPECT_FALSE(show.HasArt());
}

}  // namespace
