#include "platform/commctrl/NotifyEvent.h"

#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <vector>

namespace {

struct NMTEST {
  NMHDR hdr;
  int payload = 0;
};

constexpr UINT kTestCode = LVN_FIRST - 1;

class NotifyEventTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "notify");
    parent = new wxPanel(frame, wxID_ANY);
    control = new wxPanel(parent, 4711);
  }
  void TearDown() override { frame->Destroy(); }

  wxFrame * frame = nullptr;
  wxPanel * parent = nullptr;
  wxPanel * control = nullptr;
};

TEST_F(NotifyEventTest, ControlSeesItFirstAndParentOnlyWhenTheControlPasses) {
  std::vector<std::string> seen;
  control->Bind(VX_EVT_NOTIFY_REFLECT, [&](NotifyEvent & event) {
    seen.push_back("control");
    event.Skip();  // passes it on
  });
  parent->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    seen.push_back("parent");
    auto * test = event.GetNotification<NMTEST>();
    EXPECT_EQ(test->hdr.hwndFrom, control);
    EXPECT_EQ(test->hdr.idFrom, 4711u);
    EXPECT_EQ(event.GetCode(), kTestCode);
    event.SetResult(test->payload + 1);
  });

  NMTEST notification;
  notification.payload = 41;
  EXPECT_EQ(SendNotify(control, kTestCode, notification.hdr), 42);
  EXPECT_EQ(seen, (std::vector<std::string>{"control", "parent"}));
}

TEST_F(NotifyEventTest, ATakenNotificationNeverReachesTheParentAndGivesTheControlsResult) {
  bool parentSaw = false;
  control->Bind(VX_EVT_NOTIFY_REFLECT, [](NotifyEvent & event) { event.SetResult(7); });
  parent->Bind(VX_EVT_NOTIFY, [&](NotifyEvent &) { parentSaw = true; });
  // The grandparent must never see it either: notifications do not climb.
  frame->Bind(VX_EVT_NOTIFY, [&](NotifyEvent &) { parentSaw = true; });

  NMHDR header;
  EXPECT_EQ(SendNotify(control, NM_CLICK, header), 7);
  EXPECT_FALSE(parentSaw);
}

TEST_F(NotifyEventTest, NobodyListeningGivesZero) {
  bool grandparentSaw = false;
  frame->Bind(VX_EVT_NOTIFY, [&](NotifyEvent &) { grandparentSaw = true; });
  NMHDR header;
  EXPECT_EQ(SendNotify(control, NM_DBLCLK, header), 0);
  EXPECT_EQ(SendNotify(nullptr, NM_DBLCLK, header), 0);
  EXPECT_FALSE(grandparentSaw);
}

}  // namespace
