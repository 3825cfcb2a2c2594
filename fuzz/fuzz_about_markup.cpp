// About markup from a package: refused with an Exception or read; what is
// read renders into HTML whose every tag is one the renderer writes, so no
// text or attribute of the markup becomes an element, a script or a link
// of its own.
#include <cstdint>
#include <cstring>
#include <string>

#include "frame/AboutMarkupHtml.h"
#include "frame/AboutMarkupReader.h"
#include "utl/Exception.h"

namespace {

bool KnownTag(std::string const & html, size_t at) {
  static char const * const kTags[] = {"html>",
                                       "/html>",
                                       "head>",
                                       "/head>",
                                       "meta ",
                                       "body>",
                                       "/body>",
                                       "div ",
                                       "div>",
                                       "/div>",
                                       "table ",
                                       "/table>",
                                       "tr>",
                                       "/tr>",
                                       "td ",
                                       "td>",
                                       "/td>",
                                       "b>",
                                       "/b>",
                                       "i>",
                                       "/i>",
                                       "u>",
                                       "/u>",
                                       "font ",
                                       "/font>",
                                       "a href=\"",
                                       "/a>",
                                       "br>",
                                       "img src=\"memory:"};
  for (char const * tag : kTags)
    if (html.compare(at + 1, std::strlen(tag), tag) == 0) return true;
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  AboutMarkup markup;
  try {
    markup = ReadAboutMarkup(std::string(reinterpret_cast<char const *>(data), size), "(fuzz)");
  } catch (Exception const &) {
    return 0;
  }
  std::string const html = RenderAboutMarkupHtml(
      markup, [](std::string const & source) { return "memory:" + source + ".png"; });
  for (size_t at = html.find('<'); at != std::string::npos; at = html.find('<', at + 1))
    if (!KnownTag(html, at)) __builtin_trap();
  return 0;
}
