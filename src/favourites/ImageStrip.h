#pragma once
// Image lists filled from a strip: one bitmap holding the images side by
// side, each as wide as the list's images.

class wxBitmap;
class wxColour;
class wxImageList;

// Adds each whole image of `strip` to `images`; a strip narrower than one
// image adds nothing. With `mask`, that colour is transparent. Returns how
// many images were added.
int AddImageStrip(wxImageList & images, wxBitmap const & strip, wxColour const * mask);
