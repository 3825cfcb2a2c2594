#include "pictures/ArtInfoText.h"

#include <boost/archive/text_iarchive.hpp>
#include <boost/archive/text_oarchive.hpp>
#include <boost/iostreams/device/array.hpp>
#include <boost/iostreams/stream.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>

#include <cstdint>
#include <limits>
#include <locale>
#include <string>

namespace vx3 {

namespace {

constexpr std::string_view kSignature = "serialization::archive";

// Walks the tokens that Boost's text_iarchive will read for an ArtInfo, the
// way it reads them (numbers after blanks; a string as length, one separator
// character, bytes), and rejects anything Boost would read differently or
// that describes more than the text holds. Stricter than Boost where that
// is simpler: counts carry no sign, class information must be "0 0".
class ArtInfoTextScanner {
public:
  explicit ArtInfoTextScanner(std::string_view text) : mText(text) {}

  // Checks the header and returns where the body starts.
  size_t Header() {
    if (String() != kSignature) Fail("no archive signature");
    unsigned long long const version = Unsigned(65535);
    if (version < kArtInfoMinimumVersion) Fail("archive version below 11");
    return mAt;
  }

  void ArtInfoBody() {
    ClassInformation();  // ArtInfo
    ClassInformation();  // std::vector<CollectionInfo>
    size_t const collections = Count(ArtInfoTextLimits::kMaxCollections);
    for (size_t c = 0; c < collections; ++c) {
      if (c == 0) ClassInformation();
      for (int field = 0; field < 4; ++field) Int();
      for (int field = 0; field < 3; ++field) String();
      if (!mPictureVectorSeen) ClassInformation();
      mPictureVectorSeen = true;
      size_t const pictures = Count(ArtInfoTextLimits::kMaxPicturesPerCollection);
      for (size_t p = 0; p < pictures; ++p) {
        if (!mPictureSeen) ClassInformation();
        mPictureSeen = true;
        if (++mPictures > ArtInfoTextLimits::kMaxPictures) Fail("too many pictures");
        String();
        String();
      }
    }
  }

private:
  [[noreturn]] void Fail(char const * what) const {
    throw ArtInfoTextError(std::string("ArtInfo text: ") + what + " at byte " +
                           std::to_string(mAt));
  }

  void SkipBlanks() {
    while (mAt < mText.size()) {
      char const c = mText[mAt];
      if (c != ' ' && c != '\n' && c != '\t' && c != '\r' && c != '\v' && c != '\f') break;
      ++mAt;
    }
  }

  unsigned long long Digits(unsigned long long max) {
    size_t const start = mAt;
    unsigned long long value = 0;
    while (mAt < mText.size() && mText[mAt] >= '0' && mText[mAt] <= '9') {
      value = value * 10 + static_cast<unsigned>(mText[mAt] - '0');
      if (value > max) Fail("number out of range");
      ++mAt;
    }
    if (mAt == start) Fail("number expected");
    return value;
  }

  unsigned long long Unsigned(unsigned long long max) {
    SkipBlanks();
    return Digits(max);
  }

  void Int() {
    SkipBlanks();
    bool const negative = mAt < mText.size() && mText[mAt] == '-';
    if (negative) ++mAt;
    Digits(negative ? 2147483648ull : 2147483647ull);
  }

  // A count of elements followed by the item version.
  size_t Count(size_t max) {
    size_t const count = Unsigned(max);
    Unsigned(std::numeric_limits<unsigned int>::max());
    return count;
  }

  // Tracking level and class version of a class met for the first time.
  void ClassInformation() {
    if (Unsigned(1) != 0 || Unsigned(0) != 0) Fail("unexpected class information");
  }

  std::string_view String() {
    size_t const length = Unsigned(ArtInfoTextLimits::kMaxStringBytes);
    if (mAt >= mText.size()) Fail("string separator expected");
    ++mAt;  // Boost skips exactly one character, whatever it is
    if (length > mText.size() - mAt) Fail("string runs past the end");
    std::string_view const value = mText.substr(mAt, length);
    mAt += length;
    return value;
  }

  std::string_view mText;
  size_t mAt = 0;
  bool mPictureVectorSeen = false;
  bool mPictureSeen = false;
  size_t mPictures = 0;
};

}  // namespace

void WriteArtInfoText(ArtInfo const & art, std::ostream & out) {
  std::locale const former = out.imbue(std::locale::classic());
  // Boost writes the header of its own version; the body's tokens for these
  // classes are the same as in version 11, so the header is written here.
  out << kSignature.size() << ' ' << kSignature << ' ' << kArtInfoWriteVersion << ' ';
  {
    boost::archive::text_oarchive archive(out, boost::archive::no_header);
    archive << art;
  }
  out.imbue(former);
}

ArtInfo ReadArtInfoText(std::string_view text) {
  if (text.size() > ArtInfoTextLimits::kMaxTextBytes)
    throw ArtInfoTextError("ArtInfo text too long");
  ArtInfoTextScanner scanner(text);
  size_t const body = scanner.Header();
  scanner.ArtInfoBody();

  // The body is read as this Boost's own version: for these classes the
  // tokens do not differ between the versions read.
  boost::iostreams::stream<boost::iostreams::array_source> in(text.data() + body,
                                                              text.size() - body);
  in.imbue(std::locale::classic());
  ArtInfo art;
  boost::archive::text_iarchive archive(in, boost::archive::no_header | boost::archive::no_codecvt);
  archive >> art;
  return art;
}

}  // namespace vx3
