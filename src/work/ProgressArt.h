#pragma once
// The paintings that the break dialog shows while a calculation runs: every
// art archive ("*.vart", see pictures/ArtInfo.h) beside the executable, then
// every one in the plug-in folder (VxApp::GetPluginDirectory), each folder in
// sorted order, merged into one registry on first use. An "artist" is a
// collection; with more than one artist an extra choice follows them,
// "<Random>", for the paintings of all artists.
//
// Artist indexes: 0 .. n-1 are the n collections; n, present only when n > 1,
// is "<Random>", whose painting numbers run across all collections in order.
// A negative painting number in the name, life-span and portrait calls asks
// about the artist alone.
//
// All operations are static, load the registry first if that has not
// happened, and may be called from any thread (one lock guards the
// registry). Texts are UTF-8; missing or damaged archives are passed over
// without a word.
//
// The break dialog walks the paintings with ProgressArtShow (below):
//   ProgressArtShow show;                  // one per dialog
//   if (show.Restart()) {                  // when a progress starts
//     ProgressArtPicture const & p = show.Next();   // every 15 s
//     wxBitmap painting(p.painting);       // on the GUI thread
//     ... p.paintingName, p.artistName + "\n" + p.lifeSpan, p.portrait
//   }
// and sizes its layout by GetMaxBitmapSize() and GetMaxPortraitSize().

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <wx/gdicmn.h>
#include <wx/image.h>

class ProgressArt {
public:
  // Loads the registry unless it is loaded; callable at any time.
  static void Init();
  // Replaces the registry by the archives in `directories` (searched as
  // above, in the given order), as if Init had loaded them: for tests, and
  // for tools that show art from elsewhere. The preferred artist restarts.
  static void Reload(std::vector<std::string> const & directories);

  // The collections, plus one for "<Random>" when there are several.
  static int GetNumArtists();
  // Paintings of `artist`; from n on, of all collections.
  static int GetNumPaintings(int artist);
  // -1 until there are artists; then 0 until set.
  static int GetPreferedArtist();
  // Cut to GetNumArtists() at most (with one collection that is 1, which
  // reads like "<Random>"); negative values become -1.
  static void SetPreferedArtist(int artist);
  // The largest painting and portrait sizes over all collections, each side
  // separately; 0 x 0 without art.
  static wxSize GetMaxBitmapSize();
  static wxSize GetMaxPortraitSize();

  static std::string GetArtistName(int artist, int painting);
  static std::string GetArtistLifeSpan(int artist, int painting);
  static std::string GetPaintingName(int artist, int painting);
  // Invalid images when there is no such picture or it cannot be read.
  static wxImage GetArtistPortrait(int artist, int painting);
  static wxImage GetPainting(int artist, int painting);

  // The folders searched by Init: the executable's, then the plug-in folder
  // when the running application has one.
  static std::vector<std::string> DefaultDirectories();
};

// One painting with everything the break dialog shows beside it.
struct ProgressArtPicture {
  wxImage painting;
  wxImage portrait;  // invalid when the archive has none
  std::string paintingName;
  std::string artistName;
  std::string lifeSpan;
};

// The break dialog's walk through the paintings of the preferred artist in
// a shuffled order. Restart keeps the order while the preferred artist
// stays the same, so the next progress goes on where the last one stood;
// a new preferred artist gets a fresh order. The random source is injected
// so that tests can fix the order.
class ProgressArtShow {
public:
  // Returns a number in [0, bound).
  using Random = std::function<uint32_t(uint32_t bound)>;

  // Shuffles with a generator seeded from the clock and random_device.
  ProgressArtShow();
  explicit ProgressArtShow(Random random);

  // Takes the preferred artist; true when there is art to show.
  bool Restart();
  bool HasArt() const { return !mOrder.empty(); }
  // The painting numbers in the order they will be shown.
  std::vector<int> const & Order() const { return mOrder; }
  // Advances to the next painting (wrapping) and loads it. Only with art.
  ProgressArtPicture const & Next();
  ProgressArtPicture const & Current() const { return mCurrent; }

private:
  Random mRandom;
  static constexpr int kNoArtist = 10000;
  int mArtist = kNoArtist;
  std::vector<int> mOrder;
  int mIndex = -1;
  ProgressArtPicture mCurrent;
};
