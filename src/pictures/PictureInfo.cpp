#include "pictures/PictureInfo.h"

#include <sstream>

#include "utl/NearUniqueID.h"

void PictureInfo::SetTitle(char const * title) {
  mTitle = title != nullptr ? title : "";
  std::ostringstream name;
  name << GetNearUniqueID();
  mFileName = name.str();
}
