#pragma once
// A stable merge sort that trusts nothing of its comparison: every step is
// bounded by the ranges, so an inconsistent order (a < b and b < a) gives
// some permutation instead of a run off the end, as std::sort may.
// `compare(a, b)` is negative, zero or positive; `a` goes first unless it is
// positive.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

template <class T, class Compare>
void MergeSortBy(std::vector<T> & items, Compare compare) {
  std::size_t const count = items.size();
  if (count < 2) return;
  std::vector<T> buffer(count);
  std::vector<T> * from = &items;
  std::vector<T> * to = &buffer;
  // Short runs by insertion first: bounded by the run's start.
  constexpr std::size_t kRun = 16;
  for (std::size_t start = 0; start < count; start += kRun) {
    std::size_t const end = std::min(start + kRun, count);
    for (std::size_t i = start + 1; i < end; ++i) {
      T value = std::move(items[i]);
      std::size_t j = i;
      while (j > start && compare(items[j - 1], value) > 0) {
        items[j] = std::move(items[j - 1]);
        --j;
      }
      items[j] = std::move(value);
    }
  }
  for (std::size_t width = kRun; width < count; width *= 2) {
    for (std::size_t left = 0; left < count; left += 2 * width) {
      std::size_t const middle = std::min(left + width, count);
      std::size_t const right = std::min(left + 2 * width, count);
      std::size_t i = left;
      std::size_t j = middle;
      std::size_t k = left;
      while (i < middle && j < right)
        (*to)[k++] =
            compare((*from)[i], (*from)[j]) > 0 ? std::move((*from)[j++]) : std::move((*from)[i++]);
      while (i < middle) (*to)[k++] = std::move((*from)[i++]);
      while (j < right) (*to)[k++] = std::move((*from)[j++]);
    }
    std::swap(from, to);
  }
  if (from != &items) items = std::move(*from);
}
