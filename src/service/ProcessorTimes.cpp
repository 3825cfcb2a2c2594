#include "service/ProcessorTimes.h"

#include <array>
#include <cstddef>
#include <limits>

namespace {

// Reads an unsigned decimal at `pos` after blanks; false without a digit or
// on overflow.
bool ReadNumber(std::string_view text, std::size_t & pos, std::uint64_t & value) {
  while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\t')) ++pos;
  std::size_t const start = pos;
  value = 0;
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
  while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9') {
    auto const digit = static_cast<std::uint64_t>(text[pos] - '0');
    if (value > (kMax - digit) / 10) return false;
    value = value * 10 + digit;
    ++pos;
  }
  return pos > start;
}

std::uint64_t SaturatingSum(std::uint64_t a, std::uint64_t b) {
  return b > std::numeric_limits<std::uint64_t>::max() - a
             ? std::numeric_limits<std::uint64_t>::max()
             : a + b;
}

}  // namespace

bool ParseProcessorTimes(std::string_view statText, ProcessorTimes & times) {
  constexpr std::string_view kTag = "cpu";
  if (statText.substr(0, kTag.size()) != kTag) return false;
  std::size_t pos = kTag.size();
  // "cpu" alone, not "cpu0": a blank must follow.
  if (pos >= statText.size() || (statText[pos] != ' ' && statText[pos] != '\t')) return false;
  enum { kUser, kNice, kSystem, kIdle, kIowait, kIrq, kSoftirq, kSteal, kFields };
  std::array<std::uint64_t, kFields> field{};
  std::size_t count = 0;
  for (; count < field.size(); ++count) {
    std::size_t next = pos;
    if (!ReadNumber(statText, next, field[count])) break;
    pos = next;
  }
  if (count < kIdle + 1) return false;
  std::uint64_t busy = 0;
  for (auto index : {kUser, kNice, kSystem, kIrq, kSoftirq, kSteal})
    busy = SaturatingSum(busy, field[index]);
  times.busy = busy;
  times.total = SaturatingSum(SaturatingSum(busy, field[kIdle]), field[kIowait]);
  return true;
}

bool LoadPercentBetween(ProcessorTimes const & earlier, ProcessorTimes const & later,
                        int & percent) {
  if (later.total <= earlier.total || later.busy < earlier.busy) return false;
  std::uint64_t const total = later.total - earlier.total;
  std::uint64_t const busy = later.busy - earlier.busy;
  if (busy >= total) {
    percent = 100;
    return true;
  }
  // Rounded to the nearest percent without overflowing on large deltas.
  long double const exact =
      100.0L * static_cast<long double>(busy) / static_cast<long double>(total);
  percent = static_cast<int>(exact + 0.5L);
  return true;
}
