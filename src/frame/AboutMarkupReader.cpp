#include "frame/AboutMarkupReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <set>

#include "utl/Exception.h"
#include "utl/XmlTree.h"

namespace {

using Element = AboutMarkupElement;
using Kind = AboutMarkupElement::Kind;

struct KnownElement {
  char const * name;
  Kind kind;
};

constexpr KnownElement kElements[] = {
    {"StackPanel", Kind::StackPanel},
    {"Border", Kind::Border},
    {"TextBlock", Kind::TextBlock},
    {"Run", Kind::Run},
    {"Bold", Kind::Bold},
    {"Italic", Kind::Italic},
    {"Underline", Kind::Underline},
    {"LineBreak", Kind::LineBreak},
    {"Hyperlink", Kind::Hyperlink},
    {"Image", Kind::Image},
};

// The largest font and picture size taken; anything larger is a mistake
// or an attempt to blow the layout up.
constexpr double kMaxFontSize = 144;
constexpr int kMaxLength = 4096;

std::string LocalName(std::string const & name) {
  size_t const colon = name.find(':');
  return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string Trim(std::string const & text) {
  size_t const first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

bool EqualsNoCase(std::string const & a, char const * b) {
  size_t const length = std::char_traits<char>::length(b);
  if (a.size() != length) return false;
  return std::equal(a.begin(), a.end(), b, [](char x, char y) {
    auto lower = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; };
    return lower(static_cast<unsigned char>(x)) == lower(static_cast<unsigned char>(y));
  });
}

std::optional<double> ReadNumber(std::string const & text, double low, double high) {
  std::string const trimmed = Trim(text);
  if (trimmed.empty()) return std::nullopt;
  char * end = nullptr;
  errno = 0;
  double const value = std::strtod(trimmed.c_str(), &end);
  if (errno != 0 || end != trimmed.c_str() + trimmed.size() || !(value >= low && value <= high))
    return std::nullopt;
  return value;
}

std::optional<AboutThickness> ReadThickness(std::string const & text) {
  std::vector<int> parts;
  size_t start = 0;
  while (parts.size() < 5) {
    size_t const comma = text.find(',', start);
    auto const number = ReadNumber(text.substr(start, comma - start), 0, kMaxLength);
    if (!number) return std::nullopt;
    parts.push_back(static_cast<int>(*number));
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  switch (parts.size()) {
    case 1: return AboutThickness{parts[0], parts[0], parts[0], parts[0]};
    case 2: return AboutThickness{parts[0], parts[1], parts[0], parts[1]};
    case 4: return AboutThickness{parts[0], parts[1], parts[2], parts[3]};
    default: return std::nullopt;
  }
}

std::optional<uint32_t> ReadColour(std::string const & text) {
  static constexpr struct {
    char const * name;
    uint32_t rgb;
  } kNames[] = {{"Black", 0x000000}, {"White", 0xFFFFFF},   {"Gray", 0x808080},
                {"Red", 0xFF0000},   {"Green", 0x008000},   {"Blue", 0x0000FF},
                {"Navy", 0x000080},  {"DarkGray", 0xA9A9A9}};
  std::string const value = Trim(text);
  for (auto const & named : kNames)
    if (EqualsNoCase(value, named.name)) return named.rgb;
  if (value.size() < 2 || value[0] != '#' ||
      value.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos)
    return std::nullopt;
  std::string digits = value.substr(1);
  if (digits.size() == 3)
    digits = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
  if (digits.size() == 8) digits = digits.substr(2);  // alpha is not drawn
  if (digits.size() != 6) return std::nullopt;
  return static_cast<uint32_t>(std::strtoul(digits.c_str(), nullptr, 16));
}

std::optional<Element::Align> ReadAlign(std::string const & text) {
  static constexpr struct {
    char const * name;
    Element::Align align;
  } kAligns[] = {{"Left", Element::Align::Left},
                 {"Center", Element::Align::Center},
                 {"Right", Element::Align::Right},
                 {"Stretch", Element::Align::Stretch},
                 {"Justify", Element::Align::Left}};
  for (auto const & align : kAligns)
    if (EqualsNoCase(Trim(text), align.name)) return align.align;
  return std::nullopt;
}

class Reader {
public:
  explicit Reader(AboutMarkup & markup) : mMarkup(markup) {}

  Element Read(vx3::XmlNode const & node, std::string const & source) {
    if (++mElements > AboutMarkup::kMaxElements)
      throw Exception(ExceptionMessage::translate("The markup {1} has more than {2} elements.") %
                      source % static_cast<int>(AboutMarkup::kMaxElements));
    Element element;
    element.name = LocalName(node.name);
    auto const known = std::find_if(std::begin(kElements), std::end(kElements),
                                    [&](KnownElement const & k) { return element.name == k.name; });
    element.kind = known != std::end(kElements) ? known->kind : Kind::Unknown;
    if (element.kind == Kind::Unknown) Report("unknown element <" + element.name + ">");
    for (auto const & [qualified, value] : node.attributes)
      ReadAttribute(element, qualified, value);
    for (auto const & child : node.children) {
      if (child.kind == vx3::XmlNode::Kind::Element) {
        element.children.push_back(Read(child, source));
      } else if (child.kind == vx3::XmlNode::Kind::Text ||
                 child.kind == vx3::XmlNode::Kind::CData) {
        if (Trim(child.value).empty()) continue;
        Element text;
        text.kind = Kind::Text;
        text.text = child.value;
        element.children.push_back(std::move(text));
      }
    }
    return element;
  }

private:
  void Report(std::string const & problem) {
    if (mReported.insert(problem).second) mMarkup.problems.push_back(problem);
  }

  template <typename T>
  void Take(std::optional<T> & field, std::optional<T> const & value, std::string const & name,
            std::string const & text) {
    if (value)
      field = value;
    else
      Report("unreadable " + name + "=\"" + text.substr(0, 40) + "\"");
  }

  void ReadAttribute(Element & element, std::string const & qualified, std::string const & value) {
    if (qualified == "xmlns" || qualified.compare(0, 6, "xmlns:") == 0) return;
    std::string const name = LocalName(qualified);
    if (name == "Text") {
      element.text = value;
    } else if (name == "NavigateUri") {
      element.navigateUri = Trim(value);
    } else if (name == "Source") {
      element.source = Trim(value);
    } else if (name == "Margin") {
      Take(element.margin, ReadThickness(value), name, value);
    } else if (name == "Padding") {
      Take(element.padding, ReadThickness(value), name, value);
    } else if (name == "BorderThickness") {
      Take(element.borderThickness, ReadThickness(value), name, value);
    } else if (name == "FontSize") {
      Take(element.fontSize, ReadNumber(value, 1, kMaxFontSize), name, value);
    } else if (name == "FontWeight") {
      element.bold = EqualsNoCase(Trim(value), "Bold") || EqualsNoCase(Trim(value), "SemiBold");
    } else if (name == "FontStyle") {
      element.italic = EqualsNoCase(Trim(value), "Italic");
    } else if (name == "Foreground") {
      Take(element.foreground, ReadColour(value), name, value);
    } else if (name == "Background") {
      Take(element.background, ReadColour(value), name, value);
    } else if (name == "BorderBrush") {
      Take(element.borderBrush, ReadColour(value), name, value);
    } else if (name == "Width" || name == "Height") {
      std::optional<int> size;
      if (auto const number = ReadNumber(value, 1, kMaxLength)) size = static_cast<int>(*number);
      Take(name == "Width" ? element.width : element.height, size, name, value);
    } else if (name == "HorizontalAlignment" || name == "TextAlignment") {
      std::optional<Element::Align> align = ReadAlign(value);
      if (!align) Report("unreadable " + name + "=\"" + value.substr(0, 40) + "\"");
      (name == "TextAlignment" ? element.textAlignment : element.horizontalAlignment) =
          align.value_or(Element::Align::Default);
    } else if (name == "Orientation") {
      element.horizontal = EqualsNoCase(Trim(value), "Horizontal");
    } else if (name == "TextWrapping") {
      element.noWrap = EqualsNoCase(Trim(value), "NoWrap");
    }
    // Other attributes (names, cursors, tool tips...) have no effect here.
  }

  AboutMarkup & mMarkup;
  std::set<std::string> mReported;
  size_t mElements = 0;
};

}  // namespace

AboutMarkup ReadAboutMarkup(std::string_view bytes, std::string const & source) {
  // The parser's own message counts in megabytes; this limit is smaller.
  if (bytes.size() > AboutMarkup::kMaxBytes)
    throw Exception(ExceptionMessage::translate("The markup {1} is larger than {2} KB.") % source %
                    static_cast<int>(AboutMarkup::kMaxBytes >> 10));
  vx3::XmlParseLimits limits;
  limits.maxBytes = AboutMarkup::kMaxBytes;
  limits.maxDepth = AboutMarkup::kMaxDepth;
  vx3::XmlTree const tree = vx3::ParseXmlTree(bytes, source, limits);
  AboutMarkup markup;
  Reader reader(markup);
  markup.root = reader.Read(tree.Root(), source);
  return markup;
}
