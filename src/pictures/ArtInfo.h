#pragma once
// An art archive: collections of paintings (one collection a painter, with a
// portrait) kept in one ".vart" file for display while the user waits.
//
// The file is an OLE2 compound file, exchangeable with the family's Windows
// builds: the stream "ArtInfo" holds the collections as a Boost text archive
// (ArtInfoText.h) and every painting and portrait is a JPEG stream of its
// own, named by the model, directly under the root.
//
// An ArtInfo is a value. The file is closed between calls; pictures are read
// from disk on every GetIcon and GetImage, from the file each collection was
// read from, so merged archives keep finding their pictures.
//
// Pictures come back as wxImage, which can be made off the GUI thread; an
// invalid image stands for "no picture". Nothing here needs a display.

#include <map>
#include <string>
#include <vector>

#include <wx/image.h>

#include "pictures/CollectionInfo.h"
#include "pictures/CompoundFileStream.h"

namespace boost {
namespace serialization {
class access;
}
}  // namespace boost

struct _GsfInput;
struct _GsfOutput;

class ArtInfo {
public:
  static constexpr int nMaxPixWidth = 400;
  static constexpr int nMaxPixHeight = 400;
  static constexpr int nMaxPortraitWidth = 80;
  static constexpr int nMaxPortraitHeight = 80;

  // A new object from the archive at `path`, or null if the file is missing,
  // is no compound file, or its "ArtInfo" stream cannot be read. The
  // collections' `file` is set to the path. The caller deletes the result.
  static ArtInfo const * ReadArtInfo(wchar_t const * path);
  static ArtInfo const * ReadArtInfo(std::string const & path);
  // As ReadArtInfo, for callers that report failures, and strict: a file
  // that SaveToFile would refuse (any damage in the compound file, not only
  // in the list) is refused too. Throws an Exception "The art archive {1} is
  // unreadable: {2}." with the path and what is wrong (the system's reason,
  // the damage, a missing "ArtInfo" stream, or the list's own fault).
  static ArtInfo LoadArtInfo(std::string const & path);
  // The bytes of the stream `stream` (a picture's JPEG) of the archive at
  // `file`; throws as LoadArtInfo does, also when the stream is absent.
  static std::string ReadPictureStream(std::string const & file, std::string const & stream);

  void AddCollection(CollectionInfo const & collection);
  void AddArtInfo(ArtInfo const & other);
  std::vector<CollectionInfo> const & GetCollections() const { return mCollections; }
  void Clear();

  // The portrait of collection `collection`, or an invalid image on any
  // failure (no such collection, no such stream, a damaged JPEG).
  wxImage GetIcon(int collection) const;
  // Painting `picture` of collection `collection`, or an invalid image.
  wxImage GetImage(int collection, int picture) const;

  // Appends this object's collections to the archive `file` (made if it is
  // missing). The other arguments run parallel to the collections:
  // pictures[i][j] is the UTF-8 path of the source of picture j of
  // collection i, rotations[i][j] its quarter turns clockwise (taken mod 4
  // with the sign of the rotation; negative results turn nothing);
  // icons[i] the source of collection i's portrait, empty for none, and
  // iconRotations[i] its turns. Paintings are shrunk to 400 x 400 and
  // portraits to 80 x 80 at most, never enlarged, and stored as JPEG
  // (quality 75). Collections already in the file stay as they are.
  //
  // The new archive is built whole, then written beside the old file, flushed
  // and renamed over it (old streams copied), so a failure leaves the file as
  // it was. Returns false, after the message "The file %1% could not be
  // opened!" (framework message box), when the file exists but cannot be
  // opened as a compound file. Throws Exception when the arguments do not
  // match the collections, a stream name is empty, "ArtInfo" or longer
  // than 31 characters, the old "ArtInfo" cannot be read, a source cannot be read,
  // or the archive cannot be written.
  bool SaveToFile(wchar_t const * file, std::vector<std::vector<std::string>> const & pictures,
                  std::vector<std::vector<int>> const & rotations,
                  std::vector<std::string> const & icons,
                  std::vector<int> const & iconRotations) const;
  bool SaveToFile(std::string const & file, std::vector<std::vector<std::string>> const & pictures,
                  std::vector<std::vector<int>> const & rotations,
                  std::vector<std::string> const & icons,
                  std::vector<int> const & iconRotations) const;

private:
  friend class boost::serialization::access;
  template <class Archive>
  void serialize(Archive & archive, unsigned int /*version*/) {
    archive & mCollections;
  }

  // Turns and shrinks the picture at `source` and puts its JPEG into
  // `streams` under `stream`, replacing one of that name.
  void SavePicture(std::map<std::string, std::string> & streams, std::string const & source,
                   std::string const & stream, unsigned int maxHeight, unsigned int maxWidth,
                   int rotation) const;
  // Reads the list of the archive at `path` into `art`; `why` says what is
  // wrong when it is unreadable.
  static vx3::CompoundStreamRead ReadList(std::string const & path, ArtInfo & art,
                                          std::string * why = nullptr);
  static wxImage GetBitMap(std::string const & file, std::string const & stream);
  // Read or write the text archive through an IStreamDevice on a gsf
  // stream; false on any std::exception, whose text goes to `why`.
  bool ReadFromIStream(_GsfInput * stream, std::string * why = nullptr);
  bool SaveToIStream(_GsfOutput * stream) const;

  std::vector<CollectionInfo> mCollections;
};
