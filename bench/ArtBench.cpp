// Art archives: reading the list of a large archive, decoding one painting
// out of the compound file beside raw libjpeg on a plain file, and saving
// pictures into an archive on disk beside the same pipeline into memory.
#include <benchmark/benchmark.h>
#include <jpeglib.h>
#include <unistd.h>

#include <boost/archive/text_iarchive.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "Figures.h"
#include "pictures/ArtInfo.h"
#include "pictures/ArtInfoText.h"
#include "pictures/ArtJpeg.h"
#include "pictures/ArtPictureSource.h"
#include "pictures/CompoundFile.h"
#include "utl/Paths.h"

namespace {

TALVO_TIME_LIMIT("ReadArtInfo", 5e6);
TALVO_RATIO_LIMIT("ArtGetImage", 1.25);
TALVO_RATIO_LIMIT("ArtSaveToFile", 1 / 0.85);

// The files of these figures, removed when the run ends.
struct BenchFiles {
  std::vector<std::string> paths;
  ~BenchFiles() {
    for (std::string const & path : paths) ::unlink(path.c_str());
  }
};

std::string BenchFile(std::string const & name) {
  static BenchFiles files;
  char const * tmp = std::getenv("TMPDIR");
  files.paths.push_back(VxPathAppend(tmp != nullptr ? tmp : "/tmp", "talvo-bench-art-" + name));
  return files.paths.back();
}

void Write(std::string const & path, std::string const & bytes) {
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Something like a photograph: smooth shapes with fine grain, so that the
// coder has real work.
wxImage Photo(int width, int height, int seed) {
  wxImage image(width, height, false);
  unsigned char * pixel = image.GetData();
  unsigned noise = 12345u + static_cast<unsigned>(seed);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, pixel += 3) {
      noise = noise * 1103515245u + 12345u;
      int const grain = static_cast<int>(noise >> 27) - 16;
      double const wave = std::sin(x * 0.03 + seed) * std::cos(y * 0.02) * 80;
      pixel[0] =
          static_cast<unsigned char>(std::clamp(120 + static_cast<int>(wave) + grain, 0, 255));
      pixel[1] = static_cast<unsigned char>(std::clamp(90 + x * 100 / width + grain, 0, 255));
      pixel[2] = static_cast<unsigned char>(std::clamp(60 + y * 120 / height - grain, 0, 255));
    }
  return image;
}

// 100 collections of 20 pictures; every stream holds the same small JPEG.
std::string const & LargeArchive() {
  static std::string const path = [] {
    std::string const jpeg = vx3::EncodeArtJpeg(Photo(32, 24, 1), 75);
    ArtInfo art;
    vx3::CompoundFileWriter storage;
    for (int c = 0; c < 100; ++c) {
      CollectionInfo collection;
      collection.artistName = "Painter number " + std::to_string(c);
      collection.lifeSpan = "1801-1870";
      collection.bitmapWidth = collection.bitmapHeight = 400;
      PictureInfo portrait;
      portrait.SetTitle("");
      collection.iconName = portrait.GetFileName();
      storage.AddStream(collection.iconName, jpeg);
      for (int p = 0; p < 20; ++p) {
        PictureInfo picture;
        picture.SetTitle(("Study in blue and grey, number " + std::to_string(p)).c_str());
        storage.AddStream(picture.GetFileName(), jpeg);
        collection.pictures.push_back(picture);
      }
      art.AddCollection(collection);
    }
    std::ostringstream text;
    vx3::WriteArtInfoText(art, text);
    storage.AddStream("ArtInfo", text.str());
    std::string file = BenchFile("large.vart");
    Write(file, storage.Finish());
    Write(BenchFile("large-artinfo.txt"), text.str().substr(29));  // the body, for Boost alone
    return file;
  }();
  return path;
}

void ReadArtInfo_candidate(benchmark::State & state) {
  std::string const & path = LargeArchive();
  for (auto _ : state) {
    std::unique_ptr<ArtInfo const> const art(ArtInfo::ReadArtInfo(path));
    if (!art || art->GetCollections().size() != 100) state.SkipWithError("not read");
  }
}
BENCHMARK(ReadArtInfo_candidate)->Name("ReadArtInfo/candidate")->Unit(benchmark::kMillisecond);

// The same list by Boost from a plain file, without the compound file and
// without the checks.
void ReadArtInfo_baseline(benchmark::State & state) {
  LargeArchive();
  std::string const path = BenchFile("large-artinfo.txt");
  for (auto _ : state) {
    std::ifstream in(path, std::ios::binary);
    ArtInfo art;
    boost::archive::text_iarchive archive(in,
                                          boost::archive::no_header | boost::archive::no_codecvt);
    archive >> art;
    benchmark::DoNotOptimize(art.GetCollections().data());
  }
}
BENCHMARK(ReadArtInfo_baseline)->Name("ReadArtInfo/baseline")->Unit(benchmark::kMillisecond);

struct Painting {
  std::unique_ptr<ArtInfo const> art;
  std::string plainJpeg;
};

Painting const & OnePainting() {
  static Painting const painting = [] {
    Painting result;
    std::string const jpeg = vx3::EncodeArtJpeg(Photo(400, 400, 2), 75);
    result.plainJpeg = BenchFile("painting.jpg");
    Write(result.plainJpeg, jpeg);
    ArtInfo art;
    CollectionInfo collection;
    PictureInfo picture;
    picture.SetTitle("Painting");
    collection.pictures.push_back(picture);
    art.AddCollection(collection);
    std::ostringstream text;
    vx3::WriteArtInfoText(art, text);
    vx3::CompoundFileWriter storage;
    storage.AddStream("ArtInfo", text.str());
    storage.AddStream(picture.GetFileName(), jpeg);
    std::string const file = BenchFile("painting.vart");
    Write(file, storage.Finish());
    result.art.reset(ArtInfo::ReadArtInfo(file));
    return result;
  }();
  return painting;
}

void ArtGetImage_candidate(benchmark::State & state) {
  ArtInfo const & art = *OnePainting().art;
  for (auto _ : state) {
    wxImage const image = art.GetImage(0, 0);
    if (image.GetWidth() != 400) state.SkipWithError("not decoded");
  }
}
BENCHMARK(ArtGetImage_candidate)->Name("ArtGetImage/candidate")->Unit(benchmark::kMicrosecond);

// Raw libjpeg on a plain file: stdio source, RGB rows into one buffer.
void ArtGetImage_baseline(benchmark::State & state) {
  std::string const & path = OnePainting().plainJpeg;
  for (auto _ : state) {
    FILE * file = std::fopen(path.c_str(), "rb");
    jpeg_decompress_struct info{};
    jpeg_error_mgr error{};
    info.err = jpeg_std_error(&error);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file);
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    jpeg_start_decompress(&info);
    std::vector<unsigned char> pixels(static_cast<size_t>(info.output_width) * info.output_height *
                                      3);
    while (info.output_scanline < info.output_height) {
      JSAMPROW row =
          pixels.data() + static_cast<size_t>(info.output_scanline) * info.output_width * 3;
      jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    std::fclose(file);
    benchmark::DoNotOptimize(pixels.data());
  }
}
BENCHMARK(ArtGetImage_baseline)->Name("ArtGetImage/baseline")->Unit(benchmark::kMicrosecond);

constexpr int kSavedPictures = 20;

// Twenty 800 x 600 photographs as JPEG sources, and one collection for them.
struct SaveWork {
  ArtInfo art;
  std::vector<std::string> sources;
};

SaveWork const & Work() {
  static SaveWork const work = [] {
    SaveWork result;
    CollectionInfo collection;
    collection.artistName = "Saver";
    for (int i = 0; i < kSavedPictures; ++i) {
      result.sources.push_back(BenchFile("source-" + std::to_string(i) + ".jpg"));
      Write(result.sources.back(), vx3::EncodeArtJpeg(Photo(800, 600, i), 90));
      PictureInfo picture;
      picture.SetTitle(("Source " + std::to_string(i)).c_str());
      collection.pictures.push_back(picture);
    }
    result.art.AddCollection(collection);
    return result;
  }();
  return work;
}

void ArtSaveToFile_candidate(benchmark::State & state) {
  SaveWork const & work = Work();
  std::string const file = BenchFile("saved.vart");
  std::vector<int> const turns(kSavedPictures, 0);
  for (auto _ : state) {
    state.PauseTiming();
    ::unlink(file.c_str());
    state.ResumeTiming();
    work.art.SaveToFile(file, {work.sources}, {turns}, {""}, {0});
  }
  state.SetItemsProcessed(state.iterations() * kSavedPictures);
  ::unlink(file.c_str());
}
BENCHMARK(ArtSaveToFile_candidate)
    ->Name("ArtSaveToFile/candidate")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Read, fit, encode, build the compound file with its list: all in memory.
void ArtSaveToFile_baseline(benchmark::State & state) {
  SaveWork const & work = Work();
  for (auto _ : state) {
    vx3::CompoundFileWriter storage;
    CollectionInfo const & collection = work.art.GetCollections()[0];
    for (int i = 0; i < kSavedPictures; ++i) {
      wxImage const picture = vx3::LoadArtPicture(work.sources[static_cast<size_t>(i)],
                                                  ArtInfo::nMaxPixWidth, ArtInfo::nMaxPixHeight, 0);
      storage.AddStream(collection.pictures[static_cast<size_t>(i)].GetFileName(),
                        vx3::EncodeArtJpeg(picture, 75));
    }
    std::ostringstream text;
    vx3::WriteArtInfoText(work.art, text);
    storage.AddStream("ArtInfo", text.str());
    benchmark::DoNotOptimize(storage.Finish().size());
  }
  state.SetItemsProcessed(state.iterations() * kSavedPictures);
}
BENCHMARK(ArtSaveToFile_baseline)
    ->Name("ArtSaveToFile/baseline")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
