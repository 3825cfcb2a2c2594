// Menu resources: bars and single menus named by number, items by their
// command ids, labels translated, broken or missing ones refused.
#include <gtest/gtest.h>

#include <cstdlib>
#include <locale>
#include <string>

#include <wx/menu.h>

#include "platform/MenuCommandIds.h"
#include "platform/ResourceMenus.h"
#include "utl/Translation.h"

namespace {

TEST(ResourceMenus, BarsKeepTheirMenusItemsAndCommandIds) {
  std::unique_ptr<wxMenuBar> bar = LoadResourceMenuBar(4300);
  ASSERT_TRUE(bar);
  ASSERT_EQ(bar->GetMenuCount(), 2u);
  EXPECT_EQ(bar->GetMenuLabelText(1), "Second");
  wxMenu * first = bar->GetMenu(0);
  ASSERT_EQ(first->GetMenuItemCount(), 3u);
  wxMenuItem * copy = first->FindItem(MenuItemIdFromCommand(57634));
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->GetItemLabelText(), "Stop");
  EXPECT_TRUE(first->FindItemByPosition(1)->IsSeparator());
  EXPECT_NE(first->FindItem(4302), nullptr);  // inside the sub-menu

  // The context menu is the bar's first menu, the menu object itself.
  std::unique_ptr<wxMenu> popup = LoadResourcePopupMenu(4300);
  ASSERT_TRUE(popup);
  EXPECT_NE(popup->FindItem(MenuItemIdFromCommand(57634)), nullptr);
  EXPECT_EQ(popup->FindItem(4303), nullptr);
  popup = LoadResourcePopupMenu(4301);
  ASSERT_TRUE(popup);
  EXPECT_EQ(popup->GetMenuItemCount(), 1u);
  EXPECT_NE(popup->FindItem(4304), nullptr);
}

TEST(ResourceMenus, StandardCommandsStandInTheirBlockAndComeBack) {
  struct Case {
    unsigned command;
    int itemId;
  };
  Case const cases[] = {
      {1, 1},          {0x6fff, 0x6fff}, {57344, 0x7000}, {57634, 0x7122},
      {61438, 0x7ffe}, {61439, -1},      {0x7000, -1},    {40000, -1},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.command);
    EXPECT_EQ(MenuItemIdFromCommand(c.command), c.itemId);
    if (c.itemId >= 0) {
      EXPECT_EQ(CommandFromMenuItemId(c.itemId), static_cast<int>(c.command));
    }
  }
  EXPECT_EQ(CommandFromMenuItemId(-2000), -2000);  // wx's own ids pass
}

TEST(ResourceMenus, MissingOrBrokenMenusAreNull) {
  EXPECT_FALSE(LoadResourceMenuBar(4302));  // not well-formed XML
  EXPECT_FALSE(LoadResourcePopupMenu(4302));
  EXPECT_FALSE(LoadResourceMenuBar(4399));
  EXPECT_FALSE(LoadResourceMenuBar(4100));  // a dialog template's number
  EXPECT_FALSE(LoadResourceMenuBar(4303));  // command 40000 cannot stand in a menu
}

TEST(ResourceMenus, LabelsAreTranslatedKeepingTheirAccelerators) {
  vx3::TranslationSetup setup;
  setup.domains = {"talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_DE.UTF-8";
  vx3::InstallTranslation(setup);
  struct Reset {
    ~Reset() { std::locale::global(std::locale::classic()); }
  } const reset;
  std::unique_ptr<wxMenuBar> bar = LoadResourceMenuBar(4300);
  ASSERT_TRUE(bar);
  EXPECT_EQ(bar->GetMenuLabelText(0), "Meldung");
  wxMenuItem * item = bar->FindItem(MenuItemIdFromCommand(57634));
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->GetItemLabelText(), "Halt");
  EXPECT_EQ(item->GetItemLabel().AfterFirst('\t'), "Ctrl+C");
  EXPECT_EQ(bar->FindItem(4302)->GetItemLabelText(), "Bereit");
}

}  // namespace
