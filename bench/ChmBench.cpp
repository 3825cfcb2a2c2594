// Reading compiled help files beside libmspack used bare (its own open,
// extraction into memory through the smallest input and output it needs):
//  - ChmLzxTopic: a topic from a compressed help file of 20 MB of topics
//    (made with chmcmd, fp-utils), archive open and warm, against a bare
//    extraction of the same topic from an archive held open.
//  - ChmHelpIdFirst: the first lookup of a help number in a file of 10,000
//    pairs (open, read the map and the names, make the address), against a
//    bare open and extraction of "#IVB" and "#STRINGS".
//  - ChmHelpIdWarm: each later lookup, which must stay under 5 µs, beside
//    a bare search of the pairs in memory.
#include <benchmark/benchmark.h>
#include <mspack.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "ChmWriter.h"
#include "Figures.h"
#include "help/ChmArchive.h"
#include "help/ChmHelpMap.h"
#include "help/ChmSystemStreams.h"

namespace fs = std::filesystem;

namespace {

TALVO_RATIO_LIMIT("ChmLzxTopic", 1.1);
TALVO_RATIO_LIMIT("ChmHelpIdFirst", 1.1);
TALVO_TIME_LIMIT("ChmHelpIdWarm", 5000);

fs::path Folder() {
  char const * tmp = std::getenv("TMPDIR");
  fs::path folder = fs::path(tmp != nullptr ? tmp : "/tmp") / "talvo-bench-chm";
  fs::create_directories(folder);
  return folder;
}

// The compressed file: 400 topics of 50 KB of words, made once and kept.
std::string const & LzxFile() {
  static std::string const path = [] {
    fs::path const folder = Folder() / "lzx";
    fs::path const chm = folder / "big.chm";
    if (fs::exists(chm)) return chm.string();
    fs::create_directories(folder);
    std::mt19937 random(7);
    std::vector<std::string> words;
    for (int i = 0; i < 5000; ++i) {
      std::string word;
      int const length = 2 + static_cast<int>(random() % 8);
      for (int k = 0; k < length; ++k) word.push_back(static_cast<char>('a' + random() % 26));
      words.push_back(word);
    }
    std::string project = "[OPTIONS]\nCompiled file=big.chm\nDefault topic=t000.htm\n\n[FILES]\n";
    for (int i = 0; i < 400; ++i) {
      char name[16];
      std::snprintf(name, sizeof name, "t%03d.htm", i);
      std::string page = "<html><body>";
      while (page.size() < 50000) {
        page += "<p>";
        for (int w = 0; w < 20; ++w) page += words[random() % words.size()] + " ";
        page += "</p>\n";
      }
      FILE * out = std::fopen((folder / name).c_str(), "wb");
      if (out == nullptr) return std::string();
      std::fwrite(page.data(), 1, page.size(), out);
      std::fclose(out);
      project += std::string(name) + "\n";
    }
    FILE * out = std::fopen((folder / "big.hhp").c_str(), "wb");
    if (out == nullptr) return std::string();
    std::fwrite(project.data(), 1, project.size(), out);
    std::fclose(out);
    std::string const command = "cd '" + folder.string() + "' && chmcmd big.hhp >/dev/null 2>&1";
    // NOLINTNEXTLINE(cert-env33-c): a fixed command on a folder made here
    if (std::system(command.c_str()) != 0 || !fs::exists(chm)) return std::string();
    // chmcmd's second header GUID has a wrong first byte.
    FILE * patch = std::fopen(chm.c_str(), "r+b");
    if (patch == nullptr) return std::string();
    std::fseek(patch, 0x28, SEEK_SET);
    std::fputc(0x11, patch);
    std::fclose(patch);
    return chm.string();
  }();
  return path;
}

// A stored file with a help map of 10,000 pairs.
std::string const & MapFile() {
  static std::string const path = [] {
    chmwriter::ChmProject project;
    project.defaultTopic = "/t0.htm";
    for (std::uint32_t i = 0; i < 10000; ++i)
      project.aliases[1000 + i] = "/topics/t" + std::to_string(i) + ".htm";
    auto files = chmwriter::SystemStreams(project);
    files.push_back({"/t0.htm", "<html>t0</html>"});
    std::string const bytes = chmwriter::BuildChm(files);
    fs::path const chm = Folder() / "map.chm";
    FILE * out = std::fopen(chm.c_str(), "wb");
    if (out == nullptr) return std::string();
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    std::fclose(out);
    return chm.string();
  }();
  return path;
}

// --- libmspack bare: files read with stdio, output into one string ------

struct BareFile {
  mspack_file base;
  FILE * file;
  std::string * sink;
};
std::string * gSink = nullptr;
char const kSinkName[] = "<sink>";

mspack_file * BareOpen(mspack_system *, char const * name, int mode) {
  auto * f = new BareFile{{}, nullptr, nullptr};
  if (mode == MSPACK_SYS_OPEN_WRITE && name == kSinkName) {
    f->sink = gSink;
  } else {
    f->file = std::fopen(name, "rb");
    if (f->file == nullptr) {
      delete f;
      return nullptr;
    }
  }
  return &f->base;
}
void BareClose(mspack_file * file) {
  auto * f = reinterpret_cast<BareFile *>(file);
  if (f->file != nullptr) std::fclose(f->file);
  delete f;
}
int BareRead(mspack_file * file, void * buffer, int bytes) {
  auto * f = reinterpret_cast<BareFile *>(file);
  return static_cast<int>(std::fread(buffer, 1, static_cast<size_t>(bytes), f->file));
}
int BareWrite(mspack_file * file, void * buffer, int bytes) {
  reinterpret_cast<BareFile *>(file)->sink->append(static_cast<char *>(buffer),
                                                   static_cast<size_t>(bytes));
  return bytes;
}
int BareSeek(mspack_file * file, off_t offset, int mode) {
  int const whence = mode == MSPACK_SYS_SEEK_START ? SEEK_SET
                     : mode == MSPACK_SYS_SEEK_CUR ? SEEK_CUR
                                                   : SEEK_END;
  return fseeko(reinterpret_cast<BareFile *>(file)->file, offset, whence);
}
off_t BareTell(mspack_file * file) { return ftello(reinterpret_cast<BareFile *>(file)->file); }
void BareMessage(mspack_file *, char const *, ...) {}
void * BareAlloc(mspack_system *, size_t bytes) { return std::malloc(bytes); }
void BareFree(void * p) { std::free(p); }
void BareCopy(void * from, void * to, size_t bytes) { std::memcpy(to, from, bytes); }

mspack_system gBare = {&BareOpen,    &BareClose, &BareRead, &BareWrite, &BareSeek, &BareTell,
                       &BareMessage, &BareAlloc, &BareFree, &BareCopy,  nullptr};

mschmd_file * BareFind(mschmd_header * chm, char const * name) {
  for (mschmd_file * f = chm->files; f != nullptr; f = f->next)
    if (std::strcmp(f->filename, name) == 0) return f;
  return nullptr;
}

bool BareExtract(mschm_decompressor * reader, mschmd_file * file, std::string & out) {
  out.clear();
  out.reserve(static_cast<size_t>(file->length));
  gSink = &out;
  return reader->extract(reader, file, kSinkName) == MSPACK_ERR_OK;
}

// --- ChmLzxTopic ----------------------------------------------------------

constexpr char const * kLzxTopic = "/t250.htm";

void ChmLzxTopic_candidate(benchmark::State & state) {
  if (LzxFile().empty()) return state.SkipWithError("chmcmd (fp-utils) is needed");
  ChmError error = ChmError::None;
  auto archive = ChmArchive::Open(LzxFile(), error);
  if (!archive) return state.SkipWithError(ChmErrorText(error));
  std::string bytes;
  archive->Extract(kLzxTopic, bytes);  // warm
  for (auto _ : state) {
    if (archive->Extract(kLzxTopic, bytes) != ChmError::None) state.SkipWithError("extract");
    benchmark::DoNotOptimize(bytes.data());
  }
}
BENCHMARK(ChmLzxTopic_candidate)->Name("ChmLzxTopic/candidate")->Unit(benchmark::kMicrosecond);

void ChmLzxTopic_baseline(benchmark::State & state) {
  if (LzxFile().empty()) return state.SkipWithError("chmcmd (fp-utils) is needed");
  mschm_decompressor * reader = mspack_create_chm_decompressor(&gBare);
  mschmd_header * chm = reader->open(reader, LzxFile().c_str());
  mschmd_file * file = chm != nullptr ? BareFind(chm, kLzxTopic) : nullptr;
  std::string bytes;
  if (file == nullptr || !BareExtract(reader, file, bytes)) state.SkipWithError("bare open");
  for (auto _ : state) {
    if (!BareExtract(reader, file, bytes)) state.SkipWithError("bare extract");
    benchmark::DoNotOptimize(bytes.data());
  }
  if (chm != nullptr) reader->close(reader, chm);
  mspack_destroy_chm_decompressor(reader);
}
BENCHMARK(ChmLzxTopic_baseline)->Name("ChmLzxTopic/baseline")->Unit(benchmark::kMicrosecond);

// --- ChmHelpIdFirst and ChmHelpIdWarm --------------------------------------

constexpr std::uint32_t kHelpId = 1000 + 7777;

void ChmHelpIdFirst_candidate(benchmark::State & state) {
  std::string address;
  for (auto _ : state) {
    ChmHelpMap map;
    if (map.Resolve(MapFile(), kHelpId, address) != S_OK) state.SkipWithError("resolve");
    benchmark::DoNotOptimize(address.data());
  }
}
BENCHMARK(ChmHelpIdFirst_candidate)
    ->Name("ChmHelpIdFirst/candidate")
    ->Unit(benchmark::kMicrosecond);

void ChmHelpIdFirst_baseline(benchmark::State & state) {
  std::string ivb;
  std::string strings;
  for (auto _ : state) {
    mschm_decompressor * reader = mspack_create_chm_decompressor(&gBare);
    mschmd_header * chm = reader->open(reader, MapFile().c_str());
    if (chm == nullptr) return state.SkipWithError("bare open");
    mschmd_file * const ivbFile = BareFind(chm, "/#IVB");
    mschmd_file * const stringsFile = BareFind(chm, "/#STRINGS");
    if (ivbFile == nullptr || stringsFile == nullptr || !BareExtract(reader, ivbFile, ivb) ||
        !BareExtract(reader, stringsFile, strings))
      state.SkipWithError("bare extract");
    benchmark::DoNotOptimize(ivb.data());
    benchmark::DoNotOptimize(strings.data());
    reader->close(reader, chm);
    mspack_destroy_chm_decompressor(reader);
  }
}
BENCHMARK(ChmHelpIdFirst_baseline)->Name("ChmHelpIdFirst/baseline")->Unit(benchmark::kMicrosecond);

void ChmHelpIdWarm_candidate(benchmark::State & state) {
  ChmHelpMap map;
  std::string address;
  map.Resolve(MapFile(), kHelpId, address);
  for (auto _ : state) {
    if (map.Resolve(MapFile(), kHelpId, address) != S_OK) state.SkipWithError("resolve");
    benchmark::DoNotOptimize(address.data());
  }
}
BENCHMARK(ChmHelpIdWarm_candidate)->Name("ChmHelpIdWarm/candidate");

void ChmHelpIdWarm_baseline(benchmark::State & state) {
  ChmError error = ChmError::None;
  auto archive = ChmArchive::Open(MapFile(), error);
  std::string ivb;
  std::string strings;
  if (!archive || archive->Extract("/#IVB", ivb) != ChmError::None ||
      archive->Extract("/#STRINGS", strings) != ChmError::None)
    return state.SkipWithError("map file");
  auto const pairs = ParseChmIdMap(ivb).value_or(std::vector<ChmIdPair>{});
  for (auto _ : state) {
    // The pair searched in order and its name read: the least any lookup does.
    for (auto const & pair : pairs) {
      if (pair.helpId != kHelpId) continue;
      benchmark::DoNotOptimize(ChmStringAt(strings, pair.stringOffset));
      break;
    }
  }
}
BENCHMARK(ChmHelpIdWarm_baseline)->Name("ChmHelpIdWarm/baseline");

}  // namespace
