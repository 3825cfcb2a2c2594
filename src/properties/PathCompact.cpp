#include "properties/PathCompact.h"

#include <array>
#include <cstring>
#include <memory>
#include <unordered_map>

#include <wx/dc.h>

namespace {

wchar_t const * const kEllipsis = L"...";

// The end of the last component: trailing separators belong to it.
size_t LastComponentStart(wxString const & path) {
  size_t end = path.length();
  while (end > 0 && path[end - 1] == L'/') --end;
  if (end == 0) return 0;
  size_t const separator = path.rfind(L'/', end - 1);
  return separator == wxString::npos ? 0 : separator + 1;
}

// The longest start of `name` followed by "..." that fits, or "...". At
// least one character goes, so that "..." always marks a cut (the name may
// fit alone when ".../name" does not).
wxString CutEnd(wxString const & name, int width, TextWidthFunction const & measure) {
  size_t low = 0;  // fits (the empty start: "..." alone, taken as fitting)
  size_t high = name.empty() ? 0 : name.length() - 1;
  while (low < high) {
    size_t const mid = low + (high - low + 1) / 2;
    if (measure(name.Left(mid) + kEllipsis) <= width)
      low = mid;
    else
      high = mid - 1;
  }
  return name.Left(low) + kEllipsis;
}

// Per font, the width of each character measured alone.
class CharWidths {
public:
  int Width(wxDC const & dc, wchar_t c) {
    if (static_cast<unsigned>(c) < mLow.size()) {
      int & known = mLow[static_cast<unsigned>(c)];
      if (known < 0) known = Measure(dc, c);
      return known;
    }
    auto const found = mHigh.find(c);
    if (found != mHigh.end()) return found->second;
    int const width = Measure(dc, c);
    mHigh.emplace(c, width);
    return width;
  }

  CharWidths() { mLow.fill(-1); }

private:
  static int Measure(wxDC const & dc, wchar_t c) {
    wxCoord width = 0;
    wxCoord height = 0;
    dc.GetTextExtent(wxString(c), &width, &height);
    return width;
  }

  std::array<int, 0x250> mLow{};
  std::unordered_map<wchar_t, int> mHigh;
};

// The widths of a font, found by its description and the scale of the
// device. GUI thread only, as all drawing.
CharWidths & WidthsOf(wxDC const & dc) {
  static std::unordered_map<wxString, std::unique_ptr<CharWidths>> byFont;
  wxString const key =
      dc.GetFont().GetNativeFontInfoDesc() + wxString::Format(L"@%g", dc.GetContentScaleFactor());
  std::unique_ptr<CharWidths> & widths = byFont[key];
  if (!widths) widths = std::make_unique<CharWidths>();
  return *widths;
}

}  // namespace

wxString CompactPath(wxString const & path, int width, TextWidthFunction const & measure) {
  if (path.empty() || measure(path) <= width) return path;
  size_t const nameStart = LastComponentStart(path);
  if (nameStart > 0) {
    // Components before the last one give way from the middle: keep the
    // longest start that ends at a separator before the last component.
    // The candidates are nested, so their widths grow: search by halves.
    std::vector<size_t> heads{0};  // lengths of the starts, shortest first
    for (size_t i = 0; i + 1 < nameStart; ++i)
      if (path[i] == L'/') heads.push_back(i + 1);
    wxString const tail = path.Mid(nameStart - 1);  // "/name"
    auto candidate = [&](size_t k) { return path.Left(heads[k]) + kEllipsis + tail; };
    if (measure(candidate(0)) <= width) {
      size_t low = 0;
      size_t high = heads.size() - 1;
      while (low < high) {
        size_t const mid = low + (high - low + 1) / 2;
        if (measure(candidate(mid)) <= width)
          low = mid;
        else
          high = mid - 1;
      }
      return candidate(low);
    }
  }
  return CutEnd(path.Mid(nameStart), width, measure);
}

wxString CompactPath(wxDC const & dc, wxString const & path, int width) {
  CharWidths & widths = WidthsOf(dc);
  auto const sum = [&](wxString const & text) {
    int total = 0;
    for (wchar_t const c : text) total += widths.Width(dc, c);
    return total;
  };
  // Characters drawn together may take more room than alone (rarely: most
  // fonts only kern closer), so the result is measured as drawn and, if it
  // is wider, compacted again to the room it left.
  int room = width;
  wxString result = CompactPath(path, room, sum);
  for (int attempt = 0; attempt < 3 && result != kEllipsis; ++attempt) {
    wxCoord drawn = 0;
    wxCoord height = 0;
    dc.GetTextExtent(result, &drawn, &height);
    if (drawn <= width) break;
    room -= drawn - width;
    result = CompactPath(path, room, sum);
  }
  return result;
}

bool PathCompactPathW(wxDC const & dc, wchar_t * path, unsigned width) {
  if (path == nullptr) return true;
  size_t const length = std::wcslen(path);
  int const room = width > unsigned(INT_MAX) ? INT_MAX : static_cast<int>(width);
  wxString const result = CompactPath(dc, wxString(path, length), room);
  if (result.length() <= length) std::wcscpy(path, result.wc_str());
  return true;
}
