// Messages keep their arguments until the text is asked for; messages and
// exceptions copy and clone whole.
#include <gtest/gtest.h>

#include <memory>

#include "utl/Exception.h"

namespace {

std::string Text(ExceptionMessage const & message) { return message.ToString(std::locale()); }

TEST(ExceptionMessage, SubstitutesArgumentsInOrderAndKeepsWhatIsNoPlaceholder) {
  struct Case {
    char const * id;
    std::vector<char const *> arguments;
    char const * expected;
  } const cases[] = {
      {"Install {1} again ({2} tries, {1}).",
       {"Analyzer", "3"},
       "Install Analyzer again (3 tries, Analyzer)."},
      {"{1} of {2} {x} {} {0} {1", {"one"}, "one of {2} {x} {} {0} {1"},
      {"{99999999999999999999999}", {}, "{99999999999999999999999}"},
      {"[{1}]", {nullptr}, "[]"},
      {"<{1}>",
       {"a\xff\xfe"
        "b\xc3"},
       "<ab>"},  // invalid UTF-8 is skipped
      {nullptr, {}, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.expected);
    ExceptionMessage message = ExceptionMessage::translate(c.id);
    for (char const * argument : c.arguments) message % argument;
    EXPECT_EQ(Text(message), c.expected);
  }
}

TEST(ExceptionMessage, CopiesAndClonesAreIndependentOfTheOriginal) {
  auto original = std::make_unique<ExceptionMessage>(ExceptionMessage::translate("{1}-{2}"));
  *original % 1;
  ExceptionMessage copy(*original);
  *original % 2;
  ExceptionMessage assigned;
  assigned = *original;
  std::unique_ptr<Exception> clone(Exception(*original).Clone());
  original.reset();  // the copies own their arguments
  EXPECT_EQ(Text(copy), "1-{2}");
  EXPECT_EQ(Text(assigned), "1-2");
  EXPECT_EQ(clone->Why(), "1-2");
}

TEST(ExceptionMessageList, ConcatenatesTextsAndMayAppendItself) {
  ExceptionMessageList list;
  list << ExceptionMessage::translate("Error: ") << (ExceptionMessage::translate("code {1}") % 5);
  ExceptionMessageList more;
  more << ExceptionMessage::translate("\n");
  list << more << list;  // appending itself doubles it
  EXPECT_EQ(list.ToString(std::locale()), "Error: code 5\nError: code 5\n");
}

}  // namespace
