// The filter popup's rules without a window: which items a filtering shows
// and selects, and what it keeps of its settings between runs.
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "lists/FilterListFiltering.h"
#include "lists/FilterListItems.h"
#include "lists/PopupFilterListSettings.h"

namespace {

class Names : public FilterListItems {
public:
  explicit Names(std::vector<std::string> names) : mNames(std::move(names)) {}
  uint64_t GetCount() const override { return mNames.size(); }
  std::string GetText(uint64_t index) const override {
    if (mNames.at(index) == "!throw") throw std::runtime_error("unreadable");
    return mNames.at(index);
  }

private:
  std::vector<std::string> mNames;
};

Names const kRuns({"Run 1", "Blank", "Run 2", "Rinse", "Run 3", "Blank 2", "!throw", "Run 4"});

TEST(FilterListRulesTest, FilteringShowsPassingItemsAndSelectsWhatWasSelected) {
  struct Case {
    char const * what;
    std::string filter;
    uint64_t initial;
    std::vector<uint64_t> carried;
    std::vector<uint64_t> visible;
    std::vector<int> selected;
  };
  Case const cases[] = {
      {"empty filter shows all readable items", "", kNoFilterItem, {}, {0, 1, 2, 3, 4, 5, 7}, {}},
      {"a filter narrows", "run", kNoFilterItem, {}, {0, 2, 4, 7}, {}},
      {"carried items are selected where they pass",
       "run",
       kNoFilterItem,
       {1, 2, 7},
       {0, 2, 4, 7},
       {1, 3}},
      {"the initial item passes though it does not match", "run", 3, {}, {0, 2, 3, 4, 7}, {2}},
      {"initial and carried together", "run", 3, {0, 4}, {0, 2, 3, 4, 7}, {0, 2, 3}},
      {"nothing matches", "xyz", kNoFilterItem, {2}, {}, {}},
      {"the unreadable item never passes, even for an exclusion",
       "-blank",
       kNoFilterItem,
       {},
       {0, 2, 3, 4, 7},
       {}},
      {"an initial item beyond the count is no row", "", 99, {}, {0, 1, 2, 3, 4, 5, 7}, {}},
  };
  for (auto const & c : cases) {
    FilteredRows const rows = FilterItems(&kRuns, c.filter, c.initial, c.carried);
    EXPECT_EQ(rows.visible, c.visible) << c.what;
    EXPECT_EQ(rows.selected, c.selected) << c.what;
    EXPECT_EQ(rows.total, 8U) << c.what;
  }
}

TEST(FilterListRulesTest, NoItemsOrACountThatFailsShowNothing) {
  class FailingCount : public FilterListItems {
    uint64_t GetCount() const override { throw std::runtime_error("gone"); }
    std::string GetText(uint64_t) const override { return "x"; }
  };
  FailingCount const failing;
  for (FilterListItems const * items : {static_cast<FilterListItems const *>(nullptr),
                                        static_cast<FilterListItems const *>(&failing)}) {
    FilteredRows const rows = FilterItems(items, "", 0, {0});
    EXPECT_TRUE(rows.visible.empty());
    EXPECT_TRUE(rows.selected.empty());
    EXPECT_EQ(rows.total, 0U);
  }
}

// A profile as the registry might hold it.
PopupFilterListSettings Read(std::map<std::string, int> const & ints,
                             std::map<std::string, std::string> const & texts) {
  PopupFilterListSource source;
  source.getInt = [ints](char const * entry, int defaultValue) {
    auto const found = ints.find(entry);
    return found != ints.end() ? found->second : defaultValue;
  };
  source.getString = [texts](char const * entry, std::string & value) {
    auto const found = texts.find(entry);
    if (found == texts.end()) return false;
    value = found->second;
    return true;
  };
  return ReadPopupFilterListSettings(source);
}

TEST(FilterListRulesTest, StoredSizesAreClampedAndFiltersCut) {
  struct Case {
    char const * what;
    std::map<std::string, int> ints;
    int width, height;
  };
  Case const cases[] = {
      {"nothing stored", {}, 250, 350},
      {"below the minimum", {{"Width", 100}, {"Height", 349}}, 250, 350},
      {"negative", {{"Width", -5000}, {"Height", INT_MIN}}, 250, 350},
      {"kept", {{"Width", 400}, {"Height", 500}}, 400, 500},
      {"huge", {{"Width", INT_MAX}, {"Height", 1 << 30}}, 10000, 10000},
  };
  for (auto const & c : cases) {
    PopupFilterListSettings const settings = Read(c.ints, {});
    EXPECT_EQ(settings.width, c.width) << c.what;
    EXPECT_EQ(settings.height, c.height) << c.what;
  }

  std::map<std::string, std::string> texts;
  for (int i = 0; i < 50; ++i) texts["Filter" + std::to_string(i)] = "f" + std::to_string(i);
  EXPECT_EQ(Read({{"NumFilters", 50}}, texts).filters.size(), 20U) << "only 20 are read";
  EXPECT_TRUE(Read({{"NumFilters", -3}}, texts).filters.empty());
  texts["Filter1"] = "bad \xC3\x28 text";
  texts.erase("Filter2");
  EXPECT_EQ(Read({{"NumFilters", 4}}, texts).filters, (std::vector<std::string>{"f0", "f3"}))
      << "invalid UTF-8 and missing entries are left out";
}

TEST(FilterListRulesTest, RememberedFiltersPutNewOnesFirstAndKeepTwenty) {
  PopupFilterListSettings settings;
  for (int i = 0; i < 20; ++i) settings.Remember("f" + std::to_string(i));
  ASSERT_EQ(settings.filters.size(), 20U);
  EXPECT_EQ(settings.filters.front(), "f19");
  settings.Remember("f10");  // known: keeps its place
  EXPECT_EQ(settings.filters.front(), "f19");
  EXPECT_EQ(settings.filters[9], "f10");
  settings.Remember("F10");  // another text: bytes are compared
  EXPECT_EQ(settings.filters.front(), "F10");
  EXPECT_EQ(settings.filters.size(), 20U);
  EXPECT_EQ(settings.filters.back(), "f1") << "the twenty-first is dropped";
  settings.Remember("");
  EXPECT_EQ(settings.filters.front(), "F10") << "an empty filter is not remembered";
}

}  // namespace
