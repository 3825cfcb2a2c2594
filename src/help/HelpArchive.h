#pragma once
// A compiled help file as the help window reads it: named files ("/a.htm",
// "#SYSTEM") by their bytes. The CHM reader provides it; tests give files
// from memory.

#include <functional>
#include <memory>
#include <string>

class HelpArchive {
public:
  virtual ~HelpArchive() = default;

  // The bytes of `name` (with its leading "/" where the file has one); false
  // when there is no such file or it cannot be read.
  virtual bool Read(std::string const & name, std::string & bytes) = 0;
  // Whether the file has `name`, without reading it.
  virtual bool Contains(std::string const & name) const = 0;
};

// Opens the compiled help file at `path`; null with the reason in `error`.
using HelpArchiveOpener =
    std::function<std::unique_ptr<HelpArchive>(std::string const & path, std::string & error)>;
