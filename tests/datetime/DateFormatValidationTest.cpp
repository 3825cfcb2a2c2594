// The date format validator: how a format falls into tokens, which boxes a
// format shows and in which order, and that any bytes pass without harm.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BoxRecorder.h"
#include "datetime/DateFormatValidation.h"

using VxTimeUtl::TokenizeDateFormat;
using VxTimeUtl::ValidateFormatString;
using Strings = std::vector<std::string>;

namespace {

std::string const kNothing1 = "The format given:\n";
std::string const kNothing2 =
    "\nis not valid. The format can only contain the alternatives found using the button "
    "'Show details'.";
std::string const kRepeated =
    "Each format can only appear once in the format string. These appear more than once:\n";
std::string const kUnknown = "There are unknown formats in the format string. These are:\n";
std::string const kAmPm = "To use format 'h' or 'hh' the date must contain a AM/PM item ('tt').";

}  // namespace

TEST(TokenizeDateFormat, LetterRunsInOrderWithEverythingElseDropped) {
  struct Case {
    std::string format;
    Strings tokens;
  };
  Case const cases[] = {
      {"", {}},
      {"---", {}},
      {"yyyy-MM", {"yyyy", "MM"}},
      {"dd dd", {"dd", "dd"}},
      {"yyyyMMdd", {"yyyy", "MM", "dd"}},
      {"ABC", {"A", "B", "C"}},
      {"HH:m", {"HH", "m"}},
      {"Mm", {"M", "m"}},  // case matters
      {"yy1yy", {"yy", "yy"}},
      {"a--a", {"a", "a"}},
      {"yyyy-MM-dd HH:mm:ss.fff", {"yyyy", "MM", "dd", "HH", "mm", "ss", "fff"}},
      {"dd\xc3\xa9MM", {"dd", "MM"}},        // a UTF-8 letter is a separator
      {std::string("y\0y", 3), {"y", "y"}},  // so is NUL
      {"\xff"
       "yy\xfe",
       {"yy"}},          // and invalid bytes
      {"  yy", {"yy"}},  // the first blank meets the start
  };
  for (Case const & c : cases) EXPECT_EQ(TokenizeDateFormat(c.format), c.tokens) << c.format;
}

TEST(ValidateFormatString, EachProblemShowsItsBoxInOrder) {
  struct Case {
    std::string format;
    Strings boxes;
  };
  Case const cases[] = {
      {"", {}},
      {"yyyy-MM-dd HH:mm:ss.fff", {}},
      {"M/d/yy h:mm tt", {}},
      {"ss", {}},         // no completeness check
      {"tt HH", {}},      // no rule from tt to the 24-hour clock
      {"d ddd", {}},      // the weekday beside the day
      {"d dd dd", {}},    // three day tokens: nothing said
      {"dd ddd dd", {}},  // two plain ones with the weekday
      {"---", {kNothing1 + "---" + kNothing2}},
      {"100%", {kNothing1 + "100%" + kNothing2}},  // "%" is text, not a placeholder
      {"yyyy yy", {kRepeated + "year"}},
      {"yyyy yy MM M", {kRepeated + "year, month"}},
      {"d dd", {kRepeated + "day"}},
      {"HH h tt", {kRepeated + "hour"}},
      {"HH H", {kRepeated + "hour"}},
      {"mm mm", {kRepeated + "minute"}},
      {"ss s", {kRepeated + "second", kUnknown + " s"}},
      {"fff ff", {kRepeated + "millisecond", kUnknown + " ff"}},
      {"yy MM yy MM dd d hh HH mm mm ss ss fff fff tt",
       {kRepeated + "year, month, day, hour, minute, second, millisecond"}},
      {"h", {kAmPm}},
      {"hh:mm", {kAmPm}},
      {"x yyyy x", {kUnknown + " x"}},
      {"ABC", {kUnknown + " A B C"}},
      {"HH:m", {kUnknown + " m"}},
      {"yyyy MMMM", {kUnknown + " MMMM"}},  // one token, not two months
      {"yyy yyy", {kRepeated + "year", kUnknown + " yyy"}},
      {"b a B A", {kUnknown + " A B a b"}},  // byte order: capitals first
      {"yy yy x h", {kRepeated + "year", kUnknown + " x", kAmPm}},
  };
  for (Case const & c : cases) {
    BoxRecorder recorder;
    bool const valid = ValidateFormatString(c.format);
    EXPECT_EQ(recorder.Texts(), c.boxes) << c.format;
    EXPECT_EQ(valid, c.boxes.empty()) << c.format;
    for (auto const & box : recorder.Boxes()) {
      EXPECT_EQ(box.type, static_cast<UINT>(MB_OK)) << c.format;
      EXPECT_EQ(box.helpId, 0U) << c.format;
    }
  }
}

TEST(ValidateFormatString, HostileBytesGiveBoxesWithValidUtf8) {
  std::string const megabyte(1 << 20, 'q');
  std::string const invalid = "\xc3(\xff\xfe%1%%";
  std::string withNul("HH\0mm", 5);
  struct Case {
    std::string format;
    size_t boxes;
  };
  Case const cases[] = {{megabyte, 1}, {invalid, 1}, {withNul, 0}};
  for (Case const & c : cases) {
    BoxRecorder recorder;
    EXPECT_EQ(ValidateFormatString(c.format), c.boxes == 0);
    ASSERT_EQ(recorder.Boxes().size(), c.boxes);
    for (auto const & box : recorder.Boxes())
      EXPECT_TRUE(box.text.find('\xff') == std::string::npos) << "invalid UTF-8 reached the box";
  }
  // The invalid bytes are dropped, the "%" signs kept as typed.
  BoxRecorder recorder;
  ValidateFormatString(invalid);
  EXPECT_EQ(recorder.Texts(), Strings{kNothing1 + "(%1%%" + kNothing2});
}
