#pragma once
// Which painting the break dialog shows next: the preferred artist's
// paintings in a shuffled order, kept from one operation to the next, so
// that a later operation goes on where the last one stood. A change of the
// preferred artist shuffles that artist's paintings anew.

#include <random>
#include <vector>

class BreakDialogArt;

class PaintingOrder {
public:
  PaintingOrder();

  // Takes the art's preferred artist; false when it has nothing to show.
  bool Refresh(BreakDialogArt & art);
  // On to the next painting, round to the first after the last.
  void Next();

  bool IsEmpty() const { return mOrder.empty(); }
  // Whether a painting was taken since the order was made.
  bool HasCurrent() const { return mIndex >= 0; }
  int GetArtist() const { return mArtist; }
  // The painting's number within the artist; -1 before the first.
  int GetPainting() const { return HasCurrent() ? mOrder[mIndex] : -1; }

private:
  // The artist whose order is loaded; kNoArtist: none yet.
  static constexpr int kNoArtist = 10000;
  int mArtist = kNoArtist;
  std::vector<int> mOrder;
  int mIndex = -1;
  std::mt19937 mShuffle;
};
