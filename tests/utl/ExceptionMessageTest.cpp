// Messages keep their arguments until the text is asked for; exceptions copy
// and clone whole; Why never throws.
#include <gtest/gtest.h>

#include <memory>

#include "utl/Exception.h"
#include "utl/UserCommMessage.h"

namespace {

std::string Text(ExceptionMessage const & message) { return message.ToString(std::locale()); }

TEST(ExceptionMessage, SubstitutesArgumentsInOrderAndRepeatedPlaceholders) {
  ExceptionMessage message = ExceptionMessage::translate(
      "The location of the {1} install folder was not found. Install {1} again ({2} tries).");
  message % "Analyzer" % 3;
  EXPECT_EQ(Text(message),
            "The location of the Analyzer install folder was not found. Install Analyzer again (3 "
            "tries).");
  EXPECT_EQ(message.ArgumentCount(), 2u);
}

TEST(ExceptionMessage, KeepsPlaceholdersWithoutArgumentsAndLiteralBraces) {
  ExceptionMessage message = ExceptionMessage::translate("{1} of {2} {x} {} {0} {1");
  message % std::string("one");
  EXPECT_EQ(Text(message), "one of {2} {x} {} {0} {1");
  EXPECT_EQ(Text(ExceptionMessage::translate("{99999999999999999999999}")),
            "{99999999999999999999999}");
}

TEST(ExceptionMessage, NullIdAndNullArgumentAreEmptyText) {
  ExceptionMessage message = ExceptionMessage::translate(nullptr);
  EXPECT_TRUE(message.IsEmpty());
  EXPECT_EQ(Text(message), "");
  ExceptionMessage withNull = ExceptionMessage::translate("[{1}]");
  withNull % static_cast<char const *>(nullptr);
  EXPECT_EQ(Text(withNull), "[]");
}

TEST(ExceptionMessage, CopiesAreIndependentOfTheOriginal) {
  auto original = std::make_unique<ExceptionMessage>(ExceptionMessage::translate("{1}-{2}"));
  *original % 1;
  ExceptionMessage copy(*original);
  *original % 2;
  ExceptionMessage assigned;
  assigned = *original;
  original.reset();  // the copies own their arguments
  EXPECT_EQ(Text(copy), "1-{2}");
  EXPECT_EQ(Text(assigned), "1-2");
}

TEST(ExceptionMessage, InvalidUtf8InArgumentsIsSkipped) {
  ExceptionMessage message = ExceptionMessage::translate("<{1}>");
  message % std::string("a\xff\xfe" "b\xc3");
  EXPECT_EQ(Text(message), "<ab>");
}

TEST(ExceptionMessageList, ConcatenatesTextsWithNothingBetween) {
  ExceptionMessageList list;
  EXPECT_EQ(list.ToString(std::locale()), "");
  list << ExceptionMessage::translate("A system exception occurred: ")
       << (ExceptionMessage::translate("code {1}") % 5);
  ExceptionMessageList more;
  more << ExceptionMessage::translate("\n");
  list << more << list;  // appending itself doubles it
  EXPECT_EQ(list.ToString(std::locale()),
            "A system exception occurred: code 5\nA system exception occurred: code 5\n");
  EXPECT_EQ(list.size(), 6u);
}

TEST(UserCommMessage, IsBuiltEmptyOrFromOneMessage) {
  UserCommMessage empty;
  EXPECT_EQ(empty.ToString(std::locale()), "");
  UserCommMessage one = ExceptionMessage::translate("Saved {1}.") % "x.txt";
  EXPECT_EQ(one.ToString(std::locale()), "Saved x.txt.");
}

class DerivedException : public Exception {
public:
  using Exception::Exception;
  Exception * Clone() const override { return new DerivedException(*this); }
};

TEST(Exception, CloneCopiesTheMostDerivedObject) {
  DerivedException const thrown(ExceptionMessage::translate("File {1}.") % "a");
  std::unique_ptr<Exception> clone(static_cast<Exception const &>(thrown).Clone());
  EXPECT_NE(dynamic_cast<DerivedException *>(clone.get()), nullptr);
  EXPECT_EQ(clone->Why(), "File a.");
}

TEST(Exception, IsThrownByValueAndCaughtByReference) {
  try {
    ExceptionMessageList list;
    list << ExceptionMessage::translate("first. ") << ExceptionMessage::translate("second.");
    throw Exception(list);
  } catch (Exception & caught) {
    Exception copy(caught);
    EXPECT_EQ(copy.Why(std::locale()), "first. second.");
    return;
  }
  FAIL() << "not caught";
}

TEST(Exception, DefaultExceptionHasNoText) { EXPECT_EQ(Exception().Why(), ""); }

}  // namespace
