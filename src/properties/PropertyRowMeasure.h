#pragma once
// Measures a property list's rows: wraps a name to its cell's width and
// gives the row's height, lines of "DummyText" height plus padding. Names
// are wrapped once a row is first shown and again after a width change, so
// a long list is never measured as a whole.

#include <cstdint>

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/font.h>
#include <wx/string.h>

#include "properties/PropertyListGeometry.h"

class PropertyRowMeasure {
public:
  explicit PropertyRowMeasure(wxFont const & font);

  // A new control font: line heights are measured anew.
  void SetFont(wxFont const & font);
  wxFont const & GetFont(bool bold) const { return bold ? mBold : mNormal; }

  // The height of one line of text ("DummyText") in the normal or bold font.
  int LineHeight(bool bold) const { return bold ? mBoldLineHeight : mLineHeight; }

  struct Row {
    wxString showName;  // the name with its line breaks where it wraps
    int height;
  };
  // Wraps `name` for a row `rowWidth` wide; breaks of the name itself become
  // blanks first, so that the wrap alone decides the lines. Categories are
  // measured in bold.
  Row Measure(wxString const & name, PropertyListGeometry::NameSpan span, int rowWidth, bool bold);

  // One more than the number of "\n" in `text`.
  static std::int64_t CountLines(wxString const & text);

private:
  wxBitmap mBitmap;
  wxMemoryDC mDc;
  wxFont mNormal;
  wxFont mBold;
  int mLineHeight = 0;
  int mBoldLineHeight = 0;
};
