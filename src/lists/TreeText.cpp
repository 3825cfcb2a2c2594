#include "lists/TreeText.h"

#include <istream>
#include <iterator>
#include <ostream>
#include <vector>

#include "utl/Exception.h"
#include "utl/Utf.h"

namespace {

// Checks the bytes before anything is built, so that a refused text adds
// nothing. Counts line ends as the reader does.
void CheckText(std::string_view text) {
  int line = 1;
  for (size_t at = 0; at < text.size();) {
    auto const byte = static_cast<unsigned char>(text[at]);
    if (byte == '\n' || (byte == '\r' && (at + 1 >= text.size() || text[at + 1] != '\n'))) ++line;
    if (byte == 0)
      throw Exception(
          ExceptionMessage::translate("The tree text holds a NUL character in line {1}.") % line);
    if (byte < 0x80) {
      ++at;
      continue;
    }
    if (vx3::DecodeUtf8(text, at) == vx3::kInvalidCodePoint)
      throw Exception(ExceptionMessage::translate("The tree text is not valid UTF-8 in line {1}.") %
                      line);
  }
}

}  // namespace

void ReadTreeText(std::string_view text, TreeTextBuilder & builder) {
  CheckText(text);
  // path[d] is the ancestor at depth d of the previous item, path.back() the
  // previous item itself: going up any number of levels is one index.
  std::vector<TreeTextBuilder::Item> path;
  bool first = true;
  size_t baseline = 0;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find_first_of("\r\n", at);
    if (end == std::string_view::npos) end = text.size();
    std::string_view const line = text.substr(at, end - at);
    at = end;
    if (at < text.size())
      at += (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ? 2 : 1;
    if (line.empty()) continue;

    size_t tabs = line.find_first_not_of('\t');
    if (tabs == std::string_view::npos) tabs = line.size();
    if (first) {
      baseline = tabs;
      first = false;
    }
    std::string_view const itemText = line.substr(tabs);
    size_t const level = tabs > baseline ? tabs - baseline : 0;
    size_t const depth = path.empty() ? 0 : path.size() - 1;
    if (path.empty()) {
      // The first item of this text is a root item.
    } else if (level > depth) {
      // Any deeper jump makes a child of the previous item.
    } else {
      // Equal or shallower: a sibling of the previous item's ancestor at `level`.
      path.resize(level);
    }
    TreeTextBuilder::Item const parent = path.empty() ? 0 : path.back();
    path.push_back(builder.AddChild(parent, itemText));
  }
}

void ReadTreeText(std::istream & in, TreeTextBuilder & builder) {
  std::string const text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) throw Exception(ExceptionMessage::translate("The tree text could not be read."));
  ReadTreeText(text, builder);
}

void WriteTreeText(TreeTextWalk & walk, std::ostream & out) {
  size_t depth = 0;
  std::string text;
  std::string line;
  while (walk.Next(depth, text)) {
    line.assign(depth, '\t');
    for (char c : text) line += (c == '\r' || c == '\n') ? ' ' : c;
    line += "\r\n";
    out.write(line.data(), std::streamsize(line.size()));
    if (!out) throw Exception(ExceptionMessage::translate("The tree text could not be written."));
  }
  out.flush();
  if (!out) throw Exception(ExceptionMessage::translate("The tree text could not be written."));
}
