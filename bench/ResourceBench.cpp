// A string of the resource chain (search of the modules, then translation),
// beside translating the same message id directly: the cost of finding a
// text by number.
#include <benchmark/benchmark.h>

#include "Figures.h"
#include "platform/ResourceModule.h"
#include "utl/Translation.h"

namespace {

TALVO_RATIO_LIMIT("ResourceString", 1.5);

void ResourceString_candidate(benchmark::State & state) {
  for (auto _ : state) benchmark::DoNotOptimize(LoadResourceString(13195));
}
BENCHMARK(ResourceString_candidate)->Name("ResourceString/candidate");

void ResourceString_baseline(benchmark::State & state) {
  for (auto _ : state) benchmark::DoNotOptimize(vx3::Tr("Menu command", "&About %1%..."));
}
BENCHMARK(ResourceString_baseline)->Name("ResourceString/baseline");

}  // namespace
