// talvo-chm: builds a compiled help file (CHM) from a folder and a project
// file, every file stored uncompressed.
//
//   talvo-chm PROJECT FOLDER OUTPUT
//       PROJECT  "[options]" title, default, contents, index, lcid;
//                "[map]" number=topic (the help map of "#IVB")
//       FOLDER   every file below it (but PROJECT) goes in as "/<path below FOLDER>"
//       OUTPUT   written beside itself and renamed over it
//
// Exit codes: 0 done, 1 failed (the reason on stderr), 2 wrong usage.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "ChmWriter.h"

namespace fs = std::filesystem;

namespace {

std::string ReadAll(fs::path const & path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

void WriteAtomically(fs::path const & path, std::string const & bytes) {
  fs::path const temporary = path.string() + ".part";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) || !out.flush())
      throw std::runtime_error("cannot write " + temporary.string());
  }
  fs::rename(temporary, path);
}

}  // namespace

int main(int argc, char ** argv) {
  if (argc != 4) {
    std::cerr << "usage: talvo-chm PROJECT FOLDER OUTPUT\n";
    return 2;
  }
  try {
    chmwriter::ChmProject const project = chmwriter::ParseProject(ReadAll(argv[1]));
    std::vector<chmwriter::ChmFile> files = chmwriter::SystemStreams(project);
    fs::path const folder = argv[2];
    for (auto const & entry : fs::recursive_directory_iterator(folder)) {
      // The project file may lie among the pages; it is no page.
      if (!entry.is_regular_file() || fs::equivalent(entry.path(), argv[1])) continue;
      files.push_back(
          {"/" + fs::relative(entry.path(), folder).generic_string(), ReadAll(entry.path())});
    }
    WriteAtomically(argv[3], chmwriter::BuildChm(std::move(files), project.lcid));
  } catch (std::exception const & e) {
    std::cerr << "talvo-chm: " << e.what() << '\n';
    return 1;
  }
  return 0;
}
