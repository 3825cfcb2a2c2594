#pragma once
// Help files for the tests: written by talvo-chm's writer, and the
// compressed fixture with the text its pages were made of.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "ChmWriter.h"

namespace chmtest {

inline std::string DataFolder() {
  char const * root = std::getenv("TALVO_TEST_DATA");
  return std::string(root != nullptr ? root : ".") + "/data";
}

// The text of the fixture's "first.htm" and "second.htm" (make-lzx-fixture).
inline std::string FixtureFirstPage() {
  std::string text;
  char line[64];
  for (int i = 1; i <= 3000; ++i) {
    std::snprintf(line, sizeof line, "<p>Line %05d of the first page</p>\n", i);
    text += line;
  }
  return text;
}
inline std::string FixtureSecondPage() {
  std::string text;
  char line[32];
  for (int i = 1; i <= 200; ++i) {
    std::snprintf(line, sizeof line, "<p>Row %03d</p>\n", i);
    text += line;
  }
  return text;
}

inline void WriteFile(std::string const & path, std::string const & bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string ReadFile(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A small help file: two pages, a picture, a map of three numbers.
inline std::string SmallHelp() {
  chmwriter::ChmProject project;
  project.title = "Small help";
  project.defaultTopic = "/index.htm";
  project.contentsFile = "/toc.hhc";
  project.aliases = {{1001, "/index.htm"}, {1002, "/sub dir/b 1.htm"}, {7, "/index.htm"}};
  auto files = chmwriter::SystemStreams(project);
  files.push_back({"/index.htm", "<html><body><a href='sub%20dir/b%201.htm'>B</a></body></html>"});
  files.push_back({"/sub dir/b 1.htm", "<html><body>B page</body></html>"});
  files.push_back({"/pic.png", std::string("\x89PNG\r\n\x1a\n\0\0binary", 16)});
  files.push_back({"/toc.hhc", "<ul><li><object type='text/sitemap'></object></ul>"});
  return chmwriter::BuildChm(files);
}

}  // namespace chmtest
