#pragma once
// One painter of an art archive: the size fields, the painter's name and
// life span, the portrait's stream name and the paintings. The caller fills
// the four size fields before saving; nothing computes them.

#include <string>
#include <vector>

#include "pictures/PictureInfo.h"

struct CollectionInfo {
  int bitmapWidth = 0;   // width of the widest painting, in pixels
  int bitmapHeight = 0;  // height of the highest painting
  int portraitWidth = 0;
  int portraitHeight = 0;
  std::string artistName;  // UTF-8
  std::string lifeSpan;    // free text, UTF-8
  std::string iconName;    // the portrait's stream; may name no stream
  std::vector<PictureInfo> pictures;
  // Not persisted: the UTF-8 path of the archive this collection was read
  // from, so that its pictures are found there after archives are merged.
  std::string file;

  // The persisted order of the fields; `file` is not among them.
  template <class Archive>
  void serialize(Archive & archive, unsigned int /*version*/) {
    archive & bitmapWidth & bitmapHeight & portraitWidth & portraitHeight & artistName & lifeSpan &
        iconName & pictures;
  }
};
