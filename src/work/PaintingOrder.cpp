#include "work/PaintingOrder.h"

#include <algorithm>
#include <numeric>

#include "work/BreakDialogArt.h"

PaintingOrder::PaintingOrder() : mShuffle(std::random_device{}()) {}

bool PaintingOrder::Refresh(BreakDialogArt & art) {
  int const artist = art.GetPreferedArtist();
  int const artists = art.GetNumArtists();
  if (artist == mArtist && artists > 0) return !mOrder.empty();
  mArtist = artist;
  mOrder.clear();
  mIndex = -1;
  if (artists <= 0 || artist < 0) return false;
  mOrder.resize(std::max(0, art.GetNumPaintings(artist)));
  std::iota(mOrder.begin(), mOrder.end(), 0);
  std::shuffle(mOrder.begin(), mOrder.end(), mShuffle);
  return !mOrder.empty();
}

void PaintingOrder::Next() {
  if (mOrder.empty()) return;
  mIndex = (mIndex + 1) % int(mOrder.size());
}
