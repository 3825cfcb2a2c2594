#pragma once
// Pictures known by number, as the command bars and the about page of the
// family look them up: each number holds one or more sizes of one icon, and
// is handed out as a wxBitmap (the first size added) or as a wxBitmapBundle
// of all its sizes, for wx to pick by resolution.

#include <map>
#include <vector>

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>

class VxImageManager {
public:
  VxImageManager();
  VxImageManager(VxImageManager const & other);
  VxImageManager & operator=(VxImageManager const & other);
  virtual ~VxImageManager();

  // Adds a size of the icon `id`; a bitmap of a size that `id` already has
  // replaces that one. An invalid bitmap is ignored.
  void AddIcon(int id, wxBitmap const & bitmap);
  void RemoveIcon(int id);
  void RemoveAll();

  bool HasIcon(int id) const;
  // The icon's first size; an invalid bitmap when there is no such icon.
  wxBitmap GetBitmap(int id) const;
  // All its sizes; an empty bundle when there is no such icon.
  wxBitmapBundle GetBitmapBundle(int id) const;
  // The numbers, ascending.
  std::vector<int> GetIconIds() const;

private:
  std::map<int, std::vector<wxBitmap>> mIcons;
};
