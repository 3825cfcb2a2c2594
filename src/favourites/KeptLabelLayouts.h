#pragma once
// Row labels drawn from text layouts kept between paints. The toolkit lays
// every label out anew each time it is drawn (runs, shaping, a context of
// its own), which costs more than putting the glyphs down, while a tree
// shows the same labels paint after paint. A kept layout is laid out again
// only when what it depends on changes: the device's scale or rotation and
// its font options.

#include <cstddef>
#include <memory>
#include <vector>

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/string.h>

class KeptLabelLayouts {
public:
  // More labels than this under one font and they are all laid out anew.
  static constexpr size_t kMaxPerFont = 4096;

  KeptLabelLayouts();
  ~KeptLabelLayouts();
  KeptLabelLayouts(KeptLabelLayouts const &) = delete;
  KeptLabelLayouts & operator=(KeptLabelLayouts const &) = delete;

  // Whether Draw can draw on `dc` in `font`: not where DrawTextUnmeasured
  // hands the text to the device context itself (no graphics context, an
  // opaque background, a raster operation), nor for an underlined or
  // struck-through font, which the toolkit decorates.
  static bool CanDraw(wxDC & dc, wxFont const & font);
  // Draws `text` with its top left at (x, y) as DrawTextUnmeasured draws it
  // in `font` and `colour`; false, with nothing drawn, where it cannot.
  bool Draw(wxDC & dc, wxString const & text, wxFont const & font, wxColour const & colour, int x,
            int y);
  // The layouts kept, of all fonts.
  size_t Count() const;

private:
  struct Font;
  struct Device;
  Font & FontFor(wxFont const & font);

  std::vector<std::unique_ptr<Font>> mFonts;
  std::unique_ptr<Device> mDevice;
};
