#include "pictures/ArtInfo.h"

#include <boost/format.hpp>
#include <boost/iostreams/stream.hpp>

#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input.h>
#include <gsf/gsf-output.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <set>
#include <stdexcept>

#include "pictures/ArtInfoText.h"
#include "pictures/ArtJpeg.h"
#include "pictures/ArtPictureSource.h"
#include "pictures/CompoundFile.h"
#include "pictures/CompoundFileStream.h"
#include "pictures/IStreamDevice.h"
#include "platform/MessageBoxes.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

constexpr char kArtInfoStream[] = "ArtInfo";
constexpr int kJpegQuality = 75;
// A stored painting is 400 x 400 at most; archives of other builds may hold
// larger ones, but nothing near these bounds.
constexpr size_t kMaxPictureStreamBytes = 32u << 20;

Exception InternalError() {
  return Exception(ExceptionMessage::translate("Internal error in ArtInfo::SaveToFile"));
}

void CheckStreamName(std::string const & name) {
  if (!vx3::IsValidStreamName(name) || name == kArtInfoStream)
    throw Exception(ExceptionMessage::translate("The stream name \"{1}\" cannot be used: it is "
                                                "empty, \"ArtInfo\" or longer than 31 "
                                                "characters.") %
                    name);
}

Exception Unreadable(std::string const & path, std::string const & why) {
  return Exception(ExceptionMessage::translate("The art archive {1} is unreadable: {2}.") % path %
                   why);
}

}  // namespace

ArtInfo const * ArtInfo::ReadArtInfo(wchar_t const * path) {
  return path != nullptr ? ReadArtInfo(vx3::WideToUtf8(path)) : nullptr;
}

ArtInfo ArtInfo::LoadArtInfo(std::string const & path) {
  std::string why = vx3::FindCompoundFileDamageAt(path);
  if (!why.empty()) throw Unreadable(path, why);
  ArtInfo art;
  switch (ReadList(path, art, &why)) {
    case vx3::CompoundStreamRead::kRead: break;
    case vx3::CompoundStreamRead::kAbsent:
      throw Unreadable(
          path,
          ExceptionMessage::translate("it has no stream \"ArtInfo\"").ToString(std::locale()));
    case vx3::CompoundStreamRead::kUnreadable: throw Unreadable(path, why);
  }
  for (CollectionInfo & collection : art.mCollections) collection.file = path;
  return art;
}

std::string ArtInfo::ReadPictureStream(std::string const & file, std::string const & stream) {
  std::string bytes;
  std::string why;
  switch (vx3::ReadCompoundFileStream(file, stream, kMaxPictureStreamBytes, bytes, &why)) {
    case vx3::CompoundStreamRead::kRead: break;
    case vx3::CompoundStreamRead::kAbsent:
      throw Unreadable(file, (ExceptionMessage::translate("it has no stream \"{1}\"") % stream)
                                 .ToString(std::locale()));
    case vx3::CompoundStreamRead::kUnreadable: throw Unreadable(file, why);
  }
  return bytes;
}

ArtInfo const * ArtInfo::ReadArtInfo(std::string const & path) {
  if (::access(path.c_str(), F_OK) != 0) return nullptr;
  auto art = std::make_unique<ArtInfo>();
  if (ReadList(path, *art) != vx3::CompoundStreamRead::kRead) return nullptr;
  for (CollectionInfo & collection : art->mCollections) collection.file = path;
  return art.release();
}

vx3::CompoundStreamRead ArtInfo::ReadList(std::string const & path, ArtInfo & art,
                                          std::string * why) {
  std::string text;
  vx3::CompoundStreamRead const found = vx3::ReadCompoundFileStream(
      path, kArtInfoStream, vx3::ArtInfoTextLimits::kMaxTextBytes, text, why);
  if (found != vx3::CompoundStreamRead::kRead) return found;
  vx3::GsfPtr<GsfInput> const stream(gsf_input_memory_new(
      reinterpret_cast<guint8 const *>(text.data()), static_cast<gsf_off_t>(text.size()), FALSE));
  return stream && art.ReadFromIStream(stream.get(), why) ? vx3::CompoundStreamRead::kRead
                                                          : vx3::CompoundStreamRead::kUnreadable;
}

void ArtInfo::AddCollection(CollectionInfo const & collection) {
  mCollections.push_back(collection);
}

void ArtInfo::AddArtInfo(ArtInfo const & other) {
  mCollections.insert(mCollections.end(), other.mCollections.begin(), other.mCollections.end());
}

void ArtInfo::Clear() { mCollections.clear(); }

wxImage ArtInfo::GetIcon(int collection) const {
  if (collection < 0 || static_cast<size_t>(collection) >= mCollections.size()) return wxImage();
  CollectionInfo const & info = mCollections[static_cast<size_t>(collection)];
  return GetBitMap(info.file, info.iconName);
}

wxImage ArtInfo::GetImage(int collection, int picture) const {
  if (collection < 0 || static_cast<size_t>(collection) >= mCollections.size()) return wxImage();
  CollectionInfo const & info = mCollections[static_cast<size_t>(collection)];
  if (picture < 0 || static_cast<size_t>(picture) >= info.pictures.size()) return wxImage();
  return GetBitMap(info.file, info.pictures[static_cast<size_t>(picture)].GetFileName());
}

wxImage ArtInfo::GetBitMap(std::string const & file, std::string const & stream) {
  std::string bytes;
  if (vx3::ReadCompoundFileStream(file, stream, kMaxPictureStreamBytes, bytes) !=
      vx3::CompoundStreamRead::kRead)
    return wxImage();
  try {
    return vx3::DecodeArtJpeg(reinterpret_cast<unsigned char const *>(bytes.data()), bytes.size(),
                              vx3::JpegDecodeLimits());
  } catch (vx3::ArtJpegError const &) {
    return wxImage();
  }
}

bool ArtInfo::ReadFromIStream(GsfInput * stream, std::string * why) {
  std::string fault;
  try {
    gsf_off_t const size = gsf_input_size(stream);
    if (size < 0 || static_cast<unsigned long long>(size) > vx3::ArtInfoTextLimits::kMaxTextBytes)
      throw std::length_error("longer than allowed");
    boost::iostreams::stream<IStreamDevice> in{IStreamDevice(stream)};
    std::string text(static_cast<size_t>(size), '\0');
    if (size > 0 && !in.read(&text[0], size)) throw std::ios_base::failure("read failed.");
    *this = vx3::ReadArtInfoText(text);
    return true;
  } catch (std::exception const & error) {
    fault = error.what();
  }
  if (why != nullptr)
    *why = (ExceptionMessage::translate("its list \"ArtInfo\" is damaged ({1})") % fault)
               .ToString(std::locale());
  return false;
}

bool ArtInfo::SaveToIStream(GsfOutput * stream) const {
  try {
    boost::iostreams::stream<IStreamDevice> out{IStreamDevice(stream)};
    out.exceptions(std::ios_base::badbit | std::ios_base::failbit);
    vx3::WriteArtInfoText(*this, out);
    out.flush();
    out.close();
    return true;
  } catch (std::exception const &) {
    return false;
  }
}

void ArtInfo::SavePicture(std::map<std::string, std::string> & streams, std::string const & source,
                          std::string const & stream, unsigned int maxHeight, unsigned int maxWidth,
                          int rotation) const {
  wxImage const picture = vx3::LoadArtPicture(source, static_cast<int>(maxWidth),
                                              static_cast<int>(maxHeight), rotation);
  if (!picture.IsOk())
    throw Exception(ExceptionMessage::translate("{1} could not be read.\nThe file was skipped.") %
                    source);
  try {
    streams[stream] = vx3::EncodeArtJpeg(picture, kJpegQuality);
  } catch (std::exception const &) {
    throw Exception(ExceptionMessage::translate("The file {1} could not be saved.") % source);
  }
}

bool ArtInfo::SaveToFile(wchar_t const * file,
                         std::vector<std::vector<std::string>> const & pictures,
                         std::vector<std::vector<int>> const & rotations,
                         std::vector<std::string> const & icons,
                         std::vector<int> const & iconRotations) const {
  return SaveToFile(vx3::WideToUtf8(file != nullptr ? file : L""), pictures, rotations, icons,
                    iconRotations);
}

bool ArtInfo::SaveToFile(std::string const & file,
                         std::vector<std::vector<std::string>> const & pictures,
                         std::vector<std::vector<int>> const & rotations,
                         std::vector<std::string> const & icons,
                         std::vector<int> const & iconRotations) const {
  size_t const count = mCollections.size();
  if (pictures.size() != count || rotations.size() != count) throw InternalError();
  for (size_t i = 0; i < count; ++i) {
    size_t const inCollection = mCollections[i].pictures.size();
    if (pictures[i].size() != inCollection || rotations[i].size() != inCollection)
      throw InternalError();
    for (PictureInfo const & picture : mCollections[i].pictures)
      CheckStreamName(picture.GetFileName());
    if (i < icons.size() && !icons[i].empty()) {
      if (i >= iconRotations.size()) throw InternalError();
      CheckStreamName(mCollections[i].iconName);
    }
  }

  // The old archive, if there is one: its collections go first, its streams
  // are copied.
  std::unique_ptr<vx3::CompoundFileReader> old;
  ArtInfo merged;
  if (::access(file.c_str(), F_OK) == 0) {
    try {
      old = std::make_unique<vx3::CompoundFileReader>(file);
    } catch (std::exception const &) {
      AfxMessageBox(wxString::FromUTF8(
          (boost::format(vx3::Tr("The file %1% could not be opened!").utf8_string()) % file)
              .str()));
      return false;
    }
    // The list is read as ReadArtInfo reads it. Only a list that is truly
    // absent counts as empty: one that is listed but damaged must not be
    // replaced by an empty one.
    vx3::CompoundStreamRead const list = ReadList(file, merged);
    if (list == vx3::CompoundStreamRead::kUnreadable ||
        (list == vx3::CompoundStreamRead::kAbsent && old->Lists(kArtInfoStream)))
      throw Exception(ExceptionMessage::translate("Reading from {1} failed.") % file);
  }

  // The pictures first, in memory: a stream written twice in one save keeps
  // the later picture, as re-creating a stream does.
  std::map<std::string, std::string> pictureStreams;
  for (size_t i = 0; i < count; ++i) {
    for (size_t j = 0; j < pictures[i].size(); ++j)
      SavePicture(pictureStreams, pictures[i][j], mCollections[i].pictures[j].GetFileName(),
                  nMaxPixHeight, nMaxPixWidth, rotations[i][j]);
    merged.AddCollection(mCollections[i]);
  }
  for (size_t i = 0; i < count && i < icons.size(); ++i) {
    if (!icons[i].empty())
      SavePicture(pictureStreams, icons[i], mCollections[i].iconName, nMaxPortraitHeight,
                  nMaxPortraitWidth, iconRotations[i]);
  }
  for (CollectionInfo & collection : merged.mCollections) collection.file.clear();

  // The old streams that this save does not replace, the new ones, the list.
  Exception const writeFailure(ExceptionMessage::translate("Writing to {1} failed.") % file);
  vx3::CompoundFileWriter storage;
  try {
    std::set<std::string> replaced{kArtInfoStream};
    for (auto const & stream : pictureStreams) replaced.insert(stream.first);
    if (old) storage.CopyFrom(*old, replaced);
    for (auto const & stream : pictureStreams) storage.AddStream(stream.first, stream.second);
    vx3::GsfPtr<GsfOutput> const stream = storage.CreateStream(kArtInfoStream);
    bool const saved = merged.SaveToIStream(stream.get());
    if (!gsf_output_close(stream.get()) || !saved) throw writeFailure;
  } catch (std::exception const &) {
    throw writeFailure;
  }

  std::string bytes;
  try {
    bytes = storage.Finish();
  } catch (std::exception const &) {
    throw writeFailure;
  }
  // Beside the old file, flushed, renamed over it; its own message tells
  // why the file system refused.
  vx3::WriteFileAtomically(file, bytes);
  return true;
}
