#pragma once
// The order a header click gives a list's rows: the family's quicksort with
// the middle row's text as pivot and number-aware comparison. It is not
// stable, and where equal texts land is part of the list's behaviour, so it
// runs exactly that partitioning on a snapshot of one column's texts; the
// list then moves its rows once by the resulting permutation instead of
// swapping them row by row.

#include <string>
#include <vector>

// Sorts texts[low..high] (high inclusive; -1 means the last) in place and
// returns, for each position of that range, the index the text had before,
// so that result[k] is the old index of the text now at low + k. Empty
// when high is not above low (nothing to sort). Texts are UTF-8 and compare
// with VxStdString::CompareNumber; two texts are exchanged only when they
// compare unequal.
std::vector<int> QuickSortTexts(std::vector<std::string> & texts, bool ascending, int low,
                                int high);
