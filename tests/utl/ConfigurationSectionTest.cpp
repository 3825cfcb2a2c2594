// What ConfigurationSection builds on ReadKey/WriteKey: the text forms, the
// round trips, and reads that fail without touching their output.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

#include "InMemorySection.h"

namespace {

TEST(ConfigurationSection, WritesTheDocumentedTextForms) {
  InMemorySection section;
  section.WriteInt("int", -42);
  section.WriteBool("yes", true);
  section.WriteBool("no", false);
  section.WriteFloat("double", 0.1);
  section.WriteFloat("big", 1e300);
  section.WriteFloat("infinite", -std::numeric_limits<double>::infinity());
  section.WriteBoolVector("bools", {true, false, true});
  section.WriteIntVector("ints", {1, -2, INT_MAX});
  section.WriteFloatVector("floats", std::vector<float>{0.1f, -2.5f});
  double const doubles[] = {0.5, 1.0 / 3};
  section.WriteDoubleVector("doubles", doubles, 2);
  section.WriteIntVector("none", {});

  struct Expected {
    char const *key, *text;
  };
  Expected const expected[] = {
      {"int", "-42"},          {"yes", "1"},
      {"no", "0"},             {"double", "0.1"},
      {"big", "1e+300"},       {"infinite", "-inf"},
      {"bools", "1;0;1"},      {"ints", "1;-2;2147483647"},
      {"floats", "0.1;-2.5"},  {"doubles", "0.5;0.3333333333333333"},
      {"none", ""},
  };
  for (Expected const & e : expected) EXPECT_EQ(section.Raw(e.key), e.text) << e.key;
}

TEST(ConfigurationSection, NumbersComeBackExactly) {
  InMemorySection section;
  double const doubles[] = {0.1,  -0.0, 1.0 / 3, std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::denorm_min(), 123456789.125};
  for (double const value : doubles) {
    section.WriteFloat("d", value);
    double back = 7;
    ASSERT_TRUE(section.ReadDouble("d", back)) << section.Raw("d");
    EXPECT_EQ(back, value);
    EXPECT_EQ(std::signbit(back), std::signbit(value));
  }
  std::vector<float> const floats = {0.1f, 1e-30f, std::numeric_limits<float>::max(), -3.75f};
  section.WriteFloatVector("f", floats);
  std::vector<float> floatsBack;
  ASSERT_TRUE(section.ReadFloatVector("f", floatsBack));
  EXPECT_EQ(floatsBack, floats);

  for (int const value : {0, INT_MIN, INT_MAX, -1}) {
    section.WriteInt("i", value);
    int back = 7;
    ASSERT_TRUE(section.ReadInt("i", back));
    EXPECT_EQ(back, value);
  }
  section.WriteFloat("nan", std::nan(""));
  double nan = 0;
  ASSERT_TRUE(section.ReadDouble("nan", nan));
  EXPECT_TRUE(std::isnan(nan));
}

TEST(ConfigurationSection, ParsesOnlyWholeNumbersInRange) {
  struct Case {
    char const * text;
    bool isInt;
    int intValue;
    bool isBool;
    bool boolValue;
  };
  Case const cases[] = {
      {"12", true, 12, true, true},          {" -7 ", true, -7, true, true},
      {"+5", true, 5, true, true},           {"0", true, 0, true, false},
      {"2147483647", true, INT_MAX, true, true},
      {"2147483648", false, 0, false, false}, {"-2147483649", false, 0, false, false},
      {"+-5", false, 0, false, false},       {"12abc", false, 0, false, false},
      {"0x10", false, 0, false, false},      {"1.0", false, 0, false, false},
      {"", false, 0, false, false},          {"  ", false, 0, false, false},
      {"TRUE", false, 0, true, true},        {"false", false, 0, true, false},
      {"yes", false, 0, false, false},       {"1 2", false, 0, false, false},
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
  };
  Case const cases[] = {
      {"0.1", true, 0.1f},   {"3.4e38", true, 3.4e38f}, {"-inf", true, -INFINITY},
      {"1e39", false, 0},    {"1e-60", false, 0},       {"1,5", false, 0},
      {"0.5;1", false, 0},   {"nanx", false, 0},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    InMemorySection section;
    section.SetRaw("k", c.text);
    float value = 42;
    EXPECT_EQ(section.ReadFloat("k", value), c.ok);
    EXPECT_EQ(value, c.ok ? c.value : 42.0f);
  }
}

// Every read, on a missing key and on text that does not convert: false (or
// 0) and the caller's default in place.
TEST(ConfigurationSection, FailedReadsLeaveTheirOutputUntouched) {
  for (char const * stored : {static_cast<char const *>(nullptr), "1;x;3", "abc"}) {
    SCOPED_TRACE(stored ? stored : "<missing>");
    InMemorySection section;
    if (stored != nullptr) section.SetRaw("k", stored);

    bool flag = true;
    int number = 5;
    float single = 1.5f;
    double twice = 2.5;
    std::vector<bool> flags = {true};
    std::vector<int> numbers = {4};
    std::vector<float> singles = {4.5f};
    float singleArray[2] = {8, 9};
    double doubleArray[2] = {8, 9};

    EXPECT_FALSE(section.ReadBool("k", flag));
    EXPECT_FALSE(section.ReadInt("k", number));
    EXPECT_FALSE(section.ReadFloat("k", single));
    EXPECT_FALSE(section.ReadDouble("k", twice));
    EXPECT_FALSE(section.ReadBoolVector("k", flags));
    EXPECT_FALSE(section.ReadIntVector("k", numbers));
    EXPECT_FALSE(section.ReadFloatVector("k", singles));
    EXPECT_EQ(section.ReadFloatVector("k", singleArray, 2), 0);
    EXPECT_EQ(section.ReadDoubleVector("k", doubleArray, 2), 0);

    EXPECT_TRUE(flag);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(single, 1.5f);
    EXPECT_EQ(twice, 2.5);
    EXPECT_EQ(flags, std::vector<bool>{true});
    EXPECT_EQ(numbers, std::vector<int>{4});
    EXPECT_EQ(singles, std::vector<float>{4.5f});
    EXPECT_EQ(singleArray[0], 8);
    EXPECT_EQ(doubleArray[1], 9);
  }
  InMemorySection section;
  std::vector<std::string> items = {"default"};
  EXPECT_EQ(section.ReadStringVector("missing", items, ';'), 0);
  EXPECT_EQ(items, std::vector<std::string>{"default"});
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
  EXPECT_EQ(section.ReadDoubleVector("d", more, 0), 0);
  EXPECT_EQ(section.ReadDoubleVector("d", nullptr, 3), 0);

  float const floats[] = {0.25f, 0.5f};
  section.WriteFloatVector("f", floats, 2);
  float back[4] = {};
  EXPECT_EQ(section.ReadFloatVector("f", back, 4), 2);
  EXPECT_EQ(back[0], 0.25f);

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
  };
  Case const cases[] = {
      {{"%x %X", "%d.%m.%Y %H:%M"}, ';', "%x %X;%d.%m.%Y %H:%M", {"%x %X", "%d.%m.%Y %H:%M"}},
      {{"a", "", "c"}, ',', "a,,c", {"a", "", "c"}},
      {{"Grüße", "日本"}, ';', "Grüße;日本", {"Grüße", "日本"}},
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
  section.SetRaw("v", "a;b;");
  std::vector<std::string> trailing;
  EXPECT_EQ(section.ReadStringVector("v", trailing, ';'), 3);

  section.SetRaw("v", "kept");
  EXPECT_FALSE(section.WriteStringVector("v", {"a;b", "c"}, ';'));
  EXPECT_FALSE(section.WriteStringVector("v", {"a", "b"}, '\0'));
  EXPECT_EQ(section.Raw("v"), "kept");
}

TEST(ConfigurationSection, WideAndStdStringWritesReachTheSameKey) {
  InMemorySection section;
  EXPECT_TRUE(section.WriteKey("s", std::string("narrow")));
  EXPECT_EQ(section.Raw("s"), "narrow");
  EXPECT_TRUE(section.WriteKey("w", L"wide \u00e9"));
  std::wstring wide;
  ASSERT_TRUE(section.ReadKey("w", wide));
  EXPECT_EQ(wide, L"wide \u00e9");
  EXPECT_EQ(section.Raw("w"), "wide \xc3\xa9");
}

TEST(ConfigurationSection, CopyAndChangeMovesOnlyTheCopy) {
  InMemorySection root;
  std::unique_ptr<ConfigurationSection> first(root.CreateSubSection("Item", 1));
  first->WriteKey("Name", "one");
  std::unique_ptr<ConfigurationSection>(root.CreateSubSection("Item", 2))->WriteKey("Name", "two");
  std::unique_ptr<ConfigurationSection>(root.CreateSubSection("Other"))->WriteKey("Name", "x");

  std::unique_ptr<ConfigurationSection> second(root.CopyAndChangeSubSection("Item", 2));
  ASSERT_TRUE(second);
  std::string name;
  EXPECT_TRUE(second->ReadKey("Name", name));
  EXPECT_EQ(name, "two");
  EXPECT_FALSE(root.HasKey("Name")) << "the source stays where it was";

  EXPECT_EQ(root.CopyAndChangeSubSection("Item", 3), nullptr);
  EXPECT_EQ(root.CopyAndChangeSubSection("Missing"), nullptr);
  std::unique_ptr<ConfigurationSection> other(first->CopyAndChangeSection("Other"));
  EXPECT_TRUE(other->ReadKey("Name", name));
  EXPECT_EQ(name, "x");
  EXPECT_TRUE(first->ReadKey("Name", name));
  EXPECT_EQ(name, "one");
}

TEST(ConfigurationSection, BaseListsIndexedChildrenUpToTheFirstGap) {
  InMemorySection root;
  for (int index : {1, 2, 3, 5}) {
    std::unique_ptr<ConfigurationSection> item(root.CreateSubSection("Item", index));
    item->WriteInt("Index", index);
  }
  EXPECT_EQ(root.NumSubSections("Item"), 3);
  EXPECT_EQ(root.NumSubSections("None"), 0);
  std::unique_ptr<std::vector<boost::shared_ptr<ConfigurationSection>>> all(
      root.GetAllSubSections("Item"));
  ASSERT_EQ(all->size(), 3u);
  for (int i = 0; i < 3; ++i) {
    int index = 0;
    EXPECT_TRUE((*all)[i]->ReadInt("Index", index));
    EXPECT_EQ(index, i + 1);
  }
}

}  // namespace
