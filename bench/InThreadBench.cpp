// A run of InThread on a trivial function, Start then get, beside creating
// and joining a bare std::thread that does the same: what the restartable
// thread adds (its shared record, the lowered priority, the stop and the
// message bookkeeping) must stay small next to the thread itself.
#include <benchmark/benchmark.h>

#include <thread>

#include "Figures.h"
#include "work/InThread.h"

namespace {

TALVO_RATIO_LIMIT("InThreadRun", 1.5);

float Trivial(bool const &) { return 1.5F; }

void InThreadRun_candidate(benchmark::State & state) {
  InThread run([](bool & stop) { return Trivial(stop); }, nullptr, 0);
  for (auto _ : state) {
    run.Start();
    benchmark::DoNotOptimize(run.get());
  }
}
BENCHMARK(InThreadRun_candidate)->Name("InThreadRun/candidate")->Unit(benchmark::kMicrosecond);

void InThreadRun_baseline(benchmark::State & state) {
  bool stop = false;
  float result = 0;
  for (auto _ : state) {
    std::thread thread([&stop, &result] { result = Trivial(stop); });
    thread.join();
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(InThreadRun_baseline)->Name("InThreadRun/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
