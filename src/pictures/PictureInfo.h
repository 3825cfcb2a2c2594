#pragma once
// One painting of an art archive: its title and the name of the stream that
// holds its JPEG. The stream name is made when the title is set and nowhere
// else, so a picture's identity is fixed by SetTitle.

#include <string>

namespace boost {
namespace serialization {
class access;
}
}  // namespace boost

class PictureInfo {
public:
  // Stores the title (UTF-8) and gives the picture a new stream name: the
  // decimal text of GetNearUniqueID(). Setting a title twice changes the name.
  void SetTitle(char const * title);
  std::string GetTitle() const { return mTitle; }
  std::string GetFileName() const { return mFileName; }

private:
  friend class boost::serialization::access;
  // The persisted order: title, then stream name.
  template <class Archive>
  void serialize(Archive & archive, unsigned int /*version*/) {
    archive & mTitle & mFileName;
  }

  std::string mTitle;
  std::string mFileName;
};
