#pragma once
// Writes compiled help files (CHM) with every file stored uncompressed:
// the help of the sample and the files the tests need, hostile ones among
// them (the byte layout is all here, so a test can break any field).

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace chmwriter {

// One file of the archive: its name inside ("/topic.htm") and its bytes.
struct ChmFile {
  std::string name;
  std::string bytes;
};

// What the system streams hold besides the files.
struct ChmProject {
  std::string title;
  std::string defaultTopic;  // "/index.htm"
  std::string contentsFile;  // "/toc.hhc", may be empty
  std::string indexFile;     // "/index.hhk", may be empty
  std::uint32_t lcid = 0x409;
  // Help map: number -> topic ("/topic.htm"), written to "#IVB" and "#STRINGS".
  std::map<std::uint32_t, std::string> aliases;
};

// The "#SYSTEM", "#IVB" and "#STRINGS" streams of `project`.
std::vector<ChmFile> SystemStreams(ChmProject const & project);

// The whole archive: `files` (any order; names must be unique and start
// with "/") behind the headers and the directory. Throws std::runtime_error
// on names it cannot store.
std::string BuildChm(std::vector<ChmFile> files, std::uint32_t lcid = 0x409);

// Reads a project file: "key=value" lines in sections "[options]" (title,
// default, contents, index, lcid) and "[map]" (number=topic). '#' and ';'
// start comments. Throws std::runtime_error naming the line at fault.
ChmProject ParseProject(std::string const & text);

}  // namespace chmwriter
