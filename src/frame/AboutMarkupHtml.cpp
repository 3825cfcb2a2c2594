#include "frame/AboutMarkupHtml.h"

#include <cmath>
#include <cstdio>

namespace {

using Element = AboutMarkupElement;
using Kind = AboutMarkupElement::Kind;

std::string Colour(uint32_t rgb) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(rgb & 0xFFFFFF));
  return text;
}

// wxHtmlWindow knows seven font sizes; the markup gives pixels. The
// nearest of the window's default sizes (in points) wins.
int FontLevel(double pixels) {
  static constexpr double kPoints[] = {7, 8, 10, 12, 16, 22, 30};
  double const points = pixels * 0.75;
  int best = 0;
  for (int level = 1; level < 7; ++level)
    if (std::fabs(kPoints[level] - points) < std::fabs(kPoints[best] - points)) best = level;
  return best + 1;
}

char const * AlignName(Element::Align align) {
  switch (align) {
    case Element::Align::Center: return "center";
    case Element::Align::Right: return "right";
    default: return "left";
  }
}

class Renderer {
public:
  explicit Renderer(AboutPictureResolver const & resolve) : mResolve(resolve) {}

  void Block(Element const & element) {
    // A margin is an invisible frame of table cells: wxHtmlWindow has no
    // box model.
    bool const framed = element.margin.has_value();
    if (framed) {
      AboutThickness const & m = *element.margin;
      mHtml += "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\" width=\"100%\">";
      if (m.top > 0)
        mHtml += "<tr><td colspan=\"3\" height=\"" + std::to_string(m.top) + "\"></td></tr>";
      mHtml += "<tr><td width=\"" + std::to_string(m.left) + "\"></td><td>";
    }
    switch (element.kind) {
      case Kind::StackPanel: StackPanel(element); break;
      case Kind::Border: Border(element); break;
      case Kind::TextBlock: TextBlock(element); break;
      case Kind::Image:
        mHtml += "<div align=\"" + std::string(AlignName(element.horizontalAlignment)) + "\">";
        Image(element);
        mHtml += "</div>";
        break;
      case Kind::Unknown: Children(element, true); break;
      default:  // inline content outside a text block makes its own paragraph
        mHtml += "<div>";
        Inline(element);
        mHtml += "</div>";
    }
    if (framed) {
      AboutThickness const & m = *element.margin;
      mHtml += "</td><td width=\"" + std::to_string(m.right) + "\"></td></tr>";
      if (m.bottom > 0)
        mHtml += "<tr><td colspan=\"3\" height=\"" + std::to_string(m.bottom) + "\"></td></tr>";
      mHtml += "</table>";
    }
  }

  std::string & Html() { return mHtml; }

private:
  void Children(Element const & element, bool asBlocks) {
    for (auto const & child : element.children) asBlocks ? Block(child) : Inline(child);
  }

  void StackPanel(Element const & panel) {
    if (!panel.horizontal) {
      OpenFont(panel);
      Children(panel, true);
      CloseFont(panel);
      return;
    }
    mHtml += "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\"><tr>";
    for (auto const & child : panel.children) {
      mHtml += "<td valign=\"top\">";
      OpenFont(panel);
      Block(child);
      CloseFont(panel);
      mHtml += "</td>";
    }
    mHtml += "</tr></table>";
  }

  void Border(Element const & border) {
    mHtml += "<table cellspacing=\"0\" width=\"100%\" cellpadding=\"" +
             std::to_string(border.padding ? border.padding->left : 0) + "\" border=\"" +
             std::to_string(border.borderThickness && border.borderBrush ? 1 : 0) + "\"";
    if (border.background) mHtml += " bgcolor=\"" + Colour(*border.background) + "\"";
    mHtml += "><tr><td>";
    OpenFont(border);
    Children(border, true);
    CloseFont(border);
    mHtml += "</td></tr></table>";
  }

  void TextBlock(Element const & block) {
    Element::Align const align = block.textAlignment != Element::Align::Default
                                     ? block.textAlignment
                                     : block.horizontalAlignment;
    mHtml += "<div align=\"" + std::string(AlignName(align)) + "\">";
    if (block.noWrap)
      mHtml += "<table border=\"0\" cellspacing=\"0\" cellpadding=\"0\"><tr><td nowrap>";
    OpenFont(block);
    Text(block.text);
    Children(block, false);
    CloseFont(block);
    if (block.noWrap) mHtml += "</td></tr></table>";
    mHtml += "</div>";
  }

  void Inline(Element const & element) {
    switch (element.kind) {
      case Kind::Text: Text(element.text); return;
      case Kind::LineBreak: mHtml += "<br>"; return;
      case Kind::Image: Image(element); return;
      case Kind::Hyperlink:
        mHtml += "<a href=\"" + EscapeAboutHtml(element.navigateUri) + "\">";
        OpenFont(element);
        Children(element, false);
        CloseFont(element);
        mHtml += "</a>";
        return;
      case Kind::Run:
      case Kind::Bold:
      case Kind::Italic:
      case Kind::Underline:
      case Kind::Unknown: {
        char const * tag = element.kind == Kind::Bold        ? "b"
                           : element.kind == Kind::Italic    ? "i"
                           : element.kind == Kind::Underline ? "u"
                                                             : nullptr;
        if (tag != nullptr) mHtml += std::string("<") + tag + ">";
        OpenFont(element);
        Text(element.text);
        Children(element, false);
        CloseFont(element);
        if (tag != nullptr) mHtml += std::string("</") + tag + ">";
        return;
      }
      default:  // a panel, border or text block inside text
        Block(element);
    }
  }

  void Image(Element const & image) {
    std::string const address = mResolve ? mResolve(image.source) : std::string();
    if (address.empty()) return;
    mHtml += "<img src=\"" + EscapeAboutHtml(address) + "\"";
    if (image.width) mHtml += " width=\"" + std::to_string(*image.width) + "\"";
    if (image.height) mHtml += " height=\"" + std::to_string(*image.height) + "\"";
    mHtml += ">";
  }

  void OpenFont(Element const & element) {
    if (element.bold.value_or(false)) mHtml += "<b>";
    if (element.italic.value_or(false)) mHtml += "<i>";
    if (!element.fontSize && !element.foreground) return;
    mHtml += "<font";
    if (element.fontSize) mHtml += " size=\"" + std::to_string(FontLevel(*element.fontSize)) + "\"";
    if (element.foreground) mHtml += " color=\"" + Colour(*element.foreground) + "\"";
    mHtml += ">";
  }

  void CloseFont(Element const & element) {
    if (element.fontSize || element.foreground) mHtml += "</font>";
    if (element.italic.value_or(false)) mHtml += "</i>";
    if (element.bold.value_or(false)) mHtml += "</b>";
  }

  void Text(std::string const & text) { mHtml += EscapeAboutHtml(text); }

  AboutPictureResolver const & mResolve;
  std::string mHtml;
};

}  // namespace

std::string EscapeAboutHtml(std::string const & text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (char const c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      case '\'': escaped += "&#39;"; break;
      default: escaped += c;
    }
  }
  return escaped;
}

std::string RenderAboutMarkupHtml(AboutMarkup const & markup,
                                  AboutPictureResolver const & resolvePicture) {
  Renderer renderer(resolvePicture);
  renderer.Html() = "<html><head><meta charset=\"UTF-8\"></head><body>";
  renderer.Block(markup.root);
  renderer.Html() += "</body></html>";
  return std::move(renderer.Html());
}
