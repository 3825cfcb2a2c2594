// The stream "ArtInfo": the exact tokens that Windows builds read, versions
// read, and text that must be refused before Boost sees it.
#include <gtest/gtest.h>

#include <sstream>

#include "pictures/ArtInfoText.h"

namespace {

ArtInfo TwoPainters() {
  ArtInfo art;
  CollectionInfo first;
  first.bitmapWidth = 400;
  first.bitmapHeight = 300;
  first.portraitWidth = 80;
  first.portraitHeight = 70;
  first.artistName = "Ann";
  first.lifeSpan = "1900-1980";
  first.iconName = "77";
  art.AddCollection(first);  // no pictures: the picture class information comes later
  CollectionInfo second;
  second.artistName = "B\xc3\xa9la";
  second.pictures.resize(2);
  art.AddCollection(second);
  return art;
}

std::string Text(ArtInfo const & art) {
  std::ostringstream out;
  vx3::WriteArtInfoText(art, out);
  return out.str();
}

TEST(ArtInfoText, WritesTheTokensOfArchiveVersion11) {
  EXPECT_EQ(
      "22 serialization::archive 11 0 0 0 0 2 0 0 0 400 300 80 70 3 Ann 9 1900-1980 2 77 0 0 0 0 "
      "0 0 0 0 5 B\xc3\xa9la 0  0  2 0 0 0 0  0  0  0 \n",
      Text(TwoPainters()));
  EXPECT_EQ("22 serialization::archive 11 0 0 0 0 0 0\n", Text(ArtInfo()));
}

TEST(ArtInfoText, RoundTripKeepsEveryPersistedField) {
  ArtInfo art = TwoPainters();
  CollectionInfo third;
  third.artistName = "with  blanks\nand lines";
  third.bitmapWidth = -1;
  for (char const * title : {"", " leading blank", "T\xc3\xaftre"}) {
    PictureInfo picture;
    picture.SetTitle(title);
    third.pictures.push_back(picture);
  }
  third.file = "/not/persisted.vart";
  art.AddCollection(third);

  ArtInfo const back = vx3::ReadArtInfoText(Text(art));
  ASSERT_EQ(3u, back.GetCollections().size());
  CollectionInfo const & read = back.GetCollections()[2];
  EXPECT_EQ(third.artistName, read.artistName);
  EXPECT_EQ(-1, read.bitmapWidth);
  EXPECT_EQ("", read.file);
  ASSERT_EQ(3u, read.pictures.size());
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(third.pictures[i].GetTitle(), read.pictures[i].GetTitle());
    EXPECT_EQ(third.pictures[i].GetFileName(), read.pictures[i].GetFileName());
  }
  EXPECT_EQ(80, back.GetCollections()[0].portraitWidth);
  EXPECT_EQ("1900-1980", back.GetCollections()[0].lifeSpan);
}

TEST(ArtInfoText, ReadsVersion11AndLaterAndRefusesOlder) {
  std::string const body = Text(TwoPainters()).substr(29);
  struct Case {
    char const * header;
    bool readable;
  } const cases[] = {
      {"22 serialization::archive 11 ", true},
      {"22 serialization::archive 17 ", true},   // what later Windows builds write
      {"22 serialization::archive 19 ", true},   // newer than this Boost
      {"22 serialization::archive 10 ", false},  // older than the Windows builds read
      {"22 serialization::archive 65536 ", false},
      {"21 serialization::archiv ", false},
      {"", false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.header);
    std::string const text = c.header + body;
    if (c.readable)
      EXPECT_EQ(2u, vx3::ReadArtInfoText(text).GetCollections().size());
    else
      EXPECT_THROW(vx3::ReadArtInfoText(text), vx3::ArtInfoTextError);
  }
}

TEST(ArtInfoText, RefusesHostileAndBrokenTextBeforeAllocating) {
  std::string const head = "22 serialization::archive 11 0 0 0 0 ";
  char const * const cases[] = {
      "18446744073709551615 0 ",                        // collections beyond any limit
      "10001 0 ",                                       // collections above the limit
      "2 0 0 0 1 2 3 4 3 Ann ",                         // fewer collections than counted
      "1 0 0 0 1 2 3 4 99999999999 x",                  // a string longer than the text
      "1 0 0 0 1 2 3 4 70000 ",                         // a string above the limit
      "1 0 0 0 1 2 3 4 3 Ann 0  0  0 0 4294967295 0 ",  // pictures beyond any limit
      "1 0 0 0 1 2 3 4 3 Ann 0  0  0 0 50000 0 0 0 ",   // pictures beyond the text
      "1 0 0 0 1 2 3 4 3 Ann 0  0  0 0 -1 0 ",          // a negative count
      "1 0 0 0 1 2 3 4 3 Ann 0  0  1 0 0 0 ",           // tracked objects
      "1 0 0 1 1 2 3 4 3 Ann 0  0  0 0 0 0 ",           // a class version Boost would refuse
      "1 0 0 0 1 2 3 99999999999 0  0  0  0 0 0 0 ",    // an int out of range
      "1 0 0 0 1 2 3 4 3 An",                           // truncated inside a string
      "1 0 0 0 x",                                      // no number
  };
  for (char const * body : cases) {
    SCOPED_TRACE(body);
    EXPECT_THROW(vx3::ReadArtInfoText(head + body), vx3::ArtInfoTextError);
  }
  EXPECT_THROW(vx3::ReadArtInfoText(std::string(vx3::ArtInfoTextLimits::kMaxTextBytes + 1, ' ')),
               vx3::ArtInfoTextError);
}

}  // namespace
