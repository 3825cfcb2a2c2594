#include "work/InThread.h"
#include <sys/resource.h>
#include <unistd.h>

#include "platform/AlternateSignalStack.h"
#include "platform/PostedWindowMessages.h"

InThread::InThread(Work work, wxWindow * window, unsigned long message)
    : mData(std::make_shared<Data>()) {
  mData->work = std::move(work);
  mData->window = window;
  mData->message = message;
}

InThread::~InThread() {
  Stop();
  mThread.reset();
  mData.reset();
}

void InThread::Run(std::shared_ptr<Data> const & data) {
  AlternateSignalStack const signalStack;  // a crash here is still reported
  // Low, but not idle: an idle-class thread waits for as long as the user
  // interface keeps a processor busy.
  ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kNiceness);
  data->result = data->work(data->stop);  // an empty work throws here, uncaught
  if (!data->stop && data->message != 0)
    PostWindowMessage(data->window, static_cast<UINT>(data->message), 0, 0);
  data->finished = true;
}

void InThread::Start() {
  Stop();
  mData->stop = false;
  mData->finished = false;
  mThread = std::make_unique<std::thread>(&InThread::Run, mData);
}

void InThread::Stop() {
  if (mThread && !mData->finished) {
    mData->stop = true;
    mThread->join();
  }
  if (mThread) {
    auto const message = static_cast<UINT>(mData->message);
    PeekWindowMessage(nullptr, nullptr, message, message, PM_REMOVE);
    if (mThread->joinable()) mThread->join();
    mThread.reset();
  }
}

float InThread::get() {
  if (mThread) {
    if (mThread->joinable()) mThread->join();
    mThread.reset();
  }
  return mData->result;
}
