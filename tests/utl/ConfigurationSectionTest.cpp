// What ConfigurationSection builds on ReadKey/WriteKey: the text forms, the
// round trips, and reads that fail without touching their output.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

#include "InMemorySection.h"

namespace {

// The stored text, and that it reads back exactly: shortest round-trip
// numbers, "inf" and "nan", the sign of zero, lists joined by ";".
TEST(ConfigurationSection, WritesTheDocumentedTextFormsAndReadsThemBackExactly) {
  InMemorySection section;
  double const max = std::numeric_limits<double>::max();
  double const tiny = std::numeric_limits<double>::denorm_min();
  std::pair<double, char const *> const doubles[] = {{0.1, "0.1"},
                                                     {-0.0, "-0"},
                                                     {max, "1.7976931348623157e+308"},
                                                     {tiny, "5e-324"},
                                                     {-INFINITY, "-inf"}};
  for (auto const & [value, text] : doubles) {
    section.WriteFloat("d", value);
    EXPECT_EQ(section.Raw("d"), text);
    double back = 7;
    ASSERT_TRUE(section.ReadDouble("d", back)) << text;
    EXPECT_EQ(back, value);
    EXPECT_EQ(std::signbit(back), std::signbit(value)) << text;
  }
  section.WriteFloat("nan", std::nan(""));
  double nan = 0;
  ASSERT_TRUE(section.ReadDouble("nan", nan));
  EXPECT_TRUE(std::isnan(nan));

  std::vector<float> const floats = {0.1f, 1e-30f, std::numeric_limits<float>::max()};
  section.WriteFloatVector("f", floats);
  std::vector<float> floatsBack;
  ASSERT_TRUE(section.ReadFloatVector("f", floatsBack));
  EXPECT_EQ(floatsBack, floats);
  section.WriteBool("no", false);
  section.WriteBoolVector("bools", {true, false, true});
  section.WriteIntVector("ints", {1, -2, INT_MAX});
  EXPECT_EQ(section.Raw("no"), "0");
  EXPECT_EQ(section.Raw("bools"), "1;0;1");
  EXPECT_EQ(section.Raw("ints"), "1;-2;2147483647");
}

TEST(ConfigurationSection, ParsesOnlyWholeNumbersInRange) {
  struct Case {
    char const * text;
    bool isInt;
    int intValue;
    bool isBool, boolValue;
  } const cases[] = {
      {" -7 ", true, -7, true, true},
      {"0", true, 0, true, false},
      {"2147483647", true, INT_MAX, true, true},
      {"2147483648", false, 0, false, false},
      {"+-5", false, 0, false, false},
      {"12abc", false, 0, false, false},
      {"0x10", false, 0, false, false},
      {"", false, 0, false, false},
      {"1 2", false, 0, false, false},
      {"TRUE", false, 0, true, true},
      {"false", false, 0, true, false},
      {"yes", false, 0, false, false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string("\"") + c.text + "\"");
    InMemorySection section;
    section.SetRaw("k", c.text);
    int number = 99;
    EXPECT_EQ(section.ReadInt("k", number), c.isInt);
    EXPECT_EQ(number, c.isInt ? c.intValue : 99);
    for (bool const initial : {false, true}) {
      bool flag = initial;
      EXPECT_EQ(section.ReadBool("k", flag), c.isBool);
      EXPECT_EQ(flag, c.isBool ? c.boolValue : initial);
    }
  }
}

TEST(ConfigurationSection, FloatReadRefusesWhatAFloatCannotHold) {
  struct Case {
    char const * text;
    bool ok;
    float value;
  } const cases[] = {{"3.4e38", true, 3.4e38f}, {"-inf", true, -INFINITY}, {"1e39", false, 0},
                     {"1e-60", false, 0},       {"1,5", false, 0},         {"0.5;1", false, 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    InMemorySection section;
    section.SetRaw("k", c.text);
    float value = 42;
    EXPECT_EQ(section.ReadFloat("k", value), c.ok);
    EXPECT_EQ(value, c.ok ? c.value : 42.0f);
  }
}

// A missing key or text that does not convert: false (or 0), and the
// caller's default in place.
TEST(ConfigurationSection, FailedReadsLeaveTheirOutputUntouched) {
  for (char const * stored : {static_cast<char const *>(nullptr), "1;x;3"}) {
    SCOPED_TRACE(stored ? stored : "<missing>");
    InMemorySection section;
    if (stored != nullptr) section.SetRaw("k", stored);
    bool flag = true;
    double twice = 2.5;
    std::vector<bool> flags = {true};
    std::vector<int> numbers = {4};
    double doubles[2] = {8, 9};
    std::vector<std::string> items = {"default"};
    EXPECT_FALSE(section.ReadBool("k", flag));
    EXPECT_FALSE(section.ReadDouble("k", twice));
    EXPECT_FALSE(section.ReadBoolVector("k", flags));
    EXPECT_FALSE(section.ReadIntVector("k", numbers));
    EXPECT_EQ(section.ReadDoubleVector("k", doubles, 2), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(twice, 2.5);
    EXPECT_EQ(flags, std::vector<bool>{true});
    EXPECT_EQ(numbers, std::vector<int>{4});
    EXPECT_EQ(doubles[1], 9);
    if (stored == nullptr) {
      EXPECT_EQ(section.ReadStringVector("k", items, ';'), 0);
      EXPECT_EQ(items, std::vector<std::string>{"default"});
    }
  }
}

TEST(ConfigurationSection, ArrayReadsStopAtTheCallersCount) {
  InMemorySection section;
  double const written[] = {1, 2, 3};
  section.WriteDoubleVector("d", written, 3);
  double fewer[2] = {0, 0};
  EXPECT_EQ(section.ReadDoubleVector("d", fewer, 2), 2);
  EXPECT_EQ(fewer[1], 2);
  double more[5] = {0, 0, 0, 0, -1};
  EXPECT_EQ(section.ReadDoubleVector("d", more, 5), 3);
  EXPECT_EQ(more[2], 3);
  EXPECT_EQ(more[3], 0) << "items beyond the stored ones stay as they were";
  EXPECT_EQ(section.ReadDoubleVector("d", nullptr, 3), 0);
  section.SetRaw("empty", "");
  std::vector<int> none = {1, 2};
  EXPECT_TRUE(section.ReadIntVector("empty", none));
  EXPECT_TRUE(none.empty());
}

TEST(ConfigurationSection, StringVectorsJoinWithTheCallersSeparator) {
  InMemorySection section;
  struct Case {
    std::vector<std::string> items;
    char separator;
    char const * text;
    std::vector<std::string> back;
  } const cases[] = {
      {{"%x %X", "%d.%m.%Y"}, ';', "%x %X;%d.%m.%Y", {"%x %X", "%d.%m.%Y"}},
      {{"a", "", "c"}, ',', "a,,c", {"a", "", "c"}},
      {{}, ';', "", {}},
      {{""}, ';', "", {}},  // one empty item cannot be told from none
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_TRUE(section.WriteStringVector("v", c.items, c.separator));
    EXPECT_EQ(section.Raw("v"), c.text);
    std::vector<std::string> back = {"old"};
    EXPECT_EQ(section.ReadStringVector("v", back, c.separator), static_cast<int>(c.back.size()));
    EXPECT_EQ(back, c.back);
  }
  section.SetRaw("v", "kept");
  EXPECT_FALSE(section.WriteStringVector("v", {"a;b", "c"}, ';'));
  EXPECT_FALSE(section.WriteStringVector("v", {"a", "b"}, '\0'));
  EXPECT_EQ(section.Raw("v"), "kept");
}

TEST(ConfigurationSection, CopyAndChangeMovesOnlyTheCopyAndListsStopAtTheFirstGap) {
  InMemorySection root;
  for (int index : {1, 2, 3, 5})
    std::unique_ptr<ConfigurationSection>(root.CreateSubSection("Item", index))
        ->WriteInt("Index", index);
  std::unique_ptr<ConfigurationSection> second(root.CopyAndChangeSubSection("Item", 2));
  ASSERT_TRUE(second);
  int index = 0;
  EXPECT_TRUE(second->ReadInt("Index", index));
  EXPECT_EQ(index, 2);
  EXPECT_FALSE(root.HasKey("Index")) << "the source stays where it was";
  EXPECT_EQ(root.CopyAndChangeSubSection("Item", 4), nullptr);

  EXPECT_EQ(root.NumSubSections("Item"), 3);
  std::unique_ptr<std::vector<boost::shared_ptr<ConfigurationSection>>> all(
      root.GetAllSubSections("Item"));
  ASSERT_EQ(all->size(), 3u);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE((*all)[i]->ReadInt("Index", index));
    EXPECT_EQ(index, i + 1);
  }
}

}  // namespace
