// The sample's menu resource against its real menus: every item of the
// resource is an alias that runs a command of the main frame whose menu item
// bears the same label, and each alias is an item of the resource.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include <wx/app.h>
#include <wx/menu.h>

#include "MainFrame.h"
#include "SampleMenuResource.h"
#include "harness/GuiTestUtilities.h"
#include "platform/ResourceMenus.h"

namespace {

void CollectItems(wxMenu const & menu, std::vector<wxMenuItem const *> & items) {
  for (wxMenuItem const * item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    if (item->IsSubMenu())
      CollectItems(*item->GetSubMenu(), items);
    else
      items.push_back(item);
  }
}

TEST(SampleMenuResource, EveryItemRunsTheCommandOfTheSameLabel) {
  auto * const frame = new MainFrame;
  std::unique_ptr<wxMenuBar> const resource = LoadResourceMenuBar(kSampleMenuResource);
  ASSERT_TRUE(resource);
  std::vector<wxMenuItem const *> items;
  for (size_t i = 0; i < resource->GetMenuCount(); ++i) CollectItems(*resource->GetMenu(i), items);
  size_t count = 0;
  SampleMenuAlias const * const aliases = SampleMenuAliases(count);
  ASSERT_EQ(items.size(), count) << "an alias without its item, or an item without its alias";

  std::set<int> commandsRun;
  for (wxMenuItem const * item : items) {
    wxString const label = wxMenuItem::GetLabelText(item->GetItemLabel());
    SampleMenuAlias const * const alias =
        std::find_if(aliases, aliases + count,
                     [item](SampleMenuAlias const & a) { return a.resourceId == item->GetId(); });
    ASSERT_NE(alias, aliases + count) << label;
    wxMenuItem const * const real = frame->GetMenuBar()->FindItem(alias->command);
    ASSERT_NE(real, nullptr) << label;
    EXPECT_EQ(wxMenuItem::GetLabelText(real->GetItemLabel()), label);

    // The alias reaches the command: a handler bound last runs first, and
    // keeps the command itself from opening anything.
    int reached = 0;
    auto const probe = [&reached](wxCommandEvent &) { ++reached; };
    frame->Bind(wxEVT_MENU, probe, alias->command);
    wxCommandEvent event(wxEVT_MENU, item->GetId());
    frame->ProcessWindowEvent(event);
    frame->Unbind(wxEVT_MENU, probe, alias->command);
    EXPECT_EQ(reached, 1) << label;
    commandsRun.insert(alias->command);
  }
  EXPECT_EQ(commandsRun.size(), count) << "two items run one command";
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
