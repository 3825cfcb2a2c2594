// The property items' rules that need no window: reading numbers back,
// compacting paths, copying categories, the switch lists, the custom list's
// selection by text and the manager's categories.
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>

#include "properties/PathCompact.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemCustomList.h"
#include "properties/PropertyItemListBool.h"
#include "properties/PropertyItemManager.h"
#include "properties/PropertyItemNumber.h"
#include "properties/PropertyItemString.h"
#include "utl/NumberTakeBack.h"

namespace {

TEST(TakeBackNumber, ReadsAsThePlatformConversionDid) {
  std::wstring const tenThousandDigits(10000, L'7');
  struct Case {
    std::wstring text;
    int expected;
  } const cases[] = {
      {L"42", 42},
      {L" \t\n-17ms", -17},
      {L"+5", 5},
      {L"-", 0},
      {L"+", 0},
      {L"", 0},
      {L"- 3", 0},
      {L"1e5", 1},
      {L"0x10", 0},
      {L"\u0663\u0664", 0},  // Arabic-Indic digits are no digits here
      {L"\uff11\uff12", 0},  // nor are full-width ones
      {L"0000000000000000000012", 12},
      {L"2147483646", 2147483646},
      {L"2147483647", INT_MAX},
      {L"2147483648", INT_MAX},
      {L"99999999999", INT_MAX},
      {L"-2147483647", -2147483647},
      {L"-2147483648", INT_MIN},
      {L"-99999999999", INT_MIN},
      {tenThousandDigits, INT_MAX},
      {L"-" + tenThousandDigits, INT_MIN},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(TakeBackNumber(c.text.c_str()), c.expected)
        << std::string(c.text.begin(), c.text.end());
  }
  EXPECT_EQ(TakeBackNumber(nullptr), 0);
  // Only the two held values count as out of range.
  EXPECT_TRUE(IsSaturatedNumber(TakeBackNumber(L"2147483647")));
  EXPECT_FALSE(IsSaturatedNumber(TakeBackNumber(L"2147483646")));
}

int OnePixelEach(wxString const & text) { return static_cast<int>(text.length()); }

TEST(CompactPath, KeepsTheLastComponentAndDropsWholeOnesBeforeIt) {
  wxString const path = L"/home/ana/runs/2024/run.csv";  // 27 characters
  struct Case {
    wxString path;
    int width;
    wxString expected;
  } const cases[] = {
      {path, 27, path},                           // fits: unchanged
      {path, 26, L"/home/ana/runs/.../run.csv"},  // the middle goes first
      {path, 25, L"/home/ana/.../run.csv"},
      {path, 20, L"/home/.../run.csv"},
      {path, 12, L"/.../run.csv"},
      {path, 11, L".../run.csv"},
      {path, 10, L"run.cs..."},  // now the name's end is cut
      {path, 6, L"run..."},
      {path, 3, L"..."},
      {path, 1, L"..."},  // "..." alone may overflow
      {L"no-separator-name", 10, L"no-sepa..."},
      {L"/a/b/c/", 6, L".../c/"},  // a trailing separator stays
      {L"//double//slash", 12, L"//.../slash"},
      {L"", 0, L""},
      {L"", -5, L""},
  };
  for (Case const & c : cases)
    EXPECT_EQ(CompactPath(c.path, c.width, &OnePixelEach), c.expected)
        << c.path << " in " << c.width;
}

TEST(PropertyItemCategory, ACopyOwnsCopiesOfItsItems) {
  auto original = std::make_unique<PropertyItemCategory>(L"Run", 0, L"The run");
  original->AddPropertyItem(new PropertyItemNegNumber(L"Offset", 7, L""));
  auto * text = static_cast<PropertyItemString *>(
      original->AddPropertyItem(new PropertyItemString(L"Label", 8, L"")));
  text->SetData(wxString(L"first"));
  original->SetChildrenVisible(false);

  PropertyItemCategory copy(*original);
  PropertyItemCategory assigned(L"Other", 0, L"");
  assigned.AddPropertyItem(new PropertyItemString(L"Gone", 9, L""));
  assigned = *original;
  text->SetData(wxString(L"changed"));
  original.reset();  // the copies must not share what it deletes

  for (PropertyItemCategory const * category : {&copy, &assigned}) {
    ASSERT_EQ(category->GetNumItems(), 2);
    EXPECT_FALSE(category->GetChildrenVisible());
    auto it = category->begin();
    EXPECT_NE(dynamic_cast<PropertyItemNegNumber *>(*it), nullptr);  // the class is kept
    EXPECT_EQ((*it)->GetPropertyID(), 7U);
    wxString value;
    static_cast<PropertyItemString *>(*++it)->GetData(value);
    EXPECT_EQ(value, L"first");
  }
  EXPECT_NE(*copy.begin(), *assigned.begin());
}

TEST(PropertyItemListBool, IndexZeroIsOffEveryOtherIsOn) {
  PropertyItemListYesNo yesNo(L"Save", 1, L"");
  PropertyItemListEnabledDisabled enabled(L"Alarm", 2, L"");
  PropertyItemListTrueFalse trueFalse(L"Valid", 3, L"");
  struct Case {
    PropertyItemListBool * item;
    wchar_t const * off;
    wchar_t const * on;
  } const cases[] = {{&yesNo, L"No", L"Yes"},
                     {&enabled, L"Disabled", L"Enabled"},
                     {&trueFalse, L"False", L"True"}};
  for (Case const & c : cases) {
    EXPECT_EQ(c.item->GetNumItems(), 2U);
    EXPECT_EQ(c.item->GetItemData(0), c.off);
    EXPECT_EQ(c.item->GetItemData(1), c.on);
    EXPECT_EQ(c.item->GetItemData(2), L"");
    for (int index : {0, 1, 2, -1, INT_MAX}) {
      c.item->SetData(index);
      bool on = index == 0;  // the opposite of the answer expected
      c.item->GetData(on);
      EXPECT_EQ(on, index != 0) << index;
    }
    c.item->SetData(true);
    int index = -1;
    c.item->GetData(index);
    EXPECT_EQ(index, 1);
  }
  yesNo.SetData(5);
  EXPECT_TRUE(yesNo.GetData());
}

TEST(PropertyItemCustomList, SelectsByTextAndKeepsAMissAsNone) {
  PropertyItemCustomList list(L"Unit", 4, L"");
  std::vector<wxString> entries{L"mg/l", L"ppm", L"%"};
  list.InitPropertyItemList(entries, 4);
  list.SetSelectedData(L"ppm");
  int index = -1;
  list.GetData(index);
  EXPECT_EQ(index, 1);
  list.SetSelectedData(L"PPM");  // exact comparison only
  list.GetData(index);
  EXPECT_EQ(index, 3);  // one past the end
  EXPECT_EQ(list.GetItemData(static_cast<std::uint64_t>(index)), L"");
}

TEST(PropertyItem, NumbersNameStringResources) {
  // 61443 is one of the library's own strings; 1 names none.
  PropertyItemString const item(61443U, 12U, 1U);
  EXPECT_EQ(item.GetName(), L"Page");
  EXPECT_EQ(item.GetShowName(), L"Page");
  EXPECT_EQ(item.GetPropertyID(), 12U);
  EXPECT_EQ(item.GetDescription(), L"");
}

class Manager : public PropertyItemManager {
public:
  void LoadProperties() override {}
  void StoreProperties() override {}
};

TEST(PropertyItemManager, GivesItsCategoriesByIndexAndNullOutside) {
  Manager manager;
  PropertyItemCategory * first = manager.AddPropertyCategory(L"Run", L"The run", true);
  PropertyItemCategory * second = manager.AddPropertyCategory(L"Display", L"", false);
  EXPECT_EQ(manager.GetPropertyCategory(0), first);
  EXPECT_EQ(manager.GetPropertyCategory(1), second);
  EXPECT_EQ(manager.GetPropertyCategory(-1), nullptr);
  EXPECT_EQ(manager.GetPropertyCategory(2), nullptr);
  EXPECT_TRUE(first->GetChildrenVisible());
  EXPECT_FALSE(second->GetChildrenVisible());
  EXPECT_EQ(second->GetPropertyID(), 0U);
  PropertyItemCategory * third = manager.AddPropertyCategory(61443U, 1U, true);
  EXPECT_EQ(third->GetName(), L"Page");
  EXPECT_EQ(manager.GetPropertyCategory(2), third);
}

}  // namespace
