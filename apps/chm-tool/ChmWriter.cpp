#include "ChmWriter.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <sstream>
#include <stdexcept>

namespace chmwriter {
namespace {

constexpr std::uint32_t kChunkSize = 4096;
constexpr std::uint32_t kDensity = 2;  // a quick-reference point every 1 + (1 << 2) entries
constexpr std::uint32_t kItsfHeaderSize = 0x60;
constexpr std::uint32_t kSection0Size = 0x18;
constexpr std::uint32_t kItspHeaderSize = 0x54;
constexpr std::uint32_t kChunkHeaderPmgl = 20;
constexpr std::uint32_t kChunkHeaderPmgi = 8;

constexpr std::array<unsigned char, 16> kItsfGuid1 = {
    0x10, 0xFD, 0x01, 0x7C, 0xAA, 0x7B, 0xD0, 0x11, 0x9E, 0x0C, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC};
constexpr std::array<unsigned char, 16> kItsfGuid2 = {
    0x11, 0xFD, 0x01, 0x7C, 0xAA, 0x7B, 0xD0, 0x11, 0x9E, 0x0C, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC};
constexpr std::array<unsigned char, 16> kItspGuid = {
    0x6A, 0x92, 0x02, 0x5D, 0x2E, 0x21, 0xD0, 0x11, 0x9D, 0xF9, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC};

void Put16(std::string & out, std::uint32_t v) {
  out.push_back(static_cast<char>(v & 0xFF));
  out.push_back(static_cast<char>((v >> 8) & 0xFF));
}
void Put32(std::string & out, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}
void Put64(std::string & out, std::uint64_t v) {
  for (int i = 0; i < 8; ++i) out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}
void PutGuid(std::string & out, std::array<unsigned char, 16> const & guid) {
  out.append(reinterpret_cast<char const *>(guid.data()), guid.size());
}
// The directory's variable-length numbers: 7 bits a byte, most significant
// first, the high bit set on every byte but the last.
void PutEncInt(std::string & out, std::uint64_t v) {
  char groups[10];
  int n = 0;
  do {
    groups[n++] = static_cast<char>(v & 0x7F);
    v >>= 7;
  } while (v != 0);
  while (n > 1) out.push_back(static_cast<char>(groups[--n] | 0x80));
  out.push_back(groups[0]);
}

struct DirEntry {
  std::string name;
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

std::string EntryBytes(DirEntry const & e) {
  std::string out;
  PutEncInt(out, e.name.size());
  out += e.name;
  PutEncInt(out, 0);  // section 0: uncompressed
  PutEncInt(out, e.offset);
  PutEncInt(out, e.length);
  return out;
}

// Lays `records` into listing chunks ("PMGL") or index chunks ("PMGI");
// returns the chunks and, for each, the index of its first record.
std::vector<std::pair<std::string, std::size_t>> Chunks(std::vector<std::string> const & records,
                                                        bool listing) {
  std::uint32_t const header = listing ? kChunkHeaderPmgl : kChunkHeaderPmgi;
  std::uint32_t const every = 1U + (1U << kDensity);
  std::vector<std::pair<std::string, std::size_t>> chunks;
  std::size_t i = 0;
  while (i < records.size() || chunks.empty()) {
    std::size_t const first = i;
    std::string body;
    std::vector<std::uint32_t> quickRefs;
    std::size_t count = 0;
    while (i < records.size()) {
      std::size_t const refs = quickRefs.size() + (count > 0 && count % every == 0 ? 1 : 0);
      std::size_t const need = header + body.size() + records[i].size() + 2 + 2 * refs;
      if (need > kChunkSize) break;
      if (count > 0 && count % every == 0)
        quickRefs.push_back(static_cast<std::uint32_t>(header + body.size()));
      body += records[i];
      ++count;
      ++i;
    }
    if (count == 0 && i < records.size()) throw std::runtime_error("a name is too long to store");
    std::string chunk(listing ? "PMGL" : "PMGI");
    std::uint32_t const tail = 2 + 2 * static_cast<std::uint32_t>(quickRefs.size());
    Put32(chunk, kChunkSize - header - static_cast<std::uint32_t>(body.size()));
    if (listing) {
      Put32(chunk, 0);
      Put32(chunk, chunks.empty() ? 0xFFFFFFFFU : static_cast<std::uint32_t>(chunks.size() - 1));
      Put32(chunk, 0xFFFFFFFFU);  // the next chunk, set below
    }
    chunk += body;
    chunk.resize(kChunkSize - tail, '\0');
    for (auto it = quickRefs.rbegin(); it != quickRefs.rend(); ++it) Put16(chunk, *it);
    Put16(chunk, static_cast<std::uint32_t>(count));
    chunks.emplace_back(std::move(chunk), first);
  }
  if (listing) {
    for (std::size_t c = 0; c + 1 < chunks.size(); ++c) {
      std::string & chunk = chunks[c].first;
      std::string next;
      Put32(next, static_cast<std::uint32_t>(c + 1));
      chunk.replace(16, 4, next);
    }
  }
  return chunks;
}

std::string NameList() {
  std::string out;
  std::u16string const name = u"Uncompressed";
  Put16(out, static_cast<std::uint32_t>(2 + 1 + name.size() + 1));  // size in 16-bit words
  Put16(out, 1);
  Put16(out, static_cast<std::uint32_t>(name.size()));
  for (char16_t c : name) Put16(out, c);
  Put16(out, 0);
  return out;
}

void PutSystemRecord(std::string & out, std::uint32_t code, std::string const & text) {
  Put16(out, code);
  Put16(out, static_cast<std::uint32_t>(text.size() + 1));
  out += text;
  out.push_back('\0');
}

std::string Trim(std::string const & s) {
  auto const b = s.find_first_not_of(" \t\r");
  if (b == std::string::npos) return {};
  auto const e = s.find_last_not_of(" \t\r");
  return s.substr(b, e - b + 1);
}

std::string Topic(std::string const & value) {
  return value.empty() || value[0] == '/' ? value : "/" + value;
}

}  // namespace

std::vector<ChmFile> SystemStreams(ChmProject const & project) {
  std::string system;
  Put32(system, 3);
  // Records without the leading "/" of a name, as topics are stored.
  auto const bare = [](std::string const & n) {
    return n.empty() || n[0] != '/' ? n : n.substr(1);
  };
  if (!project.contentsFile.empty()) PutSystemRecord(system, 0, bare(project.contentsFile));
  if (!project.indexFile.empty()) PutSystemRecord(system, 1, bare(project.indexFile));
  if (!project.defaultTopic.empty()) PutSystemRecord(system, 2, bare(project.defaultTopic));
  if (!project.title.empty()) PutSystemRecord(system, 3, project.title);
  Put16(system, 4);
  Put16(system, 32);
  Put32(system, project.lcid);
  system.append(28, '\0');

  std::string strings(1, '\0');  // offset 0 is the empty text
  std::string ivb;
  std::map<std::string, std::uint32_t> offsets;
  std::string pairs;
  for (auto const & [number, topic] : project.aliases) {
    std::string const stored = bare(topic);
    auto found = offsets.find(stored);
    if (found == offsets.end()) {
      found = offsets.emplace(stored, static_cast<std::uint32_t>(strings.size())).first;
      strings += stored;
      strings.push_back('\0');
    }
    Put32(pairs, number);
    Put32(pairs, found->second);
  }
  Put32(ivb, static_cast<std::uint32_t>(pairs.size()));
  ivb += pairs;
  return {{"/#SYSTEM", system}, {"/#IVB", ivb}, {"/#STRINGS", strings}};
}

std::string BuildChm(std::vector<ChmFile> files, std::uint32_t lcid) {
  std::set<std::string> seen;
  for (auto const & f : files) {
    if (f.name.size() < 2 || f.name[0] != '/') throw std::runtime_error("bad name: " + f.name);
    if (!seen.insert(f.name).second) throw std::runtime_error("name twice: " + f.name);
  }
  files.push_back({"::DataSpace/NameList", NameList()});
  files.push_back({"/", ""});

  std::string content;
  std::vector<DirEntry> entries;
  for (auto const & f : files) {
    entries.push_back({f.name, content.size(), f.bytes.size()});
    content += f.bytes;
  }
  std::sort(entries.begin(), entries.end(), [](DirEntry const & a, DirEntry const & b) {
    return strcasecmp(a.name.c_str(), b.name.c_str()) < 0;
  });
  std::vector<std::string> records;
  records.reserve(entries.size());
  for (auto const & e : entries) records.push_back(EntryBytes(e));
  auto listing = Chunks(records, true);

  std::vector<std::pair<std::string, std::size_t>> index;
  if (listing.size() > 1) {
    std::vector<std::string> keys;
    for (std::size_t c = 0; c < listing.size(); ++c) {
      std::string key;
      std::string const & name = entries[listing[c].second].name;
      PutEncInt(key, name.size());
      key += name;
      PutEncInt(key, c);
      keys.push_back(key);
    }
    index = Chunks(keys, false);
    if (index.size() > 1) throw std::runtime_error("too many files for one index chunk");
  }
  auto const chunkCount = static_cast<std::uint32_t>(listing.size() + index.size());

  std::string directory = "ITSP";
  Put32(directory, 1);
  Put32(directory, kItspHeaderSize);
  Put32(directory, 0x0A);
  Put32(directory, kChunkSize);
  Put32(directory, kDensity);
  Put32(directory, index.empty() ? 1 : 2);
  Put32(directory, index.empty() ? 0xFFFFFFFFU : static_cast<std::uint32_t>(listing.size()));
  Put32(directory, 0);
  Put32(directory, static_cast<std::uint32_t>(listing.size() - 1));
  Put32(directory, 0xFFFFFFFFU);
  Put32(directory, chunkCount);
  Put32(directory, lcid);
  PutGuid(directory, kItspGuid);
  Put32(directory, kItspHeaderSize);
  Put32(directory, 0xFFFFFFFFU);
  Put32(directory, 0xFFFFFFFFU);
  Put32(directory, 0xFFFFFFFFU);
  for (auto const & c : listing) directory += c.first;
  for (auto const & c : index) directory += c.first;

  std::uint64_t const directoryOffset = kItsfHeaderSize + kSection0Size;
  std::uint64_t const contentOffset = directoryOffset + directory.size();
  std::uint64_t const total = contentOffset + content.size();

  std::string out = "ITSF";
  Put32(out, 3);
  Put32(out, kItsfHeaderSize);
  Put32(out, 1);
  Put32(out, 0);  // time stamp: none, so that a build is reproducible
  Put32(out, lcid);
  PutGuid(out, kItsfGuid1);
  PutGuid(out, kItsfGuid2);
  Put64(out, kItsfHeaderSize);
  Put64(out, kSection0Size);
  Put64(out, directoryOffset);
  Put64(out, directory.size());
  Put64(out, contentOffset);
  Put32(out, 0x01FE);
  Put32(out, 0);
  Put64(out, total);
  Put32(out, 0);
  Put32(out, 0);
  out += directory;
  out += content;
  return out;
}

ChmProject ParseProject(std::string const & text) {
  ChmProject project;
  std::istringstream in(text);
  std::string line;
  std::string section;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    std::string const t = Trim(line);
    if (t.empty() || t[0] == '#' || t[0] == ';') continue;
    auto const fail = [&](char const * why) {
      throw std::runtime_error("line " + std::to_string(number) + ": " + why);
    };
    if (t.front() == '[') {
      if (t.back() != ']') fail("section without ']'");
      section = t.substr(1, t.size() - 2);
      if (section != "options" && section != "map") fail("unknown section");
      continue;
    }
    auto const eq = t.find('=');
    if (eq == std::string::npos || section.empty()) fail("expected key=value in a section");
    std::string const key = Trim(t.substr(0, eq));
    std::string const value = Trim(t.substr(eq + 1));
    if (section == "map") {
      char * end = nullptr;
      unsigned long const id = std::strtoul(key.c_str(), &end, 0);
      if (key.empty() || *end != '\0' || id > 0xFFFFFFFFUL || value.empty()) fail("bad map entry");
      project.aliases[static_cast<std::uint32_t>(id)] = Topic(value);
    } else if (key == "title") {
      project.title = value;
    } else if (key == "default") {
      project.defaultTopic = Topic(value);
    } else if (key == "contents") {
      project.contentsFile = Topic(value);
    } else if (key == "index") {
      project.indexFile = Topic(value);
    } else if (key == "lcid") {
      project.lcid = static_cast<std::uint32_t>(std::strtoul(value.c_str(), nullptr, 0));
    } else {
      fail("unknown option");
    }
  }
  return project;
}

}  // namespace chmwriter
