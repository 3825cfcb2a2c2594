// Adding an event to a trail of 100,000 events beside adding one to a trail
// of 1,000: the cost must not grow with the trail (no re-hash, no rewrite).
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "Figures.h"
#include "utl/AuditTrail.h"
#include "utl/ConfigurationSection.h"
#include "utl/XercesXMLSection.h"

namespace {

TALVO_RATIO_LIMIT("AuditTrailAddEvent", 2.0);

std::string BenchPath(char const * name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-" + name;
}

void AddEvents(benchmark::State & state, int existing) {
  std::string const path = BenchPath("trail.xml");
  ::unlink(path.c_str());
  auto * settings = new XercesXMLSection;
  settings->WriteInt("LogEvents", 1);
  auto trail = std::make_unique<AuditTrail>(path.c_str(), settings, BenchPath("keys"));
  trail->Load();
  for (int i = 0; i < existing; ++i)
    trail->AddEvent("Sample measured.", "Plate 7, well B4, absorbance 0.4312", 0);
  // The timed events of both sizes get fresh pages: neither reuses memory
  // that the other run freed.
  ::malloc_trim(0);
  for (auto _ : state)
    trail->AddEvent("Sample measured.", "Plate 7, well B4, absorbance 0.4312", 0);
  // The timer has stopped. The trail's destructor saves it: clear it first,
  // nothing of this belongs on disk.
  trail->Clear();
  trail.reset();
  ::unlink(path.c_str());
}

void AuditTrailAddEvent_candidate(benchmark::State & state) { AddEvents(state, 100000); }
BENCHMARK(AuditTrailAddEvent_candidate)->Name("AuditTrailAddEvent/candidate")->Iterations(20000);

void AuditTrailAddEvent_baseline(benchmark::State & state) { AddEvents(state, 1000); }
BENCHMARK(AuditTrailAddEvent_baseline)->Name("AuditTrailAddEvent/baseline")->Iterations(20000);

}  // namespace
