#pragma once
// The machine's cumulative processor times, as the "cpu" line of /proc/stat
// gives them, and the load between two readings.

#include <cstdint>
#include <string_view>

struct ProcessorTimes {
  std::uint64_t busy = 0;   // user, nice, system, irq, softirq, steal
  std::uint64_t total = 0;  // busy plus idle and iowait
};

// Reads the first line of /proc/stat's text ("cpu  user nice system idle
// iowait irq softirq steal guest guest_nice"). Guest time is already counted
// in user and nice, so it is not added again. Needs at least the first four
// numbers; false for anything else.
bool ParseProcessorTimes(std::string_view statText, ProcessorTimes & times);

// The load in percent between two readings: 100 x busy / total, rounded,
// capped at 100. False when the counters did not move forward (a zero or
// backward delta): such a pair says nothing about the load.
bool LoadPercentBetween(ProcessorTimes const & earlier, ProcessorTimes const & later,
                        int & percent);
