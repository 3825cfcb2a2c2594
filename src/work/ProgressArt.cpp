#include "work/ProgressArt.h"

#include <dirent.h>
#include <strings.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <random>

#include <wx/app.h>

#include "pictures/ArtInfo.h"
#include "platform/RunningApplication.h"
#include "utl/Paths.h"

namespace {

constexpr char kRandomArtist[] = "<Random>";

struct Registry {
  std::mutex lock;
  std::atomic<bool> initialised{false};
  ArtInfo art;
  wxSize maxBitmap{0, 0};
  wxSize maxPortrait{0, 0};
  int preferred = -1;
};

Registry & TheRegistry() {
  static Registry * const registry = new Registry;  // lives to the end of the process
  return *registry;
}

bool HasArtExtension(std::string const & name) {
  static constexpr char kExtension[] = ".vart";
  size_t const length = sizeof kExtension - 1;
  return name.size() > length && ::strcasecmp(name.c_str() + name.size() - length, kExtension) == 0;
}

void LoadPainters(Registry & registry, std::string const & directory) {
  std::unique_ptr<DIR, int (*)(DIR *)> folder(::opendir(directory.c_str()), ::closedir);
  if (!folder) return;
  std::vector<std::string> names;
  while (dirent const * entry = ::readdir(folder.get()))
    if (HasArtExtension(entry->d_name)) names.emplace_back(entry->d_name);
  std::sort(names.begin(), names.end());
  for (std::string const & name : names) {
    std::unique_ptr<ArtInfo const> const art(ArtInfo::ReadArtInfo(VxPathAppend(directory, name)));
    if (art) registry.art.AddArtInfo(*art);
  }
}

int Collections(Registry const & registry) {
  return static_cast<int>(registry.art.GetCollections().size());
}

int NumArtists(Registry const & registry) {
  int const n = Collections(registry);
  return n > 1 ? n + 1 : n;
}

// Loads into a registry whose lock is held.
void Load(Registry & registry, std::vector<std::string> const & directories) {
  registry.art.Clear();
  registry.maxBitmap = registry.maxPortrait = wxSize(0, 0);
  for (std::string const & directory : directories)
    if (!directory.empty()) LoadPainters(registry, directory);
  for (CollectionInfo const & collection : registry.art.GetCollections()) {
    registry.maxBitmap.x = std::max(registry.maxBitmap.x, collection.bitmapWidth);
    registry.maxBitmap.y = std::max(registry.maxBitmap.y, collection.bitmapHeight);
    registry.maxPortrait.x = std::max(registry.maxPortrait.x, collection.portraitWidth);
    registry.maxPortrait.y = std::max(registry.maxPortrait.y, collection.portraitHeight);
  }
  registry.preferred = NumArtists(registry) > 0 ? 0 : -1;
}

Registry & Loaded() {
  ProgressArt::Init();
  return TheRegistry();
}

int PictureCount(Registry const & registry, int collection) {
  return static_cast<int>(
      registry.art.GetCollections()[static_cast<size_t>(collection)].pictures.size());
}

// Turns (artist, painting) into a collection and a painting within it. For
// "<Random>" the painting number runs across the collections in order. On
// stepping to the next collection, its index is compared with its number of
// pictures (not with the number of collections): that is the family's
// behaviour, kept; the bound on the collections only keeps the index valid.
bool Resolve(Registry const & registry, int & artist, int & painting) {
  int const n = Collections(registry);
  if (n == 0 || painting < 0) return false;
  if (artist >= 0 && artist < n) return painting < PictureCount(registry, artist);
  if (artist < 0) return false;
  artist = 0;
  while (painting >= PictureCount(registry, artist)) {
    painting -= PictureCount(registry, artist);
    ++artist;
    if (artist >= n || artist >= PictureCount(registry, artist)) return false;
  }
  return true;
}

CollectionInfo const & Collection(Registry const & registry, int artist) {
  return registry.art.GetCollections()[static_cast<size_t>(artist)];
}

}  // namespace

void ProgressArt::Init() {
  Registry & registry = TheRegistry();
  if (registry.initialised) return;
  std::lock_guard<std::mutex> const guard(registry.lock);
  if (registry.initialised) return;
  registry.initialised = true;
  Load(registry, DefaultDirectories());
}

void ProgressArt::Reload(std::vector<std::string> const & directories) {
  Registry & registry = TheRegistry();
  std::lock_guard<std::mutex> const guard(registry.lock);
  registry.initialised = true;
  Load(registry, directories);
}

std::vector<std::string> ProgressArt::DefaultDirectories() {
  std::vector<std::string> directories{VxGetExecutableDirectory()};
  std::string plugins = AppPluginDirectory();
  if (!plugins.empty()) directories.push_back(std::move(plugins));
  return directories;
}

int ProgressArt::GetNumArtists() {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  return NumArtists(registry);
}

int ProgressArt::GetNumPaintings(int artist) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  int const n = Collections(registry);
  if (artist < 0) return 0;
  if (artist < n) return PictureCount(registry, artist);
  int total = 0;
  for (int i = 0; i < n; ++i) total += PictureCount(registry, i);
  return total;
}

int ProgressArt::GetPreferedArtist() {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  return registry.preferred;
}

void ProgressArt::SetPreferedArtist(int artist) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  registry.preferred = artist < 0 ? -1 : std::min(artist, NumArtists(registry));
}

wxSize ProgressArt::GetMaxBitmapSize() {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  return registry.maxBitmap;
}

wxSize ProgressArt::GetMaxPortraitSize() {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  return registry.maxPortrait;
}

std::string ProgressArt::GetArtistName(int artist, int painting) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  int const n = Collections(registry);
  if (painting < 0) {
    if (artist >= n) return kRandomArtist;
    return artist >= 0 ? Collection(registry, artist).artistName : "";
  }
  return Resolve(registry, artist, painting) ? Collection(registry, artist).artistName : "";
}

std::string ProgressArt::GetArtistLifeSpan(int artist, int painting) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  if (painting < 0) {
    bool const real = artist >= 0 && artist < Collections(registry);
    return real ? Collection(registry, artist).lifeSpan : "";
  }
  return Resolve(registry, artist, painting) ? Collection(registry, artist).lifeSpan : "";
}

std::string ProgressArt::GetPaintingName(int artist, int painting) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  if (!Resolve(registry, artist, painting)) return "";
  return Collection(registry, artist).pictures[static_cast<size_t>(painting)].GetTitle();
}

wxImage ProgressArt::GetArtistPortrait(int artist, int painting) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  if (painting < 0)
    return artist >= 0 && artist < Collections(registry) ? registry.art.GetIcon(artist) : wxImage();
  return Resolve(registry, artist, painting) ? registry.art.GetIcon(artist) : wxImage();
}

wxImage ProgressArt::GetPainting(int artist, int painting) {
  Registry & registry = Loaded();
  std::lock_guard<std::mutex> const guard(registry.lock);
  return Resolve(registry, artist, painting) ? registry.art.GetImage(artist, painting) : wxImage();
}

ProgressArtShow::ProgressArtShow() {
  auto engine = std::make_shared<std::mt19937>(
      std::random_device()() ^
      static_cast<uint32_t>(std::chrono::steady_clock::now().time_since_epoch().count()));
  mRandom = [engine](uint32_t bound) {
    return std::uniform_int_distribution<uint32_t>(0, bound - 1)(*engine);
  };
}

ProgressArtShow::ProgressArtShow(Random random) : mRandom(std::move(random)) {}

bool ProgressArtShow::Restart() {
  int const artist = ProgressArt::GetPreferedArtist();
  int const artists = ProgressArt::GetNumArtists();
  if (artist == mArtist && artists > 0) return HasArt();
  mArtist = artist;
  mOrder.clear();
  mIndex = -1;
  mCurrent = ProgressArtPicture();
  if (artists <= 0 || artist < 0) return false;
  int const count = ProgressArt::GetNumPaintings(artist);
  for (int i = 0; i < count; ++i) mOrder.push_back(i);
  // Fisher-Yates from the back, each step drawing from the random source.
  for (size_t i = mOrder.size(); i > 1; --i)
    std::swap(mOrder[i - 1], mOrder[mRandom(static_cast<uint32_t>(i))]);
  return HasArt();
}

ProgressArtPicture const & ProgressArtShow::Next() {
  if (mOrder.empty()) return mCurrent;
  mIndex = (mIndex + 1) % static_cast<int>(mOrder.size());
  int const painting = mOrder[static_cast<size_t>(mIndex)];
  mCurrent.painting = ProgressArt::GetPainting(mArtist, painting);
  mCurrent.portrait = ProgressArt::GetArtistPortrait(mArtist, painting);
  mCurrent.paintingName = ProgressArt::GetPaintingName(mArtist, painting);
  mCurrent.artistName = ProgressArt::GetArtistName(mArtist, painting);
  mCurrent.lifeSpan = ProgressArt::GetArtistLifeSpan(mArtist, painting);
  return mCurrent;
}
