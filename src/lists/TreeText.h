#pragma once
// The plain-text form of a tree: one item a line in walking order, as many
// tabs as the item has ancestors, its text, "\r\n". UTF-8.
//
// Reading takes the first line's tabs as the baseline, so an indented file
// loads as well; empty lines are skipped; a line deeper than the one before
// by any amount becomes that line's child; a line shallower than the first
// becomes a root item. CRLF, LF and CR all end a line. The whole text is
// checked before the first item is made: invalid UTF-8 or a NUL byte is
// refused with an Exception naming the line, and nothing is added.

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

// What the reader builds into. Items are the builder's own handles; 0 is
// the invisible root.
class TreeTextBuilder {
public:
  using Item = std::uintptr_t;
  virtual ~TreeTextBuilder() = default;
  // Appends a last child with `utf8Text` under `parent` and returns it.
  virtual Item AddChild(Item parent, std::string_view utf8Text) = 0;
};

// What the writer walks: the items in walking order with their depth (the
// number of ancestors).
class TreeTextWalk {
public:
  virtual ~TreeTextWalk() = default;
  // The next item's depth and UTF-8 text; false after the last.
  virtual bool Next(size_t & depth, std::string & utf8Text) = 0;
};

// Reads the whole of `text` into `builder` below its present items. Throws
// Exception for text that is not a tree text (see above).
void ReadTreeText(std::string_view text, TreeTextBuilder & builder);
// Reads `in` to its end, then as above; a failing stream throws too.
void ReadTreeText(std::istream & in, TreeTextBuilder & builder);

// Writes every item of `walk`. Line breaks inside an item's text become
// spaces, so that the item stays one line. Throws Exception when the stream
// fails.
void WriteTreeText(TreeTextWalk & walk, std::ostream & out);
