#include "work/BreakDialogArt.h"

namespace {

// No archive of paintings is read yet: the dialog shows its plain layout.
class NoBreakDialogArt : public BreakDialogArt {
public:
  int GetNumArtists() override { return 0; }
  int GetPreferedArtist() override { return -1; }
  int GetNumPaintings(int) override { return 0; }
  wxSize GetMaxBitmapSize() override { return wxSize(0, 0); }
  wxSize GetMaxPortraitSize() override { return wxSize(0, 0); }
  wxString GetArtistName(int, int) override { return wxString(); }
  wxString GetArtistLifeSpan(int, int) override { return wxString(); }
  wxString GetPaintingName(int, int) override { return wxString(); }
  wxBitmap GetPainting(int, int) override { return wxBitmap(); }
  wxBitmap GetArtistPortrait(int, int) override { return wxBitmap(); }
};

}  // namespace

std::unique_ptr<BreakDialogArt> MakeProcessBreakDialogArt() {
  return std::make_unique<NoBreakDialogArt>();
}
