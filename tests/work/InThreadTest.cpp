// Posted window messages (order, filters, removal, windows that went) and
// the restartable background computation that posts its completion.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <wx/frame.h>

#include <atomic>
#include <thread>
#include <vector>

#include "harness/GuiTestUtilities.h"
#include "platform/PostedWindowMessages.h"
#include "work/InThread.h"

namespace {

constexpr UINT kDone = 0x0400 + 7;

// A window that records the messages it gets.
struct Receiver {
  Receiver() {
    frame->Bind(VX_EVT_WINDOW_MESSAGE, [this](WindowMessageEvent & event) {
      got.push_back(event.GetMessage());
      event.SetResult(1);
    });
  }
  ~Receiver() { frame->Destroy(); }
  Receiver(Receiver const &) = delete;
  Receiver & operator=(Receiver const &) = delete;
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "receiver");
  std::vector<UINT> got;
};

void Deliver() {
  gui_test::WaitUntil([] { return PendingWindowMessageCount() == 0; });
  gui_test::Flush();
}

TEST(PostedWindowMessages, ComeInOrderFromAnyThreadAndCanBeTakenOut) {
  Receiver first;
  Receiver second;
  std::thread poster([&] {
    for (UINT message = 1025; message <= 1030; ++message)
      PostWindowMessage(message % 2 == 0 ? second.frame : first.frame, message);
  });
  poster.join();
  EXPECT_EQ(PendingWindowMessageCount(), 6U);

  MSG message;
  EXPECT_TRUE(PeekWindowMessage(&message, second.frame, 0, 0, PM_NOREMOVE));
  EXPECT_EQ(message.message, 1026U);
  EXPECT_TRUE(PeekWindowMessage(&message, nullptr, 1027, 1028, PM_REMOVE));
  EXPECT_EQ(message.message, 1027U);
  EXPECT_FALSE(PeekWindowMessage(&message, first.frame, 1028, 1028, PM_REMOVE))
      << "1028 is the other's";
  EXPECT_TRUE(PeekWindowMessage(&message, nullptr, 0, 0, PM_REMOVE)) << "0 to 0 takes any";
  EXPECT_EQ(message.message, 1025U);
  Deliver();
  EXPECT_EQ(first.got, (std::vector<UINT>{1029}));
  EXPECT_EQ(second.got, (std::vector<UINT>{1026, 1028, 1030}));

  auto * gone = new wxFrame(nullptr, wxID_ANY, "gone");
  PostWindowMessage(gone, 1031);
  gone->Destroy();
  gui_test::Flush();
  Deliver();  // nothing reaches the window that went
}

TEST(InThread, RunsAtLowPriorityAndPostsItsCompletion) {
  Receiver owner;
  int niceness = -100;
  InThread thread(
      [&niceness](bool &) {
        niceness = ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
        return 2.5F;
      },
      owner.frame, kDone);
  EXPECT_EQ(thread.get(), 0.0F) << "before a run: the first result, at once";
  thread.Start();
  EXPECT_EQ(thread.get(), 2.5F);
  EXPECT_EQ(thread.get(), 2.5F);
  EXPECT_EQ(niceness, InThread::kNiceness);
  EXPECT_TRUE(PeekWindowMessage(nullptr, owner.frame, kDone, kDone, PM_NOREMOVE))
      << "get leaves it";
  Deliver();
  EXPECT_EQ(owner.got, std::vector<UINT>{kDone});
}

TEST(InThread, StopEndsARunAndLeavesNoCompletionBehind) {
  Receiver owner;
  std::atomic<int> runs{0};
  InThread thread(
      [&runs](bool & stop) {
        ++runs;
        while (!stop) std::this_thread::yield();
        return 1.0F;
      },
      owner.frame, kDone);
  thread.Start();
  thread.Start();  // stops the first run before the second begins
  thread.Stop();
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(PendingWindowMessageCount(), 0U);
  Deliver();
  EXPECT_TRUE(owner.got.empty());

  // A finished run's completion is taken back by Stop while the run is
  // still held; get lets go of the run, and its completion stays.
  InThread quick([](bool &) { return 3.0F; }, owner.frame, kDone);
  quick.Start();
  while (PendingWindowMessageCount() == 0) std::this_thread::yield();  // posted, not delivered
  quick.Stop();
  EXPECT_EQ(PendingWindowMessageCount(), 0U);
  quick.Start();
  EXPECT_EQ(quick.get(), 3.0F);
  quick.Stop();
  EXPECT_EQ(PendingWindowMessageCount(), 1U);
  Deliver();
  EXPECT_EQ(owner.got, std::vector<UINT>{kDone});
}

TEST(InThread, WithoutAMessageStopTakesAnyOneMessage) {
  Receiver owner;
  std::atomic<bool> done{false};
  InThread silent(
      [&done](bool &) {
        done = true;
        return 1.0F;
      },
      owner.frame, 0);
  silent.Start();
  while (!done) std::this_thread::yield();
  PostWindowMessage(owner.frame, 1100);
  PostWindowMessage(owner.frame, 1101);
  silent.Stop();
  Deliver();
  EXPECT_EQ(owner.got, std::vector<UINT>{1101})
      << "the filter 0 to 0 took the first message there was";
}

}  // namespace
