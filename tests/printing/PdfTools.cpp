#include "PdfTools.h"

#include <sys/wait.h>
#include <cstdio>
#include <regex>

namespace pdf_tools {

std::string Quote(std::string const & text) {
  std::string quoted = "'";
  for (char c : text) {
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return quoted + "'";
}

std::string Run(std::string const & command, int * status) {
  std::string output;
  FILE * pipe = popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr) {
    if (status != nullptr) {
      *status = -1;
    }
    return output;
  }
  char buffer[4096];
  std::size_t read = 0;
  while ((read = fread(buffer, 1, sizeof buffer, pipe)) > 0) {
    output.append(buffer, read);
  }
  int const result = pclose(pipe);
  if (status != nullptr) {
    *status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
  }
  return output;
}

int PageCount(std::string const & pdf) {
  int status = 0;
  std::string const info = Run("pdfinfo " + Quote(pdf), &status);
  std::smatch match;
  if (status != 0 || !std::regex_search(info, match, std::regex("Pages:\\s+(\\d+)"))) {
    return -1;
  }
  return std::stoi(match[1]);
}

std::string PageSize(std::string const & pdf) {
  std::string const info = Run("pdfinfo " + Quote(pdf));
  std::smatch match;
  return std::regex_search(info, match, std::regex("Page size:\\s+([^\\n]*)")) ? match[1].str()
                                                                               : std::string();
}

std::string Text(std::string const & pdf) { return Run("pdftotext -layout " + Quote(pdf) + " -"); }

std::string ImageList(std::string const & pdf) {
  std::string const list = Run("pdfimages -list " + Quote(pdf));
  std::size_t start = 0;
  for (int line = 0; line < 2 && start != std::string::npos; ++line) {
    start = list.find('\n', start);
    start = start == std::string::npos ? start : start + 1;
  }
  return start == std::string::npos ? std::string() : list.substr(start);
}

}  // namespace pdf_tools
