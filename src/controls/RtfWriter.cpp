#include "controls/RtfWriter.h"

#include <algorithm>
#include <map>
#include <vector>

namespace {

constexpr wchar_t kDefaultFace[] = L"Arial";

// `c` as RTF text: ASCII as it is (the three specials escaped), the rest
// as \uN? with N a signed UTF-16 unit.
void AppendCharacter(std::string & out, char32_t c) {
  if (c == '\\' || c == '{' || c == '}') {
    out += '\\';
    out += static_cast<char>(c);
  } else if (c == '\t') {
    out += "\\tab ";
  } else if (c == '\n') {
    out += "\\line ";
  } else if (c >= 0x20 && c < 0x7F) {
    out += static_cast<char>(c);
  } else if (c == 0) {
    // A NUL has no place in rich text.
  } else {
    auto unit = [&out](unsigned value) {
      out += "\\u";
      out += std::to_string(value >= 0x8000 ? static_cast<int>(value) - 0x10000
                                            : static_cast<int>(value));
      out += '?';
    };
    if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) c = 0xFFFD;
    if (c >= 0x10000) {
      unit(0xD800 + ((c - 0x10000) >> 10));
      unit(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      unit(c);
    }
  }
}

class Writer {
public:
  explicit Writer(RichTextDocument const & document) : mDocument(document) { CollectTables(); }

  std::string Write() {
    std::string out;
    out.reserve(Estimate());
    out += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n{\\fonttbl";
    for (size_t f = 0; f < mFaces.size(); ++f) {
      out += "{\\f" + std::to_string(f) + "\\fnil\\fcharset0 ";
      for (wchar_t c : mFaces[f]) {
        if (c == ';')
          out += "\\'3b";
        else if (c >= 0x20)  // a face name holds no tabs or breaks
          AppendCharacter(out, static_cast<char32_t>(c));
      }
      out += ";}";
    }
    out += "}\n{\\colortbl ;";
    for (COLORREF colour : mColours) {
      out += "\\red" + std::to_string(GetRValue(colour)) + "\\green" +
             std::to_string(GetGValue(colour)) + "\\blue" + std::to_string(GetBValue(colour)) + ';';
    }
    out += "}\n\\pard ";
    // A reader starts in the default format, in font 0.
    RichTextFormat current;
    current.face = mFaces.front();
    bool first = true;
    for (size_t p = 0; p < mDocument.paragraphs.size(); ++p) {
      if (p > 0) out += "\\par\n";
      for (RichTextRun const & run : mDocument.paragraphs[p]) {
        if (first || run.format != current) {
          AppendFormat(out, current, run.format);
          current = run.format;
          first = false;
        }
        if (run.picture != RichTextPicture::None) {
          AppendPicture(out, run);
          continue;
        }
        for (wchar_t c : run.text) AppendCharacter(out, static_cast<char32_t>(c));
      }
    }
    out += "\n}\n";
    return out;
  }

private:
  void CollectTables() {
    std::map<std::wstring, size_t> faces;
    std::map<COLORREF, size_t> colours;
    for (auto const & paragraph : mDocument.paragraphs)
      for (auto const & run : paragraph) {
        std::wstring const & face = FaceOf(run.format);
        if (faces.emplace(face, mFaces.size()).second) mFaces.push_back(face);
        if (!run.format.autoColour && colours.emplace(run.format.colour, mColours.size()).second)
          mColours.push_back(run.format.colour);
      }
    if (mFaces.empty()) mFaces.emplace_back(kDefaultFace);
    mFaceIndex = std::move(faces);
    mColourIndex = std::move(colours);
  }

  // An empty face (the control's own) is written as an unnamed font.
  static std::wstring const & FaceOf(RichTextFormat const & format) { return format.face; }

  size_t Estimate() const {
    size_t size = 256;
    for (auto const & paragraph : mDocument.paragraphs)
      for (auto const & run : paragraph) size += run.text.size() + run.pictureBytes.size() * 2 + 32;
    return size;
  }

  void AppendFormat(std::string & out, RichTextFormat const & from, RichTextFormat const & to) {
    size_t const start = out.size();
    if (from.bold != to.bold) out += to.bold ? "\\b" : "\\b0";
    if (from.italic != to.italic) out += to.italic ? "\\i" : "\\i0";
    if (from.underline != to.underline) out += to.underline ? "\\ul" : "\\ulnone";
    if (from.autoColour != to.autoColour || (!to.autoColour && from.colour != to.colour))
      out += "\\cf" + std::to_string(to.autoColour ? 0 : mColourIndex.at(to.colour) + 1);
    if (FaceOf(from) != FaceOf(to)) out += "\\f" + std::to_string(mFaceIndex.at(FaceOf(to)));
    if (from.halfPoints != to.halfPoints) out += "\\fs" + std::to_string(to.halfPoints);
    // The space ends the last control word; without one, a space here
    // would be text (after "\\par\n", say).
    if (out.size() != start) out += ' ';
  }

  static void AppendPicture(std::string & out, RichTextRun const & run) {
    static char const kHex[] = "0123456789abcdef";
    out += run.picture == RichTextPicture::Png ? "{\\pict\\pngblip" : "{\\pict\\jpegblip";
    if (run.widthTwips > 0) out += "\\picwgoal" + std::to_string(run.widthTwips);
    if (run.heightTwips > 0) out += "\\pichgoal" + std::to_string(run.heightTwips);
    out += '\n';
    size_t column = 0;
    for (char byte : run.pictureBytes) {
      auto const value = static_cast<unsigned char>(byte);
      out += kHex[value >> 4];
      out += kHex[value & 15];
      if (++column == 64) {
        out += '\n';
        column = 0;
      }
    }
    out += "}";
  }

  RichTextDocument const & mDocument;
  std::vector<std::wstring> mFaces;
  std::vector<COLORREF> mColours;
  std::map<std::wstring, size_t> mFaceIndex;
  std::map<COLORREF, size_t> mColourIndex;
};

}  // namespace

std::string WriteRtf(RichTextDocument const & document) { return Writer(document).Write(); }
