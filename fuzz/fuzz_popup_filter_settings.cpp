// The filter popup's stored values ("PopupFilterListCtrl"), as anyone may
// have left them: sizes of any value, any count, texts of any bytes, some
// entries missing. The input is a presence byte, three little-endian ints
// (Width, Height, NumFilters), then the Filter0, Filter1, ... texts split at
// NUL. Whatever is stored, the sizes come out in range, no more filters than
// the limit or the count, each one a stored text that is valid UTF-8, and
// remembering a filter keeps the list within the limit with it in front.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "lists/PopupFilterListSettings.h"
#include "utl/Utf.h"

namespace {

int ReadInt(uint8_t const * data) {
  uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = (value << 8) | data[i];
  int result = 0;
  std::memcpy(&result, &value, sizeof result);
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size < 13) return 0;
  unsigned const present = data[0];  // bit 0..2: the ints, bit 3: the texts
  std::map<std::string, int> ints;
  char const * const intNames[] = {"Width", "Height", "NumFilters"};
  for (int i = 0; i < 3; ++i)
    if ((present & (1U << i)) != 0) ints[intNames[i]] = ReadInt(data + 1 + 4 * i);
  std::map<std::string, std::string> texts;
  if ((present & 8U) != 0) {
    std::string const rest(reinterpret_cast<char const *>(data + 13), size - 13);
    size_t start = 0;
    for (int index = 0; start <= rest.size(); ++index) {
      size_t end = rest.find('\0', start);
      if (end == std::string::npos) end = rest.size();
      texts["Filter" + std::to_string(index)] = rest.substr(start, end - start);
      start = end + 1;
    }
  }

  PopupFilterListSource source;
  source.getInt = [&ints](char const * entry, int defaultValue) {
    auto const found = ints.find(entry);
    return found != ints.end() ? found->second : defaultValue;
  };
  source.getString = [&texts](char const * entry, std::string & value) {
    auto const found = texts.find(entry);
    if (found == texts.end()) return false;
    value = found->second;
    return true;
  };
  PopupFilterListSettings settings = ReadPopupFilterListSettings(source);

  using Limits = PopupFilterListSettings;
  if (settings.width < Limits::kMinWidth || settings.width > Limits::kMaxSide) __builtin_trap();
  if (settings.height < Limits::kMinHeight || settings.height > Limits::kMaxSide) __builtin_trap();
  auto const count = ints.find("NumFilters");
  size_t const allowed = count == ints.end() || count->second < 0 ? 0U : size_t(count->second);
  if (settings.filters.size() > allowed || settings.filters.size() > size_t(Limits::kMaxFilters))
    __builtin_trap();
  for (std::string const & filter : settings.filters) {
    if (vx3::SanitizeUtf8(filter) != filter) __builtin_trap();
    bool stored = false;
    for (auto const & entry : texts) stored = stored || entry.second == filter;
    if (!stored) __builtin_trap();
  }

  std::string const newest = "new filter";
  std::vector<std::string> const before = settings.filters;
  bool const wasKnown = std::find(before.begin(), before.end(), newest) != before.end();
  settings.Remember(newest);
  if (settings.filters.size() > size_t(Limits::kMaxFilters)) __builtin_trap();
  if (wasKnown ? settings.filters != before : settings.filters.front() != newest) __builtin_trap();
  return 0;
}
