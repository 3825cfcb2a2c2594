// The helper behind a group of pages and its listeners: who hears an
// update, the change count, and either side going first.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "properties/BasePropertyPageHelper.h"
#include "properties/PropertyPageListener.h"
#include "properties/VxPropertyPage.h"

namespace {

class CountingListener : public PropertyPageListener {
public:
  void ListenerUpdate() override {
    ++updates;
    onUpdate();
  }
  void OnDisconnect() override { ++disconnects; }
  int updates = 0;
  int disconnects = 0;
  std::function<void()> onUpdate = [] {};
};

TEST(PropertyPageHelper, UpdateReachesEveryListenerButTheCallerAndTheIgnoring) {
  BasePropertyPageHelper helper;
  CountingListener caller;
  CountingListener other;
  CountingListener ignoring;
  for (auto * listener : {&caller, &other, &ignoring}) listener->Connect(&helper);
  caller.Connect(&helper);  // joining twice lists it once
  ignoring.SetIgnoreListenerUpdates(true);

  EXPECT_TRUE(caller.UpdateHelper());
  EXPECT_EQ(caller.updates, 0);
  EXPECT_EQ(other.updates, 1);
  EXPECT_EQ(ignoring.updates, 0);

  // The caller is back in the list afterwards, once.
  EXPECT_TRUE(other.UpdateHelper());
  EXPECT_EQ(caller.updates, 1);
  EXPECT_EQ(other.updates, 1);
}

TEST(PropertyPageHelper, ListenersMayLeaveOrGoDuringAnUpdate) {
  BasePropertyPageHelper helper;
  auto doomed = std::make_unique<CountingListener>();
  CountingListener first;
  CountingListener last;
  first.Connect(&helper);
  doomed->Connect(&helper);
  last.Connect(&helper);
  first.onUpdate = [&] { doomed.reset(); };  // destroyed before its turn
  last.onUpdate = [&] { last.Connect(nullptr); };

  helper.UpdateListeners();
  EXPECT_EQ(first.updates, 1);
  EXPECT_EQ(last.updates, 1);
  EXPECT_FALSE(last.IsConnected());
  helper.UpdateListeners();
  EXPECT_EQ(first.updates, 2);
  EXPECT_EQ(last.updates, 1);
}

TEST(PropertyPageHelper, EitherSideMayGoFirst) {
  CountingListener survivor;
  {
    BasePropertyPageHelper helper;
    survivor.Connect(&helper);
    {
      CountingListener shortLived;
      shortLived.Connect(&helper);
    }  // leaves the list: the update below must not reach it
    helper.UpdateListeners();
    EXPECT_EQ(survivor.updates, 1);
  }
  EXPECT_FALSE(survivor.IsConnected());
  EXPECT_EQ(survivor.disconnects, 1);
  EXPECT_TRUE(survivor.UpdateHelper());  // no helper: nothing to refuse
}

TEST(PropertyPageHelper, PagesCountTheirChangesOnce) {
  BasePropertyPageHelper helper;
  VxPropertyPage first(1);
  VxPropertyPage second(2);
  first.SetPropertyPageHelper(&helper);
  second.SetPropertyPageHelper(&helper);

  struct Step {
    VxPropertyPage * page;
    bool changed;
    int count;
  };
  Step const steps[] = {
      {&first, true, 1},   {&first, true, 1},    // changed twice counts once
      {&second, true, 2},  {&first, false, 1},   //
      {&first, false, 1},  {&second, false, 0},  // unchanged twice too
      {&second, false, 0},
  };
  for (Step const & step : steps) {
    if (step.changed)
      step.page->Changed();
    else
      step.page->Unchanged();
    EXPECT_EQ(helper.Connected(), step.count);
    EXPECT_EQ(step.page->IsModified(), step.changed);
  }
  helper.RemoveUpdate();
  EXPECT_EQ(helper.Connected(), 0);  // stops at 0

  first.ReleaseRef();
  EXPECT_EQ(first.CountRefs(), 0u);
  first.AddRef();
  first.AddRef();
  first.ReleaseRef();
  EXPECT_EQ(first.CountRefs(), 1u);
}

}  // namespace
