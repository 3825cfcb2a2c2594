#pragma once
// The "#SYSTEM" stream of a compiled help file: a 32-bit version followed by
// records of a 16-bit code, a 16-bit length and that many bytes. The help
// window takes the file's title, default topic, contents and index files and
// default window from it.

#include <string>
#include <string_view>

struct ChmSystemFile {
  // Record codes read here.
  enum Code : unsigned {
    ContentsFile = 0,
    IndexFile = 1,
    DefaultTopic = 2,
    Title = 3,
    DefaultWindow = 5,
    CompiledFile = 6,
  };

  unsigned version = 0;
  std::string contentsFile;  // "/toc.hhc" form: with a leading "/"
  std::string indexFile;
  std::string defaultTopic;
  std::string title;  // UTF-8
  std::string defaultWindow;
  std::string compiledFile;
  // A record ran past the stream's end, or the stream was shorter than its
  // version: what came before it is kept.
  bool damaged = false;
};

// Reads the stream's bytes; never fails (see `damaged`).
ChmSystemFile ParseChmSystemFile(std::string_view bytes);

// `name` as a path inside the compiled help file: with one leading "/",
// backslashes turned into slashes.
std::string ChmInnerPath(std::string_view name);
