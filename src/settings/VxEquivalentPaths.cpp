#include "settings/VxEquivalentPaths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace {

// `path` made absolute with the working folder, with ".", ".." and empty
// elements resolved as text; empty when the working folder is unknown.
std::string Normalised(std::string const & path) {
  std::string full = path;
  if (full.front() != '/') {
    std::vector<char> folder(4096);
    if (::getcwd(folder.data(), folder.size()) == nullptr) return std::string();
    full = std::string(folder.data()) + "/" + full;
  }
  std::vector<std::string> elements;
  std::string::size_type start = 0;
  while (start <= full.size()) {
    auto end = full.find('/', start);
    if (end == std::string::npos) end = full.size();
    std::string const element = full.substr(start, end - start);
    if (element == "..") {
      if (!elements.empty()) elements.pop_back();
    } else if (!element.empty() && element != ".") {
      elements.push_back(element);
    }
    start = end + 1;
  }
  std::string result;
  for (std::string const & element : elements) result += "/" + element;
  return result.empty() ? "/" : result;
}

}  // namespace

bool VxEquivalentPaths(basic_c_str<char> const & a, basic_c_str<char> const & b) {
  std::string const first = a.c_str();
  std::string const second = b.c_str();
  if (first.empty() || second.empty()) return false;
  struct stat firstInfo {};
  struct stat secondInfo {};
  bool const firstExists = ::stat(first.c_str(), &firstInfo) == 0;
  bool const secondExists = ::stat(second.c_str(), &secondInfo) == 0;
  if (firstExists && secondExists)
    return firstInfo.st_dev == secondInfo.st_dev && firstInfo.st_ino == secondInfo.st_ino;
  if (firstExists || secondExists) return false;
  std::string const normalised = Normalised(first);
  return !normalised.empty() && normalised == Normalised(second);
}
