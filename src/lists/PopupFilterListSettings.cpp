#include "lists/PopupFilterListSettings.h"

#include <boost/format.hpp>

#include <algorithm>

#include "frame/AppProfile.h"
#include "utl/Utf.h"

namespace {

char const kSection[] = "PopupFilterListCtrl";

std::string FilterEntry(int index) { return (boost::format("Filter%1%") % index).str(); }

}  // namespace

void PopupFilterListSettings::Remember(std::string const & filter) {
  if (!filter.empty() && std::find(filters.begin(), filters.end(), filter) == filters.end())
    filters.insert(filters.begin(), filter);
  if (filters.size() > static_cast<size_t>(kMaxFilters)) filters.resize(kMaxFilters);
}

PopupFilterListSettings ReadPopupFilterListSettings(PopupFilterListSource const & source) {
  PopupFilterListSettings settings;
  settings.width = std::clamp(source.getInt("Width", 0), PopupFilterListSettings::kMinWidth,
                              PopupFilterListSettings::kMaxSide);
  settings.height = std::clamp(source.getInt("Height", 0), PopupFilterListSettings::kMinHeight,
                               PopupFilterListSettings::kMaxSide);
  int const count = std::min(source.getInt("NumFilters", 0), PopupFilterListSettings::kMaxFilters);
  for (int i = 0; i < count; ++i) {
    std::string filter;
    if (!source.getString(FilterEntry(i).c_str(), filter)) continue;
    if (vx3::SanitizeUtf8(filter) != filter) continue;  // not text this popup wrote
    settings.filters.push_back(std::move(filter));
  }
  return settings;
}

PopupFilterListSettings LoadPopupFilterListSettings() {
  PopupFilterListSource source;
  source.getInt = [](char const * entry, int defaultValue) {
    return AppProfile::GetProfileInt(kSection, entry, defaultValue);
  };
  source.getString = [](char const * entry, std::string & value) {
    // An absent entry reads as this marker, which no UTF-8 text can be.
    static char const absent[] = "\xff";
    value = AppProfile::GetProfileString(kSection, entry, absent);
    return value != absent;
  };
  return ReadPopupFilterListSettings(source);
}

void SavePopupFilterListSettings(PopupFilterListSettings const & settings) {
  AppProfile::WriteProfileInt(kSection, "Width", settings.width);
  AppProfile::WriteProfileInt(kSection, "Height", settings.height);
  AppProfile::WriteProfileInt(kSection, "NumFilters", static_cast<int>(settings.filters.size()));
  for (size_t i = 0; i < settings.filters.size(); ++i)
    AppProfile::WriteProfileString(kSection, FilterEntry(static_cast<int>(i)).c_str(),
                                   settings.filters[i].c_str());
}
