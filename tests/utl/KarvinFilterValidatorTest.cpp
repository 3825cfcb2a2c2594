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
    told.push_back(std::string(id == 0 ? "" : "[can be switched off] ") +
                   caption.ToString(std::locale()) + ": " + text.ToString(std::locale()));
  }
  std::vector<std::string> told;
};

// A derived validator that refuses more than the language does.
class NoDigits : public KarvinFilterValidator {
public:
  bool IsValid(char const * text) override {
    return KarvinFilterValidator::IsValid(text) &&
           std::string(text).find_first_of("0123456789") == std::string::npos;
  }
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
      {"run 7", "Filter: The text is not a valid filter."},  // only NoDigits refuses it
  };
  RecordingUserComm comm;
  UserComm * const before = UserComm::SetUserComm(&comm);
  NoDigits validator;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    comm.told.clear();
    EXPECT_EQ(validator.IsValid(c.text), c.told == nullptr);
    if (c.told == nullptr) continue;
    validator.Error(nullptr);
    ASSERT_EQ(comm.told.size(), 1u);
    EXPECT_EQ(comm.told[0].rfind(c.told, 0), 0u) << comm.told[0];
  }
  EXPECT_TRUE(KarvinFilterValidator().IsValid(nullptr));
  UserComm::SetUserComm(nullptr);
  validator.Error(nullptr);  // no channel: nothing to crash on
  UserComm::SetUserComm(before);
}

}  // namespace
