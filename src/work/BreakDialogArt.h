#pragma once
// The paintings the break dialog shows while an operation without a spinner
// runs: what it asks of the process's art registry. Artists are numbered from
// 0; a painting number counts within the artist. Names are for display.

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include <memory>

class BreakDialogArt {
public:
  virtual ~BreakDialogArt() = default;

  virtual int GetNumArtists() = 0;
  // The artist whose paintings are shown; negative: none.
  virtual int GetPreferedArtist() = 0;
  virtual int GetNumPaintings(int artist) = 0;
  // The largest painting and portrait; the dialog keeps room for them.
  virtual wxSize GetMaxBitmapSize() = 0;
  virtual wxSize GetMaxPortraitSize() = 0;
  // The painter of the painting (it may differ per painting).
  virtual wxString GetArtistName(int artist, int painting) = 0;
  virtual wxString GetArtistLifeSpan(int artist, int painting) = 0;
  virtual wxString GetPaintingName(int artist, int painting) = 0;
  // Invalid bitmaps when there is none.
  virtual wxBitmap GetPainting(int artist, int painting) = 0;
  virtual wxBitmap GetArtistPortrait(int artist, int painting) = 0;
};

// The process's art: the progress-art registry once it is built in, else
// no artist at all (the dialog then shows its plain layout).
std::unique_ptr<BreakDialogArt> MakeProcessBreakDialogArt();
