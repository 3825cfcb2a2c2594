#include "frame/VxImageManager.h"

VxImageManager::VxImageManager() = default;
VxImageManager::VxImageManager(VxImageManager const & other) = default;
VxImageManager & VxImageManager::operator=(VxImageManager const & other) = default;
VxImageManager::~VxImageManager() = default;

void VxImageManager::AddIcon(int id, wxBitmap const & bitmap) {
  if (!bitmap.IsOk()) return;
  std::vector<wxBitmap> & sizes = mIcons[id];
  for (wxBitmap & existing : sizes) {
    if (existing.GetSize() == bitmap.GetSize()) {
      existing = bitmap;
      return;
    }
  }
  sizes.push_back(bitmap);
}

void VxImageManager::RemoveIcon(int id) { mIcons.erase(id); }

void VxImageManager::RemoveAll() { mIcons.clear(); }

bool VxImageManager::HasIcon(int id) const { return mIcons.count(id) != 0; }

wxBitmap VxImageManager::GetBitmap(int id) const {
  auto const found = mIcons.find(id);
  return found != mIcons.end() ? found->second.front() : wxBitmap();
}

wxBitmapBundle VxImageManager::GetBitmapBundle(int id) const {
  auto const found = mIcons.find(id);
  if (found == mIcons.end()) return wxBitmapBundle();
  wxVector<wxBitmap> sizes(found->second.begin(), found->second.end());
  return wxBitmapBundle::FromBitmaps(sizes);
}

std::vector<int> VxImageManager::GetIconIds() const {
  std::vector<int> ids;
  for (auto const & entry : mIcons) ids.push_back(entry.first);
  return ids;
}
