#include "controls/RtfReader.h"

#include <unicode/ucnv.h>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

enum class Destination { Text, Skip, FontTable, ColourTable, Picture };

struct Font {
  std::wstring face;
  int charset = -1;  // none given
};

struct GroupState {
  RichTextFormat format;
  Destination destination = Destination::Text;
  int font = -1;
  int skipAfterUnicode = 1;  // \ucN
};

// Windows code page of an RTF \fcharset; 0 for "use the document's".
int CodePageOfCharset(int charset) {
  switch (charset) {
    case 0: return 1252;
    case 77: return 10000;
    case 128: return 932;
    case 129: return 949;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177: return 1255;
    case 178: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    default: return 0;
  }
}

struct ConverterClose {
  void operator()(UConverter * converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterClose>;

// Bytes of a Windows code page as UTF-32; Latin-1 when ICU has no table.
class CodePages {
public:
  void Decode(int codePage, std::string const & bytes, std::wstring & out) {
    if (codePage == 1252 && IsAscii(bytes)) {
      out.append(bytes.begin(), bytes.end());
      return;
    }
    UConverter * const converter = Get(codePage);
    if (converter == nullptr) {
      for (char byte : bytes) out += static_cast<wchar_t>(static_cast<unsigned char>(byte));
      return;
    }
    std::u16string units(bytes.size() * 2 + 2, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t const length =
        ucnv_toUChars(converter, units.data(), static_cast<int32_t>(units.size()), bytes.data(),
                      static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) return;
    for (int32_t i = 0; i < length; ++i) {
      char32_t c = units[static_cast<size_t>(i)];
      if (c >= 0xD800 && c < 0xDC00 && i + 1 < length) {
        char32_t const low = units[static_cast<size_t>(i) + 1];
        if (low >= 0xDC00 && low < 0xE000) {
          c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
          ++i;
        }
      }
      out += static_cast<wchar_t>(c);
    }
  }

private:
  static bool IsAscii(std::string const & bytes) {
    for (char byte : bytes)
      if (static_cast<unsigned char>(byte) >= 0x80) return false;
    return true;
  }

  UConverter * Get(int codePage) {
    auto found = mConverters.find(codePage);
    if (found != mConverters.end()) return found->second.get();
    std::string const name = (codePage >= 1250 && codePage <= 1258) || codePage == 874
                                 ? "windows-" + std::to_string(codePage)
                             : codePage == 10000 ? std::string("macintosh")
                                                 : "cp" + std::to_string(codePage);
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status)) converter.reset();
    return mConverters.emplace(codePage, std::move(converter)).first->second.get();
  }

  std::map<int, Converter> mConverters;
};

class Parser {
public:
  Parser(std::string_view input, size_t limit, RichTextFormat const & start)
      : mIn(input), mLimit(limit) {
    mState.format = start;
    mDefault = start;
  }

  RtfReadResult Run() {
    if (!Parse() && mResult.failure.Id().empty())
      Fail(ExceptionMessage::translate("The rich text is damaged."));
    FlushBytes();
    if (mHighSurrogate != 0) {
      mHighSurrogate = 0;
      Emit(0xFFFD);
    }
    return std::move(mResult);
  }

private:
  // False when reading stops; the reason is in mResult.failure.
  bool Parse() {
    size_t at = 0;
    while (at < mIn.size() &&
           (mIn[at] == ' ' || mIn[at] == '\r' || mIn[at] == '\n' || mIn[at] == '\t'))
      ++at;
    if (mIn.substr(at, 5) != "{\\rtf") {
      Fail(
          ExceptionMessage::translate("The text is not rich text: it does not start with "
                                      "\"{\\rtf\"."));
      return false;
    }
    mAt = at;
    while (mAt < mIn.size()) {
      char const c = mIn[mAt];
      if (c == '{') {
        ++mAt;
        if (!OpenGroup()) return false;
      } else if (c == '}') {
        ++mAt;
        if (!CloseGroup()) return false;
        if (mStack.empty()) return AtEnd();  // the document's group ended
      } else if (c == '\\') {
        ++mAt;
        if (!ControlWord()) return false;
      } else if (c == '\r' || c == '\n') {
        ++mAt;
      } else if (c == '\0') {
        Fail(ExceptionMessage::translate("The rich text holds a NUL character at byte {1}.") %
             static_cast<int>(mAt));
        return false;
      } else {
        ++mAt;
        if (!TextByte(c)) return false;
      }
    }
    Fail(ExceptionMessage::translate("The rich text ends inside a group ({1} not closed).") %
         static_cast<int>(mStack.size()));
    return false;
  }

  // Only blanks and NUL padding may follow the document's group.
  bool AtEnd() {
    size_t const rest = mIn.find_first_not_of(std::string_view(" \r\n\t\0", 5), mAt);
    if (rest == std::string_view::npos) return true;
    Fail(ExceptionMessage::translate("The rich text goes on after its outer group closed, at "
                                     "byte {1}.") %
         static_cast<int>(rest));
    return false;
  }

  void Fail(ExceptionMessage message) {
    if (mResult.failure.Id().empty()) mResult.failure = std::move(message);
  }

  bool OpenGroup() {
    FlushBytes();
    if (static_cast<int>(mStack.size()) >= kRtfMaxGroupDepth) {
      Fail(ExceptionMessage::translate("The rich text nests groups deeper than {1}.") %
           kRtfMaxGroupDepth);
      return false;
    }
    mStack.push_back(mState);
    mPendingSkip = 0;
    mGroupStart = true;
    return true;
  }

  bool CloseGroup() {
    FlushBytes();
    if (mStack.empty()) return true;
    Destination const closing = mState.destination;
    if (closing == Destination::Picture && mStack.back().destination != Destination::Picture)
      EndPicture();
    mState = mStack.back();
    mStack.pop_back();
    if (closing == Destination::FontTable && mState.destination == Destination::Text &&
        mState.font < 0 && mFonts.count(mDefaultFont) != 0) {
      // Text before any \f is in the default font.
      mState.font = mDefaultFont;
      mState.format.face = mFonts[mDefaultFont].face;
    }
    mPendingSkip = 0;
    mGroupStart = false;
    return true;
  }

  // After a backslash.
  bool ControlWord() {
    if (mAt >= mIn.size()) {
      Fail(ExceptionMessage::translate("The rich text ends inside a control word."));
      return false;
    }
    bool const groupStart = mGroupStart;
    mGroupStart = false;
    char const c = mIn[mAt];
    if (!IsLetter(c)) {
      ++mAt;
      return ControlSymbol(c, groupStart);
    }
    size_t const start = mAt;
    while (mAt < mIn.size() && IsLetter(mIn[mAt])) ++mAt;
    std::string_view const word = mIn.substr(start, mAt - start);
    if (word.size() > 32) {
      Fail(ExceptionMessage::translate("The rich text holds a control word longer than 32 "
                                       "letters at byte {1}.") %
           static_cast<int>(start));
      return false;
    }
    bool hasNumber = false;
    int64_t number = 0;
    if (mAt < mIn.size() && (mIn[mAt] == '-' || IsDigit(mIn[mAt]))) {
      bool const negative = mIn[mAt] == '-';
      if (negative) ++mAt;
      size_t const digits = mAt;
      while (mAt < mIn.size() && IsDigit(mIn[mAt])) {
        number = number * 10 + (mIn[mAt] - '0');
        ++mAt;
        if (mAt - digits > 10 || number > std::numeric_limits<int32_t>::max()) {
          Fail(ExceptionMessage::translate("The rich text holds a number out of range at byte "
                                           "{1}.") %
               static_cast<int>(digits));
          return false;
        }
      }
      if (negative) number = -number;
      hasNumber = mAt > digits;
    }
    if (mAt < mIn.size() && mIn[mAt] == ' ') ++mAt;
    if (word == "bin") return Binary(hasNumber ? number : 0);
    if (ConsumeSkip()) return true;
    FlushBytesUnless(word);
    return Word(word, hasNumber, static_cast<int>(number), groupStart);
  }

  bool ControlSymbol(char c, bool groupStart) {
    if (c == '\'') return HexByte();
    if (c == '*') {
      // An optional destination: skipped unless the next word is known.
      if (groupStart) mOptional = true;
      mGroupStart = groupStart;
      return true;
    }
    if (ConsumeSkip()) return true;
    switch (c) {
      case '\\':
      case '{':
      case '}': return TextByte(c, false, true);
      case '~': return Emit(0xA0);
      case '_': return Emit(0x2011);
      case '\r':
      case '\n': return Paragraph();
      default: return true;  // \- \| \: and the like show nothing
    }
  }

  bool HexByte() {
    if (mAt + 2 > mIn.size() || !IsHex(mIn[mAt]) || !IsHex(mIn[mAt + 1])) {
      Fail(
          ExceptionMessage::translate("The rich text holds bad hex digits after \\' at byte {1}.") %
          static_cast<int>(mAt));
      return false;
    }
    char const byte = static_cast<char>(HexValue(mIn[mAt]) * 16 + HexValue(mIn[mAt + 1]));
    mAt += 2;
    if (ConsumeSkip()) return true;
    return TextByte(byte, false, true);
  }

  bool Binary(int64_t count) {
    FlushBytes();
    if (count < 0 || static_cast<uint64_t>(count) > mIn.size() - mAt) {
      Fail(ExceptionMessage::translate("The rich text holds \\bin{1}, more bytes than follow.") %
           static_cast<int>(count));
      return false;
    }
    if (mState.destination == Destination::Picture)
      mPicture.pictureBytes.append(mIn.substr(mAt, static_cast<size_t>(count)));
    mAt += static_cast<size_t>(count);
    return true;
  }

  // True when the word or character is one of those \uN asked to skip.
  bool ConsumeSkip() {
    if (mPendingSkip == 0) return false;
    --mPendingSkip;
    return true;
  }

  bool Word(std::string_view word, bool hasNumber, int number, bool groupStart) {
    if (groupStart && StartsDestination(word)) return true;
    if (mOptional) {
      mOptional = false;
      if (word != "shppict") mState.destination = Destination::Skip;
      return true;
    }
    if (mState.destination == Destination::Skip) return true;
    if (word == "u" && mState.destination != Destination::Picture) return Unicode(number);
    if (mState.destination == Destination::FontTable) return FontTableWord(word, number);
    if (mState.destination == Destination::ColourTable) return ColourWord(word, number);
    if (mState.destination == Destination::Picture) return PictureWord(word, number);
    int const on = hasNumber ? number : 1;
    RichTextFormat & format = mState.format;
    if (word == "par") return Paragraph();
    if (word == "line") return Emit('\n');
    if (word == "tab" || word == "cell") return Emit('\t');
    if (word == "row") return Paragraph();
    if (word == "uc") {
      if (number < 0 || number > 255) {
        Fail(ExceptionMessage::translate("The rich text holds \\uc{1}, outside 0 to 255.") %
             number);
        return false;
      }
      mState.skipAfterUnicode = number;
    } else if (word == "b") {
      format.bold = on != 0;
    } else if (word == "i") {
      format.italic = on != 0;
    } else if (word == "ul" || word == "uld" || word == "uldb" || word == "ulw" || word == "ulth" ||
               word == "uldash") {
      format.underline = on != 0;
    } else if (word == "ulnone") {
      format.underline = false;
    } else if (word == "plain") {
      format = mDefault;
      if (mFonts.count(mDefaultFont) != 0) return SelectFont(mDefaultFont);
    } else if (word == "cf") {
      return SelectColour(number);
    } else if (word == "f") {
      return SelectFont(number);
    } else if (word == "fs") {
      if (number > 0 && number <= 3276) format.halfPoints = number;
    } else if (word == "deff") {
      mDefaultFont = number;
    } else if (word == "ansicpg") {
      if (number > 0) mAnsiCodePage = number;
    } else if (word == "emdash") {
      return Emit(0x2014);
    } else if (word == "endash") {
      return Emit(0x2013);
    } else if (word == "bullet") {
      return Emit(0x2022);
    } else if (word == "lquote") {
      return Emit(0x2018);
    } else if (word == "rquote") {
      return Emit(0x2019);
    } else if (word == "ldblquote") {
      return Emit(0x201C);
    } else if (word == "rdblquote") {
      return Emit(0x201D);
    }
    return true;
  }

  // Words that make the group they open a destination of their own.
  bool StartsDestination(std::string_view word) {
    static char const * const kSkipped[] = {"stylesheet",
                                            "info",
                                            "header",
                                            "headerl",
                                            "headerr",
                                            "headerf",
                                            "footer",
                                            "footerl",
                                            "footerr",
                                            "footerf",
                                            "footnote",
                                            "listtable",
                                            "listoverridetable",
                                            "revtbl",
                                            "rsidtbl",
                                            "generator",
                                            "themedata",
                                            "colorschememapping",
                                            "latentstyles",
                                            "datastore",
                                            "xmlnstbl",
                                            "fldinst",
                                            "nonshppict",
                                            "filetbl",
                                            "pgdsctbl",
                                            "object",
                                            "private",
                                            "comment",
                                            "author",
                                            "title",
                                            "subject",
                                            "keywords",
                                            "operator"};
    if (mOptional && word != "shppict") {
      mOptional = false;
      mState.destination = Destination::Skip;
      return true;
    }
    if (mState.destination != Destination::Text) return false;
    for (char const * skipped : kSkipped)
      if (word == skipped) {
        mState.destination = Destination::Skip;
        return true;
      }
    if (word == "fonttbl") {
      mState.destination = Destination::FontTable;
      return true;
    }
    if (word == "colortbl") {
      mState.destination = Destination::ColourTable;
      mColours.clear();
      mColourEntry = Colour();
      return true;
    }
    if (word == "pict") {
      mState.destination = Destination::Picture;
      mPicture = RichTextRun();
      mPicture.format = mState.format;
      mPictureKind = RichTextPicture::None;
      mHexHigh = -1;
      return true;
    }
    return false;
  }

  bool FontTableWord(std::string_view word, int number) {
    if (word == "f") {
      mFontEntry = number;
      mFonts[number];
    } else if (word == "fcharset" && mFontEntry != std::numeric_limits<int>::min()) {
      mFonts[mFontEntry].charset = number;
    }
    return true;
  }

  struct Colour {
    int red = 0, green = 0, blue = 0;
    bool given = false;
  };

  bool ColourWord(std::string_view word, int number) {
    BYTE const value = static_cast<BYTE>(number < 0 ? 0 : number > 255 ? 255 : number);
    if (word == "red") {
      mColourEntry.red = value;
    } else if (word == "green") {
      mColourEntry.green = value;
    } else if (word == "blue") {
      mColourEntry.blue = value;
    } else {
      return true;
    }
    mColourEntry.given = true;
    return true;
  }

  bool PictureWord(std::string_view word, int number) {
    if (word == "pngblip") {
      mPictureKind = RichTextPicture::Png;
    } else if (word == "jpegblip") {
      mPictureKind = RichTextPicture::Jpeg;
    } else if (word == "picwgoal") {
      mPicture.widthTwips = number > 0 ? number : 0;
    } else if (word == "pichgoal") {
      mPicture.heightTwips = number > 0 ? number : 0;
    } else if (word == "emfblip" || word == "wmetafile" || word == "dibitmap" ||
               word == "wbitmap" || word == "macpict") {
      mPictureKind = RichTextPicture::None;
    }
    return true;
  }

  void EndPicture() {
    if (mPictureKind == RichTextPicture::None || mPicture.pictureBytes.empty()) return;
    if (!Count(1)) return;
    mPicture.picture = mPictureKind;
    CurrentParagraph().push_back(std::move(mPicture));
    mPicture = RichTextRun();
  }

  bool SelectColour(int index) {
    if (index == 0) {
      mState.format.autoColour = true;
      return true;
    }
    if (index < 0 || static_cast<size_t>(index) >= mColours.size()) {
      Fail(ExceptionMessage::translate("The rich text uses colour {1}, which its colour table "
                                       "does not hold.") %
           index);
      return false;
    }
    Colour const & colour = mColours[static_cast<size_t>(index)];
    mState.format.autoColour = !colour.given;
    mState.format.colour = RGB(static_cast<BYTE>(colour.red), static_cast<BYTE>(colour.green),
                               static_cast<BYTE>(colour.blue));
    return true;
  }

  bool SelectFont(int index) {
    if (mFonts.empty()) return true;  // no table: the control's face
    auto const found = mFonts.find(index);
    if (found == mFonts.end()) {
      Fail(ExceptionMessage::translate("The rich text uses font {1}, which its font table does "
                                       "not hold.") %
           index);
      return false;
    }
    mState.font = index;
    mState.format.face = found->second.face;
    return true;
  }

  bool Unicode(int number) {
    char32_t unit = static_cast<char32_t>(number < 0 ? number + 65536 : number);
    mPendingSkip = mState.skipAfterUnicode;
    if (unit > 0xFFFF) unit = 0xFFFD;
    if (unit >= 0xD800 && unit < 0xDC00) {
      if (mHighSurrogate != 0 && !Emit(0xFFFD)) return false;
      mHighSurrogate = unit;
      return true;
    }
    if (unit >= 0xDC00 && unit < 0xE000) {
      if (mHighSurrogate == 0) return Emit(0xFFFD);
      char32_t const c = 0x10000 + ((mHighSurrogate - 0xD800) << 10) + (unit - 0xDC00);
      mHighSurrogate = 0;
      return Emit(c);
    }
    if (unit == 0) return true;
    return Emit(unit);
  }

  // A byte of text (or of a table entry), in the current code page.
  // An `escaped` byte is text even where the plain byte has a meaning.
  bool TextByte(char c, bool skippable = true, bool escaped = false) {
    if (skippable && ConsumeSkip()) return true;
    switch (mState.destination) {
      case Destination::Skip: return true;
      case Destination::Picture: return PictureHex(c);
      case Destination::ColourTable:
        if (c == ';') {
          mColours.push_back(mColourEntry);
          mColourEntry = Colour();
        }
        return true;
      case Destination::FontTable:
        if (c == ';' && !escaped) {
          FlushBytes();
          auto found = mFonts.find(mFontEntry);
          if (found != mFonts.end()) found->second.face = Trimmed(mFontName);
          mFontName.clear();
          return true;
        }
        break;
      case Destination::Text: break;
    }
    if (c == '\t') return Emit('\t');
    int const codePage = CurrentCodePage();
    if (!mBytes.empty() && codePage != mBytesCodePage) FlushBytes();
    mBytesCodePage = codePage;
    mBytes += c;
    return true;
  }

  bool PictureHex(char c) {
    if (c == ' ' || c == '\t') return true;
    if (!IsHex(c)) {
      Fail(ExceptionMessage::translate("The rich text holds a picture with bad hex digits at "
                                       "byte {1}.") %
           static_cast<int>(mAt - 1));
      return false;
    }
    if (mHexHigh < 0) {
      mHexHigh = HexValue(c);
    } else {
      mPicture.pictureBytes += static_cast<char>(mHexHigh * 16 + HexValue(c));
      mHexHigh = -1;
    }
    return true;
  }

  int CurrentCodePage() const {
    if (mState.destination == Destination::Text && mState.font >= 0) {
      auto const found = mFonts.find(mState.font);
      if (found != mFonts.end()) {
        int const page = CodePageOfCharset(found->second.charset);
        if (page != 0) return page;
      }
    }
    return mAnsiCodePage;
  }

  void FlushBytesUnless(std::string_view word) {
    // Formatting words between bytes of one character keep them together.
    if (word != "u") FlushBytes();
  }

  void FlushBytes() {
    if (mBytes.empty()) return;
    std::wstring decoded;
    mPages.Decode(mBytesCodePage, mBytes, decoded);
    mBytes.clear();
    for (wchar_t c : decoded)
      if (!Emit(static_cast<char32_t>(c))) return;
  }

  bool Emit(char32_t c) {
    if (!mBytes.empty()) FlushBytes();
    if (mState.destination == Destination::FontTable) {
      if (c >= 0x20) mFontName += static_cast<wchar_t>(c);
      return true;
    }
    if (mState.destination != Destination::Text) return true;
    // A NUL (\'00, \u0) has no place in text: the writer drops it too.
    if (c == 0) return true;
    if (mHighSurrogate != 0) {
      mHighSurrogate = 0;
      if (!Emit(0xFFFD)) return false;
    }
    if (!Count(1)) return false;
    RichTextParagraph & paragraph = CurrentParagraph();
    if (paragraph.empty() || paragraph.back().picture != RichTextPicture::None ||
        paragraph.back().format != mState.format) {
      paragraph.emplace_back();
      paragraph.back().format = mState.format;
    }
    paragraph.back().text += static_cast<wchar_t>(c);
    return true;
  }

  bool Paragraph() {
    FlushBytes();
    if (mState.destination != Destination::Text) return true;
    if (!Count(1)) return false;
    mResult.document.paragraphs.emplace_back();
    return true;
  }

  bool Count(size_t characters) {
    if (mCount + characters > mLimit) {
      Fail(ExceptionMessage::translate("The rich text is longer than {1} characters; the rest "
                                       "was not read.") %
           static_cast<int>(mLimit));
      return false;
    }
    mCount += characters;
    return true;
  }

  RichTextParagraph & CurrentParagraph() { return mResult.document.paragraphs.back(); }

  static std::wstring Trimmed(std::wstring const & name) {
    size_t const first = name.find_first_not_of(L' ');
    if (first == std::wstring::npos) return std::wstring();
    return name.substr(first, name.find_last_not_of(L' ') - first + 1);
  }
  static bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
  static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
  static bool IsHex(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
  }
  static int HexValue(char c) {
    return IsDigit(c) ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : c - 'A' + 10;
  }

  std::string_view const mIn;
  size_t const mLimit;
  size_t mAt = 0;
  size_t mCount = 0;
  RtfReadResult mResult;
  RichTextFormat mDefault;
  GroupState mState;
  std::vector<GroupState> mStack;
  bool mGroupStart = false;
  bool mOptional = false;
  int mPendingSkip = 0;
  char32_t mHighSurrogate = 0;
  int mAnsiCodePage = 1252;
  int mDefaultFont = -1;
  std::map<int, Font> mFonts;
  int mFontEntry = std::numeric_limits<int>::min();
  std::wstring mFontName;
  std::vector<Colour> mColours;
  Colour mColourEntry;
  RichTextRun mPicture;
  RichTextPicture mPictureKind = RichTextPicture::None;
  int mHexHigh = -1;
  std::string mBytes;
  int mBytesCodePage = 1252;
  CodePages mPages;
};

}  // namespace

RtfReadResult ReadRtf(std::string_view rtf, size_t characterLimit, RichTextFormat const & start) {
  return Parser(rtf, characterLimit, start).Run();
}
