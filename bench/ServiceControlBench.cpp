// NTServiceControl::QueryStatus against a service manager on a private bus,
// beside the bare sd-bus calls it needs: open the bus, GetAll on the unit,
// close.
#include <benchmark/benchmark.h>
#include <systemd/sd-bus.h>

#include <memory>

#include "Figures.h"
#include "service/MockServiceManager.h"
#include "service/NTServiceControl.h"

namespace {

TALVO_RATIO_LIMIT("ServiceQueryStatus", 1.2);

MockServiceManager & Manager() {
  static MockServiceManager manager;
  static bool const made = [] {
    manager.SetUnit("bench.service", MockServiceManager::Unit{});
    return true;
  }();
  (void)made;
  return manager;
}

void ServiceQueryStatus_candidate(benchmark::State & state) {
  if (!Manager().IsReady()) return state.SkipWithError("no dbus-daemon");
  NTServiceControl control(L"bench", nullptr);
  for (auto _ : state) {
    SERVICE_STATUS status{};
    benchmark::DoNotOptimize(control.QueryStatus(status));
  }
}
BENCHMARK(ServiceQueryStatus_candidate)->Name("ServiceQueryStatus/candidate");

void ServiceQueryStatus_baseline(benchmark::State & state) {
  if (!Manager().IsReady()) return state.SkipWithError("no dbus-daemon");
  for (auto _ : state) {
    sd_bus * bus = nullptr;
    sd_bus_open_user(&bus);
    sd_bus_error error = SD_BUS_ERROR_NULL;
    sd_bus_message * reply = nullptr;
    sd_bus_call_method(bus, "org.freedesktop.systemd1",
                       "/org/freedesktop/systemd1/unit/bench_2eservice",
                       "org.freedesktop.DBus.Properties", "GetAll", &error, &reply, "s", "");
    sd_bus_message_unref(reply);
    sd_bus_error_free(&error);
    sd_bus_flush_close_unref(bus);
  }
}
BENCHMARK(ServiceQueryStatus_baseline)->Name("ServiceQueryStatus/baseline");

}  // namespace
