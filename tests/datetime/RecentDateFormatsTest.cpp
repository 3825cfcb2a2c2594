// The recent date formats: their order, their limit, and what the store
// under the application's key gives back, whatever was left there.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "datetime/RecentDateFormats.h"
#include "frame/AppProfile.h"
#include "settings/RegistrySection.h"
#include "utl/VxSystemInfo.h"

using VxTimeUtl::kMaxRecentDateFormats;
using VxTimeUtl::MoveToFront;
using VxTimeUtl::ReadRecentDateFormats;
using VxTimeUtl::WriteRecentDateFormats;
using Strings = std::vector<std::string>;

namespace {

Strings Numbered(size_t count) {
  Strings list;
  for (size_t i = 0; i < count; ++i) list.push_back("f" + std::to_string(i));
  return list;
}

// The "DateTimeDefaults" key itself, for writing what the dialog never writes.
class DefaultsKey {
public:
  DefaultsKey() : mApp(AppProfile::GetAppRegistryKey()) {
    EXPECT_NE(mApp, nullptr);
    mSection.Open(mApp, "DateTimeDefaults", KEY_READ | KEY_WRITE, true);
  }
  ~DefaultsKey() { RegCloseKey(mApp); }
  DefaultsKey(DefaultsKey const &) = delete;
  DefaultsKey & operator=(DefaultsKey const &) = delete;
  RegistrySection & Section() { return mSection; }

private:
  HKEY mApp;
  RegistrySection mSection;
};

class RecentDateFormats : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("DateFormatTest", "1.2.3.4");
    DefaultsKey key;
    key.Section().DeleteKey("Settings");
  }
};

}  // namespace

TEST(MoveToFront, NewestFirstOnceEachAtMostNine) {
  struct Case {
    char const * name;
    Strings before;
    std::string format;
    bool changed;
    Strings after;
  };
  Strings nine = Numbered(9);
  Strings nineWithNew = Numbered(8);
  nineWithNew.insert(nineWithNew.begin(), "new");
  Strings tenThousand = Numbered(10000);
  Case const cases[] = {
      {"empty", {}, "a", true, {"a"}},
      {"first already", {"a", "b"}, "a", false, {"a", "b"}},
      {"moved up", {"a", "b", "c"}, "c", true, {"c", "a", "b"}},
      {"case counts", {"a", "A"}, "A", true, {"A", "a"}},
      {"only its own place goes", {"a", "b", "a"}, "b", true, {"b", "a", "a"}},
      {"full: oldest dropped", nine, "new", true, nineWithNew},
      {"overfull: cut to nine", tenThousand, "new", true, nineWithNew},
  };
  for (Case const & c : cases) {
    Strings list = c.before;
    EXPECT_EQ(MoveToFront(list, c.format), c.changed) << c.name;
    EXPECT_EQ(list, c.after) << c.name;
  }
  EXPECT_EQ(nineWithNew.size(), kMaxRecentDateFormats);
}

TEST_F(RecentDateFormats, WrittenListReadsBackAndOnlyNineAreWritten) {
  EXPECT_TRUE(ReadRecentDateFormats().empty());
  WriteRecentDateFormats({"yyyy-MM-dd", "dd.MM.yyyy HH:mm", "M/d/yy h:mm tt"});
  EXPECT_EQ(ReadRecentDateFormats(), (Strings{"yyyy-MM-dd", "dd.MM.yyyy HH:mm", "M/d/yy h:mm tt"}));
  std::string stored;
  ASSERT_TRUE(DefaultsKey().Section().ReadKey("Settings", stored));
  EXPECT_EQ(stored, "yyyy-MM-dd;dd.MM.yyyy HH:mm;M/d/yy h:mm tt");

  WriteRecentDateFormats(Numbered(20));
  EXPECT_EQ(ReadRecentDateFormats(), Numbered(9));
}

TEST_F(RecentDateFormats, AFormatWithTheSeparatorLeavesTheStoreAsItWas) {
  WriteRecentDateFormats({"dd"});
  WriteRecentDateFormats({"HH;mm", "dd"});
  EXPECT_EQ(ReadRecentDateFormats(), Strings{"dd"});
}

TEST_F(RecentDateFormats, WhatOthersLeftInTheValueReadsWithoutHarm) {
  {
    DefaultsKey key;
    key.Section().WriteInt("Settings", 42);  // another type
  }
  EXPECT_TRUE(ReadRecentDateFormats().empty());
  std::string huge;
  for (size_t i = 0; i < 10000; ++i) huge += (i > 0 ? ";f" : "f") + std::to_string(i);
  {
    DefaultsKey key;
    key.Section().WriteKey("Settings", huge.c_str());
  }
  Strings list = ReadRecentDateFormats();
  EXPECT_EQ(list.size(), 10000U);
  ASSERT_TRUE(MoveToFront(list, "new"));
  WriteRecentDateFormats(list);
  Strings const back = ReadRecentDateFormats();
  ASSERT_EQ(back.size(), kMaxRecentDateFormats);
  EXPECT_EQ(back.front(), "new");
}
