// What the filter validator accepts, and what it tells the user.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "utl/KarvinFilterValidator.h"
#include "utl/MuteUserComm.h"

namespace {

class RecordingUserComm : public MuteUserComm {
public:
  void FatalError(UserCommMessage const &, UserCommMessage const &) override {}
  void InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                  unsigned long id) override {
    told.push_back(caption.ToString(std::locale()) + ": " + text.ToString(std::locale()));
    ids.push_back(id);
  }
  std::vector<std::string> told;
  std::vector<unsigned long> ids;
};

class ScopedUserComm {
public:
  explicit ScopedUserComm(UserComm * channel) : mBefore(UserComm::SetUserComm(channel)) {}
  ~ScopedUserComm() { UserComm::SetUserComm(mBefore); }

private:
  UserComm * mBefore;
};

TEST(KarvinFilterValidator, AcceptsWellFormedFiltersAndExplainsTheLastProblem) {
  struct Case {
    char const * text;
    char const * told;  // null: valid; else the start of the message
  } const cases[] = {
      {"pump -valve | \"cold water\" *.csv", nullptr},
      {"\"cold water", "Filter: The filter has a quotation mark that is not closed."},
      {"a - b", "Filter: The filter has a minus sign with no text after it."},
      {"a \"\"", "Filter: The filter has a pair of quotation marks with nothing between them."},
      {"a |", "Filter: The filter has a vertical bar with no text on one of its sides."},
  };
  RecordingUserComm comm;
  ScopedUserComm const scope(&comm);
  KarvinFilterValidator validator;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    comm.told.clear();
    EXPECT_EQ(validator.IsValid(c.text), c.told == nullptr);
    if (c.told == nullptr) continue;
    validator.Error(nullptr);
    ASSERT_EQ(comm.told.size(), 1u);
    EXPECT_EQ(comm.told[0].rfind(c.told, 0), 0u) << comm.told[0];
    EXPECT_EQ(comm.ids[0], 0u);  // cannot be switched off
  }
  EXPECT_TRUE(validator.IsValid(nullptr));
}

TEST(KarvinFilterValidator, ErrorWithoutAChannelDoesNothingAndADerivedRefusalGetsAMessage) {
  class NoDigits : public KarvinFilterValidator {
  public:
    bool IsValid(char const * text) override {
      return KarvinFilterValidator::IsValid(text) &&
             std::string(text).find_first_of("0123456789") == std::string::npos;
    }
  };
  ScopedUserComm const none(nullptr);
  NoDigits validator;
  EXPECT_FALSE(validator.IsValid("\"open"));
  validator.Error(nullptr);  // no channel: nothing to crash on

  RecordingUserComm comm;
  ScopedUserComm const scope(&comm);
  EXPECT_FALSE(validator.IsValid("run 7"));
  validator.Error(nullptr);
  ASSERT_EQ(comm.told.size(), 1u);
  EXPECT_EQ(comm.told[0], "Filter: The text is not a valid filter.");
}

}  // namespace
