#pragma once
// A restartable computation of a float on a thread of its own, at low
// priority: the owner starts it, may ask it to stop, waits for the result,
// and can have a window message posted when a run has finished.
//
// The work polls the stop flag it is given. It must catch what it throws:
// nothing carries an exception back.

#include <atomic>
#include <memory>
#include <thread>

#include <boost/function.hpp>

#include "platform/WinTypes.h"

class wxWindow;

class InThread {
public:
  using Work = boost::function<float(bool &)>;

  // `message` 0: nothing is posted at the end of a run.
  InThread(Work work, wxWindow * window, unsigned long message);
  virtual ~InThread();
  InThread(InThread const &) = delete;
  InThread & operator=(InThread const &) = delete;

  // Stops a run under way, then begins a fresh one with the same work.
  void Start();
  // Asks a run under way to stop and waits for it; then takes one pending
  // message out of the queue: the completion message, or with message 0 any
  // message at all (a filter of 0 to 0 filters nothing, and that is kept).
  void Stop();
  // Waits for the run and returns its result (0 before any run). A posted
  // completion message stays in the queue.
  float get();

  // The nice value a run's thread takes: the lowest priority that a busy
  // user interface cannot starve.
  static constexpr int kNiceness = 10;

private:
  struct Data {
    wxWindow * window = nullptr;
    bool stop = true;  // polled by the work through its reference
    Work work;
    float result = 0;
    unsigned long message = 0;
    std::atomic<bool> finished{false};
  };
  static void Run(std::shared_ptr<Data> const & data);

  std::shared_ptr<Data> mData;
  std::unique_ptr<std::thread> mThread;
};
