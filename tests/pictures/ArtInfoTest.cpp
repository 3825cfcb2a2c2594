// Art archives on disk: what is stored, how pictures are fitted, and that a
// failed save leaves the file as it was.
#include <gtest/gtest.h>

#include <dirent.h>

#include <functional>
#include <memory>
#include <sstream>

#include "ArtTestFiles.h"
#include "pictures/ArtInfoText.h"
#include "pictures/CompoundFile.h"
#include "platform/MessageBoxes.h"
#include "utl/Exception.h"

namespace {

std::unique_ptr<ArtInfo const> Read(std::string const & path) {
  return std::unique_ptr<ArtInfo const>(ArtInfo::ReadArtInfo(path));
}

// The text of the Exception that `save` throws; empty if none.
template <typename Save>
std::string FailureOf(Save save) {
  try {
    save();
  } catch (Exception const & error) {
    return error.Why();
  }
  return "";
}

std::vector<std::string> FilesIn(std::string const & folder) {
  std::vector<std::string> names;
  std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.c_str()), ::closedir);
  while (dirent const * entry = ::readdir(directory.get()))
    if (entry->d_name[0] != '.' || entry->d_name[1] > '.') names.emplace_back(entry->d_name);
  return names;
}

class ArtInfoTest : public testing::Test {
protected:
  void SetUp() override {
    mFolder =
        Temp("art-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    VxCreateFolder(mFolder);
    mArchive = VxPathAppend(mFolder, "a.vart");
    mFormer = SetFrameworkMessageBoxHandler([this](wxString const & text, UINT, UINT) {
      mBoxes.push_back(text.utf8_string());
      return IDOK;
    });
  }
  void TearDown() override { SetFrameworkMessageBoxHandler(mFormer); }

  std::string mFolder;
  std::string mArchive;
  std::vector<std::string> mBoxes;
  FrameworkMessageBoxHandler mFormer;
};

TEST_F(ArtInfoTest, SavedCollectionsComeBackWithTheirPicturesFromTheirFile) {
  std::string const source = WriteJpeg("red-blue.jpg", 60, 40);
  SaveCollection(mArchive, Painter("Ann", {"One", "Two"}, "12"), source, source);

  auto const art = Read(mArchive);
  ASSERT_TRUE(art);
  ASSERT_EQ(1u, art->GetCollections().size());
  CollectionInfo const & ann = art->GetCollections()[0];
  EXPECT_EQ("Ann", ann.artistName);
  EXPECT_EQ(mArchive, ann.file);
  EXPECT_EQ("Two", ann.pictures[1].GetTitle());
  wxImage const picture = art->GetImage(0, 1);
  ASSERT_TRUE(picture.IsOk());
  EXPECT_EQ(wxSize(60, 40), picture.GetSize());
  EXPECT_GT(picture.GetRed(5, 20), 150);  // re-encoded, still red on the left
  EXPECT_GT(picture.GetBlue(55, 20), 150);
  EXPECT_EQ(wxSize(60, 40), art->GetIcon(0).GetSize());
  for (auto const & outside : {std::make_pair(0, 2), std::make_pair(1, 0), std::make_pair(-1, 0)})
    EXPECT_FALSE(art->GetImage(outside.first, outside.second).IsOk());
  EXPECT_FALSE(art->GetIcon(1).IsOk());
}

TEST_F(ArtInfoTest, PicturesAreTurnedThenShrunkToTheLimitsButNeverEnlarged) {
  struct Case {
    int width, height, rotation;
    wxSize stored;
    bool redOnTheLeft;
  } const cases[] = {
      {800, 300, 0, {400, 150}, true},
      {100, 100, 0, {100, 100}, true},
      {300, 900, 0, {133, 400}, true},
      {100, 60, 5, {60, 100}, false},    // one quarter turn: red on top
      {100, 60, 2, {100, 60}, false},    // half a turn: red on the right
      {100, 60, -1, {100, 60}, true},    // negative: not turned
      {900, 450, 1, {200, 400}, false},  // turned first, then fitted
  };
  for (bool jpeg : {true, false}) {
    ArtInfo art;
    CollectionInfo collection = Painter("Fit", std::vector<std::string>(std::size(cases), "t"));
    art.AddCollection(collection);
    std::vector<std::string> sources;
    std::vector<int> rotations;
    for (Case const & c : cases) {
      std::string const name = std::to_string(c.width) + "x" + std::to_string(c.height);
      sources.push_back(jpeg ? WriteJpeg(name + ".jpg", c.width, c.height)
                             : WritePng(name + ".png", c.width, c.height));
      rotations.push_back(c.rotation);
    }
    ::unlink(mArchive.c_str());
    ASSERT_TRUE(art.SaveToFile(mArchive, {sources}, {rotations}, {""}, {0}));
    auto const back = Read(mArchive);
    ASSERT_TRUE(back);
    for (size_t i = 0; i < std::size(cases); ++i) {
      SCOPED_TRACE(std::to_string(i) + (jpeg ? " jpeg" : " png"));
      wxImage const stored = back->GetImage(0, static_cast<int>(i));
      ASSERT_EQ(cases[i].stored, stored.GetSize());
      EXPECT_EQ(cases[i].redOnTheLeft, stored.GetRed(2, stored.GetHeight() / 2) > 150);
    }
  }
}

TEST_F(ArtInfoTest, PortraitsAreFittedTo80AndAnEmptyIconSavesNone) {
  std::string const big = WritePng("portrait.png", 200, 100);
  ArtInfo art;
  art.AddCollection(Painter("With", {}, "1"));
  art.AddCollection(Painter("Without", {}, "2"));
  ASSERT_TRUE(art.SaveToFile(mArchive, {{}, {}}, {{}, {}}, {big, ""}, {0, 0}));
  auto const back = Read(mArchive);
  EXPECT_EQ(wxSize(80, 40), back->GetIcon(0).GetSize());
  EXPECT_FALSE(back->GetIcon(1).IsOk());
}

TEST_F(ArtInfoTest, SavingZeroCollectionsMakesAnArchiveWithAnEmptyList) {
  ASSERT_TRUE(ArtInfo().SaveToFile(mArchive, {}, {}, {}, {}));
  EXPECT_TRUE(Read(mArchive)->GetCollections().empty());
}

TEST_F(ArtInfoTest, SavingAgainAppendsAndTheFirstCollectionsKeepTheirStreams) {
  std::string const source = WriteJpeg("s.jpg", 20, 10);
  CollectionInfo const first = Painter("First", {"a"});
  SaveCollection(mArchive, first, source);
  SaveCollection(mArchive, Painter("Second", {"b", "c"}), source);
  SaveCollection(mArchive, first, WriteJpeg("t.jpg", 30, 10));  // same stream names again

  auto const art = Read(mArchive);
  ASSERT_EQ(3u, art->GetCollections().size());
  EXPECT_EQ("Second", art->GetCollections()[1].artistName);
  EXPECT_EQ(wxSize(20, 10), art->GetImage(1, 1).GetSize());
  // A stream written again is replaced, as re-creating it does.
  EXPECT_EQ(wxSize(30, 10), art->GetImage(0, 0).GetSize());
  EXPECT_EQ(wxSize(30, 10), art->GetImage(2, 0).GetSize());
}

TEST_F(ArtInfoTest, AStreamNamedTwiceInOneSaveIsWrittenOnce) {
  CollectionInfo const twice = Painter("Twice", {"x"}, "5");
  ArtInfo art;
  art.AddCollection(twice);
  art.AddCollection(twice);
  std::string const small = WriteJpeg("small.jpg", 10, 10);
  std::string const wide = WriteJpeg("wide.jpg", 30, 10);
  ASSERT_TRUE(art.SaveToFile(mArchive, {{small}, {wide}}, {{0}, {0}}, {small, wide}, {0, 0}));
  auto const back = Read(mArchive);
  ASSERT_TRUE(back);
  EXPECT_EQ(2u, back->GetCollections().size());
  EXPECT_EQ(wxSize(30, 10), back->GetImage(0, 0).GetSize());
  EXPECT_EQ(wxSize(30, 10), back->GetIcon(0).GetSize());
}

TEST_F(ArtInfoTest, FailuresGiveTheirTextsAndLeaveTheFileAsItWas) {
  std::string const source = WriteJpeg("ok.jpg", 20, 10);
  SaveCollection(mArchive, Painter("Kept", {"k"}), source);
  std::string const before = Slurp(mArchive);
  std::string const missing = VxPathAppend(mFolder, "missing.png");
  Spit(VxPathAppend(mFolder, "broken.png"), "no picture at all");

  ArtInfo two;
  two.AddCollection(Painter("A", {"a1"}));
  two.AddCollection(Painter("B", {"b1", "b2"}, "123456789012345678901234567890123"));
  ArtInfo oneWithLongName;
  oneWithLongName.AddCollection(Painter("A", {"a1"}, std::string(32, '7')));
  ArtInfo iconNamedLikeTheList;
  iconNamedLikeTheList.AddCollection(Painter("A", {}, "ArtInfo"));
  struct Case {
    char const * what;
    std::function<void()> save;
    std::string text;
  } const cases[] = {
      {"fewer picture lists",
       [&] {
         two.SaveToFile(mArchive, {{source}}, {{0}, {0, 0}}, {}, {});
       },
       "Internal error in ArtInfo::SaveToFile"},
      {"fewer rotations",
       [&] {
         two.SaveToFile(mArchive, {{source}, {source, source}}, {{0}, {0}}, {}, {});
       },
       "Internal error in ArtInfo::SaveToFile"},
      {"a source missing in the second collection",
       [&] {
         two.SaveToFile(mArchive, {{source}, {source, missing}}, {{0}, {0, 0}}, {}, {});
       },
       missing + " could not be read.\nThe file was skipped."},
      {"a damaged source",
       [&] {
         two.SaveToFile(mArchive, {{source}, {VxPathAppend(mFolder, "broken.png"), source}},
                        {{0}, {0, 0}}, {}, {});
       },
       VxPathAppend(mFolder, "broken.png") + " could not be read.\nThe file was skipped."},
      {"a portrait that cannot be read",
       [&] {
         ArtInfo portrait;
         portrait.AddCollection(Painter("P", {}, "9"));
         portrait.SaveToFile(mArchive, {{}}, {{}}, {missing}, {0});
       },
       missing + " could not be read.\nThe file was skipped."},
      {"a stream name over 31 characters",
       [&] { oneWithLongName.SaveToFile(mArchive, {{source}}, {{0}}, {source}, {0}); },
       "The stream name \"" + std::string(32, '7') +
           "\" cannot be used: it is empty, \"ArtInfo\" or longer than 31 characters."},
      {"the list's own stream name",
       [&] { iconNamedLikeTheList.SaveToFile(mArchive, {{}}, {{}}, {source}, {0}); },
       "The stream name \"ArtInfo\" cannot be used: it is empty, \"ArtInfo\" or longer than 31 "
       "characters."},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(c.text, FailureOf(c.save));
    EXPECT_EQ(before, Slurp(mArchive));
    for (std::string const & name : FilesIn(mFolder))
      EXPECT_EQ(std::string::npos, name.find(".tmp-"));
  }
  EXPECT_TRUE(mBoxes.empty());
}

TEST_F(ArtInfoTest, AFileThatIsNoArchiveIsNeitherReadNorOverwritten) {
  Spit(mArchive, "just text, no compound file");
  EXPECT_FALSE(Read(mArchive));
  EXPECT_FALSE(Read(VxPathAppend(mFolder, "absent.vart")));

  std::string const source = WriteJpeg("ok.jpg", 20, 10);
  EXPECT_FALSE(ArtInfo().SaveToFile(mArchive, {}, {}, {}, {}));
  EXPECT_EQ(std::vector<std::string>({"The file " + mArchive + " could not be opened!"}), mBoxes);
  EXPECT_EQ("just text, no compound file", Slurp(mArchive));
}

TEST_F(ArtInfoTest, ADamagedListIsNotReadAndNotReplaced) {
  vx3::CompoundFileWriter storage;
  storage.AddStream("ArtInfo", "22 serialization::archive 11 0 0 0 0 3 0 ");
  storage.AddStream("1", "picture");
  Spit(mArchive, storage.Finish());
  std::string const before = Slurp(mArchive);

  EXPECT_FALSE(Read(mArchive));
  ArtInfo art;
  art.AddCollection(Painter("New", {}));
  EXPECT_EQ("Reading from " + mArchive + " failed.",
            FailureOf([&] { art.SaveToFile(mArchive, {{}}, {{}}, {}, {}); }));
  EXPECT_EQ(before, Slurp(mArchive));
}

TEST_F(ArtInfoTest, StrictReadsNameTheFileAndWhatIsWrong) {
  std::string const source = WriteJpeg("ok.jpg", 20, 10);
  SaveCollection(mArchive, Painter("Ann", {"One"}), source);
  std::string const text = VxPathAppend(mFolder, "text.vart");
  Spit(text, "just text");
  std::string const empty = VxPathAppend(mFolder, "empty.vart");
  Spit(empty, "");
  std::string const noList = VxPathAppend(mFolder, "no-list.vart");
  std::string const badList = VxPathAppend(mFolder, "bad-list.vart");
  for (auto const & [path, list] : {std::make_pair(noList, ""), std::make_pair(badList, "22 x")}) {
    vx3::CompoundFileWriter storage;
    if (*list != '\0') storage.AddStream("ArtInfo", list);
    storage.AddStream("1", "picture");
    Spit(path, storage.Finish());
  }
  struct Case {
    std::string path;
    std::function<void()> read;
    std::string why;
  } const cases[] = {
      {mFolder + "/absent.vart", nullptr, "No such file or directory"},
      {mFolder, nullptr, "Is a directory"},
      {empty, nullptr, "it is empty"},
      {text, nullptr, "it is no compound file"},
      {noList, nullptr, "it has no stream \"ArtInfo\""},
      {badList, nullptr, "its list \"ArtInfo\" is damaged ("},
      {mArchive, [&] { ArtInfo::ReadPictureStream(mArchive, "77"); }, "it has no stream \"77\""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.why);
    std::string const failure = FailureOf(c.read ? c.read : [&] { ArtInfo::LoadArtInfo(c.path); });
    EXPECT_EQ(0u, failure.find("The art archive " + c.path + " is unreadable: " + c.why))
        << failure;
  }
  EXPECT_EQ("Ann", ArtInfo::LoadArtInfo(mArchive).GetCollections().at(0).artistName);
  EXPECT_EQ(mArchive, ArtInfo::LoadArtInfo(mArchive).GetCollections().at(0).file);
  std::string const picture = ArtInfo::ReadPictureStream(
      mArchive, ArtInfo::LoadArtInfo(mArchive).GetCollections()[0].pictures[0].GetFileName());
  EXPECT_EQ("\xFF\xD8", picture.substr(0, 2));
}

TEST_F(ArtInfoTest, AnArchiveInAMissingFolderCannotBeWritten) {
  std::string const target = VxPathAppend(mFolder, "no/such/folder.vart");
  EXPECT_EQ(0u, FailureOf([&] {
                  ArtInfo().SaveToFile(target, {}, {}, {}, {});
                }).find("The file " + target + " cannot be written"));
}

TEST_F(ArtInfoTest, PicturesThatClaimHugeSizesAreRefusedUnread) {
  // A valid small JPEG whose frame header is patched to 60000 x 60000.
  std::string jpeg = vx3::EncodeArtJpeg(HalfAndHalf(16, 16), 75);
  size_t const frame = jpeg.find("\xFF\xC0");
  ASSERT_NE(std::string::npos, frame);
  jpeg[frame + 5] = jpeg[frame + 7] = '\xEA';
  jpeg[frame + 6] = jpeg[frame + 8] = '\x60';
  int width = 0;
  int height = 0;
  vx3::ReadJpegSize(reinterpret_cast<unsigned char const *>(jpeg.data()), jpeg.size(), width,
                    height);
  ASSERT_EQ(60000, width);

  ArtInfo art;
  art.AddCollection(Painter("Bomb", {"b"}, "2"));
  std::ostringstream text;
  vx3::WriteArtInfoText(art, text);
  vx3::CompoundFileWriter storage;
  storage.AddStream("ArtInfo", text.str());
  storage.AddStream(art.GetCollections()[0].pictures[0].GetFileName(), jpeg);
  storage.AddStream("2", jpeg.substr(0, 100));  // cut inside the header
  Spit(mArchive, storage.Finish());

  auto const back = Read(mArchive);
  ASSERT_TRUE(back);
  EXPECT_FALSE(back->GetImage(0, 0).IsOk());
  EXPECT_FALSE(back->GetIcon(0).IsOk());
}

}  // namespace
