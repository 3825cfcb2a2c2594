#include "properties/PropertyRowMeasure.h"

#include <algorithm>
#include <string>

#include "dialogs/LimitLineLength.h"

namespace {
wchar_t const kMeasuringText[] = L"DummyText";
}

PropertyRowMeasure::PropertyRowMeasure(wxFont const & font) : mBitmap(1, 1) {
  // A memory context needs a bitmap before it measures on GTK.
  mDc.SelectObject(mBitmap);
  SetFont(font);
}

void PropertyRowMeasure::SetFont(wxFont const & font) {
  mNormal = font.IsOk() ? font : *wxNORMAL_FONT;
  mBold = mNormal.Bold();
  mDc.SetFont(mNormal);
  mLineHeight = mDc.GetTextExtent(kMeasuringText).y;
  mDc.SetFont(mBold);
  mBoldLineHeight = mDc.GetTextExtent(kMeasuringText).y;
}

PropertyRowMeasure::Row PropertyRowMeasure::Measure(wxString const & name,
                                                    PropertyListGeometry::NameSpan span,
                                                    int rowWidth, bool bold) {
  std::wstring text = name.ToStdWstring();
  std::replace(text.begin(), text.end(), L'\n', L' ');
  int const width = PropertyListGeometry::NameWrapWidth(rowWidth, span);
  // A negative width leaves the name on one line (the wrap reads it as
  // unlimited); a zero one would put every piece on a line of its own.
  if (width > 0 && !text.empty()) {
    mDc.SetFont(bold ? mBold : mNormal);
    text = LimitLineLength::ByPixels(text, mDc, static_cast<size_t>(width));
    // The wrap ends a line that holds one piece too long with "\n" even at
    // the text's end; that is no line of its own.
    if (!text.empty() && text.back() == L'\n') text.pop_back();
  }
  Row row{wxString(text), 0};
  row.height = PropertyListGeometry::RowHeight(CountLines(row.showName), LineHeight(bold));
  return row;
}

std::int64_t PropertyRowMeasure::CountLines(wxString const & text) {
  return 1 + std::count(text.begin(), text.end(), L'\n');
}
