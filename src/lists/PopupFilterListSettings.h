#pragma once
// What the filter popup keeps between runs, in the profile section
// "PopupFilterListCtrl": its size and the last filters, the newest first.
// Values are read as anyone may have left them: sizes are clamped, a
// count beyond the limit is cut, and texts that are not UTF-8 are dropped.

#include <functional>
#include <string>
#include <vector>

struct PopupFilterListSettings {
  static constexpr int kMinWidth = 250;
  static constexpr int kMinHeight = 350;
  static constexpr int kMaxSide = 10000;  // larger than any screen
  static constexpr int kMaxFilters = 20;

  int width = kMinWidth;
  int height = kMinHeight;
  std::vector<std::string> filters;

  // Puts `filter` in front unless it is empty or already known (compared
  // byte for byte: a known filter keeps its place), then keeps the newest
  // kMaxFilters.
  void Remember(std::string const & filter);
};

// Where the values come from: an int entry (with a default) and a text
// entry (false when absent).
struct PopupFilterListSource {
  std::function<int(char const * entry, int defaultValue)> getInt;
  std::function<bool(char const * entry, std::string & value)> getString;
};

PopupFilterListSettings ReadPopupFilterListSettings(PopupFilterListSource const & source);

// From and to the application profile.
PopupFilterListSettings LoadPopupFilterListSettings();
void SavePopupFilterListSettings(PopupFilterListSettings const & settings);
