#pragma once
// The markup of the about pages: a small documented subset of a XAML-like
// layout language, read from a customization package (so from elsewhere)
// into plain values.
//
// Elements: StackPanel (Orientation), Border (Background, BorderBrush,
// BorderThickness, Padding), TextBlock (Text, TextAlignment, TextWrapping),
// Run (Text), Bold, Italic, Underline, LineBreak, Hyperlink (NavigateUri),
// Image (Source, Width, Height). Every element also takes Margin, FontSize,
// FontWeight, FontStyle, Foreground and HorizontalAlignment. Thicknesses are
// "a", "h,v" or "l,t,r,b"; colours "#rgb", "#rrggbb", "#aarrggbb" or a few
// names. A namespace prefix of an element or attribute is ignored, and so
// are the namespace declarations.
//
// The text is parsed by the hardened XML reader: a document type (and with
// it every entity but the five built-in ones) is refused, and so are input
// beyond kMaxBytes, nesting beyond kMaxDepth and more than kMaxElements
// elements, each with an Exception that names the source. Inside these
// limits nothing is refused: an unknown element stands for its children, an
// attribute value that cannot be read is left out, and both are reported in
// `problems` for the log.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct AboutThickness {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

struct AboutMarkupElement {
  enum class Kind {
    StackPanel,
    Border,
    TextBlock,
    Run,
    Bold,
    Italic,
    Underline,
    LineBreak,
    Hyperlink,
    Image,
    Text,     // character data between elements
    Unknown,  // an element outside the subset: its children only
  };
  enum class Align { Default, Left, Center, Right, Stretch };

  Kind kind = Kind::Unknown;
  std::string name;  // the tag (without prefix)
  std::string text;  // Text nodes, the Text attribute of Run and TextBlock
  std::string navigateUri;
  std::string source;
  std::optional<AboutThickness> margin;
  std::optional<AboutThickness> padding;
  std::optional<AboutThickness> borderThickness;
  std::optional<double> fontSize;  // device-independent pixels
  std::optional<bool> bold;
  std::optional<bool> italic;
  std::optional<uint32_t> foreground;  // 0x00RRGGBB
  std::optional<uint32_t> background;
  std::optional<uint32_t> borderBrush;
  std::optional<int> width;
  std::optional<int> height;
  Align horizontalAlignment = Align::Default;
  Align textAlignment = Align::Default;
  bool horizontal = false;  // StackPanel Orientation="Horizontal"
  bool noWrap = false;      // TextWrapping="NoWrap"
  std::vector<AboutMarkupElement> children;
};

struct AboutMarkup {
  static constexpr size_t kMaxBytes = size_t(256) << 10;
  static constexpr int kMaxDepth = 48;
  static constexpr size_t kMaxElements = 4000;

  AboutMarkupElement root;
  // What was left out or stood in for, once each, for the log.
  std::vector<std::string> problems;
};

// Reads `bytes` (UTF-8). `source` names the input in messages. Throws
// Exception when the markup is refused.
AboutMarkup ReadAboutMarkup(std::string_view bytes, std::string const & source);
