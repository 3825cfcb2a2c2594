#pragma once
// Pictures and archives for the art tests, made in the test's own TMPDIR.

#include <wx/image.h>
#include <wx/imagpng.h>

#include <string>
#include <vector>

#include "pictures/ArtInfo.h"
#include "pictures/ArtJpeg.h"
#include "utl/Paths.h"
#include "utl/TestFiles.h"

// A picture whose left half is red and right half blue, so that turns show.
inline wxImage HalfAndHalf(int width, int height) {
  wxImage image(width, height, false);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      bool const left = x < width / 2;
      image.SetRGB(x, y, left ? 220 : 20, 30, left ? 20 : 220);
    }
  return image;
}

inline std::string WritePng(std::string const & name, int width, int height) {
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  std::string path = Temp(name);
  HalfAndHalf(width, height).SaveFile(wxString::FromUTF8(path), wxBITMAP_TYPE_PNG);
  return path;
}

inline std::string WriteJpeg(std::string const & name, int width, int height) {
  std::string path = Temp(name);
  Spit(path, vx3::EncodeArtJpeg(HalfAndHalf(width, height), 90));
  return path;
}

inline CollectionInfo Painter(std::string const & name, std::vector<std::string> const & titles,
                              std::string const & iconName = "") {
  CollectionInfo collection;
  collection.artistName = name;
  collection.lifeSpan = name + " lived";
  collection.iconName = iconName;
  collection.bitmapWidth = 40;
  collection.bitmapHeight = 30;
  collection.portraitWidth = 8;
  collection.portraitHeight = 9;
  for (std::string const & title : titles) {
    PictureInfo picture;
    picture.SetTitle(title.c_str());
    collection.pictures.push_back(picture);
  }
  return collection;
}

// Saves one collection whose pictures all come from `source`.
inline void SaveCollection(std::string const & archive, CollectionInfo const & collection,
                           std::string const & source, std::string const & icon = "") {
  ArtInfo art;
  art.AddCollection(collection);
  size_t const n = collection.pictures.size();
  art.SaveToFile(archive, {std::vector<std::string>(n, source)}, {std::vector<int>(n, 0)}, {icon},
                 {0});
}
