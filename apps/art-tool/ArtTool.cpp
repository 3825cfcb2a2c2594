// talvo-art: makes, lists and unpacks art archives (".vart") without a display.
//
//   talvo-art create ARCHIVE FOLDER [--artist NAME] [--life-span TEXT] [--portrait FILE]
//       adds one collection made of the pictures in FOLDER (sorted by name,
//       titled by their file names) to ARCHIVE, which is made if missing
//   talvo-art list ARCHIVE
//   talvo-art extract ARCHIVE FOLDER
//       writes every painting and portrait as <stream>.jpg into FOLDER
//   talvo-art --help | --version
//
// Exit codes: 0 done, 1 failed (the file and the reason on stderr), 2 wrong
// usage.
#include <dirent.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <wx/init.h>

#include "pictures/ArtInfo.h"
#include "pictures/ArtPictureSource.h"
#include "platform/MessageBoxes.h"
#include "utl/Exception.h"
#include "utl/Paths.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUsage = 2;

constexpr char kUsageText[] =
    "usage: talvo-art create ARCHIVE FOLDER [--artist NAME] [--life-span TEXT]"
    " [--portrait FILE]\n"
    "       talvo-art list ARCHIVE\n"
    "       talvo-art extract ARCHIVE FOLDER\n"
    "       talvo-art --help | --version\n";

int Usage() {
  std::cerr << kUsageText;
  return kUsage;
}

int Fail(std::string const & text) {
  std::cerr << "talvo-art: " << text << '\n';
  return kFailed;
}

// "FILE: the system's reason" for the errno of a failed call on FILE.
int FailOn(std::string const & file, int code) { return Fail(file + ": " + std::strerror(code)); }

// Why a picture cannot be used: the system's reason if the file cannot be
// opened, else that it holds no picture.
int FailPicture(std::string const & path) {
  if (::access(path.c_str(), R_OK) != 0) return FailOn(path, errno);
  return Fail(path + ": no picture that can be read (JPEG, PNG, BMP, GIF, TIFF)");
}

bool IsPictureName(std::string const & name) {
  static char const * const kExtensions[] = {".jpg", ".jpeg", ".png", ".bmp",
                                             ".gif", ".tif",  ".tiff"};
  for (char const * extension : kExtensions) {
    size_t const length = std::char_traits<char>::length(extension);
    if (name.size() > length && ::strcasecmp(name.c_str() + name.size() - length, extension) == 0)
      return true;
  }
  return false;
}

// 0, or the errno of the failure.
int ListPictures(std::string const & folder, std::vector<std::string> & names) {
  std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.c_str()), ::closedir);
  if (!directory) return errno;
  while (dirent const * entry = ::readdir(directory.get()))
    if (entry->d_name[0] != '.' && IsPictureName(entry->d_name)) names.emplace_back(entry->d_name);
  std::sort(names.begin(), names.end());
  return 0;
}

std::string Title(std::string const & fileName) { return fileName.substr(0, fileName.rfind('.')); }

int Create(std::string const & archive, std::string const & folder,
           std::map<std::string, std::string> const & options) {
  std::vector<std::string> names;
  if (int const code = ListPictures(folder, names)) return FailOn(folder, code);
  if (names.empty()) return Fail(folder + ": no pictures (JPEG, PNG, BMP, GIF, TIFF) in it");
  // An archive that is there must be one, readable whole: its reason is told
  // here, before any picture is converted.
  if (::access(archive.c_str(), F_OK) == 0) ArtInfo::LoadArtInfo(archive);

  CollectionInfo collection;
  auto const option = [&](char const * name) {
    auto const found = options.find(name);
    return found != options.end() ? found->second : std::string();
  };
  collection.artistName = option("--artist");
  if (collection.artistName.empty()) collection.artistName = VxGetFileName(folder);
  collection.lifeSpan = option("--life-span");
  std::vector<std::string> sources;
  // The size fields are the caller's: measured here on the pictures as they
  // will be stored.
  for (std::string const & name : names) {
    std::string const path = VxPathAppend(folder, name);
    wxImage const stored =
        vx3::LoadArtPicture(path, ArtInfo::nMaxPixWidth, ArtInfo::nMaxPixHeight, 0);
    if (!stored.IsOk()) return FailPicture(path);
    collection.bitmapWidth = std::max(collection.bitmapWidth, stored.GetWidth());
    collection.bitmapHeight = std::max(collection.bitmapHeight, stored.GetHeight());
    PictureInfo picture;
    picture.SetTitle(Title(name).c_str());
    collection.pictures.push_back(picture);
    sources.push_back(path);
  }
  std::string const portrait = option("--portrait");
  if (!portrait.empty()) {
    wxImage const stored =
        vx3::LoadArtPicture(portrait, ArtInfo::nMaxPortraitWidth, ArtInfo::nMaxPortraitHeight, 0);
    if (!stored.IsOk()) return FailPicture(portrait);
    collection.portraitWidth = stored.GetWidth();
    collection.portraitHeight = stored.GetHeight();
    PictureInfo name;  // a fresh unique stream name for the portrait
    name.SetTitle("");
    collection.iconName = name.GetFileName();
  }

  ArtInfo art;
  art.AddCollection(collection);
  if (!art.SaveToFile(archive, {sources}, {std::vector<int>(sources.size(), 0)}, {portrait}, {0}))
    return kFailed;
  std::cout << "added \"" << collection.artistName << "\" with " << sources.size()
            << " pictures to " << archive << '\n';
  return kDone;
}

int List(std::string const & archive) {
  ArtInfo const art = ArtInfo::LoadArtInfo(archive);
  for (CollectionInfo const & collection : art.GetCollections()) {
    std::cout << collection.artistName << " (" << collection.lifeSpan << "), paintings up to "
              << collection.bitmapWidth << " x " << collection.bitmapHeight << ", portrait "
              << (collection.iconName.empty() ? "none" : collection.iconName) << " "
              << collection.portraitWidth << " x " << collection.portraitHeight << '\n';
    for (PictureInfo const & picture : collection.pictures)
      std::cout << "  " << picture.GetFileName() << "  " << picture.GetTitle() << '\n';
  }
  return kDone;
}

int Extract(std::string const & archive, std::string const & folder) {
  ArtInfo const art = ArtInfo::LoadArtInfo(archive);
  errno = 0;
  if (!VxCreateFolder(folder)) return FailOn(folder, errno != 0 ? errno : EIO);
  {
    int written = 0;
    auto const extract = [&](std::string const & stream) {
      std::string bytes;
      try {
        bytes = ArtInfo::ReadPictureStream(archive, stream);
      } catch (Exception const & error) {
        Fail(error.Why());
        return false;
      }
      // The stream names are numbers, so they make safe file names.
      std::string const target = VxPathAppend(folder, VxGetFileName(stream) + ".jpg");
      errno = 0;
      std::ofstream out(target, std::ios::binary);
      if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) || !out.flush()) {
        FailOn(target, errno != 0 ? errno : EIO);
        return false;
      }
      ++written;
      return true;
    };
    bool complete = true;
    for (CollectionInfo const & collection : art.GetCollections()) {
      if (!collection.iconName.empty()) complete = extract(collection.iconName) && complete;
      for (PictureInfo const & picture : collection.pictures)
        complete = extract(picture.GetFileName()) && complete;
    }
    std::cout << written << " pictures written to " << folder << '\n';
    return complete ? kDone : kFailed;
  }
}

}  // namespace

int main(int argc, char ** argv) {
  wxInitializer initializer;
  if (!initializer.IsOk()) return Fail("wxWidgets cannot start");
  // The library's message boxes become lines on stderr.
  SetFrameworkMessageBoxHandler([](wxString const & text, UINT, UINT) {
    std::cerr << "talvo-art: " << text.utf8_string() << '\n';
    return IDOK;
  });

  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 1 && args[0] == "--help") {
    std::cout << kUsageText;
    return kDone;
  }
  if (args.size() == 1 && args[0] == "--version") {
    std::cout << "talvo-art " << TALVO_PROJECT_VERSION << '\n';
    return kDone;
  }
  try {
    if (args.size() == 2 && args[0] == "list") return List(args[1]);
    if (args.size() == 3 && args[0] == "extract") return Extract(args[1], args[2]);
    if (args.size() >= 3 && args[0] == "create" && args.size() % 2 == 1) {
      std::map<std::string, std::string> options;
      for (size_t i = 3; i + 1 < args.size(); i += 2) {
        if (args[i] != "--artist" && args[i] != "--life-span" && args[i] != "--portrait")
          return Usage();
        options[args[i]] = args[i + 1];
      }
      return Create(args[1], args[2], options);
    }
  } catch (Exception const & error) {
    return Fail(error.Why());
  } catch (std::exception const & error) {
    return Fail(error.what());
  }
  return Usage();
}
